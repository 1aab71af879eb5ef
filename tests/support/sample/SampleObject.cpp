#include "SampleObject.h"

#include "SampleAttribute.h"
#include "SampleSchema.h"

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

bool SampleObject::takeSetValues(const TavoLib::Attribute &edited, const TavoLib::PropertyDictionary &values)
{
    const auto own = mAttributes.find(edited.key());
    if (own == mAttributes.end())
        return false;
    TavoLib::PropertyDictionary merged;
    own->second->fillProperties(merged);
    for (const TavoLib::Property::Ptr &value : values)
        if (!value->isUndefined())
            merged.insertProperty(value->clone());
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
