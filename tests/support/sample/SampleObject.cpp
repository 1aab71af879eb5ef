#include "SampleObject.h"

#include "SampleAttribute.h"
#include "SampleSchema.h"

#include "core/ActivatableGroupProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/ListProperty.h"

namespace Sample {

SampleObject::SampleObject(const QString &type, const QString &name,
                           const TavoLib::PropertyDictionary &schema)
    : mType(type), mName(name), mValues(schema)
{
}

SampleObject::SampleObject(const SampleObject &other)
    : AAutoObj(), TavoLib::PropertyableObject(other), mType(other.mType), mName(other.mName),
      mValues(other.mValues.cloneProperties()), mAttributes(other.mAttributes)
{
}

SampleObject::Ptr SampleObject::create(const QString &type, const QString &name,
                                       TAutoPtr<TavoLib::StylesheetManager const> stylesheets)
{
    if (!SampleSchema::objectTypes().contains(type))
        return Ptr();
    Ptr object(new SampleObject(type, name, SampleSchema::objectSchema(type, stylesheets)));
    for (const TavoLib::AttributeKey &key : SampleSchema::attributeKeys(type))
        object->setAttribute(SampleAttribute::create(key));
    return object;
}

void SampleObject::setAttribute(TAutoPtr<TavoLib::Attribute const> attribute)
{
    if (attribute)
        mAttributes.insert(attribute);
}

namespace {

// Whether the property, or anything below it, is undefined.
bool anyUndefined(const TavoLib::Property &property)
{
    if (property.isUndefined())
        return true;
    if (auto *group = dynamic_cast<const TavoLib::GroupProperty *>(&property)) {
        for (const TavoLib::Property::Ptr &child : *group)
            if (anyUndefined(*child))
                return true;
    } else if (auto *list = dynamic_cast<const TavoLib::ListProperty *>(&property)) {
        for (const TavoLib::Property::Ptr &element : *list)
            if (anyUndefined(*element))
                return true;
    }
    return false;
}

// Writes the defined values of `values` into `target`, at every depth: a group with an
// undefined child is merged child by child (its switch or choice taken when defined), and a
// list with an undefined element is left alone, as a whole list cannot be merged by position.
void mergeDefined(TavoLib::PropertyDictionary &target, const TavoLib::PropertyDictionary &values)
{
    for (const TavoLib::Property::Ptr &value : values) {
        if (value->isUndefined())
            continue;
        const TavoLib::Property::Ptr mine = target.property(value->uniqueName());
        if (!mine || qstrcmp(mine->kindName(), value->kindName()) != 0)
            continue;
        if (!anyUndefined(*value)) {
            mine->copyValueFrom(*value);
            continue;
        }
        const TAutoPtr<TavoLib::GroupProperty> group(value);
        if (!group)
            continue;
        if (TAutoPtr<TavoLib::ActivatableGroupProperty> switchable{ value })
            TAutoPtr<TavoLib::ActivatableGroupProperty>(mine)->setActive(switchable->isActive());
        if (TAutoPtr<TavoLib::ExtendedSelectorProperty> choice{ value })
            TAutoPtr<TavoLib::ExtendedSelectorProperty>(mine)->setCurrent(choice->currentName());
        mergeDefined(*TAutoPtr<TavoLib::GroupProperty>(mine), *group);
    }
}

} // namespace

bool SampleObject::takeSetValues(const TavoLib::Attribute &edited, const TavoLib::PropertyDictionary &values)
{
    const auto own = mAttributes.find(edited.key());
    if (own == mAttributes.end())
        return false;
    TavoLib::PropertyDictionary merged;
    own->second->fillProperties(merged);
    mergeDefined(merged, values);
    TAutoPtr<TavoLib::Attribute> copy(own->second->clone());
    copy->applyProperties(merged);
    mAttributes.insert(copy);
    return true;
}

TAutoPtr<TavoLib::PropertyableObject> SampleObject::clone() const
{
    return new SampleObject(*this);
}

void SampleObject::fillProperties(TavoLib::PropertyDictionary &properties) const
{
    for (const TavoLib::Property::Ptr &p : mValues)
        properties.insertProperty(p->clone());
}

void SampleObject::applyProperties(const TavoLib::PropertyDictionary &properties)
{
    applyByName(mValues, properties);
}

TavoLib::Property::Ptr SampleObject::value(const QString &uniqueName) const
{
    return mValues.property(uniqueName);
}

void applyByName(TavoLib::PropertyDictionary &target, const TavoLib::PropertyDictionary &source)
{
    for (const TavoLib::Property::Ptr &incoming : source) {
        const TavoLib::Property::Ptr mine = target.property(incoming->uniqueName());
        if (mine && qstrcmp(mine->kindName(), incoming->kindName()) == 0)
            mine->copyValueFrom(*incoming);
    }
}

} // namespace Sample
