#pragma once

// An ordered set of properties, looked up by uniqueName. Insertion order is display order;
// inserting a property whose name is already present replaces that entry in place.
// Copying a dictionary copies the pointers, not the properties; clone() is deep.
#include "core/Property.h"

#include <QHash>

#include <vector>

namespace TavoLib {

class TAVOLIBCORE_EXPORT PropertyDictionary : public StreamableObject
{
public:
    using Ptr = TAutoPtr<PropertyDictionary>;
    using iterator = std::vector<Property::Ptr>::iterator;
    using const_iterator = std::vector<Property::Ptr>::const_iterator;

    PropertyDictionary();
    PropertyDictionary(const PropertyDictionary &other);
    PropertyDictionary &operator=(const PropertyDictionary &other);
    ~PropertyDictionary() override;

    iterator begin() { return mProperties.begin(); }
    iterator end() { return mProperties.end(); }
    const_iterator begin() const { return mProperties.begin(); }
    const_iterator end() const { return mProperties.end(); }
    int size() const { return int(mProperties.size()); }
    bool isEmpty() const { return mProperties.empty(); }
    // The property at `index` in display order; null when out of range.
    Property::Ptr at(int index) const;

    // The property named `uniqueName`; null when absent.
    Property::Ptr property(const QString &uniqueName) const;
    // Appends, or replaces the entry of the same uniqueName where it stands. Null is ignored,
    // and so is a property that this dictionary belongs to (a group into itself or below).
    void insertProperty(Property::Ptr property);
    // Removes the entry named `uniqueName`; false when absent.
    bool removeProperty(const QString &uniqueName);
    void clearProperties();

    // A dictionary of deep copies, in the same order.
    PropertyDictionary cloneProperties() const;

protected:
    std::vector<Property::Ptr> mProperties;
    // Forgets the name index, after mProperties was changed other than through this class.
    void clearIndex() { mIndexSize = size_t(-1); }

private:
    int indexOf(const QString &uniqueName) const;
    void rebuildIndex() const;

    // Large dictionaries (a host's thousands of values) find names through an index; small
    // ones scan. The index is rebuilt after any rename anywhere or a change of size it did not
    // make itself; a subclass that reorders mProperties in place must call clearIndex().
    mutable QHash<QString, int> mIndex;
    mutable quint64 mIndexStamp = 0;
    mutable size_t mIndexSize = size_t(-1);
};

} // namespace TavoLib
