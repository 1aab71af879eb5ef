// The tree browser driven as a user drives it: one click opens a value's editor and acts in
// it, keys open and move it, disabled rows open nothing, a saved expansion comes back and
// bytes that are no saved state change nothing; the browser and rows going while an editor
// is open.
#include "TestEnvironment.h"
#include "TestRegistry.h"
#include "sample/EmptyObject.h"
#include "browser/TreePropertyBrowser.h"
#include "browser/ViewEditorFactory.h"
#include "browser/ViewProperty.h"
#include "core/BoolProperty.h"
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"
#include "core/StringProperty.h"
#include "propertybrowser/QtBrowserItem.h"

#include <QApplication>
#include <QCheckBox>
#include <QDataStream>
#include <QHeaderView>
#include <QLineEdit>
#include <QPointer>
#include <QSpinBox>
#include <QTest>
#include <QTreeWidget>

using namespace TavoLib;

namespace {

// A browser over a group "Box" (Shown, Count) and a string "Name", on screen.
struct Tree
{
    TreePropertyBrowser *browser = new TreePropertyBrowser;
    ViewPropertyManager *manager = new ViewPropertyManager(browser);
    ViewEditorFactory factory;
    BoolProperty::Ptr shown{ new BoolProperty("shown", "Shown", false) };
    IntegerProperty::Ptr count{ new IntegerProperty("count", "Count", 3, 0, 99) };
    StringProperty::Ptr name{ new StringProperty("name", "Name", "first") };

    Tree()
    {
        browser->addFactory(manager, &factory);
        factory.addPropertyManager(manager);
        PropertyDictionary box;
        box.insertProperty(shown);
        box.insertProperty(count);
        PropertyDictionary rows;
        rows.insertProperty(new GroupProperty("box", "Box", box));
        rows.insertProperty(name);
        manager->addProperties(rows, new Sample::EmptyObject);
        browser->resize(400, 300);
        browser->show();
        QApplication::setActiveWindow(browser);
    }
    ~Tree()
    {
        delete browser;
        delete manager;
    }
    QTreeWidget *tree() const { return browser->findChild<QTreeWidget *>(); }
    QTreeWidgetItem *row(const QString &label) const
    {
        const auto found = tree()->findItems(label, Qt::MatchExactly | Qt::MatchRecursive, 0);
        return found.value(0);
    }
    QPoint valueCell(const QString &label) const
    {
        QRect cell = tree()->visualItemRect(row(label));
        cell.setLeft(tree()->header()->sectionPosition(1));
        cell.setWidth(tree()->header()->sectionSize(1));
        return QPoint(cell.left() + 8, cell.center().y());
    }
    QWidget *editor() const { return tree()->findChild<QWidget *>(QStringLiteral("editor")); }
    QtBrowserItem *item(const QString &label) const
    {
        std::function<QtBrowserItem *(const QList<QtBrowserItem *> &)> find
            = [&](const QList<QtBrowserItem *> &items) -> QtBrowserItem * {
            for (QtBrowserItem *i : items) {
                if (i->property()->propertyName() == label)
                    return i;
                if (QtBrowserItem *c = find(i->children()))
                    return c;
            }
            return nullptr;
        };
        return find(browser->topLevelItems());
    }
};

QByteArray state(quint8 version, quint32 count, const QList<QPair<QString, bool>> &entries)
{
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    stream.setVersion(12);
    stream << version << count;
    for (const auto &entry : entries)
        stream << entry.first << entry.second;
    return data;
}

} // namespace

class TreePropertyBrowserTest : public QObject
{
    Q_OBJECT

private slots:
    void oneClickOpensTheEditorAndActsInIt()
    {
        Tree t;
        QTest::mouseClick(t.tree()->viewport(), Qt::LeftButton, {}, t.valueCell("Shown"));
        QTRY_VERIFY(t.editor());
        // The click that opened the check box also ticked it.
        QVERIFY(t.shown->on());
        // Rows other than the edited one are painted text; the edited one keeps its editor.
        QVERIFY(t.editor()->geometry().intersects(t.tree()->visualItemRect(t.row("Shown"))));

        // A disabled row opens nothing, and disabling the edited row closes its editor.
        QPointer<QWidget> open = t.editor();
        t.item("Shown")->property()->setEnabled(false);
        QTRY_VERIFY(!open);
        QTest::mouseClick(t.tree()->viewport(), Qt::LeftButton, {}, t.valueCell("Shown"));
        QApplication::processEvents();
        QVERIFY(!t.editor());
        QVERIFY(t.shown->on());
    }

    void keysOpenAndMoveTheEditor()
    {
        Tree t;
        t.tree()->setFocus();
        t.tree()->setCurrentItem(t.row("Name"), 0);
        QTest::keyClick(t.tree(), Qt::Key_Return);
        QTRY_VERIFY(t.editor());
        auto *line = qobject_cast<QLineEdit *>(t.editor());
        if (!line)
            line = t.editor()->findChild<QLineEdit *>();
        QVERIFY(line);
        // The whole text is selected: typing replaces it.
        QTest::keyClicks(line, "second");
        QTest::keyClick(line, Qt::Key_Return);
        QCOMPARE(t.name->value(), QStringLiteral("second"));

        // Space opens the editor of the current row; Tab then stays in the tree and moves
        // the editor on instead of leaving for the next widget of the window.
        t.tree()->setFocus();
        t.tree()->setCurrentItem(t.row("Count"), 1);
        QTest::keyClick(t.tree(), Qt::Key_Space);
        QTRY_VERIFY(t.editor());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QApplication::processEvents();
        QVERIFY(t.browser->isAncestorOf(QApplication::focusWidget()));
    }

    void savedExpansionAndBadBytes()
    {
        Tree t;
        QtBrowserItem *box = t.item("Box");
        t.browser->setExpanded(box, false);
        const QByteArray saved = t.browser->saveState();
        t.browser->setExpanded(box, true);
        t.browser->restoreState(saved);
        QVERIFY(!t.browser->isExpanded(box));

        // Nothing of these collapses the row or crashes: no bytes, another version, a count
        // far beyond the data, an entry cut short, a string length beyond the data.
        t.browser->setExpanded(box, true);
        QByteArray huge = state(1, 0xffffffffu, {});
        QByteArray cut = state(1, 1, { { "box", false } });
        cut.chop(1);
        QByteArray longString = state(1, 1, {});
        longString.append(QByteArray::fromHex("7ffffffe"));
        for (const QByteArray &bad : { QByteArray(), state(2, 1, { { "box", false } }), huge, cut,
                 longString, QByteArray("\x01", 1) }) {
            t.browser->restoreState(bad);
            QVERIFY(t.browser->isExpanded(box));
        }
        // A state of rows no longer shown is kept and written back.
        t.browser->restoreState(state(1, 2, { { "zz-gone", false }, { "box", true } }));
        QVERIFY(t.browser->isExpanded(box));
        QVERIFY(t.browser->saveState().contains(QByteArray("z\0z", 3)));
    }

    // A row is expanded once it has children to show, unless it was collapsed before; a
    // marked heading toggles by a click on its painted icon, and only there.
    void expansionOfRowsThatGainChildren()
    {
        Tree t;
        QtBrowserItem *name = t.item("Name");
        QVERIFY(t.browser->isExpanded(name));
        auto *child = t.manager->addProperty(new IntegerProperty("n", "N", 1, 0, 9), new Sample::EmptyObject);
        name->property()->addSubProperty(child);
        QVERIFY(t.row("Name")->isExpanded());
        QtBrowserItem *box = t.item("Box");
        t.browser->setExpanded(box, false);
        t.browser->restoreState(t.browser->saveState());
        QVERIFY(!t.row("Box")->isExpanded());

        auto *heading = t.manager->addProperty(new Property("head", "Heading"), TAutoPtr<const PropertyableObject>());
        t.browser->addProperty(heading);
        heading->addSubProperty(t.manager->addProperty(new IntegerProperty("m", "M", 1, 0, 9), new Sample::EmptyObject));
        t.browser->setRootIsDecorated(false);
        t.browser->setPropertiesWithoutValueMarked(true);
        QTreeWidgetItem *row = t.row("Heading");
        QVERIFY(!row->icon(0).isNull());
        const int y = t.tree()->visualItemRect(row).center().y();
        QTest::mouseClick(t.tree()->viewport(), Qt::LeftButton, {}, QPoint(30, y));
        QVERIFY(row->isExpanded());
        QTest::mouseClick(t.tree()->viewport(), Qt::LeftButton, {}, QPoint(8, y));
        QVERIFY(!row->isExpanded());
    }

    // The browser goes while an editor is open and has the focus; then the rows' manager.
    void browserDeletedWithOpenEditor()
    {
        auto *t = new Tree;
        QTest::mouseClick(t->tree()->viewport(), Qt::LeftButton, {}, t->valueCell("Name"));
        QTRY_VERIFY(t->editor());
        QTest::keyClicks(QApplication::focusWidget(), "typed");
        delete t;
    }

    void rowRemovedWhileEditing()
    {
        Tree t;
        QTest::mouseClick(t.tree()->viewport(), Qt::LeftButton, {}, t.valueCell("Name"));
        QTRY_VERIFY(t.editor());
        QPointer<QWidget> editor = t.editor();
        t.browser->removeProperty(t.item("Name")->property());
        QTRY_VERIFY(!editor);
        QVERIFY(!t.row("Name"));
        // The next click opens an editor of a row that stays.
        QTest::mouseClick(t.tree()->viewport(), Qt::LeftButton, {}, t.valueCell("Count"));
        QTRY_VERIFY(t.editor());
    }
};

TAVO_TEST(TreePropertyBrowserTest)
#include "TreePropertyBrowserTest.moc"
