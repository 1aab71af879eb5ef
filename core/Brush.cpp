#include "core/Brush.h"

namespace TavoLib {

Brush::~Brush() = default;

} // namespace TavoLib
