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
#include "style/Device.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QDataStream>
#include <QHeaderView>
#include <QLineEdit>
#include <QPointer>
#include <QProxyStyle>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QToolTip>
#include <QTreeWidget>
#include <QVBoxLayout>

Q_DECLARE_METATYPE(QtBrowserItem *)

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

// A window of a line edit, a browser and another line edit. The browser shows strings
// "One", "Two", "Three", an integer "Count", a group "Box" (Shown, Size), a heading and two
// multi-line strings "Notes" (six lines) and "Memo" (one line).
struct Form
{
    QWidget window;
    QLineEdit *before = new QLineEdit(&window);
    TreePropertyBrowser *browser = new TreePropertyBrowser(&window);
    QLineEdit *after = new QLineEdit(&window);
    ViewPropertyManager *manager = new ViewPropertyManager(browser);
    ViewEditorFactory factory;
    StringProperty::Ptr one{ new StringProperty("one", "One", "1") };
    IntegerProperty::Ptr count{ new IntegerProperty("count", "Count", 3, 0, 99) };
    BoolProperty::Ptr shown{ new BoolProperty("shown", "Shown", false) };
    StringProperty::Ptr notes{ new StringProperty("notes", "Notes", "a\nb\nc\nd\ne\nf") };
    QList<QString> warnings;
    QtMessageHandler previous = nullptr;
    static Form *current;

    Form()
    {
        browser->addFactory(manager, &factory);
        factory.addPropertyManager(manager);
        notes->setMultiLine(true);
        StringProperty::Ptr memo(new StringProperty("memo", "Memo", "short"));
        memo->setMultiLine(true);
        PropertyDictionary box;
        box.insertProperty(shown);
        box.insertProperty(new IntegerProperty("size", "Size", 5, 0, 99));
        PropertyDictionary rows;
        rows.insertProperty(one);
        rows.insertProperty(new StringProperty("two", "Two", "2"));
        rows.insertProperty(new StringProperty("three", "Three", "3"));
        rows.insertProperty(count);
        rows.insertProperty(new GroupProperty("box", "Box", box));
        rows.insertProperty(notes);
        rows.insertProperty(memo);
        manager->addProperties(rows, new Sample::EmptyObject);
        auto *heading = manager->addProperty(new Property("head", "Heading"), TAutoPtr<const PropertyableObject>());
        browser->addProperty(heading);
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(before);
        layout->addWidget(browser);
        layout->addWidget(after);
        window.resize(400, 600);
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        current = this;
        previous = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &text) {
            // The offscreen platform's own complaints are not the library's.
            if (type == QtWarningMsg && current && !text.startsWith(QLatin1String("This plugin does not support")))
                current->warnings << text;
            if (current && current->previous)
                current->previous(type, context, text);
        });
    }
    ~Form()
    {
        qInstallMessageHandler(previous);
        current = nullptr;
        delete browser;
        delete manager;
    }
    QTreeWidget *tree() const { return browser->findChild<QTreeWidget *>(); }
    QTreeWidgetItem *row(const QString &label) const
    {
        return tree()->findItems(label, Qt::MatchExactly | Qt::MatchRecursive, 0).value(0);
    }
    void clickValue(const QString &label) const
    {
        const QRect cell = tree()->visualItemRect(row(label));
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {},
            QPoint(tree()->header()->sectionPosition(1) + 8, cell.center().y()));
    }
    // The open editor: closed ones are hidden until they go.
    QWidget *editor() const
    {
        for (QWidget *w : tree()->findChildren<QWidget *>(QStringLiteral("editor")))
            if (w->isVisible())
                return w;
        return nullptr;
    }
    // The row the open editor stands on, by its label.
    QString editedRow() const
    {
        QWidget *open = editor();
        if (!open)
            return QString();
        QTreeWidgetItem *item = tree()->itemAt(open->geometry().center());
        return item ? item->text(0) : QString();
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        QApplication::processEvents();
    }
    bool focusInTree() const { return tree()->isAncestorOf(QApplication::focusWidget()) || tree()->hasFocus(); }
};

Form *Form::current = nullptr;

// Answers false to the movement hint, as some platforms' styles do.
class NoMovementStyle : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
        QStyleHintReturn *returned) const override
    {
        if (hint == SH_ItemView_MovementWithoutUpdatingSelection)
            return 0;
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

// Counts the mouse presses that reach a widget.
struct PressCounter : QObject
{
    int presses = 0;
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::MouseButtonPress)
            ++presses;
        return false;
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

    void returnOpensTheEditorWithItsTextSelected()
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

    // Rows stand where the framework puts their items: first, after a row in the middle, last.
    void rowsTakeTheirPlaces()
    {
        Tree t;
        const auto add = [&](const QString &label) {
            return t.manager->addProperty(new IntegerProperty(label, label, 1, 0, 9), new Sample::EmptyObject);
        };
        const auto texts = [](QTreeWidgetItem *level) {
            QStringList result;
            for (int i = 0; i < level->childCount(); ++i)
                result << level->child(i)->text(0);
            return result;
        };
        QtProperty *first = add("First");
        t.browser->insertProperty(first, nullptr);
        t.browser->insertProperty(add("Middle"), first);
        t.browser->addProperty(add("Last"));
        QtProperty *box = t.item("Box")->property();
        box->insertSubProperty(add("Inner"), box->subProperties().first());
        box->addSubProperty(add("Bottom"));
        QCOMPARE(texts(t.tree()->invisibleRootItem()), QStringList({ "First", "Middle", "Box", "Name", "Last" }));
        QCOMPARE(texts(t.row("Box")), QStringList({ "Shown", "Inner", "Count", "Bottom" }));
    }

    // Every key that moves the current row, in an editor or in the tree, leaves the editor
    // on the new row; nothing is written to the log.
    void keysMoveTheEditorAlong()
    {
        Form f;
        f.clickValue("One");
        QTRY_COMPARE(f.editedRow(), QStringLiteral("One"));
        f.key(Qt::Key_Down);
        QCOMPARE(f.editedRow(), QStringLiteral("Two"));
        QVERIFY(f.editor()->isAncestorOf(QApplication::focusWidget()) || f.editor()->hasFocus());
        f.key(Qt::Key_Down);
        QCOMPARE(f.editedRow(), QStringLiteral("Three"));
        f.key(Qt::Key_Up);
        QCOMPARE(f.editedRow(), QStringLiteral("Two"));
        f.key(Qt::Key_Tab);
        QCOMPARE(f.editedRow(), QStringLiteral("Three"));
        f.key(Qt::Key_Backtab);
        QCOMPARE(f.editedRow(), QStringLiteral("Two"));
        f.key(Qt::Key_PageUp);
        QCOMPARE(f.editedRow(), QStringLiteral("One"));
        // From the tree itself.
        f.key(Qt::Key_Escape);
        QVERIFY(f.tree()->hasFocus());
        f.tree()->setCurrentItem(f.row("One"), 1);
        f.key(Qt::Key_Down);
        QCOMPARE(f.editedRow(), QStringLiteral("Two"));
        QCOMPARE(f.warnings, QList<QString>());
    }

    void keysMoveUnderAStyleWithoutMovementHint()
    {
        Form f;
        NoMovementStyle style;
        f.tree()->setStyle(&style);
        f.tree()->setFocus();
        f.tree()->setCurrentItem(f.row("One"), 1);
        f.key(Qt::Key_Down);
        QCOMPARE(f.tree()->currentItem(), f.row("Two"));
        QCOMPARE(f.editedRow(), QStringLiteral("Two"));
        f.key(Qt::Key_Tab);
        QCOMPARE(f.tree()->currentItem(), f.row("Three"));
        QCOMPARE(f.editedRow(), QStringLiteral("Three"));
        // Still nothing shown selected.
        QVERIFY(f.tree()->selectedItems().isEmpty());
        f.key(Qt::Key_Escape);
        f.tree()->setStyle(nullptr);
    }

    // Escape closes the editor from its inner field, keeps the value and gives the focus to
    // the tree; the focus going elsewhere closes it as well; Ctrl+Tab leaves the tree.
    void escapeAndLeavingTheTree()
    {
        Form f;
        f.clickValue("Count");
        QTRY_VERIFY(f.editor());
        QVERIFY(QApplication::focusWidget() != f.editor());
        f.key(Qt::Key_Escape);
        QVERIFY(!f.editor());
        QVERIFY(f.tree()->hasFocus());
        f.clickValue("One");
        QTRY_VERIFY(f.editor());
        QTest::keyClicks(QApplication::focusWidget(), "typed");
        f.key(Qt::Key_Escape);
        QVERIFY(!f.editor());
        QCOMPARE(f.one->value(), QStringLiteral("1"));
        // A number typed and then escaped is not kept either; Return keeps it.
        f.clickValue("Count");
        QTRY_VERIFY(f.editor());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), "42");
        f.key(Qt::Key_Escape);
        QVERIFY(!f.editor());
        QCOMPARE(f.count->value(), 3);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the closed editor
        f.clickValue("Count");
        QTRY_VERIFY(f.editor());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), "42");
        f.key(Qt::Key_Return);
        QCOMPARE(f.count->value(), 42);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

        f.clickValue("Count");
        QTRY_VERIFY(f.editor());
        QTest::mouseClick(f.after, Qt::LeftButton);
        QApplication::processEvents();
        QVERIFY(!f.editor());

        f.tree()->setFocus();
        f.key(Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), f.after);
        f.tree()->setFocus();
        f.key(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), f.before);
        // From an open editor too.
        f.clickValue("Two");
        QTRY_VERIFY(f.editor());
        f.key(Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), f.after);
        QVERIFY(!f.editor());
        QCOMPARE(f.warnings, QList<QString>());
    }

    // The open multi-line editor keeps the height of its own row whatever row is refreshed;
    // a text taller than the view can be scrolled to its end.
    void multiLineEditorHeightAndLongTexts()
    {
        Form f;
        f.clickValue("Notes");
        QTRY_VERIFY(f.editor());
        const int tall = f.tree()->visualItemRect(f.row("Notes")).height();
        QVERIFY(tall > f.tree()->visualItemRect(f.row("Memo")).height());
        f.window.resize(380, 620);
        QApplication::processEvents();
        QTRY_VERIFY(f.editor()->height() >= f.tree()->visualItemRect(f.row("Notes")).height() - 1);
        f.key(Qt::Key_Escape);

        QStringList lines;
        for (int i = 0; i < 60; ++i)
            lines << QStringLiteral("line %1").arg(i);
        f.notes->setValue(lines.join('\n'));
        f.manager->propertyValueChanged(f.browser->topLevelItems().at(5)->property());
        QApplication::processEvents();
        const int rowHeight = f.tree()->visualItemRect(f.row("Notes")).height();
        QVERIFY(rowHeight > f.tree()->viewport()->height());
        QVERIFY(f.tree()->verticalScrollBar()->maximum() >= rowHeight - f.tree()->viewport()->height());
    }

    // A click on a cell that opens no editor leaves the closing one alone.
    void clickOnACellWithoutEditor()
    {
        Form f;
        f.tree()->setFocus();
        f.tree()->setCurrentItem(f.row("Shown"), 1);
        f.key(Qt::Key_Space);
        QTRY_VERIFY(f.editor());
        PressCounter counter;
        for (QWidget *w : f.editor()->findChildren<QWidget *>())
            w->installEventFilter(&counter);
        f.editor()->installEventFilter(&counter);
        f.clickValue("Heading");
        QApplication::processEvents();
        QCOMPARE(counter.presses, 0);
        QVERIFY(!f.shown->on());
    }

    // A row that lost its children stays expanded, also through a saved state; disabling a
    // branch closes an editor inside it and gives the focus to the tree.
    void expandedRowsLosingChildrenAndDisabledBranches()
    {
        Form f;
        QtBrowserItem *box = f.browser->topLevelItems().at(4);
        QVERIFY(f.browser->isExpanded(box));
        const QList<QtProperty *> children = box->property()->subProperties();
        for (QtProperty *child : children)
            box->property()->removeSubProperty(child);
        QVERIFY(f.browser->isExpanded(box));
        f.browser->restoreState(f.browser->saveState());
        box->property()->addSubProperty(children.first());
        QVERIFY(f.row("Box")->isExpanded());
        f.browser->setExpanded(box, false);
        QVERIFY(!f.browser->isExpanded(box));
        f.browser->setExpanded(box, true);
        box->property()->addSubProperty(children.last());

        f.clickValue("Size");
        QTRY_VERIFY(f.editor());
        box->property()->setEnabled(false);
        QTRY_VERIFY(!f.editor());
        QVERIFY(f.tree()->hasFocus());
    }

    // A value cut short shows whole as its tooltip; one that fits shows none.
    void tooltipsOfCutCells()
    {
        Form f;
        f.one->setValue(QString(200, QLatin1Char('w')));
        f.manager->propertyValueChanged(f.browser->topLevelItems().at(0)->property());
        QApplication::processEvents();
        const QRect one = f.tree()->visualItemRect(f.row("One"));
        const QPoint cell(f.tree()->header()->sectionPosition(1) + 20, one.center().y());
        QHelpEvent help(QEvent::ToolTip, cell, f.tree()->viewport()->mapToGlobal(cell));
        QApplication::sendEvent(f.tree()->viewport(), &help);
        QTRY_COMPARE(QToolTip::text(), f.one->value());
        const QPoint two(cell.x(), f.tree()->visualItemRect(f.row("Two")).center().y());
        QHelpEvent none(QEvent::ToolTip, two, f.tree()->viewport()->mapToGlobal(two));
        QApplication::sendEvent(f.tree()->viewport(), &none);
        QTRY_VERIFY(QToolTip::text().isEmpty());
    }

    // A long name takes at most half the width: the value column stays in view, the name is
    // cut and shows whole as its tooltip.
    void longNamesInANarrowTree()
    {
        Form f;
        const QString longName = QStringLiteral("A very long translated name of a property, longer than the tree");
        f.browser->topLevelItems().at(1)->property()->setPropertyName(longName);
        // Narrow enough that half the width is less than Qt's default section size.
        f.window.resize(int(Device::scale(200)), 600);
        QApplication::processEvents();
        QHeaderView *header = f.tree()->header();
        const int width = f.tree()->viewport()->width();
        QVERIFY(header->sectionSize(0) <= width / 2 + 1);
        QVERIFY(header->sectionSize(0) + header->sectionSize(1) <= width + 1);
        QVERIFY(header->sectionSize(1) >= width / 2 - 1);
        const QPoint name(20, f.tree()->visualItemRect(f.row(longName)).center().y());
        QHelpEvent help(QEvent::ToolTip, name, f.tree()->viewport()->mapToGlobal(name));
        QApplication::sendEvent(f.tree()->viewport(), &help);
        QTRY_COMPARE(QToolTip::text(), longName);
        // With short names again the value column still fills the rest.
        f.browser->topLevelItems().at(1)->property()->setPropertyName(QStringLiteral("Two"));
        f.window.resize(int(Device::scale(320)), 600);
        QApplication::processEvents();
        QVERIFY(header->sectionSize(0) < f.tree()->viewport()->width() / 2);
        QVERIFY(header->sectionSize(0) + header->sectionSize(1) >= f.tree()->viewport()->width() - 1);
    }

    // Editors are named for assistive technology by their row.
    void accessibleNames()
    {
        Form f;
        f.clickValue("Count");
        QTRY_VERIFY(f.editor());
        QCOMPARE(f.editor()->accessibleName(), QStringLiteral("Count"));
        QVERIFY(QApplication::focusWidget());
        QCOMPARE(QApplication::focusWidget()->accessibleName(), QStringLiteral("Count"));
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

    // Rows that go together leave the tree at once; the current row and the open editor
    // go with them, the browser hears of the current row's removal first, and its current
    // item is the tree's whatever Qt makes current afterwards.
    void groupsAndClearsLeaveAtOnce()
    {
        qRegisterMetaType<QtBrowserItem *>();
        Tree t;
        QSignalSpy current(t.browser, &QtAbstractPropertyBrowser::currentItemChanged);
        QTest::mouseClick(t.tree()->viewport(), Qt::LeftButton, {}, t.valueCell("Count"));
        QTRY_VERIFY(t.editor());
        QPointer<QWidget> editor = t.editor();
        QCOMPARE(t.browser->currentItem(), t.item("Count"));
        current.clear();
        t.browser->removeProperty(t.item("Box")->property());
        QVERIFY(current.count() >= 1);
        QCOMPARE(current.first().first().value<QtBrowserItem *>(), nullptr);
        QTRY_VERIFY(!editor);
        const auto treeCurrent = [&t] {
            QTreeWidgetItem *row = t.tree()->currentItem();
            return row ? t.item(row->text(0)) : nullptr;
        };
        QCOMPARE(t.browser->currentItem(), treeCurrent());
        QVERIFY(!t.row("Count") && !t.row("Box"));
        QCOMPARE(t.tree()->topLevelItemCount(), 1);

        // A clear of the manager while a row is current and edited.
        QTest::mouseClick(t.tree()->viewport(), Qt::LeftButton, {}, t.valueCell("Name"));
        QTRY_VERIFY(t.editor());
        editor = t.editor();
        current.clear();
        t.manager->clear();
        QCOMPARE(current.count(), 1);
        QCOMPARE(current.first().first().value<QtBrowserItem *>(), nullptr);
        QVERIFY(!t.tree()->currentItem());
        QCOMPARE(t.tree()->topLevelItemCount(), 0);
        QVERIFY(t.browser->topLevelItems().isEmpty());
        QTRY_VERIFY(!editor);

        // Rows loaded again open their editors, and keep the expansion the user left.
        PropertyDictionary box;
        box.insertProperty(t.shown);
        PropertyDictionary rows;
        rows.insertProperty(new GroupProperty("box", "Box", box));
        rows.insertProperty(t.name);
        t.manager->addProperties(rows, new Sample::EmptyObject);
        QVERIFY(t.row("Box")->isExpanded());
        QTest::mouseClick(t.tree()->viewport(), Qt::LeftButton, {}, t.valueCell("Name"));
        QTRY_VERIFY(t.editor());
        QCOMPARE(t.browser->currentItem(), t.item("Name"));
    }

    // A host that reloads when the current row goes, while a group or everything leaves.
    void hostReloadsWhenTheCurrentRowGoes()
    {
        Tree t;
        bool reload = true;
        int reloads = 0;
        QObject::connect(t.browser, &QtAbstractPropertyBrowser::currentItemChanged, t.browser,
            [&](QtBrowserItem *item) {
                if (item || !reload)
                    return;
                reload = false;
                ++reloads;
                t.manager->clear();
                PropertyDictionary rows;
                rows.insertProperty(t.name);
                t.manager->addProperties(rows, new Sample::EmptyObject);
            });
        QTest::mouseClick(t.tree()->viewport(), Qt::LeftButton, {}, t.valueCell("Count"));
        QTRY_VERIFY(t.editor());
        t.browser->removeProperty(t.item("Box")->property());
        QCOMPARE(reloads, 1);
        QCOMPARE(t.browser->topLevelItems().size(), 1);
        QCOMPARE(t.tree()->topLevelItemCount(), 1);
        QVERIFY(t.row("Name") && t.item("Name"));

        // The clear goes on past the reload: nothing is left, in the tree as in the browser.
        QTest::mouseClick(t.tree()->viewport(), Qt::LeftButton, {}, t.valueCell("Name"));
        QTRY_VERIFY(t.editor());
        reload = true;
        t.manager->clear();
        QCOMPARE(reloads, 2);
        QVERIFY(t.browser->topLevelItems().isEmpty());
        QCOMPARE(t.tree()->topLevelItemCount(), 0);
    }

    // Rows are laid out by height alone, yet a double click on the name header still fits
    // the column to the longest name, and rows of other scripts or lines keep their height.
    void columnFitsItsNamesAfterLayout()
    {
        Tree t;
        t.browser->setResizeMode(TreePropertyBrowser::Interactive);
        t.browser->setSplitterPosition(12);
        QHeaderView *header = t.tree()->header();
        QTest::mouseDClick(header->viewport(), Qt::LeftButton, {}, QPoint(6, header->height() / 2));
        const int indent = 2 * t.tree()->indentation();
        QVERIFY2(
            header->sectionSize(0) >= indent + t.tree()->fontMetrics().horizontalAdvance("Shown"),
            qPrintable(QString::number(header->sectionSize(0))));
        const int plain = t.tree()->visualItemRect(t.row("Name")).height();
        QVERIFY(plain > 0);
        t.name->setValue(QStringLiteral("a\nb"));
        t.manager->propertyValueChanged(t.item("Name")->property());
        QTRY_VERIFY(t.tree()->visualItemRect(t.row("Name")).height() > plain);
    }
};

TAVO_TEST(TreePropertyBrowserTest)
#include "TreePropertyBrowserTest.moc"
