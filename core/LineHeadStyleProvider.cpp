#include "core/LineHeadStyleProvider.h"

namespace TavoLib {

LineHeadStyleProvider::~LineHeadStyleProvider() = default;

} // namespace TavoLib
