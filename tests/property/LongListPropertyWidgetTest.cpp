// The list editor of a long list: a view with one editor made on demand, driven by keys and
// clicks, with the same buttons and the same one signal per change as the rows of a short list.
#include "TestRegistry.h"
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"
#include "core/ListProperty.h"
#include "core/StringProperty.h"
#include "core/UnitValueProperty.h"
#include "property/ListPropertyWidget.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace TavoLib;

namespace {

// A window with a field before the list, so that Tab has somewhere to come from.
struct Form
{
    QWidget window;
    QLineEdit *before = new QLineEdit(&window);
    ListPropertyWidget *list = new ListPropertyWidget(&window);
    explicit Form(ListProperty::Ptr values)
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(before);
        layout->addWidget(list);
        list->setValues(values);
        window.resize(400, 400);
        window.show();
        QApplication::setActiveWindow(&window);
    }
    QTreeWidget *view() const { return list->findChild<QTreeWidget *>("entries"); }
    QToolButton *button(const char *name) const
    {
        for (auto *b : list->findChildren<QToolButton *>(name))
            if (b->isVisibleTo(list))
                return b;
        return nullptr;
    }
    QWidget *focus() const { return QApplication::focusWidget(); }
    // Types as a user does: each key goes to the widget that has the focus then.
    void type(const QString &text) const
    {
        for (const QChar c : text)
            QTest::keyClick(focus(), c.toLatin1());
    }
    void settle() const { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
};

ListProperty::Ptr points(int count)
{
    PropertyDictionary columns;
    columns.insertProperty(new IntegerProperty("x", "X", 0, 0, 999));
    columns.insertProperty(new StringProperty("label", "Label"));
    ListProperty::Ptr list(
        new ListProperty("points", "Points", new GroupProperty("p", "P", columns), 0, 1000));
    for (int i = 0; i < count; ++i) {
        list->insertProperty(i);
        TAutoPtr<IntegerProperty>(TAutoPtr<GroupProperty>(list->at(i))->property("x"))->setValue(i);
    }
    return list;
}

int xOf(const ListProperty::Ptr &list, int row)
{
    return TAutoPtr<IntegerProperty>(TAutoPtr<GroupProperty>(list->at(row))->property("x"))
        ->value();
}

QString labelOf(const ListProperty::Ptr &list, int row)
{
    return TAutoPtr<StringProperty>(TAutoPtr<GroupProperty>(list->at(row))->property("label"))
        ->value();
}

} // namespace

class LongListPropertyWidgetTest : public QObject
{
    Q_OBJECT

private slots:
    void editsByKeysOneEditorAtATime()
    {
        ListProperty::Ptr list = points(300);
        Form form(list);
        QSignalSpy changed(form.list, &ListPropertyWidget::propertiesChanged);
        QTreeWidget *view = form.view();
        QVERIFY(view && view->isVisible());
        QCOMPARE(form.list->rowCount(), 300);
        QCOMPARE(view->headerItem()->text(1), QStringLiteral("Label"));
        QCOMPARE(view->accessibleName(), QStringLiteral("Points"));
        QVERIFY(form.list->findChildren<QSpinBox *>().isEmpty());

        // Tab comes into the view; arrows move; F2 opens an editor, Return stores.
        form.before->setFocus();
        QTest::keyClick(form.before, Qt::Key_Tab);
        QCOMPARE(form.focus(), static_cast<QWidget *>(view));
        QTest::keyClick(view, Qt::Key_Down);
        QTest::keyClick(view, Qt::Key_Down);
        QTest::keyClick(view, Qt::Key_F2);
        auto *spin = form.list->findChild<QSpinBox *>();
        QVERIFY(spin && spin->hasFocus());
        QCOMPARE(spin->accessibleName(), QStringLiteral("X"));
        form.type("77");
        QCOMPARE(changed.count(), 0); // nothing stored while typing
        QTest::keyClick(form.focus(), Qt::Key_Return);
        QCOMPARE(xOf(list, 2), 77);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(form.focus(), static_cast<QWidget *>(view));
        form.settle();
        QVERIFY(form.list->findChildren<QSpinBox *>().isEmpty());

        // Typing opens the editor with the key typed; Escape drops the edit.
        QTest::keyClick(view, Qt::Key_Right);
        form.type("abc");
        QCOMPARE(qobject_cast<QLineEdit *>(form.focus())->text(), QStringLiteral("abc"));
        QTest::keyClick(form.focus(), Qt::Key_Escape);
        QCOMPARE(labelOf(list, 2), QString());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(form.focus(), static_cast<QWidget *>(view));

        // Return opens it too; storing an unchanged value says nothing.
        QTest::keyClick(view, Qt::Key_Return);
        QVERIFY(qobject_cast<QLineEdit *>(form.focus()));
        QTest::keyClick(form.focus(), Qt::Key_Return);
        QCOMPARE(changed.count(), 1);

        // Tab out of an open editor stores and goes on to the buttons.
        form.type("z");
        QTest::keyClick(form.focus(), Qt::Key_Tab);
        QCOMPARE(labelOf(list, 2), QStringLiteral("z"));
        QCOMPARE(changed.count(), 2);
        QCOMPARE(form.focus(), static_cast<QWidget *>(form.button("add")));
        QTest::keyClick(form.focus(), Qt::Key_Tab);
        QCOMPARE(form.focus(), static_cast<QWidget *>(form.button("delete")));
    }

    void typingReplacesAMeasure()
    {
        // The key that opens a unit field's editor starts a new value, as in a text cell.
        ListProperty::Ptr list(new ListProperty("tabs", "Tabs",
            new UnitValueProperty(
                "tab", "Position", UnitValue(10, CUnit::MM), CUnit::MM, 0, 1000, 2)));
        for (int i = 0; i < 60; ++i)
            list->insertProperty(i);
        Form form(list);
        QSignalSpy changed(form.list, &ListPropertyWidget::propertiesChanged);
        form.view()->setFocus();
        form.type("25");
        QTest::keyClick(form.focus(), Qt::Key_Return);
        QCOMPARE(list->at(0)->toString(), QStringLiteral("25mm"));
        QCOMPARE(changed.count(), 1);
    }

    void typedTextSurvivesTheButtons()
    {
        ListProperty::Ptr list = points(120);
        list->setUndefinable(true);
        Form form(list);
        QSignalSpy changed(form.list, &ListPropertyWidget::propertiesChanged);
        QTreeWidget *view = form.view();
        view->setFocus();
        view->setCurrentItem(view->topLevelItem(5), 1);

        // Add while a cell is typed in: the text is stored, then the element is added.
        form.type("five");
        QTest::mouseClick(form.button("add"), Qt::LeftButton);
        QCOMPARE(labelOf(list, 5), QStringLiteral("five"));
        QCOMPARE(list->size(), 121);
        QCOMPARE(form.list->rowCount(), 121);
        QCOMPARE(view->currentIndex().row(), 120);
        QCOMPARE(changed.count(), 2);

        // Delete by keys removes the current element; the next one becomes current.
        view->setCurrentItem(view->topLevelItem(3), 0);
        form.button("delete")->setFocus();
        QTest::keyClick(form.focus(), Qt::Key_Space);
        QCOMPARE(list->size(), 120);
        QCOMPARE(xOf(list, 3), 4);
        QCOMPARE(view->currentIndex().row(), 3);
        QCOMPARE(changed.count(), 3);

        // Undefined while typing: the text is stored, then the list is undefined, view hidden.
        QTest::keyClick(view, Qt::Key_Right);
        form.type("kept");
        QTest::mouseClick(form.button("undefined"), Qt::LeftButton);
        QCOMPARE(labelOf(list, 3), QStringLiteral("kept"));
        QVERIFY(list->isUndefined());
        QVERIFY(!view->isVisible());
        QCOMPARE(changed.count(), 5);
    }

    void shortListsKeepTheirRows()
    {
        // Crossing the threshold switches between the view and rows of live editors.
        ListProperty::Ptr list = points(4);
        Form form(list);
        form.list->setViewThreshold(3);
        form.list->setValues(list);
        form.settle();
        QVERIFY(form.view()->isVisible());
        QVERIFY(form.list->findChildren<QSpinBox *>().isEmpty());
        QTest::mouseClick(form.button("delete"), Qt::LeftButton);
        form.settle();
        QCOMPARE(form.list->findChildren<QSpinBox *>().size(), 3);
        QVERIFY(!form.view()->isVisible());
    }

    void aHostMayReloadOrDeleteFromItsHandler()
    {
        ListProperty::Ptr list = points(80);
        Form form(list);
        QPointer<ListPropertyWidget> widget(form.list);
        bool remove = false;
        connect(form.list, &ListPropertyWidget::propertiesChanged, this, [&] {
            if (remove)
                delete widget.data();
            else
                widget->setValues(list);
        });
        QTreeWidget *view = form.view();
        view->setFocus();
        form.type("4");
        QTest::keyClick(form.focus(), Qt::Key_Return);
        QCOMPARE(xOf(list, 0), 4);
        form.settle();
        view = form.view();
        QCOMPARE(form.list->rowCount(), 80);
        view->setFocus();
        form.type("5");
        remove = true;
        QTest::keyClick(form.focus(), Qt::Key_Return);
        QVERIFY(widget.isNull());
        QCOMPARE(xOf(list, 0), 5);
        form.settle();
    }
};

TAVO_TEST(LongListPropertyWidgetTest)
#include "LongListPropertyWidgetTest.moc"
