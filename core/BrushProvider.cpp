#include "core/BrushProvider.h"

namespace TavoLib {

BrushProvider::~BrushProvider() = default;

} // namespace TavoLib
