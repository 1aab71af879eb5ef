#pragma once

// An object with no values of its own: the owner of rows in tests and benchmarks that make
// their properties by hand.
#include "core/PropertyableObject.h"

namespace Sample {

struct EmptyObject : TavoLib::PropertyableObject
{
    TAutoPtr<TavoLib::PropertyableObject> clone() const override { return new EmptyObject; }
    void applyProperties(const TavoLib::PropertyDictionary &) override { }
    void fillProperties(TavoLib::PropertyDictionary &) const override { }
};

} // namespace Sample
