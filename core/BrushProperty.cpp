#include "core/BrushProperty.h"

namespace TavoLib {

BrushProperty::BrushProperty(const QString &uniqueName, const QString &visibleName, short brush, bool onlyColors)
    : Property(uniqueName, visibleName), mBrush(brush), mOnlyColors(onlyColors)
{
}

QString BrushProperty::valueText() const
{
    return QString::number(mBrush);
}

TAutoPtr<Property> BrushProperty::clone() const
{
    return new BrushProperty(*this);
}

void BrushProperty::copyValueFrom(const Property &other)
{
    Property::copyValueFrom(other);
    if (auto *o = dynamic_cast<const BrushProperty *>(&other))
        mBrush = o->mBrush;
}

QString BrushProperty::valueString() const
{
    return QString::number(mBrush);
}

} // namespace TavoLib
