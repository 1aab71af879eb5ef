#include "core/CustomColorProperty.h"

#include <QColor>
#include <QLocale>
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
    // "#rrggbb"; channels that lie between two 8-bit steps add their exact numbers, so that
    // two different colours never read alike.
    const auto exact = [](double v) { return double(qRound(v * 255.0)) / 255.0 == v; };
    QString text = QColor::fromRgbF(mRed, mGreen, mBlue).name();
    if (!exact(mRed) || !exact(mGreen) || !exact(mBlue)) {
        const auto number
            = [](double v) { return QString::number(v, 'f', QLocale::FloatingPointShortest); };
        text += QStringLiteral(" (") + number(mRed) + QLatin1Char(' ') + number(mGreen)
            + QLatin1Char(' ') + number(mBlue) + QLatin1Char(')');
    }
    return text;
}

} // namespace TavoLib
