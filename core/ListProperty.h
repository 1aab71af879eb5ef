#pragma once

// A list of elements made from one pattern, the master property (a group when elements have
// several columns). Elements are inserted and removed at an index, within the allowed range
// of element counts.
#include "core/Property.h"

#include <climits>
#include <vector>

namespace TavoLib {

class TAVOLIBCORE_EXPORT ListProperty : public Property
{
public:
    using Ptr = TAutoPtr<ListProperty>;
    using iterator = std::vector<Property::Ptr>::iterator;
    using const_iterator = std::vector<Property::Ptr>::const_iterator;

    ListProperty(const QString &uniqueName, const QString &visibleName,
                 TAutoPtr<Property const> masterProperty, int minimum = 0, int maximum = INT_MAX);
    // A deep copy: the elements are cloned; the master pattern is shared, it never changes.
    ListProperty(const ListProperty &other);

    int minimum() const { return mMinimum; }
    int maximum() const { return mMaximum; }
    int size() const { return int(mElements.size()); }
    iterator begin() { return mElements.begin(); }
    iterator end() { return mElements.end(); }
    const_iterator begin() const { return mElements.begin(); }
    const_iterator end() const { return mElements.end(); }
    Property::Ptr at(int index) const;
    void clear() { mElements.clear(); }
    TAutoPtr<Property const> masterProperty() const { return mMaster; }

    // Makes a new element from the pattern at `index` (clamped to 0..size()) and gives it
    // back; null when the list is already at its maximum or there is no pattern.
    TAutoPtr<Property> insertProperty(int index);
    // Takes the element at `index` out and gives it back; null when out of range or when
    // the list is at its minimum.
    TAutoPtr<Property> removeProperty(int index);
    // The index of `element`, -1 when it is not an element of this list.
    int index(TAutoPtr<Property> element) const;

    const char *kindName() const override { return "List"; }
    QString valueText() const override;
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;
    bool valueCountsWhenUndefined() const override;
    bool reaches(const PropertyDictionary *dictionary) const override;
    void intersectValue(const Property &other) override;

private:
    ListProperty &operator=(const ListProperty &) = delete;
    TAutoPtr<Property const> mMaster;
    std::vector<Property::Ptr> mElements;
    int mMinimum;
    int mMaximum;
};

} // namespace TavoLib
