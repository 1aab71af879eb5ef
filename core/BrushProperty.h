#pragma once

// A brush of the host's BrushProvider, by its short identifier; -100 is no brush.
// onlyColors() restricts the choice to plain colours.
#include "core/Property.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT BrushProperty : public Property
{
public:
    using Ptr = TAutoPtr<BrushProperty>;

    BrushProperty(const QString &uniqueName, const QString &visibleName, short brush = -100, bool onlyColors = false);

    short brush() const { return mBrush; }
    void setBrush(short brush) { mBrush = brush; }
    bool onlyColors() const { return mOnlyColors; }
    void setOnlyColors(bool only) { mOnlyColors = only; }

    const char *kindName() const override { return "Brush"; }
    QString valueText() const override;
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;

private:
    short mBrush;
    bool mOnlyColors;
};

} // namespace TavoLib
