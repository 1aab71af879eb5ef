#pragma once

// StreamableObject is the common base of the model's values: properties and dictionaries.
// It carries the reference count through MAutoObj; saving and loading are left to the host.
#include "core/MAutoObj.h"
#include "core/TAutoPtr.h"
#include "core/TavoLibCoreExport.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT StreamableObject : public MAutoObj
{
public:
    StreamableObject() = default;
    StreamableObject(const StreamableObject &) = default;
    StreamableObject &operator=(const StreamableObject &) = default;
    ~StreamableObject() override;
};

} // namespace TavoLib
