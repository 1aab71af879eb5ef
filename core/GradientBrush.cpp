#include "core/GradientBrush.h"

#include <QLinearGradient>
#include <QRadialGradient>
#include <QtMath>
#include <algorithm>
#include <cmath>

namespace TavoLib {

GradientBrush::GradientBrush(Type type, const QGradientStops &stops, double angle)
    : mType(type == Radial ? Radial : Linear), mAngle(std::isfinite(angle) ? angle : 0.0)
{
    for (const QGradientStop &stop : stops) {
        const double at = std::isfinite(stop.first) ? std::clamp(stop.first, 0.0, 1.0) : 0.0;
        mStops.append(QGradientStop(at, stop.second.isValid() ? stop.second : QColor(Qt::black)));
    }
    std::stable_sort(mStops.begin(), mStops.end(),
        [](const QGradientStop &a, const QGradientStop &b) { return a.first < b.first; });
    if (mStops.size() < 2)
        mStops = { QGradientStop(0.0, Qt::black), QGradientStop(1.0, Qt::white) };
}

GradientBrush::~GradientBrush() = default;

QBrush GradientBrush::qBrush(const QRectF &area) const
{
    const QPointF centre = area.center();
    if (mType == Radial) {
        const double radius = std::max(1.0, std::hypot(area.width(), area.height()) / 2.0);
        QRadialGradient gradient(centre, radius);
        gradient.setStops(mStops);
        return QBrush(gradient);
    }
    // The gradient line passes through the centre and just reaches the area's corners.
    const double rad = qDegreesToRadians(mAngle);
    const QPointF dir(std::cos(rad), -std::sin(rad));
    const double half
        = (std::abs(dir.x()) * area.width() + std::abs(dir.y()) * area.height()) / 2.0;
    QLinearGradient gradient(centre - dir * half, centre + dir * half);
    gradient.setStops(mStops);
    return QBrush(gradient);
}

} // namespace TavoLib
