#pragma once

// The library's few questions to the X server, asked through xcb on both Qt 5 (X11Extras
// hands out the connection) and Qt 6 (the application's native interface does). Internal to
// the library; every call answers "none" off X11.
#include <xcb/xcb.h>

namespace TavoLib::X11 {

// The application's connection to the X server, or null when the platform is not xcb.
xcb_connection_t *connection();
// The root window of the application's screen; XCB_WINDOW_NONE off X11.
xcb_window_t rootWindow();
// Whether a compositing manager runs on the application's screen, so that translucent
// pixels show as such rather than black.
bool compositingManagerRunning();

} // namespace TavoLib::X11
