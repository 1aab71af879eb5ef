#pragma once

// A set of attributes, at most one per key: the base of stylesheets.
#include "core/AttributeMap.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT AttributeDictionary : public StreamableObject
{
public:
    using Ptr = TAutoPtr<AttributeDictionary>;

    AttributeDictionary();
    ~AttributeDictionary() override;

    // Stores the attribute under its key; false for a null attribute.
    bool insertAttribute(TAutoPtr<Attribute const> attribute);
    // False when no attribute had that key.
    bool removeAttribute(const AttributeKey &key);
    // Inserts every attribute of the map; gives the number inserted.
    int insertAttributes(const AttributeMap &attributes);

    // The attributes of this dictionary; `inherited` asks for those it takes from elsewhere
    // (a parent stylesheet) as well.
    virtual AttributeMap attributes(bool inherited) const;

protected:
    AttributeMap mAttributes;
};

} // namespace TavoLib
