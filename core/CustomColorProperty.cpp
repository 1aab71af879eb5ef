#include "core/CustomColorProperty.h"

#include <QColor>
#include <cmath>

namespace TavoLib {

namespace {
double unit(double v)
{
    return std::isfinite(v) ? qBound(0.0, v, 1.0) : 0.0;
}
} // namespace

CustomColorProperty::CustomColorProperty(const QString &uniqueName, const QString &visibleName,
                                         double red, double green, double blue)
    : Property(uniqueName, visibleName)
{
    setRgb(red, green, blue);
}

void CustomColorProperty::setRgb(double red, double green, double blue)
{
    mRed = unit(red);
    mGreen = unit(green);
    mBlue = unit(blue);
}

QString CustomColorProperty::valueText() const
{
    return QColor::fromRgbF(mRed, mGreen, mBlue).name();
}

TAutoPtr<Property> CustomColorProperty::clone() const
{
    return new CustomColorProperty(*this);
}

void CustomColorProperty::copyValueFrom(const Property &other)
{
    Property::copyValueFrom(other);
    if (auto *o = dynamic_cast<const CustomColorProperty *>(&other))
        setRgb(o->mRed, o->mGreen, o->mBlue);
}

QString CustomColorProperty::valueString() const
{
    return QString::number(mRed, 'g', 17) + QLatin1Char(' ') + QString::number(mGreen, 'g', 17)
        + QLatin1Char(' ') + QString::number(mBlue, 'g', 17);
}

} // namespace TavoLib
