#pragma once

// An attribute is an editable object with a key: the fill, the line or the character
// settings of a frame or of a stylesheet. At most one attribute per key is applied.
#include "core/AttributeKey.h"
#include "core/PropertyableObject.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT Attribute : public StreamableObject, public PropertyableObject
{
public:
    using Ptr = TAutoPtr<Attribute>;
    using ConstPtr = TAutoPtr<Attribute const>;

    ~Attribute() override;

    virtual AttributeKey key() const = 0;

    // Whether both give the same properties, compared by canonical text.
    bool hasSameValues(const Attribute &other) const;
};

} // namespace TavoLib
