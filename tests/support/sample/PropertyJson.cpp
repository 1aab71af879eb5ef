#include "PropertyJson.h"

#include "core/ActivatableGroupProperty.h"
#include "core/BoolProperty.h"
#include "core/BrushProperty.h"
#include "core/CustomColorProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/FontProperty.h"
#include "core/FontSizeProperty.h"
#include "core/IntegerProperty.h"
#include "core/LineHeadStyleProperty.h"
#include "core/ListProperty.h"
#include "core/PenStyleProperty.h"
#include "core/SelectorProperty.h"
#include "core/StringProperty.h"
#include "core/StylesheetProperty.h"
#include "core/UnitValueSelectorProperty.h"

using namespace TavoLib;

namespace Sample {
namespace PropertyJson {

namespace {

QJsonValue unitValue(const UnitValue &v)
{
    return QJsonObject{ { QStringLiteral("v"), v.value() },
                        { QStringLiteral("unit"), QString::number(v.unit().GetUnitID(), 16) } };
}

bool readUnitValue(const QJsonValue &json, UnitValue &out)
{
    const QJsonObject o = json.toObject();
    bool ok = false;
    const unsigned int unit = o.value(QStringLiteral("unit")).toString().toUInt(&ok, 16);
    if (!ok || !o.value(QStringLiteral("v")).isDouble() || !CUnit(unit).isKnown())
        return false;
    out = UnitValue(o.value(QStringLiteral("v")).toDouble(), CUnit(unit));
    return true;
}

short readShort(const QJsonValue &json, short fallback)
{
    const double v = json.toDouble(fallback);
    return (v >= -32768 && v <= 32767) ? short(v) : fallback;
}

QJsonValue valueOf(const Property &p)
{
    const Property *q = &p;
    if (auto *g = dynamic_cast<const GroupProperty *>(q)) {
        QJsonObject o{ { QStringLiteral("children"), toJson(static_cast<const PropertyDictionary &>(*g)) } };
        if (auto *a = dynamic_cast<const ActivatableGroupProperty *>(q))
            o.insert(QStringLiteral("active"), a->isActive());
        if (auto *e = dynamic_cast<const ExtendedSelectorProperty *>(q))
            o.insert(QStringLiteral("current"), e->currentName());
        return o;
    }
    if (auto *l = dynamic_cast<const ListProperty *>(q)) {
        QJsonArray elements;
        for (const Property::Ptr &e : *l)
            elements.append(toJson(*e));
        return elements;
    }
    if (auto *i = dynamic_cast<const IntegerProperty *>(q))
        return i->value();
    if (auto *b = dynamic_cast<const BoolProperty *>(q))
        return b->on();
    if (auto *s = dynamic_cast<const StringProperty *>(q))
        return s->value();
    if (auto *s = dynamic_cast<const SelectorProperty *>(q))
        return s->value();
    if (auto *f = dynamic_cast<const FontSizeProperty *>(q)) {
        QJsonObject o = unitValue(f->value()).toObject();
        o.insert(QStringLiteral("reference"), int(f->referenceSizeType()));
        return o;
    }
    if (auto *u = dynamic_cast<const UnitValueProperty *>(q))
        return unitValue(u->value());
    if (auto *u = dynamic_cast<const UnitValueSelectorProperty *>(q)) {
        QJsonObject items;
        for (int id : *u)
            items.insert(QString::number(id), unitValue(u->itemValue(id)));
        return QJsonObject{ { QStringLiteral("current"), u->value() }, { QStringLiteral("items"), items } };
    }
    if (auto *f = dynamic_cast<const FontProperty *>(q))
        return f->font();
    if (auto *b = dynamic_cast<const BrushProperty *>(q))
        return b->brush();
    if (auto *s = dynamic_cast<const PenStyleProperty *>(q))
        return s->penStyle();
    if (auto *s = dynamic_cast<const LineHeadStyleProperty *>(q))
        return s->style();
    if (auto *c = dynamic_cast<const CustomColorProperty *>(q))
        return QJsonArray{ c->red(), c->green(), c->blue() };
    if (auto *s = dynamic_cast<const StylesheetProperty *>(q)) {
        if (!s->stylesheet())
            return QJsonValue::Null;
        return QJsonObject{ { QStringLiteral("type"), s->stylesheet()->type() },
                            { QStringLiteral("name"), s->stylesheet()->name() } };
    }
    return QJsonValue::Null;
}

void readValue(Property &p, const QJsonValue &v, TAutoPtr<StylesheetManager const> sheets)
{
    Property *q = &p;
    if (auto *g = dynamic_cast<GroupProperty *>(q)) {
        const QJsonObject o = v.toObject();
        read(static_cast<PropertyDictionary &>(*g), o.value(QStringLiteral("children")).toArray(), sheets);
        if (auto *a = dynamic_cast<ActivatableGroupProperty *>(q))
            a->setActive(o.value(QStringLiteral("active")).toBool(a->isActive()));
        if (auto *e = dynamic_cast<ExtendedSelectorProperty *>(q))
            e->setCurrent(o.value(QStringLiteral("current")).toString());
    } else if (auto *l = dynamic_cast<ListProperty *>(q)) {
        if (!v.isArray())
            return;
        l->clear();
        for (const QJsonValue &e : v.toArray()) {
            const Property::Ptr element = l->insertProperty(l->size());
            if (!element)
                break;
            read(*element, e.toObject(), sheets);
        }
    } else if (auto *i = dynamic_cast<IntegerProperty *>(q)) {
        i->setValue(v.toInt(i->value()));
    } else if (auto *b = dynamic_cast<BoolProperty *>(q)) {
        b->setOn(v.toBool(b->on()));
    } else if (auto *s = dynamic_cast<StringProperty *>(q)) {
        s->setValue(v.toString(s->value()));
    } else if (auto *s = dynamic_cast<SelectorProperty *>(q)) {
        s->setValue(v.toInt(s->value()));
    } else if (auto *u = dynamic_cast<UnitValueProperty *>(q)) {
        UnitValue value;
        if (readUnitValue(v, value))
            u->setValue(value);
        if (auto *f = dynamic_cast<FontSizeProperty *>(q)) {
            const int ref = v.toObject().value(QStringLiteral("reference")).toInt(-1);
            if (ref == FontSizeProperty::AscentHeight || ref == FontSizeProperty::CapHeight)
                f->setReferenceSizeType(FontSizeProperty::ReferenceSizeType(ref));
        }
    } else if (auto *u = dynamic_cast<UnitValueSelectorProperty *>(q)) {
        const QJsonObject o = v.toObject();
        const QJsonObject items = o.value(QStringLiteral("items")).toObject();
        for (auto it = items.begin(); it != items.end(); ++it) {
            UnitValue value;
            bool ok = false;
            const int id = it.key().toInt(&ok);
            if (ok && readUnitValue(it.value(), value))
                u->setItemValue(id, value);
        }
        u->setValue(o.value(QStringLiteral("current")).toInt(u->value()));
    } else if (auto *f = dynamic_cast<FontProperty *>(q)) {
        f->setFont(readShort(v, f->font()));
    } else if (auto *b = dynamic_cast<BrushProperty *>(q)) {
        b->setBrush(readShort(v, b->brush()));
    } else if (auto *s = dynamic_cast<PenStyleProperty *>(q)) {
        s->setPenStyle(readShort(v, s->penStyle()));
    } else if (auto *s = dynamic_cast<LineHeadStyleProperty *>(q)) {
        s->setStyle(readShort(v, s->style()));
    } else if (auto *c = dynamic_cast<CustomColorProperty *>(q)) {
        const QJsonArray rgb = v.toArray();
        if (rgb.size() == 3)
            c->setRgb(rgb[0].toDouble(), rgb[1].toDouble(), rgb[2].toDouble());
    } else if (auto *s = dynamic_cast<StylesheetProperty *>(q)) {
        const QJsonObject o = v.toObject();
        s->setStylesheet(sheets && !o.isEmpty()
                             ? sheets->stylesheet(o.value(QStringLiteral("type")).toString(),
                                                  o.value(QStringLiteral("name")).toString())
                             : TAutoPtr<Stylesheet const>());
    }
}

} // namespace

QJsonObject toJson(const Property &property)
{
    QJsonObject o{ { QStringLiteral("name"), property.uniqueName() },
                   { QStringLiteral("kind"), QString::fromLatin1(property.kindName()) },
                   { QStringLiteral("value"), valueOf(property) } };
    if (property.isUndefined())
        o.insert(QStringLiteral("undefined"), true);
    return o;
}

QJsonArray toJson(const PropertyDictionary &properties)
{
    QJsonArray a;
    for (const Property::Ptr &p : properties)
        a.append(toJson(*p));
    return a;
}

void read(Property &property, const QJsonObject &saved, TAutoPtr<StylesheetManager const> stylesheets)
{
    if (saved.value(QStringLiteral("kind")).toString() != QLatin1String(property.kindName()))
        return;
    readValue(property, saved.value(QStringLiteral("value")), stylesheets);
    property.setUndefined(saved.value(QStringLiteral("undefined")).toBool(false));
}

void read(PropertyDictionary &properties, const QJsonArray &saved,
          TAutoPtr<StylesheetManager const> stylesheets)
{
    for (const QJsonValue &entry : saved) {
        const QJsonObject o = entry.toObject();
        const Property::Ptr p = properties.property(o.value(QStringLiteral("name")).toString());
        if (p)
            read(*p, o, stylesheets);
    }
}

} // namespace PropertyJson
} // namespace Sample
