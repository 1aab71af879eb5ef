#include "menus/IconMenuToolButton.h"

#include "menus/ButtonFace_p.h"

#include "core/ImageFunctions.h"
#include "menus/IconMenu.h"
#include "style/Device.h"

#include <QAction>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

using TavoLib::Device;

namespace {
QPixmap toolArrow()
{
    const QImage image(QStringLiteral(":/combobox_tool_arrow.png"));
    if (image.isNull())
        return QPixmap();
    // The image's last row and column are a margin.
    const QPixmap arrow = QPixmap::fromImage(
        image.copy(0, 0, std::max(image.width() - 1, 1), std::max(image.height() - 1, 1)));
    return Device::scale(arrow, 7, 5);
}

QSizeF logicalSize(const QPixmap &pixmap)
{
    return QSizeF(pixmap.size()) / pixmap.devicePixelRatio();
}
} // namespace

IconMenuToolButton::IconMenuToolButton(StyleType style, ResultType result, QWidget *parent)
    : QToolButton(parent), mStyleType(style), mResultType(result)
{
    setFixedHeight(int(Device::scale(22.0)));
    if (mStyleType == StyleType0)
        setFixedWidth(int(maximumHeight() + Device::scale(6.0)));
    else
        setFixedWidth(int(Device::scale(24.0)));
}

void IconMenuToolButton::setMenu(QMenu *menu)
{
    QToolButton::setMenu(menu);
    if (mStyleType == StyleType0)
        setFixedWidth(menu ? int(maximumHeight() + Device::scale(6.0)) : maximumHeight());
    else
        setFixedWidth(int(Device::scale(menu ? 40.0 : 24.0)));
    update();
}

void IconMenuToolButton::mousePressEvent(QMouseEvent *event)
{
    if (mPopup) {
        mPopup->close();
        update();
        event->accept();
        return;
    }
    QMenu *menu = this->menu();
    if (menu && event->button() == Qt::LeftButton) {
        auto *popup = new IconMenu(IconMenuConfiguration::light(), menu,
            mapToGlobal(QPoint(0, height())), this, nativeParentWidget());
        popup->makePopupWindow();
        if (mResultType == ResultType1)
            connect(menu, &QMenu::triggered, this, &IconMenuToolButton::triggered,
                Qt::UniqueConnection);
        mPopup = popup;
        popup->show();
        update();
        event->accept();
        return;
    }
    if (!menu && defaultAction())
        QToolButton::mousePressEvent(event);
}

void IconMenuToolButton::triggered(QAction *action)
{
    if (!action)
        return;
    QAction *previous = defaultAction();
    if (previous != action) {
        if (previous)
            previous->setChecked(false);
        setDefaultAction(action);
    }
    // activate() has just toggled a checkable action, so choosing the current default again
    // would leave it unchecked. An action the host made not checkable stays so.
    action->setChecked(true);
    update();
}

void IconMenuToolButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (mStyleType == StyleType0)
        paintBare(painter);
    else
        paintFramed(painter);
}

void IconMenuToolButton::paintBare(QPainter &painter)
{
    const QIcon icon = this->icon();
    if (!isDown()) {
        const QPixmap source
            = icon.pixmap(rect().size(), isEnabled() ? QIcon::Normal : QIcon::Disabled, QIcon::Off);
        if (!source.isNull()) {
            const QPixmap sized = Device::scale(
                source.scaled(18, 18, Qt::KeepAspectRatio, Qt::SmoothTransformation), 18, 18);
            const QPixmap grey
                = QPixmap::fromImage(ColorizeImage(sized.toImage(), QColor(110, 110, 110, 255)));
            const QSizeF s = logicalSize(grey);
            painter.drawPixmap(
                QPointF(rect().left(), int((height() - s.height()) / 2) + rect().top()), grey);
        }
        if (underMouse() && menu()) {
            const QPixmap arrow = toolArrow();
            if (!arrow.isNull()) {
                const QSizeF s = logicalSize(arrow);
                painter.drawPixmap(
                    QPointF(rect().right() - s.width(), int(rect().bottom() - s.height() * 1.5)),
                    arrow);
            }
        }
        return;
    }
    QColor shade(Qt::black);
    shade.setAlphaF(0.3);
    const QPixmap source = icon.pixmap(rect().size(), QIcon::Normal, QIcon::Off);
    if (source.isNull())
        return;
    const QPixmap sized = Device::scale(
        source.scaled(18, 18, Qt::KeepAspectRatio, Qt::SmoothTransformation), 18, 18);
    const QPixmap pressed = QPixmap::fromImage(ColorizeImage(sized.toImage(), shade));
    const QSizeF s = logicalSize(pressed);
    painter.drawPixmap(
        QPointF(int((width() - s.width()) / 2), int((height() - s.height()) / 2)), pressed);
}

void IconMenuToolButton::paintFramed(QPainter &painter)
{
    const bool inverted = !(!menuShown() && (menu() || !isDown()));
    TavoLib::paintButtonFace(painter, rect(), inverted, true, hasFocus(), isEnabled());

    if (menu()) {
        const QPixmap arrow = toolArrow();
        if (!arrow.isNull()) {
            const QSizeF s = logicalSize(arrow);
            painter.drawPixmap(QPointF(int(rect().right() - s.width() - Device::scale(5.0)),
                                   int((height() - s.height()) / 2)),
                arrow);
        }
    }

    const int side = int(Device::scale(20.0));
    const QPixmap iconPixmap = icon().pixmap(
        QSize(side, side), isEnabled() ? QIcon::Normal : QIcon::Disabled, QIcon::Off);
    if (!iconPixmap.isNull()) {
        const QPixmap sized = Device::scale(iconPixmap, 20, 20);
        const QSizeF s = logicalSize(sized);
        painter.drawPixmap(
            QPointF(int(Device::scale(4.0) + rect().left()), int((height() - s.height()) / 2)),
            sized);
    }
}
