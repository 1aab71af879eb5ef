// The list editor: rows follow the elements, the buttons respect the list's limits, and
// every change is reported once.
#include "TestRegistry.h"
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"
#include "core/ListProperty.h"
#include "core/StringProperty.h"
#include "property/ListPropertyWidget.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

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
};

TAVO_TEST(ListPropertyWidgetTest)
#include "ListPropertyWidgetTest.moc"
