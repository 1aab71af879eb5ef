#pragma once

// MAutoObj is the mix-in that reference-counted classes inherit. AAutoObj is a virtual base,
// so a class that inherits MAutoObj along several paths still has one count.
#include "core/AAutoObj.h"

class MAutoObj : public virtual AAutoObj
{
public:
    MAutoObj() = default;
    MAutoObj(const MAutoObj &) = default;
    MAutoObj &operator=(const MAutoObj &) = default;
    ~MAutoObj() override = default;
};
