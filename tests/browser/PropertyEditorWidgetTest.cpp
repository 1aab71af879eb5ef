// The road of one edit: load objects into a panel, edit with real events, store back; only
// changed, loaded objects are written; values from outside arrive without an echo; the form
// groups and aligns its rows.
#include "TestEnvironment.h"
#include "TestRegistry.h"
#include "browser/PropertyEditorWidget.h"
#include "core/IntegerProperty.h"
#include "sample/SampleObject.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

using namespace TavoLib;
using Sample::SampleObject;

namespace {

// The spin box that edits the integer property of that uniqueName in the panel.
QSpinBox *spinFor(PropertyEditorWidget &panel, int value)
{
    for (QSpinBox *spin : panel.findChildren<QSpinBox *>())
        if (spin->value() == value && spin->isVisible())
            return spin;
    return nullptr;
}

void typeInto(QSpinBox *spin, const QString &text)
{
    spin->setFocus();
    spin->selectAll();
    QTest::keyClicks(spin, text);
    QTest::keyClick(spin, Qt::Key_Return);
}

} // namespace

class PropertyEditorWidgetTest : public QObject
{
    Q_OBJECT

private slots:
    void editStoreAndOnlyChangedObjects()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        SampleObject::Ptr first = SampleObject::create("TextFrame", "first");
        SampleObject::Ptr second = SampleObject::create("TextFrame", "second");
        TAutoPtr<IntegerProperty>(second->value("columns"))->setValue(4);
        PropertyEditorWidget panel(true, true, false);
        panel.loadValues({ first, second }, env);
        panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        QSignalSpy changed(&panel, QOverload<>::of(&PropertyEditorWidget::propertyChanged));

        // Typed back to the old value: nothing to store.
        QSpinBox *columns = spinFor(panel, 4);
        QVERIFY(columns);
        typeInto(columns, "7");
        typeInto(columns, "4");
        QVERIFY(panel.propertyWidget()->changedItems().empty());

        typeInto(columns, "6");
        QVERIFY(changed.count() >= 1);
        const QString firstBefore = TAutoPtr<const Property>(first->value("columns"))->toString();
        panel.storeValues({ first, second });
        QCOMPARE(TAutoPtr<IntegerProperty>(second->value("columns"))->value(), 6);
        QCOMPARE(TAutoPtr<const Property>(first->value("columns"))->toString(), firstBefore);

        // A copy of a loaded object is not the loaded object: nothing is written to it.
        TAutoPtr<SampleObject> copy(second->clone());
        TAutoPtr<IntegerProperty>(copy->value("columns"))->setValue(1);
        panel.storeValues(TAutoPtr<PropertyableObject>(copy));
        QCOMPARE(TAutoPtr<IntegerProperty>(copy->value("columns"))->value(), 1);

        // A value changed outside reaches the rows without an echo.
        changed.clear();
        TAutoPtr<IntegerProperty>(second->value("columns"))->setValue(9);
        panel.changeValues(TAutoPtr<PropertyableObject>(second));
        QCOMPARE(columns->value(), 9);
        QCOMPARE(changed.count(), 0);
    }

    // A host that reloads from its change handler deletes the rows under the editor that is
    // still signalling; the editor must outlive its signal.
    void reloadFromTheChangeHandler()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        SampleObject::Ptr frame = SampleObject::create("TextFrame", "frame");
        auto *panel = new PropertyEditorWidget;
        panel->loadValues(TAutoPtr<const PropertyableObject>(frame), env);
        panel->show();
        int reloads = 0;
        connect(panel, QOverload<>::of(&PropertyEditorWidget::propertyChanged), this, [&] {
            panel->storeValues(TAutoPtr<PropertyableObject>(frame));
            panel->loadValues(TAutoPtr<const PropertyableObject>(frame), env);
            ++reloads;
        });
        QPointer<QSpinBox> columns = spinFor(*panel, 2);
        QVERIFY(columns);
        typeInto(columns, "3");
        QVERIFY(reloads >= 1);
        QCOMPARE(TAutoPtr<IntegerProperty>(frame->value("columns"))->value(), 3);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!columns);
        QCoreApplication::processEvents();
        QVERIFY(spinFor(*panel, 3));
        delete panel;
    }

    void formGroupsAndAlignsLabels()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        SampleObject::Ptr frame = SampleObject::create("TextFrame", "frame");
        PropertyEditorWidget panel;
        QSignalSpy changed(&panel, QOverload<>::of(&PropertyEditorWidget::propertyChanged));
        panel.loadValues(TAutoPtr<const PropertyableObject>(frame), env);
        panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        QCOMPARE(changed.count(), 0); // loading and showing is no edit
        // The geometry group is a framed group titled without the colon.
        QGroupBox *geometry = nullptr;
        for (QGroupBox *box : panel.findChildren<QGroupBox *>())
            if (box->title() == QLatin1String("Geometry"))
                geometry = box;
        QVERIFY(geometry);
        // Every visible label ends at one right edge.
        int edge = -1;
        for (QLabel *label : panel.findChildren<QLabel *>()) {
            if (!label->isVisible() || !label->text().endsWith(QLatin1Char(':')))
                continue;
            const int right = label->mapTo(&panel, QPoint(label->width(), 0)).x();
            if (edge < 0)
                edge = right;
            QCOMPARE(right, edge);
        }
        QVERIFY(edge > 0);
        QVERIFY(panel.maxLabelWidth() > 0);
        // The radius below the switched-off round corners cannot be edited.
        QSpinBox *columns = spinFor(panel, 2);
        QVERIFY(columns && columns->isEnabled());
        bool disabledFound = false;
        for (QAbstractSpinBox *spin : panel.findChildren<QAbstractSpinBox *>())
            disabledFound = disabledFound || !spin->isEnabled();
        QVERIFY(disabledFound);
    }
};

TAVO_TEST(PropertyEditorWidgetTest)
#include "PropertyEditorWidgetTest.moc"
