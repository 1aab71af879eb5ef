// Rows from property trees: children of choices, switchable groups and lists follow their
// property, undefined rows hide and restore their children, and the value column reads as
// the rules give it.
#include "RecordingPropertyBrowser.h"
#include "TestEnvironment.h"
#include "TestRegistry.h"
#include "sample/EmptyObject.h"
#include "browser/ViewPropertyManager.h"
#include "core/ActivatableGroupProperty.h"
#include "core/BoolProperty.h"
#include "core/BrushProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"
#include "core/ListProperty.h"
#include "core/StringProperty.h"

#include <QTest>

using namespace TavoLib;

namespace {

QStringList names(const QtProperty *row)
{
    QStringList result;
    for (const QtProperty *child : row->subProperties())
        result << child->propertyName();
    return result;
}

} // namespace

class ViewPropertyManagerTest : public QObject
{
    Q_OBJECT

private slots:
    void treesFollowTheirProperties()
    {
        RecordingPropertyBrowser browser;
        ViewPropertyManager manager(&browser);
        TAutoPtr<const PropertyableObject> owner(new Sample::EmptyObject);

        PropertyDictionary shadow;
        shadow.insertProperty(new IntegerProperty("blur", "Blur"));
        shadow.insertProperty(new IntegerProperty("offset", "Offset"));
        PropertyDictionary choices;
        choices.insertProperty(new Property("none", "None"));
        choices.insertProperty(new GroupProperty("shadow", "Shadow", shadow));
        ExtendedSelectorProperty::Ptr effect(new ExtendedSelectorProperty("effect", "Effect", choices));
        ViewProperty *row = manager.addProperty(effect, owner);
        QVERIFY(row->subProperties().isEmpty());
        effect->setCurrent("shadow");
        manager.propertyValueChanged(row);
        QCOMPARE(names(row), QStringList({ "Blur", "Offset" }));

        // Undefined twice keeps the children; defined again restores them in order.
        row->setUndefined(true);
        row->setUndefined(true);
        QVERIFY(row->subProperties().isEmpty());
        row->setUndefined(false);
        QCOMPARE(names(row), QStringList({ "Blur", "Offset" }));

        ActivatableGroupProperty::Ptr corners(new ActivatableGroupProperty("corners", "Corners", shadow));
        ViewProperty *switchable = manager.addProperty(corners, owner);
        QCOMPARE(switchable->subProperties().size(), 2);
        QVERIFY(!switchable->subProperties().first()->isEnabled());

        // kept on purpose: a list shows its elements only in the tree theme.
        ListProperty::Ptr list(new ListProperty("tabs", "Tabs", new IntegerProperty("tab", "Tab")));
        list->insertProperty(0);
        QVERIFY(manager.addProperty(list, owner)->subProperties().isEmpty());
        manager.setWidgetsTheme(PropertyEditorFactory::WidgetsThemeTree);
        ViewProperty *tree = manager.addProperty(list, owner);
        QCOMPARE(tree->subProperties().size(), 1);
        list->insertProperty(1);
        manager.propertyValueChanged(tree);
        QCOMPARE(tree->subProperties().size(), 2);

        // Without an owner a tree has no values anywhere.
        ViewProperty *heading = manager.addProperty(new GroupProperty("g", "G", shadow), nullptr);
        QVERIFY(!heading->hasValue() && !heading->subProperties().first()->hasValue());

        PropertyDictionary top;
        manager.addProperties(top, owner);
        QCOMPARE(browser.property("BLOCK_UPDATE_GEOMETRY").toBool(), false);
    }

    void valueColumn()
    {
        RecordingPropertyBrowser browser;
        ViewPropertyManager manager(&browser);
        TavoTest::TestEnvironment env;
        manager.setBrushProvider(env.testBrushProvider());
        TAutoPtr<const PropertyableObject> owner(new Sample::EmptyObject);

        BoolProperty::Ptr flag(new BoolProperty("flag", "Flag", true));
        ViewProperty *row = manager.addProperty(flag, owner);
        QCOMPARE(row->valueText(), QString());
        flag->setUndefined(true);
        QVERIFY(!row->valueIcon().isNull()); // the undefined check mark

        BrushProperty::Ptr brush(new BrushProperty("b", "Brush", 3));
        ViewProperty *brushRow = manager.addProperty(brush, owner);
        QCOMPARE(brushRow->valueText(), QStringLiteral("Red"));
        QVERIFY(!brushRow->valueIcon().isNull());
        brush->setUndefined(true);
        QVERIFY(brushRow->valueText().isEmpty() && brushRow->valueIcon().isNull());
    }
};

TAVO_TEST(ViewPropertyManagerTest)
#include "ViewPropertyManagerTest.moc"
