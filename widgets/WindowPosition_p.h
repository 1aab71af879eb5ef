#pragma once

// Where a top-level window really is. Under X11 a window manager may place a window without
// the application learning of it (Qt then believes the window is where the manager first put
// it, until the manager next reports a move), so whatever moves or resizes a window from its
// position asks the X server first, once while no move of its own is on the way. Internal to
// the library.
#include <QPoint>

class QWidget;

namespace TavoLib {

// The top left corner of `window`'s frame on the screen, in Qt's coordinates: from the X server
// on X11, else (and for a widget that is no window) Qt's own frame geometry.
QPoint realFramePosition(const QWidget *window);

// Tells Qt where `window` really is when it believes otherwise, so that a resize, which moves
// the window to where Qt believes it is, leaves it in place.
void syncFramePosition(QWidget *window);

} // namespace TavoLib
