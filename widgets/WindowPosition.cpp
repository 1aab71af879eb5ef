#include "widgets/WindowPosition_p.h"

#include <QGuiApplication>
#include <QWidget>
#include <QX11Info>

#include <xcb/xcb.h>

#include <cstdlib>

namespace TavoLib {

QPoint realFramePosition(const QWidget *window)
{
    const QPoint believed = window->frameGeometry().topLeft();
    if (!window->isWindow() || !window->testAttribute(Qt::WA_WState_Created)
        || !QX11Info::isPlatformX11())
        return believed;
    xcb_connection_t *connection = QX11Info::connection();
    xcb_translate_coordinates_reply_t *reply = xcb_translate_coordinates_reply(connection,
        xcb_translate_coordinates(connection, xcb_window_t(window->winId()),
            xcb_window_t(QX11Info::appRootWindow()), 0, 0),
        nullptr);
    if (!reply)
        return believed;
    // The server speaks device pixels and has the client area; Qt's frame lies around it.
    const QPoint client = QPoint(reply->dst_x, reply->dst_y) / window->devicePixelRatioF();
    std::free(reply);
    return client - (window->geometry().topLeft() - believed);
}

void syncFramePosition(QWidget *window)
{
    const QPoint real = realFramePosition(window);
    if (real != window->frameGeometry().topLeft())
        window->move(real);
}

} // namespace TavoLib
