#include "core/FontSizeProperty.h"

namespace TavoLib {

FontSizeProperty::FontSizeProperty(const QString &uniqueName, const QString &visibleName,
                                   const UnitValue &value, unsigned int displayUnit, double minimum,
                                   double maximum, int precision)
    : UnitValueProperty(uniqueName, visibleName, value, displayUnit, minimum, maximum, precision)
{
}

TAutoPtr<Property> FontSizeProperty::clone() const
{
    return new FontSizeProperty(*this);
}

void FontSizeProperty::copyValueFrom(const Property &other)
{
    UnitValueProperty::copyValueFrom(other);
    if (auto *o = dynamic_cast<const FontSizeProperty *>(&other))
        mReferenceSizeType = o->mReferenceSizeType;
}

QString FontSizeProperty::valueString() const
{
    return mReferenceSizeType == CapHeight
        ? UnitValueProperty::valueString() + QStringLiteral(" Cap Height")
        : UnitValueProperty::valueString();
}

} // namespace TavoLib
