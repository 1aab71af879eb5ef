#include "XServerProbe.h"

#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <cstdlib>
#include <cstring>

namespace {

xcb_atom_t atom(xcb_connection_t *c, const char *name)
{
    xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(
        c, xcb_intern_atom(c, 0, std::uint16_t(std::strlen(name)), name), nullptr);
    const xcb_atom_t a = reply ? reply->atom : XCB_ATOM_NONE;
    std::free(reply);
    return a;
}

// The property's bytes, empty when unset.
QByteArray property(xcb_connection_t *c, xcb_window_t window, xcb_atom_t name, xcb_atom_t type)
{
    xcb_get_property_reply_t *reply
        = xcb_get_property_reply(c, xcb_get_property(c, 0, window, name, type, 0, 1024), nullptr);
    QByteArray bytes;
    if (reply && reply->type != XCB_ATOM_NONE)
        bytes = QByteArray(static_cast<const char *>(xcb_get_property_value(reply)),
            xcb_get_property_value_length(reply));
    std::free(reply);
    return bytes;
}

} // namespace

XServerProbe::XServerProbe()
{
    int screenNumber = 0;
    mConnection = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(mConnection))
        return;
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(mConnection));
    for (int i = 0; i < screenNumber && screens.rem; ++i)
        xcb_screen_next(&screens);
    if (!screens.rem)
        return;
    mRoot = screens.data->root;
    const xcb_query_extension_reply_t *xtest = xcb_get_extension_data(mConnection, &xcb_test_id);
    mValid = xtest && xtest->present;
}

XServerProbe::~XServerProbe()
{
    xcb_disconnect(mConnection);
}

QPoint XServerProbe::position(quintptr window) const
{
    xcb_translate_coordinates_reply_t *reply = xcb_translate_coordinates_reply(mConnection,
        xcb_translate_coordinates(mConnection, xcb_window_t(window), mRoot, 0, 0), nullptr);
    const QPoint at = reply ? QPoint(reply->dst_x, reply->dst_y) : QPoint(-1, -1);
    std::free(reply);
    return at;
}

QSize XServerProbe::size(quintptr window) const
{
    xcb_get_geometry_reply_t *reply = xcb_get_geometry_reply(
        mConnection, xcb_get_geometry(mConnection, xcb_window_t(window)), nullptr);
    const QSize s = reply ? QSize(reply->width, reply->height) : QSize();
    std::free(reply);
    return s;
}

bool XServerProbe::isViewable(quintptr window) const
{
    xcb_get_window_attributes_reply_t *reply = xcb_get_window_attributes_reply(
        mConnection, xcb_get_window_attributes(mConnection, xcb_window_t(window)), nullptr);
    const bool viewable = reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    std::free(reply);
    return viewable;
}

QString XServerProbe::windowManager() const
{
    const QByteArray check = property(
        mConnection, mRoot, atom(mConnection, "_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW);
    if (check.size() < int(sizeof(xcb_window_t)))
        return QString();
    xcb_window_t wm = 0;
    std::memcpy(&wm, check.constData(), sizeof wm);
    const QByteArray name = property(
        mConnection, wm, atom(mConnection, "_NET_WM_NAME"), atom(mConnection, "UTF8_STRING"));
    // A manager that names no name is still one.
    return name.isEmpty() ? QStringLiteral("(unnamed)") : QString::fromUtf8(name);
}

void XServerProbe::fake(std::uint8_t type, std::uint8_t detail, const QPoint &global)
{
    xcb_test_fake_input(mConnection, type, detail, XCB_CURRENT_TIME, mRoot,
        std::int16_t(global.x()), std::int16_t(global.y()), 0);
    sync();
}

void XServerProbe::sync() const
{
    // A round trip: every request before it has been carried out.
    std::free(xcb_get_input_focus_reply(mConnection, xcb_get_input_focus(mConnection), nullptr));
}

void XServerProbe::moveTo(const QPoint &global)
{
    fake(XCB_MOTION_NOTIFY, 0, global); // detail 0: absolute position
}

void XServerProbe::press(const QPoint &global)
{
    moveTo(global);
    fake(XCB_BUTTON_PRESS, 1);
}

void XServerProbe::release(const QPoint &global)
{
    moveTo(global);
    fake(XCB_BUTTON_RELEASE, 1);
}

void XServerProbe::click(const QPoint &global)
{
    press(global);
    release(global);
}

std::uint8_t XServerProbe::keycode(std::uint32_t keysym) const
{
    const xcb_setup_t *setup = xcb_get_setup(mConnection);
    const int count = setup->max_keycode - setup->min_keycode + 1;
    xcb_get_keyboard_mapping_reply_t *reply = xcb_get_keyboard_mapping_reply(mConnection,
        xcb_get_keyboard_mapping(mConnection, setup->min_keycode, std::uint8_t(count)), nullptr);
    std::uint8_t code = 0;
    if (reply) {
        const xcb_keysym_t *syms = xcb_get_keyboard_mapping_keysyms(reply);
        const int perCode = reply->keysyms_per_keycode;
        for (int i = 0; i < count && !code; ++i)
            for (int j = 0; j < perCode && !code; ++j)
                if (syms[i * perCode + j] == keysym)
                    code = std::uint8_t(setup->min_keycode + i);
    }
    std::free(reply);
    return code;
}

void XServerProbe::keyClick(std::uint32_t keysym, std::uint32_t modifierKeysym)
{
    const std::uint8_t modifier = modifierKeysym ? keycode(modifierKeysym) : 0;
    const std::uint8_t key = keycode(keysym);
    if (modifier)
        fake(XCB_KEY_PRESS, modifier);
    fake(XCB_KEY_PRESS, key);
    fake(XCB_KEY_RELEASE, key);
    if (modifier)
        fake(XCB_KEY_RELEASE, modifier);
}
