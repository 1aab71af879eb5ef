// A stylesheet edited through its panel, driven by a controller, where undefined means "not
// set here": an inherited value shows undefined, setting it adds it, clearing another
// removes it so the parent's value shows through; and the property text a user reads.
#include "TestEnvironment.h"
#include "TestRegistry.h"
#include "attributes/PropertyInfoGenerator.h"
#include "attributes/StylesheetBasedWidgetGroupWidget.h"
#include "attributes/WidgetController.h"
#include "sample/SampleAttribute.h"
#include "sample/SampleObject.h"
#include "sample/SampleSchema.h"
#include "core/ActivatableGroupProperty.h"
#include "core/BoolProperty.h"
#include "core/IntegerProperty.h"
#include "core/SelectorProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/TavoLibKey.h"
#include "core/UnitValueProperty.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTranslator>
#include <QLineEdit>
#include <QTest>

#include <functional>

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

// The editor a row is named by for assistive technology, among the visible ones.
template <typename T = QWidget>
T *editorNamed(QWidget *panel, const QString &name)
{
    for (T *widget : panel->findChildren<T *>())
        if (widget->accessibleName() == name && widget->isVisible())
            return widget;
    return nullptr;
}

QLineEdit *lineOf(QWidget *editor)
{
    if (auto *line = qobject_cast<QLineEdit *>(editor))
        return line;
    return editor ? editor->findChild<QLineEdit *>() : nullptr;
}

void typeInto(QWidget *editor, const QString &text)
{
    QLineEdit *line = lineOf(editor);
    QVERIFY(line);
    line->setFocus();
    line->selectAll();
    if (text.isEmpty())
        QTest::keyClick(line, Qt::Key_Delete);
    else
        QTest::keyClicks(line, text);
    QTest::keyClick(line, Qt::Key_Return);
}

// The values of one attribute as texts by name, groups and their children included.
QMap<QString, QString> valuesOf(const AttributeMap &attributes, const AttributeKey &key)
{
    QMap<QString, QString> result;
    const auto found = attributes.find(key);
    if (found == attributes.end())
        return result;
    PropertyDictionary values;
    found->second->fillProperties(values);
    std::function<void(const PropertyDictionary &)> walk = [&](const PropertyDictionary &dictionary) {
        for (const Property::Ptr &property : dictionary) {
            result.insert(property->uniqueName(), property->toString());
            if (TAutoPtr<GroupProperty> group{ property })
                walk(*group);
        }
    };
    walk(values);
    return result;
}

// An attribute of the sample's kind: a dictionary of properties taken back by name.
class Grouped : public Attribute
{
public:
    explicit Grouped(const PropertyDictionary &values) : mValues(values.cloneProperties()) { }
    AttributeKey key() const override { return AttributeKey("Border"); }
    TAutoPtr<PropertyableObject> clone() const override { return new Grouped(mValues); }
    void applyProperties(const PropertyDictionary &values) override { Sample::applyByName(mValues, values); }
    void fillProperties(PropertyDictionary &values) const override
    {
        for (const Property::Ptr &property : mValues.cloneProperties())
            values.insertProperty(property);
    }

private:
    PropertyDictionary mValues;
};

// Another language: "Yes" of the stylesheet panels reads otherwise.
class OtherLanguage : public QTranslator
{
public:
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        return qstrcmp(context, "Stylesheets") == 0 && qstrcmp(source, "Yes") == 0 ? QStringLiteral("Ja") : QString();
    }
    bool isEmpty() const override { return false; }
};

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

    // A switchable group keeps its own box and goes back into the attribute unchanged.
    void switchableGroupsKeepTheirBox()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        Sample::SampleSchema::registerDefaultAttributes(*env);
        const AttributeKey paragraph("Paragraph");
        Stylesheet::Ptr sheet(new Stylesheet("Paragraph", "Body"));
        sheet->insertAttribute(Sample::SampleAttribute::create(paragraph));
        StylesheetBasedWidget panel(nullptr, "Paragraph");
        panel.setAttributeKeys({ paragraph });
        panel.loadValues(sheet, env);
        QVERIFY(TAutoPtr<const ActivatableGroupProperty>(
            panel.items().front()->properties()->property("hyphenation")));
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

    // A heading based on a body: what the heading does not set shows the body's values greyed
    // in; one value typed sets the whole attribute from the body's; switching hyphenation
    // off is kept; clearing one value takes the whole attribute out again, at once.
    void wholeAttributesOverAParent()
    {
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        Sample::SampleSchema::registerDefaultAttributes(*env);
        const AttributeKey paragraph("Paragraph");
        TAutoPtr<Attribute> bodyParagraph(Sample::SampleAttribute::create(paragraph));
        PropertyDictionary values;
        bodyParagraph->fillProperties(values);
        TAutoPtr<UnitValueProperty>(values.property("leftIndent"))->setValue(UnitValue(12, CUnit::MM));
        TAutoPtr<SelectorProperty>(values.property("alignment"))->setValue(1);
        TAutoPtr<IntegerProperty>(
            TAutoPtr<GroupProperty>(values.property("hyphenation"))->property("minimumWord"))->setValue(3);
        bodyParagraph->applyProperties(values);
        Stylesheet::Ptr body(new Stylesheet("Paragraph", "Body"));
        body->insertAttribute(bodyParagraph);
        Stylesheet::Ptr heading(new Stylesheet("Paragraph", "Heading", "Heading 1", body));
        const QMap<QString, QString> inherited = valuesOf(body->attributes(false), paragraph);

        StylesheetBasedWidgetGroupWidget group(nullptr, "Heading", false);
        auto *panel = new StylesheetBasedWidget(nullptr, "Paragraph");
        panel->setAttributeKeys({ paragraph });
        group.addWidget(panel);
        StylesheetWidgetController controller(heading, env);
        controller.setWidget(&group);
        controller.loadValues();
        group.show();
        QSignalSpy edits(&group, SIGNAL(signalPropertyChanged()));

        // Unset: empty fields with the body's values as placeholders; the switch partly on.
        QWidget *indent = editorNamed(panel, "Left indent");
        QWidget *shortest = editorNamed(panel, "Shortest word");
        auto *hyphenation = editorNamed<QCheckBox>(panel, "Hyphenation");
        auto *shortestSet = editorNamed<QCheckBox>(panel, "Shortest word defined");
        QVERIFY(indent && shortest && hyphenation && shortestSet);
        QCOMPARE(lineOf(indent)->text(), QString());
        QCOMPARE(lineOf(indent)->placeholderText(), QStringLiteral("12mm"));
        // A whole number shows the inherited value greyed, with its box unticked.
        QCOMPARE(lineOf(shortest)->text(), QStringLiteral("3"));
        QVERIFY(!shortest->isEnabled() && !shortestSet->isChecked());
        QCOMPARE(hyphenation->checkState(), Qt::PartiallyChecked);
        // Every row has its label, the list of tab stops too.
        QStringList labels;
        for (QLabel *label : panel->findChildren<QLabel *>())
            if (label->isVisible())
                labels << label->text();
        for (const char *text : { "Alignment:", "Left indent:", "Tab stops:", "Hyphenation:", "Shortest word:" })
            QVERIFY2(labels.contains(QLatin1String(text)), text);

        // A left indent alone sets the whole paragraph, the rest from the body; the language
        // changes between the load and the save.
        typeInto(indent, "4mm");
        QCOMPARE(edits.count(), 1);
        QCOMPARE(lineOf(shortest)->text(), QStringLiteral("3"));
        QCOMPARE(hyphenation->checkState(), Qt::Checked);
        QVERIFY(shortest->isEnabled() && shortestSet->isChecked());
        OtherLanguage other;
        QCoreApplication::installTranslator(&other);
        controller.saveValues();
        QCoreApplication::removeTranslator(&other);
        QMap<QString, QString> expected = inherited;
        expected["leftIndent"] = QStringLiteral("4mm");
        QCOMPARE(valuesOf(heading->attributes(false), paragraph), expected);

        // Hyphenation off: the box stays a box, its children go disabled, the save keeps it.
        QTest::mouseClick(hyphenation, Qt::LeftButton, {}, QPoint(4, hyphenation->height() / 2));
        QCOMPARE(hyphenation->checkState(), Qt::Unchecked);
        // One click, one call: the children's enabled state is no edit.
        QCOMPARE(edits.count(), 2);
        edits.clear();
        QVERIFY(!shortest->isEnabled());
        controller.saveValues();
        PropertyDictionary saved;
        heading->attributes(false).at(paragraph)->fillProperties(saved);
        QVERIFY(!TAutoPtr<ActivatableGroupProperty>(saved.property("hyphenation"))->isActive());
        QCOMPARE(saved.property("leftIndent")->toString(), QStringLiteral("4mm"));

        // Clearing the indent takes the whole paragraph out: every row inherited at once.
        typeInto(indent, QString());
        QCOMPARE(edits.count(), 1);
        QCOMPARE(lineOf(indent)->text(), QString());
        QCOMPARE(lineOf(indent)->placeholderText(), QStringLiteral("12mm"));
        QCOMPARE(lineOf(shortest)->text(), QStringLiteral("3"));
        QVERIFY(!shortest->isEnabled() && !shortestSet->isChecked());
        QCOMPARE(hyphenation->checkState(), Qt::PartiallyChecked);
        controller.saveValues();
        QVERIFY(!heading->attributes(false).count(paragraph));
        QCOMPARE(valuesOf(heading->attributes(true), paragraph), inherited);

        // Set again from the inherited values, not from what was cleared.
        typeInto(indent, "6mm");
        controller.saveValues();
        expected["leftIndent"] = QStringLiteral("6mm");
        QCOMPARE(valuesOf(heading->attributes(false), paragraph), expected);
    }

    // A plain group offered as a one-entry selector reading "Yes" goes back as the group,
    // even when the language changes between load and save; a value typed below the blank
    // selector sets the whole attribute.
    void wrappedGroupAcrossALanguageChange()
    {
        PropertyDictionary frame;
        frame.insertProperty(new UnitValueProperty("width", "Width", UnitValue(2, CUnit::MM), CUnit::MM, 0, 10, 2));
        frame.insertProperty(new IntegerProperty("corners", "Corners", 4, 0, 8));
        PropertyDictionary border;
        border.insertProperty(new GroupProperty("frame", "Frame", frame));
        PropertyDictionary margins;
        margins.insertProperty(new IntegerProperty("top", "Top", 1, 0, 9));
        margins.insertProperty(new IntegerProperty("bottom", "Bottom", 2, 0, 9));
        TAutoPtr<GroupProperty> margin(new GroupProperty("margin", "Margin", margins));
        margin->setChildsUndefinable(true);
        border.insertProperty(margin);
        TAutoPtr<Environment> env(new TavoTest::TestEnvironment);
        env->setDefaultAttribute(new Grouped(border));
        Stylesheet::Ptr sheet(new Stylesheet("Frame", "Box"));
        const AttributeKey key("Border");
        StylesheetBasedWidget panel(nullptr, "Border");
        panel.setAttributeKeys({ key });
        panel.loadValues(sheet, env);
        panel.show();
        const TAutoPtr<const ExtendedSelectorProperty> selector(panel.items().front()->properties()->property("frame"));
        QVERIFY(selector && selector->current());
        QCOMPARE(selector->current()->visibleName(), TavoLibKey::tr("Stylesheets", "Yes"));
        QVERIFY(selector->isUndefined());

        QWidget *width = editorNamed(&panel, "Width");
        QVERIFY(width);
        QCOMPARE(lineOf(width)->placeholderText(), QStringLiteral("2mm"));
        typeInto(width, "5mm");
        QVERIFY(selector->isDefined());
        OtherLanguage other;
        QCoreApplication::installTranslator(&other);
        panel.saveValues();
        QCoreApplication::removeTranslator(&other);
        QMap<QString, QString> saved = valuesOf(sheet->attributes(false), key);
        QCOMPARE(saved.value("width"), QStringLiteral("5mm"));
        QCOMPARE(saved.value("corners"), QStringLiteral("4"));
        QCOMPARE(saved.value("top"), QStringLiteral("1"));

        // A group whose children are each undefinable: a child given a value sets the whole
        // attribute, the group included.
        StylesheetBasedWidget fresh(nullptr, "Border");
        fresh.setAttributeKeys({ key });
        Stylesheet::Ptr otherSheet(new Stylesheet("Frame", "Other"));
        fresh.loadValues(otherSheet, env);
        fresh.show();
        auto *topSet = editorNamed<QCheckBox>(&fresh, "Top defined");
        QVERIFY(topSet && !topSet->isChecked());
        QTest::mouseClick(topSet, Qt::LeftButton, {}, QPoint(4, topSet->height() / 2));
        QWidget *top = editorNamed(&fresh, "Top");
        QVERIFY(top && top->isEnabled());
        typeInto(top, "7");
        const PropertyDictionary shown = *fresh.items().front()->properties();
        QVERIFY(shown.property("margin")->isDefined() && shown.property("frame")->isDefined());
        fresh.saveValues();
        saved = valuesOf(otherSheet->attributes(false), key);
        QCOMPARE(saved.value("top"), QStringLiteral("7"));
        QCOMPARE(saved.value("bottom"), QStringLiteral("2"));
        QCOMPARE(saved.value("width"), QStringLiteral("2mm"));
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
