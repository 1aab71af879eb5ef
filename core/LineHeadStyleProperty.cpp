#include "core/LineHeadStyleProperty.h"

namespace TavoLib {

LineHeadStyleProperty::LineHeadStyleProperty(const QString &uniqueName, const QString &visibleName, short style, bool atLineEnd)
    : Property(uniqueName, visibleName), mStyle(style), mAtLineEnd(atLineEnd)
{
}

QString LineHeadStyleProperty::valueText() const
{
    return QString::number(mStyle);
}

TAutoPtr<Property> LineHeadStyleProperty::clone() const
{
    return new LineHeadStyleProperty(*this);
}

void LineHeadStyleProperty::copyValueFrom(const Property &other)
{
    Property::copyValueFrom(other);
    if (auto *o = dynamic_cast<const LineHeadStyleProperty *>(&other))
        mStyle = o->mStyle;
}

QString LineHeadStyleProperty::valueString() const
{
    return QString::number(mStyle);
}

} // namespace TavoLib
