#include "menus/IconMenuItemDelegate.h"

#include "menus/IconMenuBarView.h"
#include "style/Device.h"

#include <QIcon>
#include <QPainter>

using TavoLib::Device;

namespace {
constexpr int kSeparatorRole = Qt::UserRole + 1;
}

IconMenuItemDelegate::IconMenuItemDelegate(IconMenuBarView *view) : QItemDelegate(view), mView(view)
{
}

QSize IconMenuItemDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const
{
    const int width = index.data(kSeparatorRole).toBool() ? 10 : int(Device::scale(80.0));
    return QSize(width, int(Device::scale(60.0)));
}

void IconMenuItemDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    const QRect r = option.rect;

    if (index.data(kSeparatorRole).toBool()) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(QColor(220, 220, 220, 180));
        painter->drawEllipse(int(r.left() + (r.width() - Device::scale(1.0)) * 0.5),
            int(Device::scale(15.0) + r.top()), int(Device::scale(1.0)),
            int(r.height() + r.top() - Device::scale(15.0) * 2.0));
        painter->restore();
        return;
    }

    const bool open = mView && index == mView->currentSubMenuIndex();
    if (open) {
        painter->save();
        painter->setPen(Qt::NoPen);
        painter->setBrush(QColor(0, 0, 0, 180));
        painter->drawRect(r);
        painter->restore();
    }

    const bool enabled = option.state & QStyle::State_Enabled;
    const QIcon icon = qvariant_cast<QIcon>(index.data(Qt::DecorationRole));
    if (!icon.isNull()) {
        const QIcon::Mode mode = !enabled
            ? QIcon::Disabled
            : ((option.state & QStyle::State_MouseOver) ? QIcon::Selected : QIcon::Normal);
        icon.paint(
            painter, r, Qt::AlignHCenter | Qt::AlignTop, mode, enabled ? QIcon::On : QIcon::Off);
    }

    QFont font = option.font;
    font.setBold(true);
    painter->setFont(font);
    const QFontMetrics metrics(font);
    QString text = index.data(Qt::DisplayRole).toString();
    const int room = r.width() - 6;
    if (metrics.horizontalAdvance(text) > room) {
        if (text.endsWith(QLatin1String("...")))
            text.chop(3);
        text = metrics.elidedText(text, Qt::ElideRight, room);
    }
    const int textWidth = metrics.horizontalAdvance(text);
    if (open)
        painter->setPen(QColor(220, 220, 220, 255));
    else if (!enabled)
        painter->setPen(QColor(150, 150, 150, 200));
    else
        painter->setPen(option.palette.color(QPalette::Text));
    painter->drawText(QPoint((r.width() - textWidth) / 2 - 1 + r.left(),
                          int(r.height() + r.top() - Device::scale(6.0))),
        text);
    painter->restore();
}
