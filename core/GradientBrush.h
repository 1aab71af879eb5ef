#pragma once

// A linear or radial blend between colour stops. A linear gradient runs across the filled
// area at its angle (0 degrees left to right, counter-clockwise); a radial one runs from the
// centre of the area to its farthest corner.
#include "core/Brush.h"

#include <QGradientStops>

namespace TavoLib {

class TAVOLIBCORE_EXPORT GradientBrush : public Brush
{
public:
    using Ptr = TAutoPtr<GradientBrush>;

    enum Type { Linear = 0, Radial = 1 };

    // Stops outside 0..1 are clamped; fewer than two stops make a black-to-white blend.
    GradientBrush(Type type, const QGradientStops &stops, double angle = 0.0);
    ~GradientBrush() override;

    Type type() const { return mType; }
    QGradientStops stops() const { return mStops; }
    double angle() const { return mAngle; }

    QBrush qBrush(const QRectF &area) const override;

private:
    Type mType;
    QGradientStops mStops;
    double mAngle;
};

} // namespace TavoLib
