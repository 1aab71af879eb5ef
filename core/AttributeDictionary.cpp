#include "core/AttributeDictionary.h"

namespace TavoLib {

AttributeDictionary::AttributeDictionary() = default;
AttributeDictionary::~AttributeDictionary() = default;

bool AttributeDictionary::insertAttribute(TAutoPtr<Attribute const> attribute)
{
    if (!attribute)
        return false;
    mAttributes.insert(attribute);
    return true;
}

bool AttributeDictionary::removeAttribute(const AttributeKey &key)
{
    return mAttributes.erase(key) > 0;
}

int AttributeDictionary::insertAttributes(const AttributeMap &attributes)
{
    int count = 0;
    for (const auto &entry : attributes) {
        if (insertAttribute(entry.second))
            ++count;
    }
    return count;
}

AttributeMap AttributeDictionary::attributes(bool inherited) const
{
    Q_UNUSED(inherited);
    return mAttributes;
}

} // namespace TavoLib
