#include "core/PenStyleProperty.h"

namespace TavoLib {

PenStyleProperty::PenStyleProperty(const QString &uniqueName, const QString &visibleName, short penStyle)
    : Property(uniqueName, visibleName), mPenStyle(penStyle)
{
}

QString PenStyleProperty::valueText() const
{
    return QString::number(mPenStyle);
}

TAutoPtr<Property> PenStyleProperty::clone() const
{
    return new PenStyleProperty(*this);
}

void PenStyleProperty::copyValueFrom(const Property &other)
{
    Property::copyValueFrom(other);
    if (auto *o = dynamic_cast<const PenStyleProperty *>(&other))
        mPenStyle = o->mPenStyle;
}

QString PenStyleProperty::valueString() const
{
    return QString::number(mPenStyle);
}

} // namespace TavoLib
