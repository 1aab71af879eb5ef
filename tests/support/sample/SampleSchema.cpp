#include "SampleSchema.h"

#include "SampleAttribute.h"

#include "core/ActivatableGroupProperty.h"
#include "core/BoolProperty.h"
#include "core/BrushProperty.h"
#include "core/CustomColorProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/FontProperty.h"
#include "core/FontSizeProperty.h"
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"
#include "core/LineHeadStyleProperty.h"
#include "core/ListProperty.h"
#include "core/PenStyleProperty.h"
#include "core/SelectorProperty.h"
#include "core/StringProperty.h"
#include "core/StylesheetProperty.h"
#include "core/UnitValueProperty.h"
#include "core/UnitValueSelectorProperty.h"

#include <QIcon>
#include <functional>
#include <map>

using namespace TavoLib;

// The sample's icons live in a static library, whose resources register only when asked.
static void initSampleResources()
{
    Q_INIT_RESOURCE(sample);
}

namespace Sample {
namespace SampleSchema {

namespace {

QIcon sampleIcon(const QString &name)
{
    static const bool registered = (initSampleResources(), true);
    Q_UNUSED(registered)
    return QIcon(QStringLiteral(":/TavoSample/icons/%1.svg").arg(name));
}

const AttributeKey kFill(QStringLiteral("Fill"));
const AttributeKey kLine(QStringLiteral("Line"));
const AttributeKey kCharacter(QStringLiteral("Character"));
const AttributeKey kParagraph(QStringLiteral("Paragraph"));

UnitValueProperty::Ptr length(const QString &name, const QString &label, double mm,
                              double minimum = -5000.0, double maximum = 5000.0)
{
    return new UnitValueProperty(name, label, UnitValue(mm, CUnit::MM), CUnit::MM, minimum, maximum, 2);
}

Property::Ptr point(const QString &name, const QString &label, double x, double y)
{
    PropertyDictionary d;
    d.insertProperty(length(QStringLiteral("x"), QStringLiteral("X"), x));
    d.insertProperty(length(QStringLiteral("y"), QStringLiteral("Y"), y));
    return new GroupProperty(name, label, d);
}

Property::Ptr lineWidth()
{
    UnitValueProperty::Ptr width(new UnitValueProperty(QStringLiteral("width"), QStringLiteral("Width"),
                                                       UnitValue(1.0, CUnit::PT), CUnit::PT, 0.0, 100.0, 2));
    width->setSpecialValue(0.0, QStringLiteral("Hairline"));
    width->setPresets({ UnitValueProperty::Preset(UnitValue(0.25, CUnit::PT), QStringLiteral("Fine")),
                        UnitValueProperty::Preset(UnitValue(1.0, CUnit::PT), QStringLiteral("Normal")),
                        UnitValueProperty::Preset::separator(),
                        UnitValueProperty::Preset(UnitValue(4.0, CUnit::PT), QStringLiteral("Heavy")) });
    return width;
}

StringProperty::Ptr frameText()
{
    StringProperty::Ptr text(new StringProperty(QStringLiteral("text"), QStringLiteral("Text"),
                                                QStringLiteral("The quick brown fox")));
    text->setMultiLine(true);
    text->setPlaceholderText(QStringLiteral("Type the frame's text"));
    using Item = StringProperty::PredefineItem;
    text->setPredefines({ Item::section(QStringLiteral("Placeholders")),
                          Item(QStringLiteral("Page number"), QStringLiteral("<#page>")),
                          Item(QStringLiteral("Date"), QStringLiteral("<#date>")),
                          Item::separator(),
                          Item(QStringLiteral("Dashes"), QString(),
                               { Item(QStringLiteral("En dash"), QString(QChar(0x2013))),
                                 Item(QStringLiteral("Em dash"), QString(QChar(0x2014))) }) });
    return text;
}

Property::Ptr effect()
{
    PropertyDictionary shadow;
    shadow.insertProperty(length(QStringLiteral("offset"), QStringLiteral("Offset"), 1.5, 0, 50));
    shadow.insertProperty(length(QStringLiteral("blur"), QStringLiteral("Blur"), 2.0, 0, 50));
    PropertyDictionary glow;
    glow.insertProperty(length(QStringLiteral("radius"), QStringLiteral("Radius"), 3.0, 0, 50));
    PropertyDictionary choices;
    Property::Ptr none(new Property(QStringLiteral("none"), QStringLiteral("None")));
    choices.insertProperty(none);
    choices.insertProperty(new GroupProperty(QStringLiteral("shadow"), QStringLiteral("Drop shadow"), shadow));
    choices.insertProperty(new GroupProperty(QStringLiteral("glow"), QStringLiteral("Outer glow"), glow));
    ExtendedSelectorProperty::Ptr selector(
        new ExtendedSelectorProperty(QStringLiteral("effect"), QStringLiteral("Effect"), choices));
    selector->setCurrent(QStringLiteral("shadow"));
    return selector;
}

} // namespace

QStringList objectTypes()
{
    return { QStringLiteral("TextFrame"), QStringLiteral("Line"), QStringLiteral("PictureBox") };
}

PropertyDictionary objectSchema(const QString &type, TAutoPtr<StylesheetManager const> stylesheets)
{
    PropertyDictionary d;
    if (type == QLatin1String("TextFrame")) {
        PropertyDictionary geometry;
        geometry.insertProperty(length(QStringLiteral("x"), QStringLiteral("X"), 20));
        geometry.insertProperty(length(QStringLiteral("y"), QStringLiteral("Y"), 30));
        UnitValueProperty::Ptr width = length(QStringLiteral("width"), QStringLiteral("Width"), 170, 1, 5000);
        width->setPresets({ UnitValueProperty::Preset(UnitValue(210, CUnit::MM), QStringLiteral("A4 width")),
                            UnitValueProperty::Preset(UnitValue(8.5, CUnit::Inch), QStringLiteral("Letter width")) });
        geometry.insertProperty(width);
        geometry.insertProperty(length(QStringLiteral("height"), QStringLiteral("Height"), 120, 1, 5000));
        d.insertProperty(new GroupProperty(QStringLiteral("geometry"), QStringLiteral("Geometry"), geometry));
        d.insertProperty(new IntegerProperty(QStringLiteral("columns"), QStringLiteral("Columns"), 2, 1, 20));
        UnitValueProperty::Ptr gutter = length(QStringLiteral("gutter"), QStringLiteral("Gutter"), 5, 0, 100);
        gutter->setSecondUnit(CUnit::Percent, 0, 50, 1);
        d.insertProperty(gutter);
        d.insertProperty(frameText());
        SelectorProperty::Ptr align(new SelectorProperty(QStringLiteral("verticalAlignment"),
                                                         QStringLiteral("Vertical alignment"),
                                                         SelectorProperty::ButtonsMode));
        align->addItem(0, QStringLiteral("Top"), sampleIcon(QStringLiteral("valign-top")));
        align->addItem(1, QStringLiteral("Centre"), sampleIcon(QStringLiteral("valign-centre")));
        align->addItem(2, QStringLiteral("Bottom"), sampleIcon(QStringLiteral("valign-bottom")));
        align->addItem(3, QStringLiteral("Justified"), sampleIcon(QStringLiteral("valign-justified")));
        d.insertProperty(align);
        TAutoPtr<Stylesheet const> body = stylesheets
            ? stylesheets->stylesheet(QStringLiteral("Paragraph"), QStringLiteral("Body"))
            : TAutoPtr<Stylesheet const>();
        d.insertProperty(new StylesheetProperty(QStringLiteral("paragraphStyle"),
                                                QStringLiteral("Paragraph style"),
                                                QStringLiteral("Paragraph"), body));
        PropertyDictionary corners;
        corners.insertProperty(length(QStringLiteral("radius"), QStringLiteral("Radius"), 4, 0, 500));
        d.insertProperty(new ActivatableGroupProperty(QStringLiteral("roundCorners"),
                                                      QStringLiteral("Round corners"), corners, false));
        d.insertProperty(new BoolProperty(QStringLiteral("textFlow"), QStringLiteral("Text flows around"), true));
    } else if (type == QLatin1String("Line")) {
        d.insertProperty(point(QStringLiteral("start"), QStringLiteral("Start"), 10, 10));
        d.insertProperty(point(QStringLiteral("end"), QStringLiteral("End"), 120, 60));
        d.insertProperty(new PenStyleProperty(QStringLiteral("penStyle"), QStringLiteral("Pen style"), 0));
        d.insertProperty(lineWidth());
        d.insertProperty(new LineHeadStyleProperty(QStringLiteral("startHead"), QStringLiteral("Start head"), 0, false));
        d.insertProperty(new LineHeadStyleProperty(QStringLiteral("endHead"), QStringLiteral("End head"), 2, true));
        d.insertProperty(new CustomColorProperty(QStringLiteral("color"), QStringLiteral("Colour"), 0.1, 0.2, 0.6));
    } else if (type == QLatin1String("PictureBox")) {
        StringProperty::Ptr file(new StringProperty(QStringLiteral("file"), QStringLiteral("Picture file"),
                                                    QStringLiteral("images/harbour.tif")));
        file->setPlaceholderText(QStringLiteral("No picture"));
        file->setMinimumControlWidth(160);
        d.insertProperty(file);
        UnitValueSelectorProperty::Ptr scaling(
            new UnitValueSelectorProperty(QStringLiteral("scaling"), QStringLiteral("Scaling")));
        scaling->addItem(0, QStringLiteral("Proportional"), UnitValue(100, CUnit::Percent), 1, 1000, 1);
        scaling->addItem(1, QStringLiteral("Fixed width"), UnitValue(80, CUnit::MM), 1, 5000, 2);
        d.insertProperty(scaling);
        UnitValueProperty::Ptr rotation(new UnitValueProperty(QStringLiteral("rotation"), QStringLiteral("Rotation"),
                                                              UnitValue(0, CUnit::Angle), CUnit::Angle, -360, 360, 1));
        rotation->setSpecialValue(0, QStringLiteral("Upright"));
        d.insertProperty(rotation);
        d.insertProperty(new BrushProperty(QStringLiteral("background"), QStringLiteral("Background"), 0));
        d.insertProperty(new ListProperty(QStringLiteral("clipPath"), QStringLiteral("Clipping path"),
                                          point(QStringLiteral("point"), QStringLiteral("Point"), 0, 0), 0, 64));
        d.insertProperty(effect());
        SelectorProperty::Ptr blend(new SelectorProperty(QStringLiteral("blendMode"), QStringLiteral("Blend mode"),
                                                         SelectorProperty::MenuButtonMode));
        blend->addItem(0, QStringLiteral("Normal"));
        blend->addItem(1, QStringLiteral("Multiply"));
        blend->addItem(2, QStringLiteral("Screen"));
        blend->setIconSize(SelectorProperty::IconSizeSmall);
        d.insertProperty(blend);
    }
    return d;
}

QList<AttributeKey> attributeKeys(const QString &type)
{
    if (type == QLatin1String("TextFrame"))
        return { kFill, kLine, kCharacter, kParagraph };
    if (type == QLatin1String("Line"))
        return { kLine };
    if (type == QLatin1String("PictureBox"))
        return { kFill, kLine };
    return {};
}

QList<AttributeKey> allAttributeKeys()
{
    return { kFill, kLine, kCharacter, kParagraph };
}

PropertyDictionary attributeSchema(const AttributeKey &key)
{
    PropertyDictionary d;
    if (key == kFill) {
        d.insertProperty(new BrushProperty(QStringLiteral("brush"), QStringLiteral("Brush"), 0));
        d.insertProperty(new UnitValueProperty(QStringLiteral("opacity"), QStringLiteral("Opacity"),
                                               UnitValue(100, CUnit::Percent), CUnit::Percent, 0, 100, 0));
    } else if (key == kLine) {
        d.insertProperty(new PenStyleProperty(QStringLiteral("penStyle"), QStringLiteral("Pen style"), 0));
        d.insertProperty(lineWidth());
        d.insertProperty(new CustomColorProperty(QStringLiteral("color"), QStringLiteral("Colour"), 0, 0, 0));
    } else if (key == kCharacter) {
        d.insertProperty(new FontProperty(QStringLiteral("font"), QStringLiteral("Font"), 0));
        d.insertProperty(new FontSizeProperty(QStringLiteral("size"), QStringLiteral("Size"), UnitValue(10, CUnit::PT)));
        d.insertProperty(new IntegerProperty(QStringLiteral("tracking"), QStringLiteral("Tracking"), 0, -500, 500));
        d.insertProperty(new BoolProperty(QStringLiteral("underline"), QStringLiteral("Underline"), false));
        SelectorProperty::Ptr letterCase(new SelectorProperty(QStringLiteral("case"), QStringLiteral("Case")));
        letterCase->addItem(0, QStringLiteral("As typed"));
        letterCase->addItem(1, QStringLiteral("Capitals"));
        letterCase->addItem(2, QStringLiteral("Small capitals"));
        d.insertProperty(letterCase);
    } else if (key == kParagraph) {
        SelectorProperty::Ptr align(new SelectorProperty(QStringLiteral("alignment"), QStringLiteral("Alignment"),
                                                         SelectorProperty::ButtonsMode));
        align->addItem(0, QStringLiteral("Left"), sampleIcon(QStringLiteral("halign-left")));
        align->addItem(1, QStringLiteral("Centre"), sampleIcon(QStringLiteral("halign-centre")));
        align->addItem(2, QStringLiteral("Right"), sampleIcon(QStringLiteral("halign-right")));
        align->addItem(3, QStringLiteral("Justified"), sampleIcon(QStringLiteral("halign-justified")));
        d.insertProperty(align);
        d.insertProperty(length(QStringLiteral("leftIndent"), QStringLiteral("Left indent"), 0, 0, 500));
        ListProperty::Ptr tabs(new ListProperty(QStringLiteral("tabs"), QStringLiteral("Tab stops"),
                                                length(QStringLiteral("tab"), QStringLiteral("Position"), 10, 0, 1000), 0, 20));
        tabs->insertProperty(0);
        d.insertProperty(tabs);
        PropertyDictionary hyphen;
        hyphen.insertProperty(new IntegerProperty(QStringLiteral("minimumWord"), QStringLiteral("Shortest word"), 5, 2, 20));
        d.insertProperty(new ActivatableGroupProperty(QStringLiteral("hyphenation"), QStringLiteral("Hyphenation"),
                                                      hyphen, true));
    }
    return d;
}

TAutoPtr<StylesheetManager> makeStylesheets()
{
    TAutoPtr<StylesheetManager> manager(new StylesheetManager);
    Stylesheet::Ptr body(new Stylesheet(QStringLiteral("Paragraph"), QStringLiteral("Body"), QStringLiteral("Body text")));
    body->insertAttribute(SampleAttribute::create(AttributeKey(QStringLiteral("Paragraph"))));
    body->insertAttribute(SampleAttribute::create(AttributeKey(QStringLiteral("Character"))));
    Stylesheet::Ptr heading(new Stylesheet(QStringLiteral("Paragraph"), QStringLiteral("Heading"),
                                           QStringLiteral("Heading 1"), body));
    Stylesheet::Ptr caption(new Stylesheet(QStringLiteral("Paragraph"), QStringLiteral("Caption"),
                                           QStringLiteral("Picture caption"), body));
    Stylesheet::Ptr emphasis(new Stylesheet(QStringLiteral("Character"), QStringLiteral("Emphasis")));
    emphasis->insertAttribute(SampleAttribute::create(AttributeKey(QStringLiteral("Character"))));
    Stylesheet::Ptr frame(new Stylesheet(QStringLiteral("Frame"), QStringLiteral("Sidebar"), QStringLiteral("Sidebar box")));
    frame->insertAttribute(SampleAttribute::create(AttributeKey(QStringLiteral("Fill"))));
    frame->insertAttribute(SampleAttribute::create(AttributeKey(QStringLiteral("Line"))));
    for (const Stylesheet::Ptr &s : { body, heading, caption, emphasis, frame })
        manager->addStylesheet(s);
    return manager;
}

std::vector<Property::Ptr> allSchemas(TAutoPtr<StylesheetManager const> stylesheets)
{
    std::vector<Property::Ptr> all;
    for (const QString &type : objectTypes())
        for (const auto &p : objectSchema(type, stylesheets))
            all.push_back(p);
    for (const AttributeKey &key : allAttributeKeys())
        for (const auto &p : attributeSchema(key))
            all.push_back(p);
    return all;
}

std::vector<Property::Ptr> oneOfEachKind(TAutoPtr<StylesheetManager const> stylesheets)
{
    std::map<QString, Property::Ptr> byKind;
    std::function<void(const Property::Ptr &)> visit = [&](const Property::Ptr &p) {
        if (!p)
            return;
        byKind.emplace(QString::fromLatin1(p->kindName()), p);
        if (TAutoPtr<GroupProperty> group{ p })
            for (const auto &child : *group)
                visit(child);
    };
    for (const auto &p : allSchemas(stylesheets))
        visit(p);
    std::vector<Property::Ptr> result;
    for (const char *kind : { "Integer", "String", "Selector", "Stylesheet", "ExtendedSelector",
             "ActivatableGroup", "List", "Bool", "CustomColor", "Brush", "PenStyle",
             "LineHeadStyle", "Font", "FontSize", "UnitValue", "UnitValueSelector" }) {
        auto found = byKind.find(QString::fromLatin1(kind));
        if (found != byKind.end())
            result.push_back(found->second);
    }
    return result;
}

void registerDefaultAttributes(Environment &environment)
{
    for (const AttributeKey &key : allAttributeKeys())
        environment.setDefaultAttribute(SampleAttribute::create(key));
}

} // namespace SampleSchema
} // namespace Sample
