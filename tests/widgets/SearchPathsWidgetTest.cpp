// The search-path list: adding through the chooser, removing and reordering by keys, the
// relative flag switched through MakeRelativePath (and refused where no relative form exists),
// folders that do not exist marked, odd paths from the host taken without harm.
#include "widgets/SearchPathsWidget.h"
#include "TestRegistry.h"

#include <QDir>
#include <QHeaderView>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

namespace {

class ScriptedPaths : public SearchPathsWidget
{
public:
    QStringList answers;
    QString lastStart;

protected:
    QString chooseFolder(const QString &start) override
    {
        lastStart = start;
        return answers.isEmpty() ? QString() : answers.takeFirst();
    }
};

OmaLib::SearchPath entry(const QString &path, bool relative, bool subfolder = false)
{
    OmaLib::SearchPath e;
    e.path = path;
    e.relative = relative;
    e.subfolder = subfolder;
    return e;
}

QStringList pathsOf(const SearchPathsWidget &widget)
{
    QStringList list;
    for (const OmaLib::SearchPath &e : widget.searchPaths())
        list << e.path;
    return list;
}

} // namespace

class SearchPathsWidgetTest : public QObject
{
    Q_OBJECT
private slots:
    void addRemoveReorderByUser()
    {
        QTemporaryDir dir;
        QVERIFY(QDir(dir.path()).mkpath("fonts"));
        QVERIFY(QDir(dir.path()).mkpath("images"));
        ScriptedPaths widget;
        widget.setBasePath(dir.path());
        widget.show();
        QSignalSpy changed(&widget, &SearchPathsWidget::searchPathsChanged);
        auto *add = widget.findChild<QPushButton *>(QString(), Qt::FindChildrenRecursively);
        QVERIFY(add && add->text().contains("Add"));

        widget.answers = QStringList({ dir.filePath("fonts"), dir.filePath("images"), QString() });
        QTest::mouseClick(add, Qt::LeftButton);
        QTest::mouseClick(add, Qt::LeftButton);
        QTest::mouseClick(add, Qt::LeftButton); // cancelled
        QCOMPARE(pathsOf(widget), QStringList({ dir.filePath("fonts"), dir.filePath("images") }));
        QCOMPARE(changed.count(), 2);
        QCOMPARE(widget.lastStart, dir.filePath("images")); // starts at the current row
        QVERIFY(!widget.addFolder(dir.filePath("fonts/"))); // listed already
        QVERIFY(!widget.addFolder("   "));

        QTreeWidget *view = widget.view();
        view->setFocus();
        QCOMPARE(view->currentItem(), view->topLevelItem(0)); // the duplicate became current
        QTest::keyClick(view, Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(pathsOf(widget), QStringList({ dir.filePath("images"), dir.filePath("fonts") }));
        QTest::keyClick(view, Qt::Key_Down, Qt::ControlModifier); // at the end: stays
        QCOMPARE(changed.count(), 3);
        QTest::keyClick(view, Qt::Key_Delete);
        QCOMPARE(pathsOf(widget), QStringList({ dir.filePath("images") }));
        QTest::keyClick(view, Qt::Key_Delete);
        QTest::keyClick(view, Qt::Key_Delete); // nothing left
        QVERIFY(widget.searchPaths().empty());
        QCOMPARE(changed.count(), 5);
    }

    void relativeFlagThroughMakeRelativePath()
    {
        QTemporaryDir dir;
        QVERIFY(QDir(dir.path()).mkpath("doc/fonts"));
        ScriptedPaths widget;
        widget.setBasePath(dir.filePath("doc"));
        widget.setSearchPaths({ entry(dir.filePath("doc/fonts"), false, true), entry("/", false) });
        // Its own size: a top-level window's first size is also bounded by the (small) screen.
        widget.resize(widget.sizeHint());
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        QSignalSpy changed(&widget, &SearchPathsWidget::searchPathsChanged);
        QTreeWidget *view = widget.view();
        // At its own size, at any density: the boxes in view without scrolling, beside a folder
        // column at least as wide as both of theirs.
        const QHeaderView *header = view->header();
        QVERIFY(header->length() <= view->viewport()->width());
        QVERIFY(header->sectionSize(SearchPathsWidget::PathColumn)
            >= header->sectionSize(SearchPathsWidget::RelativeColumn)
                + header->sectionSize(SearchPathsWidget::SubfolderColumn));

        // A click on the Relative box of the first row.
        auto clickBox = [&](int row) {
            const QModelIndex index = view->model()->index(row, SearchPathsWidget::RelativeColumn);
            QStyleOptionViewItem option;
            option.initFrom(view);
            option.rect = view->visualRect(index);
            option.features = QStyleOptionViewItem::HasCheckIndicator;
            const QRect box = view->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, view);
            QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, box.center());
        };
        clickBox(0);
        QCOMPARE(widget.searchPaths()[0].path, QString("fonts"));
        QVERIFY(widget.searchPaths()[0].relative);
        QVERIFY(widget.searchPaths()[0].subfolder);
        QVERIFY(widget.rowExists(0));
        QCOMPARE(changed.count(), 1);
        clickBox(0); // and back
        QCOMPARE(widget.searchPaths()[0].path, dir.filePath("doc/fonts"));
        QVERIFY(!widget.searchPaths()[0].relative);

        // Without a base folder there is no relative form: the box stays off.
        widget.setBasePath(QString());
        clickBox(0);
        QVERIFY(!widget.searchPaths()[0].relative);
        QCOMPARE(widget.searchPaths()[0].path, dir.filePath("doc/fonts"));
        QCOMPARE(changed.count(), 2);
    }

    void missingAndOddPathsAreMarkedNotDropped()
    {
        QTemporaryDir dir;
        ScriptedPaths widget;
        widget.setBasePath(dir.path());
        widget.setSearchPaths({ entry(dir.path(), false), entry("gone/away", true),
            entry(QString(), false), entry("../../../../../../..", true), entry(QString(4000, 'a'), true),
            entry(QString::fromUtf8("dossier\xc3\xa9/\x01"), false), entry("relative-without-flag", false) });
        widget.show();
        QCOMPARE(int(widget.searchPaths().size()), 7); // nothing the host gave is dropped
        QVERIFY(widget.rowExists(0));
        QVERIFY(!widget.rowExists(1));
        QVERIFY(!widget.rowExists(2));
        QVERIFY(!widget.rowExists(99));
        QVERIFY(widget.view()->topLevelItem(1)->toolTip(0).contains("does not exist"));
        QVERIFY(widget.view()->topLevelItem(1)->foreground(0) != widget.view()->topLevelItem(0)->foreground(0));
        QCOMPARE(widget.searchPaths()[1].path, QString("gone/away"));
        QVERIFY(widget.searchPaths()[1].relative);
        // The folder appears later: marking follows the base path.
        QVERIFY(QDir(dir.path()).mkpath("gone/away"));
        widget.setBasePath(dir.path());
        QVERIFY(widget.rowExists(1));
    }
};

TAVO_TEST(SearchPathsWidgetTest)
#include "SearchPathsWidgetTest.moc"
