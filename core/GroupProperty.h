#pragma once

// A group is a property whose value is its children: it is itself an ordered dictionary of
// them, reached through the PropertyDictionary base of the same object (with one shared
// count). Its text summarises every child in order, so a changed child changes the group's
// text; intersect and copyValueFrom work child by child, by position.
#include "core/PropertyDictionary.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT GroupProperty : public Property, public PropertyDictionary
{
public:
    using Ptr = TAutoPtr<GroupProperty>;
    using PropertyDictionary::begin;
    using PropertyDictionary::end;

    // Takes the children of `children` over as its own (the same property objects).
    GroupProperty(const QString &uniqueName, const PropertyDictionary &children);
    GroupProperty(const QString &uniqueName, const QString &visibleName,
                  const PropertyDictionary &children = PropertyDictionary());
    // A deep copy: the children are cloned.
    GroupProperty(const GroupProperty &other);
    ~GroupProperty() override;

    bool areChildsUndefinable() const { return mChildsUndefinable; }
    void setChildsUndefinable(bool undefinable) { mChildsUndefinable = undefinable; }

    const char *kindName() const override { return "Group"; }
    QString valueText() const override;
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;
    bool valueCountsWhenUndefined() const override;
    void intersectValue(const Property &other) override;
    bool reaches(const PropertyDictionary *dictionary) const override;

private:
    GroupProperty &operator=(const GroupProperty &) = delete;
    bool mChildsUndefinable = false;
};

} // namespace TavoLib
