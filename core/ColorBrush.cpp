#include "core/ColorBrush.h"

namespace TavoLib {

ColorBrush::ColorBrush(const QColor &color, bool registration)
    : mColor(color.isValid() ? color : QColor(Qt::black)), mRegistration(registration)
{
}

ColorBrush::~ColorBrush() = default;

QBrush ColorBrush::qBrush(const QRectF &) const
{
    return QBrush(mColor);
}

} // namespace TavoLib
