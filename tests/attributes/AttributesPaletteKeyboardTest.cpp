// The gallery's attributes palette over the sample document, used by keyboard alone: Tab
// into the tree, Down through every row with the editor following, each kind of value
// changed by keys, Escape out of an edit, Ctrl+Tab out of the tree; then other objects
// selected: collapsed rows stay collapsed, and the hook ran once per edit.
#include "TestRegistry.h"
#include "browser/TreePropertyBrowser.h"
#include "core/Environment.h"
#include "propertybrowser/QtBrowserItem.h"
#include "propertybrowser/QtProperty.h"
#include "sample/SampleDocument.h"
#include "sample/SamplePalette.h"
#include "sample/SampleSchema.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QListWidget>
#include <QSettings>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

using namespace TavoLib;

namespace {

// The gallery page's setup: the sample objects in a list beside the palette.
struct Page
{
    QWidget window;
    TAutoPtr<Environment> environment{ new Environment };
    Sample::SampleDocument::Ptr document = Sample::SampleDocument::makeDefault();
    QListWidget *objects = new QListWidget(&window);
    Sample::SamplePalette *palette = nullptr;
    QList<TAutoPtr<const Attribute>> edits;

    Page()
    {
        environment->setStylesheetManager(document->stylesheets());
        Sample::SampleSchema::registerDefaultAttributes(*environment);
        objects->setSelectionMode(QAbstractItemView::ExtendedSelection);
        for (const auto &object : document->objects())
            objects->addItem(object->name());
        palette = new Sample::SamplePalette([this] { return selected(); });
        palette->setParent(&window);
        palette->setEnvironment(environment);
        palette->onEdit = [this](TAutoPtr<const Attribute> attribute) { edits << attribute; };
        auto *layout = new QHBoxLayout(&window);
        layout->addWidget(objects);
        layout->addWidget(palette, 1);
        QObject::connect(objects, &QListWidget::itemSelectionChanged, palette,
            [this] { palette->selectionChanged(); });
        objects->setCurrentRow(0);
        window.resize(700, 700);
        window.show();
        QApplication::setActiveWindow(&window);
        objects->setFocus();
    }
    std::vector<Sample::SampleObject::Ptr> selected() const
    {
        std::vector<Sample::SampleObject::Ptr> result;
        for (int row = 0; row < objects->count(); ++row)
            if (objects->item(row)->isSelected())
                result.push_back(document->objects()[size_t(row)]);
        return result;
    }
    QTreeWidget *tree() const { return palette->currentWidget()->findChild<QTreeWidget *>(); }
    QWidget *focus() const { return QApplication::focusWidget(); }
    bool inTree() const { return focus() == tree() || tree()->isAncestorOf(focus()); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(focus(), key, modifiers);
        QApplication::processEvents();
    }
    QWidget *editor() const
    {
        for (QWidget *w : tree()->findChildren<QWidget *>(QStringLiteral("editor")))
            if (w->isVisible())
                return w;
        return nullptr;
    }
    QString editedRow() const
    {
        QWidget *open = editor();
        QTreeWidgetItem *item = open ? tree()->itemAt(open->geometry().center()) : nullptr;
        return item ? item->text(0) : QString();
    }
    QString current() const { return tree()->currentItem() ? tree()->currentItem()->text(0) : QString(); }
    // Escape then Down until the current row is the one named, checking the editor follows.
    bool walkTo(const QString &label)
    {
        for (int i = 0; i < 40 && current() != label; ++i) {
            key(Qt::Key_Escape);
            const QString before = current();
            key(Qt::Key_Down);
            if (current() == before)
                return false;
            QTreeWidgetItem *row = tree()->currentItem();
            const bool editable = row->flags().testFlag(Qt::ItemIsEnabled) && !row->text(1).isEmpty();
            if (editable && editedRow() != current()) {
                qWarning() << "no editor on" << current();
                return false;
            }
        }
        return current() == label;
    }
};

} // namespace

class AttributesPaletteKeyboardTest : public QObject
{
    Q_OBJECT
    QTemporaryDir mHome;

private slots:
    void initTestCase() { QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, mHome.path()); }

    void byKeyboardAlone()
    {
        Page p;
        QVERIFY(QTest::qWaitForWindowActive(&p.window));
        QCOMPARE(p.focus(), p.objects);
        // Tab from the list into the first tab's tree, then Down through every row.
        for (int i = 0; i < 4 && !p.inTree(); ++i)
            p.key(Qt::Key_Tab);
        QVERIFY(p.inTree());
        QVERIFY(p.walkTo(QStringLiteral("Colour")));
        p.key(Qt::Key_Down);
        QCOMPARE(p.current(), QStringLiteral("Colour")); // the last row

        // Out of the tree, to the tab bar, on to the "Text" tab and into its tree.
        p.key(Qt::Key_Tab, Qt::ControlModifier);
        QVERIFY(!p.inTree());
        for (int i = 0; i < 4 && !qobject_cast<QTabBar *>(p.focus()); ++i)
            p.key(Qt::Key_Tab);
        QVERIFY(qobject_cast<QTabBar *>(p.focus()));
        p.key(Qt::Key_Right);
        QCOMPARE(p.palette->currentIndex(), 1);
        for (int i = 0; i < 4 && !p.inTree(); ++i)
            p.key(Qt::Key_Tab);
        QVERIFY(p.inTree());

        // Typed and then Escape: nothing is written, the tree has the focus.
        QVERIFY(p.walkTo(QStringLiteral("Size")));
        QTest::keyClicks(p.focus(), QStringLiteral("15"));
        p.key(Qt::Key_Escape);
        QVERIFY(p.tree()->hasFocus());
        QCOMPARE(p.tree()->currentItem()->text(1), QStringLiteral("10pt"));
        QCOMPARE(p.edits.size(), 0);

        // Each kind by keys: integer, bool, choice, measure, switchable group.
        QVERIFY(p.walkTo(QStringLiteral("Tracking")));
        p.key(Qt::Key_Up);
        QTRY_COMPARE(p.edits.size(), 1);
        QVERIFY(p.walkTo(QStringLiteral("Underline")));
        p.key(Qt::Key_Space);
        QTRY_COMPARE(p.edits.size(), 2);
        QVERIFY(p.walkTo(QStringLiteral("Case")));
        p.key(Qt::Key_Down);
        QTRY_COMPARE(p.edits.size(), 3);
        QVERIFY(p.walkTo(QStringLiteral("Left indent")));
        p.key(Qt::Key_Up);
        QTRY_COMPARE(p.edits.size(), 4);
        QVERIFY(p.walkTo(QStringLiteral("Hyphenation")));
        p.key(Qt::Key_Space);
        QTRY_COMPARE(p.edits.size(), 5);
        QCOMPARE(p.tree()->currentItem()->text(0), QStringLiteral("Hyphenation"));
        // Collapsed by key.
        p.key(Qt::Key_Escape);
        p.key(Qt::Key_Left);
        QVERIFY(!p.tree()->currentItem()->isExpanded());

        // Out of the tree to the list; another selection and back.
        p.key(Qt::Key_Tab, Qt::ControlModifier);
        QVERIFY(!p.inTree());
        for (int i = 0; i < 4 && p.focus() != p.objects; ++i)
            p.key(Qt::Key_Tab);
        QCOMPARE(p.focus(), p.objects);
        p.key(Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(p.selected().size(), size_t(2));
        p.key(Qt::Key_Up);
        QCOMPARE(p.selected().size(), size_t(1));
        QTreeWidgetItem *hyphenation
            = p.tree()->findItems(QStringLiteral("Hyphenation"), Qt::MatchExactly, 0).value(0);
        QVERIFY(hyphenation);
        QVERIFY(!hyphenation->isExpanded());
        QVERIFY(hyphenation->text(1).startsWith(QLatin1String("Off")));
        const auto tracking
            = p.tree()->findItems(QStringLiteral("Tracking"), Qt::MatchExactly, 0).value(0);
        QCOMPARE(tracking->text(1), QStringLiteral("1"));
        // One hook call per edit, none for the selections.
        QTest::qWait(10);
        QCOMPARE(p.edits.size(), 5);
    }
};

TAVO_TEST(AttributesPaletteKeyboardTest)
#include "AttributesPaletteKeyboardTest.moc"
