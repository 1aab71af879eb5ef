#include "SampleAttribute.h"

#include "SampleObject.h"
#include "SampleSchema.h"

namespace Sample {

SampleAttribute::SampleAttribute(const TavoLib::AttributeKey &key,
                                 const TavoLib::PropertyDictionary &schema)
    : mKey(key), mValues(schema)
{
}

SampleAttribute::SampleAttribute(const SampleAttribute &other)
    : AAutoObj(), TavoLib::Attribute(other), mKey(other.mKey),
      mValues(other.mValues.cloneProperties())
{
}

SampleAttribute::Ptr SampleAttribute::create(const TavoLib::AttributeKey &key)
{
    if (!SampleSchema::allAttributeKeys().contains(key))
        return Ptr();
    return new SampleAttribute(key, SampleSchema::attributeSchema(key));
}

TAutoPtr<TavoLib::PropertyableObject> SampleAttribute::clone() const
{
    return TAutoPtr<TavoLib::PropertyableObject>(new SampleAttribute(*this));
}

void SampleAttribute::fillProperties(TavoLib::PropertyDictionary &properties) const
{
    for (const TavoLib::Property::Ptr &p : mValues)
        properties.insertProperty(p->clone());
}

void SampleAttribute::applyProperties(const TavoLib::PropertyDictionary &properties)
{
    applyByName(mValues, properties);
}

} // namespace Sample
