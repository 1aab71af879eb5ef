#include "menus/MyComboBox.h"

#include "menus/ButtonFace_p.h"

#include "menus/IconMenu.h"
#include "style/Device.h"

#include <QMouseEvent>
#include <QPainter>

using TavoLib::Device;

MyComboBox::MyComboBox(QWidget *parent) : QComboBox(parent)
{
    setMinimumHeight(int(Device::scale(22.0)));
}

void MyComboBox::emitActivated(int index)
{
    if (index < 0 || index >= count())
        return;
    emit activated(index);
    emit textActivated(itemText(index));
}

// kept on purpose: QComboBox also calls this on F4 and Alt+Down, so those keys open this popup.
void MyComboBox::showPopup()
{
    if (mPopup)
        return;
    auto *popup = new IconMenu(IconMenuConfiguration::light(), this, nativeParentWidget());
    popup->makePopupWindow();
    mPopup = popup;
    popup->show();
    update();
}

void MyComboBox::hidePopup()
{
    if (mPopup)
        mPopup->close();
    update();
}

void MyComboBox::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    event->accept();
    if (mPopup) {
        mPopup->close();
        update();
        return;
    }
    showPopup();
}

void MyComboBox::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    TavoLib::paintButtonFace(painter, rect(), !mPopup.isNull(), false, hasFocus(), isEnabled());

    const QIcon arrowIcon(QStringLiteral(":/combobox_arrows.png"));
    if (!arrowIcon.isNull()) {
        QPixmap arrows = arrowIcon.pixmap(arrowIcon.availableSizes().value(0, QSize(5, 13)),
            isEnabled() ? QIcon::Normal : QIcon::Disabled);
        arrows = Device::scale(arrows, 5, 13);
        const QSizeF size = QSizeF(arrows.size()) / arrows.devicePixelRatio();
        painter.drawPixmap(QPointF(int(rect().right() - size.width() - Device::scale(6.0)),
                               (height() - size.height()) / 2),
            arrows);
    }

    const QFontMetrics metrics(font());
    // Long texts end before the arrows.
    const int room = int(width() - Device::scale(10.0) - Device::scale(5.0) - Device::scale(12.0));
    const QString text = metrics.elidedText(currentText(), Qt::ElideRight, qMax(room, 0));
    const int textHeight = metrics.height();
    painter.setFont(font());
    painter.setPen(isEnabled() ? QColor(0, 0, 0, 200) : QColor(150, 150, 150, 200));
    painter.drawText(QPoint(int(rect().left() + Device::scale(10.0)),
                         (height() - textHeight) / 2 + rect().top() + metrics.ascent()),
        text);
}
