#pragma once

// A colour given directly as red, green and blue, each from 0 to 1 (values are clamped).
#include "core/Property.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT CustomColorProperty : public Property
{
public:
    using Ptr = TAutoPtr<CustomColorProperty>;

    CustomColorProperty(const QString &uniqueName, const QString &visibleName, double red = 0.0,
                        double green = 0.0, double blue = 0.0);

    double red() const { return mRed; }
    double green() const { return mGreen; }
    double blue() const { return mBlue; }
    void setRgb(double red, double green, double blue);

    const char *kindName() const override { return "CustomColor"; }
    QString valueText() const override;
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;

private:
    double mRed = 0.0;
    double mGreen = 0.0;
    double mBlue = 0.0;
};

} // namespace TavoLib
