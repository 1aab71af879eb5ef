#include "core/Attribute.h"

namespace TavoLib {

Attribute::~Attribute() = default;

bool Attribute::hasSameValues(const Attribute &other) const
{
    if (&other == this)
        return true;
    if (key() != other.key())
        return false;
    PropertyDictionary mine;
    PropertyDictionary theirs;
    fillProperties(mine);
    other.fillProperties(theirs);
    if (mine.size() != theirs.size())
        return false;
    for (int i = 0; i < mine.size(); ++i) {
        const Property::Ptr a = mine.at(i);
        const Property::Ptr b = theirs.at(i);
        if (a->uniqueName() != b->uniqueName() || a->toString() != b->toString())
            return false;
    }
    return true;
}

} // namespace TavoLib
