// The list editor: rows follow the elements, the buttons respect the list's limits, and
// every change is reported once.
#include "TestRegistry.h"
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"
#include "core/ListProperty.h"
#include "core/StringProperty.h"
#include "property/ListPropertyWidget.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

using namespace TavoLib;

class ListPropertyWidgetTest : public QObject
{
    Q_OBJECT

private slots:
    void addDeleteWithinLimits()
    {
        ListProperty::Ptr list(new ListProperty("tabs", "Tabs", new IntegerProperty("tab", "Tab", 0, 0, 99), 1, 3));
        list->insertProperty(0);
        ListPropertyWidget widget;
        widget.setValues(list);
        widget.show();
        QSignalSpy changed(&widget, &ListPropertyWidget::propertiesChanged);
        auto *add = widget.findChild<QToolButton *>("add");
        auto deletes = [&] {
            QList<QToolButton *> result;
            for (auto *b : widget.findChildren<QToolButton *>("delete"))
                if (b->isVisibleTo(&widget))
                    result << b;
            return result;
        };
        QVERIFY(!deletes().first()->isEnabled()); // at the minimum
        QTest::mouseClick(add, Qt::LeftButton);
        QTest::mouseClick(add, Qt::LeftButton);
        QCOMPARE(list->size(), 3);
        QCOMPARE(widget.rowCount(), 3);
        QVERIFY(!add->isEnabled()); // at the maximum
        QCOMPARE(changed.count(), 2);

        // An element's edit goes into the element; its row's Delete removes exactly it.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        widget.findChildren<QSpinBox *>().at(1)->setValue(42);
        QCOMPARE(TAutoPtr<IntegerProperty>(list->at(1))->value(), 42);
        QCOMPARE(changed.count(), 3);
        QTest::mouseClick(deletes().at(0), Qt::LeftButton);
        QCOMPARE(list->size(), 2);
        QCOMPARE(TAutoPtr<IntegerProperty>(list->at(0))->value(), 42);
        QVERIFY(add->isEnabled());
        QCOMPARE(changed.count(), 4);
    }

    void groupElementsAndUndefined()
    {
        PropertyDictionary columns;
        columns.insertProperty(new IntegerProperty("x", "X"));
        columns.insertProperty(new StringProperty("label", "Label"));
        ListProperty::Ptr list(new ListProperty("points", "Points", new GroupProperty("p", "P", columns)));
        list->insertProperty(0);
        list->setUndefinable(true);
        ListPropertyWidget widget;
        widget.setValues(list);
        widget.show();
        // One editor per column.
        for (const auto &column : *TAutoPtr<GroupProperty>(list->at(0)))
            QVERIFY(!widget.factory()->propertyEditors(column).isEmpty());
        auto *undefined = widget.findChild<QToolButton *>("undefined");
        QTest::mouseClick(undefined, Qt::LeftButton);
        QVERIFY(list->isUndefined());
        QVERIFY(!widget.findChild<QToolButton *>("add")->isEnabled());
        QTest::mouseClick(undefined, Qt::LeftButton);
        QVERIFY(list->isDefined());
        widget.setValues(ListProperty::Ptr());
        QCOMPARE(widget.rowCount(), 0);
    }

    void typedTextSurvivesTheButtons()
    {
        // A cell holds typed, uncommitted text when a button acts: the text is stored first.
        ListProperty::Ptr list(new ListProperty("names", "Names", new StringProperty("n", "Name"), 0, 9));
        list->insertProperty(0);
        list->setUndefinable(true);
        QWidget window;
        auto *widget = new ListPropertyWidget(&window);
        widget->setValues(list);
        window.show();
        QApplication::setActiveWindow(&window);
        auto cell = [&](int row) { return widget->findChildren<QLineEdit *>().value(row); };
        auto *add = widget->findChild<QToolButton *>("add");
        auto *undefined = widget->findChild<QToolButton *>("undefined");

        cell(0)->setFocus();
        QTest::keyClicks(cell(0), "first");
        QTest::mouseClick(add, Qt::LeftButton);
        QCOMPARE(TAutoPtr<StringProperty>(list->at(0))->value(), QStringLiteral("first"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(cell(0)->text(), QStringLiteral("first"));

        // Rows follow the form in the tab chain, then Add, then Undefined.
        cell(0)->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(widget->findChildren<QToolButton *>("delete").first()->hasFocus());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), cell(1));
        QTest::keyClicks(cell(1), "second");
        QTest::keyClick(cell(1), Qt::Key_Tab);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(add));
        QTest::keyClick(add, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(undefined));
        QCOMPARE(TAutoPtr<StringProperty>(list->at(1))->value(), QStringLiteral("second"));

        // Delete by keys: the row after takes the focus.
        cell(0)->setFocus();
        QTest::keyClick(cell(0), Qt::Key_Tab);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(list->size(), 1);
        QCOMPARE(QApplication::focusWidget(), cell(0));
        QCOMPARE(cell(0)->text(), QStringLiteral("second"));

        // Undefined while a cell is being typed in: the list ends undefined, rows hidden.
        QTest::keyClick(cell(0), Qt::Key_End);
        QTest::keyClicks(cell(0), "!");
        QTest::mouseClick(undefined, Qt::LeftButton);
        QVERIFY(list->isUndefined());
        QVERIFY(undefined->isChecked());
        QCOMPARE(TAutoPtr<StringProperty>(list->at(0))->value(), QStringLiteral("second!"));
    }

    // In a form, Tab goes from the field before the list through its rows and buttons to the
    // field after it, and Shift+Tab back the same way.
    void tabFollowsTheScreenInAForm()
    {
        ListProperty::Ptr list(new ListProperty("names", "Names", new StringProperty("n", "Name"), 0, 9));
        list->insertProperty(0);
        list->insertProperty(1);
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *before = new QLineEdit(&window);
        layout->addWidget(before);
        auto *widget = new ListPropertyWidget(&window);
        layout->addWidget(widget);
        auto *after = new QLineEdit(&window);
        layout->addWidget(after);
        widget->setValues(list);
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        auto cell = [&](int row) { return widget->findChildren<QLineEdit *>().value(row); };
        auto *add = widget->findChild<QToolButton *>("add");
        const QList<QWidget *> deletes = [&] {
            QList<QWidget *> result;
            for (QToolButton *b : widget->findChildren<QToolButton *>("delete"))
                result << b;
            return result;
        }();
        const QList<QWidget *> expected { cell(0), deletes.value(0), cell(1), deletes.value(1), add, after };
        before->setFocus();
        for (QWidget *stop : expected) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), stop);
        }
        for (int i = expected.size() - 2; i >= 0; --i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
            QCOMPARE(QApplication::focusWidget(), expected.at(i));
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(before));
    }

    void aListGivenAgainOrUndefinedByItsHost()
    {
        // The same list, changed in place and given again, is shown anew, and its cells
        // still write.
        ListProperty::Ptr list(new ListProperty("tabs", "Tabs", new IntegerProperty("tab", "Tab", 0, 0, 99), 0, 9));
        list->insertProperty(0);
        ListPropertyWidget widget;
        widget.setValues(list);
        widget.show();
        list->insertProperty(1);
        TAutoPtr<IntegerProperty>(list->at(0))->setValue(7);
        widget.setValues(list);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(widget.rowCount(), 2);
        QCOMPARE(widget.findChildren<QSpinBox *>().first()->value(), 7);
        widget.setValues(list);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        widget.findChildren<QSpinBox *>().first()->setValue(8);
        QCOMPARE(TAutoPtr<IntegerProperty>(list->at(0))->value(), 8);

        // Undefined but not undefinable: the button to bring it back is there.
        list->setUndefined(true);
        widget.setValues(list);
        auto *undefined = widget.findChild<QToolButton *>("undefined");
        QVERIFY(undefined->isVisibleTo(&widget));
        QTest::mouseClick(undefined, Qt::LeftButton);
        QVERIFY(list->isDefined());
        QVERIFY(!undefined->isVisibleTo(&widget));
    }
};

TAVO_TEST(ListPropertyWidgetTest)
#include "ListPropertyWidgetTest.moc"
