#include "menus/ButtonFace_p.h"

#include "style/Device.h"

#include <QLinearGradient>
#include <QPainter>

namespace TavoLib {

void paintButtonFace(QPainter &painter, const QRect &rect, bool inverted, bool flipWhenInverted,
    bool focused, bool enabled)
{
    const QRectF r = QRectF(rect.adjusted(1, 1, -1, -1)).translated(0.5, -0.5);
    const double radius = Device::scale(2.0);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    const QColor base(220, 220, 220, 255);
    const QColor colour = inverted ? base.darker(120) : (focused ? base : base.darker(104));
    const bool flip = inverted && flipWhenInverted;
    QLinearGradient gradient(r.topLeft(), r.bottomLeft());
    gradient.setColorAt(flip ? 1 : 0, colour.lighter(124));
    gradient.setColorAt(flip ? 0 : 1, colour.lighter(102));
    painter.setPen(Qt::transparent);
    painter.setBrush(gradient);
    painter.drawRoundedRect(r, radius, radius);

    const QColor line(0, 0, 0, 50);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(enabled ? line : line.lighter(115));
    painter.drawRoundedRect(r, radius, radius);
    QColor glow(Qt::white);
    glow.setAlpha(30);
    painter.setPen(glow);
    painter.drawRoundedRect(r.adjusted(1, 1, -1, -1), radius, radius);
    painter.restore();
}

} // namespace TavoLib
