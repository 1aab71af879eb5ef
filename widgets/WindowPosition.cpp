#include "widgets/WindowPosition_p.h"
#include "widgets/X11Connection_p.h"

#include <QWidget>

#include <cstdlib>

namespace TavoLib {

QPoint realFramePosition(const QWidget *window)
{
    const QPoint believed = window->frameGeometry().topLeft();
    xcb_connection_t *connection = X11::connection();
    if (!window->isWindow() || !window->testAttribute(Qt::WA_WState_Created) || !connection)
        return believed;
    xcb_translate_coordinates_reply_t *reply = xcb_translate_coordinates_reply(connection,
        xcb_translate_coordinates(
            connection, xcb_window_t(window->winId()), X11::rootWindow(), 0, 0),
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
