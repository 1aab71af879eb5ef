#pragma once

// The interface of anything a host lets the user edit. fillProperties appends one fresh
// property per editable value, in display order; those properties are the caller's to keep
// and change. applyProperties writes a dictionary's values back into the object. Objects of
// one kind must give the same properties in the same order, since several selected objects
// are merged position by position.
#include "core/PropertyDictionary.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT PropertyableObject : public virtual MAutoObj
{
public:
    using Ptr = TAutoPtr<PropertyableObject>;

    ~PropertyableObject() override;

    virtual TAutoPtr<PropertyableObject> clone() const = 0;
    virtual void applyProperties(const PropertyDictionary &properties) = 0;
    virtual void fillProperties(PropertyDictionary &properties) const = 0;
};

} // namespace TavoLib
