#include "widgets/X11Connection_p.h"

#include <QByteArray>
#include <QGuiApplication>

// Qt 6 dropped QX11Info; its native interface gives the same connection.
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
#include <QtGui/qguiapplication_platform.h>
#else
#include <QX11Info>
#endif

#include <cstdlib>

namespace TavoLib::X11 {

namespace {
// The screen number is the one after the dot of the display name (":0.1"), 0 without.
int screenNumber()
{
    const QByteArray display = qgetenv("DISPLAY");
    const int dot = display.lastIndexOf('.');
    const int colon = display.lastIndexOf(':');
    return dot > colon ? display.mid(dot + 1).toInt() : 0;
}
} // namespace

xcb_connection_t *connection()
{
    if (!qGuiApp || QGuiApplication::platformName() != QLatin1String("xcb"))
        return nullptr;
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
#else
    return QX11Info::connection();
#endif
}

xcb_window_t rootWindow()
{
    xcb_connection_t *c = connection();
    if (!c)
        return XCB_WINDOW_NONE;
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(c));
    for (int i = screenNumber(); i > 0 && screens.rem > 1; --i)
        xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data->root : XCB_WINDOW_NONE;
}

bool compositingManagerRunning()
{
    xcb_connection_t *c = connection();
    if (!c)
        return false;
    // A compositing manager owns the selection "_NET_WM_CM_S<screen>" of the screen it serves.
    const QByteArray name = "_NET_WM_CM_S" + QByteArray::number(screenNumber());
    xcb_intern_atom_reply_t *atom = xcb_intern_atom_reply(
        c, xcb_intern_atom(c, 1, uint16_t(name.size()), name.constData()), nullptr);
    if (!atom)
        return false;
    const xcb_atom_t selection = atom->atom;
    std::free(atom);
    if (selection == XCB_ATOM_NONE)
        return false;
    xcb_get_selection_owner_reply_t *owner
        = xcb_get_selection_owner_reply(c, xcb_get_selection_owner(c, selection), nullptr);
    const bool running = owner && owner->owner != XCB_WINDOW_NONE;
    std::free(owner);
    return running;
}

} // namespace TavoLib::X11
