#include "pickers/BrushControllerQt.h"

#include "core/ColorBrush.h"
#include "core/GradientBrush.h"
#include "pickers/PickerRoles.h"
#include "style/Device.h"

#include <QAbstractItemView>
#include <QAction>
#include <QActionGroup>
#include <QComboBox>
#include <QMenu>
#include <QPainter>
#include <map>

namespace TavoLib {

namespace {

constexpr short kNoBrush = -100;

short brushFromVariant(const QVariant &value)
{
    bool ok = false;
    const int id = value.toInt(&ok);
    return value.isValid() && ok ? short(id) : kNoBrush;
}

} // namespace

BrushControllerQt::BrushControllerQt(TAutoPtr<const BrushProviderQt> provider, int frameWidth)
    : mProvider(provider)
    , mFrameWidth(qBound(0, frameWidth, 8))
{
}

BrushControllerQt::BrushControllerQt(const BrushControllerQt &other) = default;
BrushControllerQt &BrushControllerQt::operator=(const BrushControllerQt &other) = default;
BrushControllerQt::~BrushControllerQt() = default;

QSizeF BrushControllerQt::brushPreviewSizeForHeight(double height)
{
    return QSizeF(height * 1.6, height);
}

short BrushControllerQt::canonical(short brush) const
{
    if (brush == kNoBrush || !mProvider)
        return brush;
    return mProvider->brushIdentifier(mProvider->brushName(brush));
}

void BrushControllerQt::populate(QComboBox *combo, bool onlyColors, short current) const
{
    if (!combo)
        return;
    int currentIndex = 0;
    if (mProvider) {
        const short wanted = canonical(current);
        std::map<QString, short> sorted;
        for (short id : mProvider->brushList()) {
            if (onlyColors && !TAutoPtr<ColorBrush>(mProvider->brush(id)))
                continue;
            sorted[mProvider->displayName(id).toLower()] = id;
        }
        QSize iconSize;
        bool first = true;
        for (const auto &entry : sorted) {
            const short id = entry.second;
            combo->addItem(mProvider->displayName(id));
            const int index = combo->count() - 1;
            if (first) {
                first = false;
                const int h = combo->view()->sizeHintForRow(0);
                iconSize = QSizeF((h - 2) * 1.6, h - 2).toSize();
                combo->setIconSize(iconSize);
            }
            // brushPreview is not const for subclasses that cache; this one does not.
            combo->setItemIcon(
                index, const_cast<BrushControllerQt *>(this)->brushPreview(id, iconSize));
            combo->setItemData(index, int(id), BrushIdRole);
            if (id == wanted)
                currentIndex = index;
        }
    }
    combo->setProperty("COLORIZEICON", false);
    combo->setProperty("SCALEICON", true);
    combo->setCurrentIndex(currentIndex);
}

bool BrushControllerQt::setCurrentBrush(QComboBox *combo, short brush) const
{
    if (!combo)
        return false;
    const short wanted = canonical(brush);
    for (int i = 0; i < combo->count(); ++i) {
        const QVariant id = combo->itemData(i, BrushIdRole);
        if (id.isValid() && id.toInt() == wanted) {
            combo->setCurrentIndex(i);
            return true;
        }
    }
    return false;
}

short BrushControllerQt::currentBrush(QMenu *menu) const
{
    if (!menu)
        return kNoBrush;
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        if (action->isChecked())
            return brushFromVariant(action->data());
    }
    return kNoBrush;
}

short BrushControllerQt::currentBrush(QComboBox *combo) const
{
    return combo ? brushFromVariant(combo->currentData(BrushIdRole)) : kNoBrush;
}

short BrushControllerQt::brushAt(int index, QComboBox *combo) const
{
    if (!combo || index < 0 || index >= combo->count())
        return kNoBrush;
    return brushFromVariant(combo->itemData(index, BrushIdRole));
}

void BrushControllerQt::populateGradients(QMenu *menu, short current) const
{
    if (!menu)
        return;
    if (mProvider) {
        short wanted = canonical(current);
        if (!TAutoPtr<GradientBrush>(mProvider->brush(wanted)))
            wanted = kNoBrush;
        std::map<QString, short> sorted;
        for (short id : mProvider->brushList()) {
            if (TAutoPtr<GradientBrush>(mProvider->brush(id)))
                sorted[mProvider->displayName(id).toLower()] = id;
        }
        auto *group = new QActionGroup(menu);
        const QSize size = Device::size(Device::SizeType4);
        for (const auto &entry : sorted) {
            const short id = entry.second;
            QAction *action = menu->addAction(
                QIcon(const_cast<BrushControllerQt *>(this)->brushPreview(id, size)),
                mProvider->displayName(id));
            action->setData(int(id));
            action->setCheckable(true);
            group->addAction(action);
            if (id == wanted)
                action->setChecked(true);
        }
    }
    menu->setProperty("COLORIZEICON", false);
    menu->setProperty("SCALEICON", true);
}

short BrushControllerQt::firstBrush(QMenu *menu) const
{
    if (!menu || menu->actions().isEmpty())
        return kNoBrush;
    return brushFromVariant(menu->actions().first()->data());
}

QPixmap BrushControllerQt::brushPreview(short brush, const QSize &size)
{
    const double ratio = Device::pixelRatio();
    const QSize s(qRound(size.width() * ratio), qRound(size.height() * ratio));
    if (s.width() <= 0 || s.height() <= 0)
        return QPixmap();

    QPixmap result(s);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    const int f = mFrameWidth;
    if (mProvider && s.width() > 2 * f && s.height() > 2 * f) {
        QPixmap preview = mProvider->preview(brush, QSize(s.width() - 2 * f, s.height() - 2 * f));
        if (!preview.isNull()) {
            // The provider works in device pixels; place it pixel for pixel.
            preview.setDevicePixelRatio(1.0);
            painter.drawPixmap(f, f, preview);
        }
    }
    if (f > 0) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::black);
        painter.drawRect(QRect(0, 0, s.width(), f));
        painter.drawRect(QRect(0, s.height() - f, s.width(), f));
        painter.drawRect(QRect(0, f, f, s.height() - 2 * f));
        painter.drawRect(QRect(s.width() - f, f, f, s.height() - 2 * f));
    }
    painter.end();
    result.setDevicePixelRatio(ratio);
    return result;
}

} // namespace TavoLib
