#include "core/AttributeMap.h"

namespace TavoLib {

AttributeMap::AttributeMap() = default;
AttributeMap::AttributeMap(const AttributeMap &other) = default;
AttributeMap::~AttributeMap() = default;
AttributeMap &AttributeMap::operator=(const AttributeMap &other) = default;

TAutoPtr<Attribute const> &AttributeMap::insert(TAutoPtr<Attribute const> attribute)
{
    if (!attribute) {
        // Nothing is stored; the caller gets an empty slot that belongs to no map.
        static thread_local TAutoPtr<Attribute const> none;
        none = nullptr;
        return none;
    }
    TAutoPtr<Attribute const> &slot = (*this)[attribute->key()];
    slot = attribute;
    return slot;
}

bool AttributeMap::isEqual(const AttributeMap &other) const
{
    if (size() != other.size())
        return false;
    auto a = begin();
    auto b = other.begin();
    for (; a != end(); ++a, ++b) {
        if (a->first != b->first)
            return false;
        if (a->second == b->second)
            continue;
        if (!a->second || !b->second || !a->second->hasSameValues(*b->second))
            return false;
    }
    return true;
}

} // namespace TavoLib
