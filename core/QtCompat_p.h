#pragma once
// The few calls that Qt 5.15 and Qt 6 spell differently, so that the rest of the library is
// written once against what both share. Internal: hosts never include it.

#include <QAction>
#include <QIcon>
#include <QList>
#include <QMetaType>
#include <QMouseEvent>
#include <QWidget>
#include <QtGlobal>

namespace TavoLib::QtCompat {

/// The pointer's position on the screen, in logical pixels.
inline QPoint globalPos(const QMouseEvent *event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event->globalPosition().toPoint();
#else
    return event->globalPos();
#endif
}

/// The widgets an action was added to (menus, tool buttons).
inline QList<QWidget *> associatedWidgets(const QAction *action)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    QList<QWidget *> widgets;
    for (QObject *object : action->associatedObjects())
        if (QWidget *widget = qobject_cast<QWidget *>(object))
            widgets.append(widget);
    return widgets;
#else
    return action->associatedWidgets();
#endif
}

/// The icon drawn into exactly `device` pixels, ratio 1 (Qt 6 would multiply by the screen's).
inline QPixmap iconPixmapInDevicePixels(const QIcon &icon, const QSize &device)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    QPixmap pixmap = icon.pixmap(device, 1.0);
#else
    QPixmap pixmap = icon.pixmap(device);
#endif
    pixmap.setDevicePixelRatio(1.0);
    return pixmap;
}

/// Whether a type was registered with the meta-type system under this name.
inline bool metaTypeRegistered(const char *name)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return QMetaType::fromName(name).isValid();
#else
    return QMetaType::type(name) != QMetaType::UnknownType;
#endif
}

} // namespace TavoLib::QtCompat
