#include "menus/MyToolButton.h"

#include "core/ImageFunctions.h"

#include <QPainter>

MyToolButton::MyToolButton(QWidget *parent) : QToolButton(parent) { }

void MyToolButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QIcon icon = this->icon();
    if (icon.isNull())
        return;
    if (isDown()) {
        QColor shade(Qt::black);
        shade.setAlphaF(0.3);
        const QPixmap source = icon.pixmap(size());
        QPixmap pressed = QPixmap::fromImage(ColorizeImage(source.toImage(), shade));
        pressed.setDevicePixelRatio(source.devicePixelRatio());
        const QSizeF s = QSizeF(pressed.size()) / pressed.devicePixelRatio();
        painter.drawPixmap(
            QPointF((width() - s.width()) / 2, (height() - s.height()) / 2), pressed);
        return;
    }
    const QIcon::Mode mode
        = !isEnabled() ? QIcon::Disabled : (underMouse() ? QIcon::Selected : QIcon::Normal);
    icon.paint(&painter, rect(), Qt::AlignCenter, mode, QIcon::Off);
}
