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
    const int index = indexOf(uniqueName, true);
    return index < 0 ? Property::Ptr() : mProperties[size_t(index)];
}

int PropertyDictionary::indexOf(const QString &uniqueName, bool scanOnMiss) const
{
    // The index is a cache: a property renamed after insertion (a renamed clone, say) is
    // still found, and the cache mended, by the linear scan.
    const auto it = mIndex.constFind(uniqueName);
    if (it != mIndex.constEnd() && mProperties[size_t(*it)]->uniqueName() == uniqueName)
        return *it;
    if (it == mIndex.constEnd() && !scanOnMiss)
        return -1;
    for (size_t i = 0; i < mProperties.size(); ++i) {
        if (mProperties[i]->uniqueName() == uniqueName) {
            reindex();
            return int(i);
        }
    }
    return -1;
}

void PropertyDictionary::insertProperty(Property::Ptr property)
{
    if (!property)
        return;
    const QString name = property->uniqueName();
    const int index = indexOf(name, false);
    if (index >= 0) {
        mProperties[size_t(index)] = property;
        return;
    }
    mIndex.insert(name, int(mProperties.size()));
    mProperties.push_back(property);
}

bool PropertyDictionary::removeProperty(const QString &uniqueName)
{
    const int index = indexOf(uniqueName, true);
    if (index < 0)
        return false;
    mProperties.erase(mProperties.begin() + index);
    reindex();
    return true;
}

void PropertyDictionary::clearProperties()
{
    mProperties.clear();
    mIndex.clear();
}

PropertyDictionary PropertyDictionary::cloneProperties() const
{
    PropertyDictionary copy;
    copy.mProperties.reserve(mProperties.size());
    for (const Property::Ptr &p : mProperties)
        copy.mProperties.push_back(p->clone());
    copy.mIndex = mIndex;
    return copy;
}

void PropertyDictionary::reindex() const
{
    mIndex.clear();
    for (size_t i = 0; i < mProperties.size(); ++i)
        mIndex.insert(mProperties[i]->uniqueName(), int(i));
}

} // namespace TavoLib
