#include "style/Device.h"

#include "core/ImageFunctions.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPixmapCache>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <QtMath>

namespace TavoLib {

double Device::sPixelRatio = 1.0;
bool Device::sNeedsInit = true;
double Device::sDpiFactor = 1.0;

namespace {

constexpr int WidgetSizeMax = 0xFFFFFF; // QWIDGETSIZE_MAX

// Cache keys are filled in with one multi-argument arg(), so that a "%1" inside a resource
// name stays text instead of taking the next argument.
QString colorText(const QColor *color)
{
    return color ? color->name() : QStringLiteral("none");
}

QString sizeKey(const QString &name, int width, int height, const QColor *color)
{
    return QStringLiteral("Device/Name: %1/Width: %2/Height: %3/Color: %4")
        .arg(name, QString::number(width), QString::number(height), colorText(color));
}

QPixmap recolored(const QPixmap &pixmap, const QColor *color)
{
    if (!color)
        return pixmap;
    QPixmap result = QPixmap::fromImage(ColorizeImage(pixmap.toImage(), *color));
    result.setDevicePixelRatio(pixmap.devicePixelRatio());
    return result;
}

// Controls whose height a panel style fixes: only their widths are scaled.
bool heightFixedByPanelStyle(const QWidget *w)
{
    if (auto *combo = qobject_cast<const QComboBox *>(w))
        return combo->hasFrame();
    if (auto *spin = qobject_cast<const QAbstractSpinBox *>(w))
        return spin->hasFrame();
    if (auto *edit = qobject_cast<const QLineEdit *>(w))
        return edit->hasFrame();
    if (auto *header = qobject_cast<const QHeaderView *>(w))
        return header->orientation() == Qt::Horizontal;
    return qobject_cast<const QPushButton *>(w) != nullptr;
}

} // namespace

double Device::pixelRatio()
{
    return sPixelRatio;
}

double Device::scale(double value)
{
    if (sNeedsInit) {
        if (QScreen *screen = QGuiApplication::primaryScreen()) {
            const double dpi = screen->logicalDotsPerInch();
            sNeedsInit = false;
            if (dpi > 0.0 && qIsFinite(dpi))
                sDpiFactor = 96.0 / dpi;
            auto *app = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
            if (app)
                sPixelRatio = app->devicePixelRatio();
        }
    }
    return value / sDpiFactor;
}

QPixmap Device::scale(const QPixmap &pixmap, int width, int height)
{
    const QSize requested(width, height);
    const QSize target = scaleSize(requested);
    if (target == requested)
        return pixmap;
    return pixmap.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QWidget *Device::scale(QWidget *widget)
{
    if (!widget)
        return widget;
    QList<QWidget *> widgets
        = widget->findChildren<QWidget *>(QString(), Qt::FindChildrenRecursively);
    widgets.append(widget);
    const bool panelStyle = widget->style()->inherits("Panels::PanelStyle");

    for (QWidget *w : qAsConst(widgets)) {
        if (panelStyle && heightFixedByPanelStyle(w)) {
            if (w->minimumWidth() != 0)
                w->setMinimumWidth(int(scale(w->minimumWidth())));
            if (w->maximumWidth() != WidgetSizeMax)
                w->setMaximumWidth(qMin(int(scale(w->maximumWidth())), WidgetSizeMax));
            continue;
        }
        if (w->minimumSize() != QSize(0, 0))
            w->setMinimumSize(
                int(scale(w->minimumWidth()) + 0.5), int(scale(w->minimumHeight()) + 0.5));
        if (w->maximumSize() != QSize(WidgetSizeMax, WidgetSizeMax))
            w->setMaximumSize(qMin(int(scale(w->maximumWidth())), WidgetSizeMax),
                qMin(int(scale(w->maximumHeight())), WidgetSizeMax));
    }
    if (qobject_cast<QDialog *>(widget))
        widget->resize(widget->minimumSizeHint());
    return widget;
}

QSize Device::logicalSize(const QPixmap &pixmap)
{
    const qreal ratio = pixmap.devicePixelRatio() > 0 ? pixmap.devicePixelRatio() : 1.0;
    return QSize(qRound(pixmap.width() / ratio), qRound(pixmap.height() / ratio));
}

QSize Device::scaleSize(const QSize &size)
{
    return QSize(int(scale(size.width()) + 0.5), int(scale(size.height()) + 0.5));
}

double Device::viewScale(double value)
{
    QScreen *screen = QGuiApplication::primaryScreen();
    if (!screen) // Without a screen there is no resolution to honour; treat points as pixels.
        return value;
    double dpi = screen->physicalDotsPerInch();
    if (qIsInf(dpi))
        dpi = screen->logicalDotsPerInch();
    return value / (72.0 / dpi);
}

QSize Device::unscaledSize(SizeType type)
{
    switch (type) {
    case SizeType0:
    case SizeType3:
    case SizeType5:
    case SizeType6:
    case SizeType7:
        return QSize(12, 12);
    case SizeType1:
    case SizeType2:
    case SizeType9:
    case SizeType10:
        return QSize(16, 16);
    case SizeType4:
        return QSize(20, 20);
    case SizeType8:
        return QSize(32, 32);
    }
    return QSize();
}

QSize Device::size(SizeType type)
{
    const QSize unscaled = unscaledSize(type);
    if (unscaled.isNull())
        return unscaled;
    return scaleSize(unscaled);
}

QImage Device::emptyImage(const QSize &size)
{
    QImage image(size * sPixelRatio + QSize(1, 1), QImage::Format_ARGB32);
    image.setDevicePixelRatio(sPixelRatio);
    return image;
}

QPixmap Device::emptyPixmap(const QSize &size)
{
    QPixmap pixmap(size * sPixelRatio + QSize(1, 1));
    pixmap.setDevicePixelRatio(sPixelRatio);
    return pixmap;
}

QPixmap Device::pixmap(const QIcon &icon, int width, int height, const QColor *color)
{
    const QString name = icon.name();
    const QString key = sizeKey(name, width, height, color);
    QPixmap result;
    if (!name.isEmpty() && QPixmapCache::find(key, &result))
        return result;

    const QSize request(int(scale(width) + 0.5), int(scale(height) + 0.5));
    result = icon.pixmap(request, QIcon::Normal, QIcon::Off);
    // Qt 6 (and Qt 5 with high-DPI pixmaps) renders at the application's ratio and says so;
    // Qt 5 otherwise gives ratio 1, which is set here.
    if (qFuzzyCompare(result.devicePixelRatio(), 1.0))
        result.setDevicePixelRatio(sPixelRatio);
    result = recolored(result, color);
    if (!name.isEmpty())
        QPixmapCache::insert(key, result);
    return result;
}

QPixmap Device::pixmap(const QIcon &icon, SizeType type, const QColor *color)
{
    const QSize unscaled = unscaledSize(type);
    if (unscaled.isNull())
        return QPixmap();
    return pixmap(icon, unscaled.width(), unscaled.height(), color);
}

QPixmap Device::pixmap(const QString &name, int width, int height, const QColor *color)
{
    const QString key = sizeKey(name, width, height, color);
    QPixmap result;
    if (QPixmapCache::find(key, &result))
        return result;
    result = pixmap(QIcon(name), width, height, color);
    QPixmapCache::insert(key, result);
    return result;
}

QPixmap Device::pixmap(const QString &name, int height, const QColor *color)
{
    const QString key = QStringLiteral("Device/Name: %1/Height: %2/Color: %3")
                            .arg(name, QString::number(height), colorText(color));
    QPixmap result;
    if (QPixmapCache::find(key, &result))
        return result;

    const QIcon icon(name);
    // A large probe measures the aspect ratio of a vector icon.
    const QPixmap probe = icon.pixmap(QSize(500, 500), QIcon::Normal, QIcon::Off);
    int width = height;
    if (probe.height() < probe.width())
        width = int(height * (double(probe.width()) / double(probe.height())));
    result = pixmap(icon, width, height, color);
    QPixmapCache::insert(key, result);
    return result;
}

QPixmap Device::pixmap(const QString &name, const QColor *color)
{
    const QString key = QStringLiteral("Device/Name: %1/Color: %2").arg(name, colorText(color));
    QPixmap result;
    if (QPixmapCache::find(key, &result))
        return result;

    // Drawn at the scaled size in logical pixels, so in device pixels at the ratio's times that.
    result = QPixmap(name);
    const QSize target = scaleSize(result.size()) * sPixelRatio;
    if (target != result.size())
        result = result.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    result.setDevicePixelRatio(sPixelRatio);
    result = recolored(result, color);
    QPixmapCache::insert(key, result);
    return result;
}

QPixmap Device::pixmap(const QString &name, SizeType type, const QColor *color)
{
    const QString key = QStringLiteral("Device/Name: %1/SizeType: %2/Color: %3")
                            .arg(name, QString::number(int(type)), colorText(color));
    QPixmap result;
    if (QPixmapCache::find(key, &result))
        return result;
    result = pixmap(QIcon(name), type, color);
    QPixmapCache::insert(key, result);
    return result;
}

} // namespace TavoLib
