#include "core/FontProviderQt.h"

namespace TavoLib {

FontProviderQt::~FontProviderQt() = default;

QString FontProviderQt::fontFile(short) const
{
    return QString();
}

} // namespace TavoLib
