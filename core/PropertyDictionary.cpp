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

namespace {
// From this size on, names are found through an index.
constexpr size_t IndexedFrom = 64;
} // namespace

int PropertyDictionary::indexOf(const QString &uniqueName) const
{
    if (mProperties.size() < IndexedFrom) {
        // A plain scan: most dictionaries hold tens of entries.
        for (size_t i = 0; i < mProperties.size(); ++i)
            if (mProperties[i]->uniqueName() == uniqueName)
                return int(i);
        return -1;
    }
    // A property renamed after its insertion (a renamed clone, say) moves the stamp, and
    // the index is made again before it is trusted.
    if (mIndexSize != mProperties.size() || mIndexStamp != Property::renameStamp())
        rebuildIndex();
    const auto found = mIndex.constFind(uniqueName);
    if (found == mIndex.constEnd())
        return -1;
    return found.value();
}

void PropertyDictionary::rebuildIndex() const
{
    mIndex.clear();
    mIndex.reserve(int(mProperties.size()));
    // The first entry of a name wins, as a scan finds it.
    for (size_t i = mProperties.size(); i-- > 0;) {
        mProperties[i]->mNameIndexed = true;
        mIndex.insert(mProperties[i]->uniqueName(), int(i));
    }
    mIndexSize = mProperties.size();
    mIndexStamp = Property::renameStamp();
}

void PropertyDictionary::insertProperty(Property::Ptr property)
{
    // A group never goes into itself or below itself: its text, clone and merge would
    // recurse without end.
    if (!property || property->reaches(this))
        return;
    const int index = indexOf(property->uniqueName());
    if (index >= 0) {
        mProperties[size_t(index)] = property;
        return;
    }
    mProperties.push_back(property);
    // An index that was whole stays whole with the new entry.
    if (mIndexSize == mProperties.size() - 1 && mIndexStamp == Property::renameStamp()) {
        property->mNameIndexed = true;
        mIndex.insert(property->uniqueName(), int(mProperties.size() - 1));
        mIndexSize = mProperties.size();
    }
}

bool PropertyDictionary::removeProperty(const QString &uniqueName)
{
    const int index = indexOf(uniqueName);
    if (index < 0)
        return false;
    mProperties.erase(mProperties.begin() + index);
    mIndexSize = size_t(-1); // the positions after it moved
    return true;
}

void PropertyDictionary::clearProperties()
{
    mProperties.clear();
    mIndex.clear();
    mIndexSize = size_t(-1);
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
