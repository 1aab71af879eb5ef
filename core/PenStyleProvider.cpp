#include "core/PenStyleProvider.h"

namespace TavoLib {

PenStyleProvider::~PenStyleProvider() = default;

} // namespace TavoLib
