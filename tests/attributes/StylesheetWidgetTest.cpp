// A stylesheet edited through its panel, driven by a controller, where undefined means "not
// set here": an inherited value shows undefined, setting it adds it, clearing another
// removes it so the parent's value shows through; and the property text a user reads.
#include "TestEnvironment.h"
#include "TestRegistry.h"
#include "attributes/PropertyInfoGenerator.h"
#include "attributes/StylesheetBasedWidgetGroupWidget.h"
#include "attributes/WidgetController.h"
#include "sample/SampleAttribute.h"
#include "sample/SampleSchema.h"
#include "core/ActivatableGroupProperty.h"
#include "core/BoolProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/TavoLibKey.h"
#include "core/UnitValueProperty.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

using namespace TavoLib;

namespace {

const AttributeKey kSpacing("Spacing");
const AttributeKey kIndent("Indent");

// An attribute of one length.
class Length : public Attribute
{
public:
    Length(const AttributeKey &key, double mm) : mKey(key), mValue(new UnitValueProperty(key.name().toLower(), key.name(), UnitValue(mm, CUnit::MM), CUnit::MM, 0, 1000, 2)) { }
    AttributeKey key() const override { return mKey; }
    TAutoPtr<PropertyableObject> clone() const override { return new Length(mKey, mm()); }
    void applyProperties(const PropertyDictionary &values) override
    {
        if (Property::Ptr value = values.property(mValue->uniqueName()))
            mValue->copyValueFrom(*value);
    }
    void fillProperties(PropertyDictionary &values) const override { values.insertProperty(mValue->clone()); }
    double mm() const { return mValue->value().value(); }

private:
    AttributeKey mKey;
    UnitValueProperty::Ptr mValue;
};

double mmOf(const AttributeMap &attributes, const AttributeKey &key)
{
    const auto found = attributes.find(key);
    if (found == attributes.end())
        return -1;
    return static_cast<const Length &>(*found->second).mm();
}

QLineEdit *fieldOf(QWidget *panel, const QString &text)
{
    for (QLineEdit *line : panel->findChildren<QLineEdit *>())
        if (line->text() == text)
            return line;
    return nullptr;
}

} // namespace

class StylesheetWidgetTest : public QObject
{
    Q_OBJECT

private slots:
    void inheritedSetAndRemoved()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        env->setDefaultAttribute(new Length(kSpacing, 1));
        env->setDefaultAttribute(new Length(kIndent, 0));
        Stylesheet::Ptr body(new Stylesheet("Paragraph", "Body"));
        body->insertAttribute(new Length(kSpacing, 4));
        body->insertAttribute(new Length(kIndent, 2));
        Stylesheet::Ptr heading(new Stylesheet("Paragraph", "Heading", "Heading 1", body));
        heading->insertAttribute(new Length(kIndent, 7));

        StylesheetBasedWidgetGroupWidget group(nullptr, "Heading", false);
        auto *spacing = new StylesheetBasedWidget(nullptr, "Spacing");
        spacing->setAttributeKeys({ kSpacing });
        auto *indent = new StylesheetBasedWidget(nullptr, "Indent");
        indent->setAttributeKeys({ kIndent });
        group.addWidget(spacing);
        group.addWidget(indent);
        TAutoPtr<StylesheetWidgetController> controller(new StylesheetWidgetController(heading, env));
        controller->setWidget(&group);
        QCOMPARE(controller->title(), QStringLiteral("Heading"));
        QCOMPARE(controller->attributeKeys(), QList<AttributeKey>({ kSpacing, kIndent }));
        controller->loadValues();
        group.show();

        // Not set by the heading: shown undefined, and a save without edits leaves it unset.
        const auto items = spacing->items();
        QVERIFY(items.front()->properties()->at(0)->isUndefined());
        QVERIFY(controller->checkValues());
        controller->saveValues();
        QCOMPARE(mmOf(heading->attributes(false), kSpacing), -1.0);

        // Given a value it is set; the heading's own indent, cleared, is taken out.
        QLineEdit *empty = nullptr;
        for (QLineEdit *line : spacing->findChildren<QLineEdit *>())
            if (line->text().isEmpty() && line->isVisible())
                empty = line;
        QVERIFY(empty);
        empty->setFocus();
        QTest::keyClicks(empty, "9mm");
        QTest::keyClick(empty, Qt::Key_Return);
        QLineEdit *own = fieldOf(indent, QStringLiteral("7mm"));
        QVERIFY(own);
        own->selectAll();
        QTest::keyClick(own, Qt::Key_Delete);
        QTest::keyClick(own, Qt::Key_Return);
        controller->saveValues();
        controller->saveValues(); // twice gives the same as once
        QCOMPARE(mmOf(heading->attributes(false), kSpacing), 9.0);
        QCOMPARE(mmOf(heading->attributes(false), kIndent), -1.0);
        // The parent's indent shows through again.
        QCOMPARE(mmOf(heading->attributes(true), kIndent), 2.0);

        // A controller whose widget has gone does nothing.
        StylesheetWidgetController late(heading, env);
        {
            StylesheetBasedWidget gone(nullptr, "Gone");
            late.setWidget(&gone);
        }
        late.loadValues();
        late.saveValues();
        QVERIFY(late.checkValues() && late.attributeKeys().isEmpty() && late.title().isEmpty());
    }

    // A plain group is offered as a selector of one entry, "Yes", and goes back into the
    // attribute as the group when saved.
    void groupsAsOneEntrySelectors()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        Sample::SampleSchema::registerDefaultAttributes(*env);
        const AttributeKey paragraph("Paragraph");
        Stylesheet::Ptr sheet(new Stylesheet("Paragraph", "Body"));
        sheet->insertAttribute(Sample::SampleAttribute::create(paragraph));
        StylesheetBasedWidget panel(nullptr, "Paragraph");
        panel.setAttributeKeys({ paragraph });
        panel.loadValues(sheet, env);
        const TAutoPtr<const ExtendedSelectorProperty> selector(
            panel.items().front()->properties()->property("hyphenation"));
        QVERIFY(selector && selector->current());
        QCOMPARE(selector->current()->uniqueName(), TavoLibKey::tr("Stylesheets", "Yes"));
        panel.show();
        QLineEdit *indent = fieldOf(&panel, QStringLiteral("0mm"));
        QVERIFY(indent);
        indent->setFocus();
        indent->selectAll();
        QTest::keyClicks(indent, "4mm");
        QTest::keyClick(indent, Qt::Key_Return);
        QCOMPARE(int(panel.changedItems().size()), 1);
        panel.saveValues();
        PropertyDictionary saved;
        sheet->attributes(false).at(paragraph)->fillProperties(saved);
        QVERIFY(TAutoPtr<const ActivatableGroupProperty>(saved.property("hyphenation")));
        QCOMPARE(saved.property("leftIndent")->toString(), QStringLiteral("4mm"));
    }

    void propertyText()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        PropertyInfoGenerator generator(env, TAutoPtr<const Translator>(new Translator));
        QCOMPARE(generator.generateText(PropertyDictionary(), QString()), QString());

        PropertyDictionary inner;
        inner.insertProperty(new BoolProperty("shadow", "Shadow", true));
        Property::Ptr gone(new BoolProperty("gone", "Gone", false));
        gone->setUndefined(true);
        inner.insertProperty(gone);
        PropertyDictionary nested;
        nested.insertProperty(new UnitValueProperty("width", "Width", UnitValue(2, CUnit::MM), CUnit::MM, 0, 10, 2));
        inner.insertProperty(new GroupProperty("frame", "Frame", nested));
        PropertyDictionary top;
        top.insertProperty(new GroupProperty("look", "Look", inner));
        top.insertProperty(new ActivatableGroupProperty("hyphenation", "Hyphenation", nested, false));
        QCOMPARE(generator.generateText(top, QString()),
            QStringLiteral("Look\n\tShadow: Yes\n\tFrame\n\t\tWidth: 2mm\nHyphenation: No\n"));
    }
};

TAVO_TEST(StylesheetWidgetTest)
#include "StylesheetWidgetTest.moc"
