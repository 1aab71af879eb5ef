#pragma once

// The X server as a second client sees it, for tests on a private Xvfb: where a window really
// is, how big and whether it is mapped, and input that the server itself generates (XTEST), so
// the pointer and keyboard events reach the windows as a user's would, through any window
// manager that runs.
#include <QPoint>
#include <QSize>
#include <QString>

#include <cstdint>

struct xcb_connection_t;

class XServerProbe
{
public:
    XServerProbe();
    ~XServerProbe();
    XServerProbe(const XServerProbe &) = delete;
    XServerProbe &operator=(const XServerProbe &) = delete;

    // False when no server answers or it lacks XTEST.
    bool isValid() const { return mValid; }

    // The window's top left corner on the screen and its size, as the server has them.
    QPoint position(quintptr window) const;
    QSize size(quintptr window) const;
    bool isViewable(quintptr window) const;
    // The name of the running window manager (_NET_SUPPORTING_WM_CHECK), empty without one.
    QString windowManager() const;

    // Pointer and keys; each waits until the server has taken it.
    void moveTo(const QPoint &global);
    void press(const QPoint &global);
    void release(const QPoint &global);
    void click(const QPoint &global);
    // A key by its keysym, with the keysyms of modifiers held around it.
    void keyClick(std::uint32_t keysym, std::uint32_t modifierKeysym = 0);

private:
    void fake(std::uint8_t type, std::uint8_t detail, const QPoint &global = QPoint());
    std::uint8_t keycode(std::uint32_t keysym) const;
    void sync() const;

    xcb_connection_t *mConnection = nullptr;
    std::uint32_t mRoot = 0;
    bool mValid = false;
};

// Keysyms the tests type.
namespace Keysym {
constexpr std::uint32_t Space = 0x0020;
constexpr std::uint32_t Tab = 0xff09;
constexpr std::uint32_t Up = 0xff52;
constexpr std::uint32_t Right = 0xff53;
constexpr std::uint32_t ControlL = 0xffe3;
} // namespace Keysym
