#pragma once

// Ta_WidgetGeometry fits a remembered window rectangle onto the screens of today, for one
// screen (-1 is the default screen): a rectangle whose top left still lies on a screen stays
// as it was, moved to non-negative coordinates; any other gets a fresh place of the given
// size.
#include "style/TavoLibGuiExport.h"

#include <QPoint>
#include <QRect>
#include <QSize>

class TAVOLIBGUI_EXPORT Ta_WidgetGeometry
{
public:
    explicit Ta_WidgetGeometry(int screen);

    // The available rectangle of the screen (without panels and docks).
    QRect availableGeometry();
    // `rect` kept when its top left lies on a screen (negative coordinates become 0; the
    // size is never touched); otherwise a rectangle of `size` at `position`, counted from the
    // left and top, or from the right and bottom, of the available rectangle.
    QRect ValidateWindowGeometry(const QRect &rect, const QSize &size, const QPoint &position,
                                 bool fromLeft, bool fromTop);

private:
    int mScreen;
};
