#include "core/LineHeadStyleProviderQt.h"

namespace TavoLib {

LineHeadStyleProviderQt::~LineHeadStyleProviderQt() = default;

} // namespace TavoLib
