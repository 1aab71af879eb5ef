#include "GalleryStyle.h"

#include <QPainter>
#include <QPixmap>

QIcon GalleryStyle::standardIcon(StandardPixmap pixmap, const QStyleOption *option, const QWidget *widget) const
{
    if (int(pixmap) != StopPixmap)
        return QProxyStyle::standardIcon(pixmap, option, widget);
    // A red disc with a white bar, drawn at two densities.
    QIcon icon;
    for (int side : { 16, 32 }) {
        QPixmap image(side, side);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(200, 48, 40));
        painter.drawEllipse(QRectF(0.5, 0.5, side - 1.0, side - 1.0));
        painter.setBrush(Qt::white);
        painter.drawRect(QRectF(side * 0.25, side * 0.42, side * 0.5, side * 0.16));
        icon.addPixmap(image);
    }
    return icon;
}
