#include "core/BrushProvider.h"

namespace TavoLib {

BrushProvider::~BrushProvider() = default;

int BrushProvider::hash() const
{
    return 0;
}

} // namespace TavoLib
