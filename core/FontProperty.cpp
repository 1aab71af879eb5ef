#include "core/FontProperty.h"

namespace TavoLib {

FontProperty::FontProperty(const QString &uniqueName, const QString &visibleName, short font)
    : Property(uniqueName, visibleName), mFont(font)
{
}

QString FontProperty::valueText() const
{
    return QString::number(mFont);
}

TAutoPtr<Property> FontProperty::clone() const
{
    return new FontProperty(*this);
}

void FontProperty::copyValueFrom(const Property &other)
{
    Property::copyValueFrom(other);
    if (auto *o = dynamic_cast<const FontProperty *>(&other))
        mFont = o->mFont;
}

QString FontProperty::valueString() const
{
    return QString::number(mFont);
}

} // namespace TavoLib
