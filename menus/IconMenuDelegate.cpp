#include "menus/IconMenuDelegate.h"

#include "core/ImageFunctions.h"
#include "style/Device.h"

#include <QAbstractItemModel>
#include <QIcon>
#include <QLinearGradient>
#include <QPainter>

using TavoLib::Device;

namespace {
constexpr int kSeparatorRole = Qt::UserRole + 1;
constexpr int kShortcutRole = Qt::UserRole + 2;
constexpr int kSeparatorHeight = 10;

bool isSeparator(const QModelIndex &index)
{
    return index.data(kSeparatorRole).toBool();
}
} // namespace

IconMenuDelegate::IconMenuDelegate(QWidget *parent, const IconMenuConfiguration &config)
    : QItemDelegate(parent), mParentWidget(parent), mConfig(config)
{
}

QFont IconMenuDelegate::itemFont(const QFont &base) const
{
    QFont font(base);
    if (mConfig.fontSize > 0)
        font.setPointSizeF(mConfig.fontSize);
    font.setBold(mConfig.fontBold);
    return font;
}

void IconMenuDelegate::widestTexts(
    const QFont &font, const QAbstractItemModel *model, int *text, int *shortcut) const
{
    if (!model) {
        *text = *shortcut = 0;
        return;
    }
    if (mWidthsValid && mMeasuredModel == model && mMeasuredFont == font) {
        *text = mWidestText;
        *shortcut = mWidestShortcut;
        return;
    }
    if (mMeasuredModel != model) {
        for (const auto &c : qAsConst(mModelConnections))
            disconnect(c);
        mModelConnections.clear();
        auto *self = const_cast<IconMenuDelegate *>(this);
        auto reset = [self] { self->invalidateWidths(); };
        mModelConnections << connect(model, &QAbstractItemModel::dataChanged, self, reset)
                          << connect(model, &QAbstractItemModel::rowsInserted, self, reset)
                          << connect(model, &QAbstractItemModel::rowsRemoved, self, reset)
                          << connect(model, &QAbstractItemModel::rowsMoved, self, reset)
                          << connect(model, &QAbstractItemModel::modelReset, self, reset)
                          << connect(model, &QAbstractItemModel::layoutChanged, self, reset);
        mMeasuredModel = model;
    }
    const QFontMetrics metrics(font);
    int widestText = 0;
    int widestShortcut = 0;
    const int rows = model->rowCount();
    for (int row = 0; row < rows; ++row) {
        const QModelIndex i = model->index(row, 0);
        if (isSeparator(i))
            continue;
        widestText
            = qMax(widestText, metrics.boundingRect(i.data(Qt::DisplayRole).toString()).width());
        const QString keys = i.data(kShortcutRole).toString();
        if (!keys.isEmpty())
            widestShortcut = qMax(widestShortcut, metrics.boundingRect(keys).width());
    }
    mMeasuredFont = font;
    mWidestText = widestText;
    mWidestShortcut = widestShortcut;
    mWidthsValid = true;
    *text = widestText;
    *shortcut = widestShortcut;
}

QSize IconMenuDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    // A separator takes no part in the popup's width; the view stretches every row anyway.
    if (isSeparator(index))
        return QSize(0, kSeparatorHeight);

    int widestText = 0;
    int widestShortcut = 0;
    widestTexts(itemFont(option.font), index.model(), &widestText, &widestShortcut);

    const int iconPart = mDrawIcons ? mConfig.spacing + mConfig.iconSize : 0;
    const int checkPart = (mDrawCheckStates && !mDrawIcons) ? mConfig.spacing * 2 : 0;
    const double shortcutPart = widestShortcut >= 1 ? Device::scale(50.0) + widestShortcut : 0.0;
    const int width = int(mConfig.leftMargin + mConfig.frameWidth * 2 + checkPart + iconPart
        + widestText + shortcutPart + mConfig.rightMargin);
    return QSize(width, mConfig.itemHeight);
}

void IconMenuDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setRenderHint(QPainter::TextAntialiasing, true);
    if (!mContentClip.isEmpty())
        painter->setClipPath(mContentClip, Qt::ReplaceClip);

    const double shadow = mConfig.shadowSize;
    QRect item = option.rect.adjusted(0, 0, int(-shadow), 0);

    if (isSeparator(index)) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(QColor(220, 220, 220, 180));
        painter->drawEllipse(int(Device::scale(15.0) + item.left()),
            int(item.top() + (item.height() - Device::scale(1.0)) * 0.5),
            int(item.width() - Device::scale(15.0) * 2.0 - shadow), int(Device::scale(1.0)));
        painter->restore();
        return;
    }

    const bool enabled = option.state & QStyle::State_Enabled;
    const bool highlighted = (option.state & QStyle::State_Selected) && enabled;
    const int frame = mConfig.frameWidth;
    if (highlighted) {
        painter->save();
        const QRect r = item.adjusted(frame, 1, int(-frame - shadow), -2);
        const QColor base = (mParentWidget ? mParentWidget->palette() : option.palette)
                                .color(QPalette::Highlight)
                                .darker(130);
        QLinearGradient gradient(r.topLeft(), r.bottomLeft());
        gradient.setColorAt(0, base.lighter(124));
        gradient.setColorAt(1, base.lighter(102));
        painter->setPen(Qt::transparent);
        painter->setBrush(gradient);
        painter->drawRects(&r, 1);
        painter->setRenderHint(QPainter::Antialiasing, false);
        painter->setPen(QPen(base, 0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
        painter->drawLine(r.topLeft(), r.topRight());
        painter->drawLine(r.bottomLeft(), r.bottomRight());
        painter->restore();
    }

    // The icon's top is kept as designed: equal item height and icon size give the row's top.
    const QRect iconRect(item.left() + mConfig.leftMargin + frame,
        item.top() - (item.height() - mConfig.iconSize) / 2, mConfig.iconSize, mConfig.iconSize);

    if (mDrawCheckStates && index.data(Qt::CheckStateRole).toBool()) {
        painter->save();
        const QPixmap check = Device::pixmap(mConfig.checkImage, 10, 10, nullptr);
        const int h = int(check.height() / check.devicePixelRatio());
        painter->drawPixmap(int(Device::scale(6.0) + item.left() + frame),
            (item.height() - h) / 2 + item.top(), check);
        painter->restore();
    }

    if (mDrawIcons) {
        const QIcon icon = qvariant_cast<QIcon>(index.data(Qt::DecorationRole));
        if (!icon.isNull()) {
            const bool disabled = !enabled;
            const QIcon::State state = disabled ? QIcon::Off : QIcon::On;
            if (!highlighted) {
                icon.paint(painter, iconRect, Qt::AlignLeft | Qt::AlignVCenter,
                    disabled ? QIcon::Disabled : QIcon::Normal, state);
            } else {
                QColor white(Qt::white);
                white.setAlphaF(0.9);
                const QImage tinted = ColorizeImage(
                    icon.pixmap(QSize(48, 48), QIcon::Normal, QIcon::Off).toImage(), white);
                QIcon light;
                light.addPixmap(QPixmap::fromImage(tinted), QIcon::Normal, QIcon::Off);
                light.paint(
                    painter, iconRect, Qt::AlignLeft | Qt::AlignVCenter, QIcon::Selected, state);
            }
        }
    }

    const QFont font = itemFont(option.font);
    painter->setFont(font);
    const QFontMetrics metrics(font);
    const QString text = index.data(Qt::DisplayRole).toString();
    int x = mDrawIcons ? iconRect.right() + mConfig.spacing
                       : item.left() + mConfig.leftMargin + frame;
    if (mDrawCheckStates && !mDrawIcons)
        x += mConfig.spacing * 2;
    const int textHeight = metrics.boundingRect(text).height();
    const int baseline = (item.height() - textHeight) / 2 + metrics.ascent() + item.top();
    painter->setPen(highlighted ? mConfig.highlightedTextColor
                                : (enabled ? mConfig.textColor : mConfig.disabledTextColor));
    painter->drawText(QPoint(x, baseline), text);

    const QString shortcut = index.data(kShortcutRole).toString();
    if (!shortcut.isEmpty()) {
        const QRect keys
            = item.adjusted(0, 0, -2 * mConfig.spacing - mConfig.rightMargin - frame, 0);
        painter->drawText(keys, Qt::AlignRight | Qt::AlignVCenter, shortcut);
    }
    painter->restore();
}
