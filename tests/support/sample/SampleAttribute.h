#pragma once

// An attribute of the sample document (fill, line, character, paragraph), keeping its values
// as a dictionary of properties built from the key's schema, like SampleObject.
#include "core/Attribute.h"

namespace Sample {

class SampleAttribute : public TavoLib::Attribute
{
public:
    using Ptr = TAutoPtr<SampleAttribute>;

    // An attribute of `key` with the schema's defaults; null for an unknown key.
    static Ptr create(const TavoLib::AttributeKey &key);

    TavoLib::AttributeKey key() const override { return mKey; }
    TAutoPtr<TavoLib::PropertyableObject> clone() const override;
    void fillProperties(TavoLib::PropertyDictionary &properties) const override;
    void applyProperties(const TavoLib::PropertyDictionary &properties) override;

private:
    SampleAttribute(const TavoLib::AttributeKey &key, const TavoLib::PropertyDictionary &schema);
    SampleAttribute(const SampleAttribute &other);

    TavoLib::AttributeKey mKey;
    TavoLib::PropertyDictionary mValues;
};

} // namespace Sample
