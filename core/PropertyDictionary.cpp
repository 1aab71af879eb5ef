#include "core/PropertyDictionary.h"

namespace TavoLib {

PropertyDictionary::PropertyDictionary() = default;
PropertyDictionary::PropertyDictionary(const PropertyDictionary &other) = default;
PropertyDictionary &PropertyDictionary::operator=(const PropertyDictionary &other) = default;
PropertyDictionary::~PropertyDictionary() = default;

Property::Ptr PropertyDictionary::at(int index) const
{
    if (index < 0 || index >= int(mProperties.size()))
        return Property::Ptr();
    return mProperties[size_t(index)];
}

Property::Ptr PropertyDictionary::property(const QString &uniqueName) const
{
    const int index = indexOf(uniqueName);
    return index < 0 ? Property::Ptr() : mProperties[size_t(index)];
}

int PropertyDictionary::indexOf(const QString &uniqueName) const
{
    // A plain scan: dictionaries hold tens of entries, and a property renamed after its
    // insertion (a renamed clone, say) is found under its new name without any index to mend.
    for (size_t i = 0; i < mProperties.size(); ++i) {
        if (mProperties[i]->uniqueName() == uniqueName)
            return int(i);
    }
    return -1;
}

void PropertyDictionary::insertProperty(Property::Ptr property)
{
    // A group never goes into itself or below itself: its text, clone and merge would
    // recurse without end.
    if (!property || property->reaches(this))
        return;
    const int index = indexOf(property->uniqueName());
    if (index >= 0)
        mProperties[size_t(index)] = property;
    else
        mProperties.push_back(property);
}

bool PropertyDictionary::removeProperty(const QString &uniqueName)
{
    const int index = indexOf(uniqueName);
    if (index < 0)
        return false;
    mProperties.erase(mProperties.begin() + index);
    return true;
}

void PropertyDictionary::clearProperties()
{
    mProperties.clear();
}

PropertyDictionary PropertyDictionary::cloneProperties() const
{
    PropertyDictionary copy;
    copy.mProperties.reserve(mProperties.size());
    for (const Property::Ptr &p : mProperties)
        copy.mProperties.push_back(p->clone());
    return copy;
}

} // namespace TavoLib
