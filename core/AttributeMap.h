#pragma once

// Attributes by key: a std::map in the open, with insert() that stores an attribute under
// its own key (replacing an earlier one) and isEqual() that compares by values.
#include "core/Attribute.h"

#include <map>

namespace TavoLib {

class TAVOLIBCORE_EXPORT AttributeMap : public std::map<AttributeKey, TAutoPtr<Attribute const>>
{
public:
    AttributeMap();
    AttributeMap(const AttributeMap &other);
    ~AttributeMap();
    AttributeMap &operator=(const AttributeMap &other);

    // Stores under the attribute's key, replacing an earlier entry, and gives back the stored
    // pointer. A null attribute is ignored (an empty pointer comes back).
    TAutoPtr<Attribute const> &insert(TAutoPtr<Attribute const> attribute);

    // Same keys, and under each key attributes with the same values.
    bool isEqual(const AttributeMap &other) const;
};

} // namespace TavoLib
