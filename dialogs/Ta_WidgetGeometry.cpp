#include "dialogs/Ta_WidgetGeometry.h"

#include "dialogs/ScreenList_p.h"

Ta_WidgetGeometry::Ta_WidgetGeometry(int screen) : mScreen(screen) { }

QRect Ta_WidgetGeometry::availableGeometry()
{
    return TavoLib::ScreenList::availableGeometry(mScreen);
}

QRect Ta_WidgetGeometry::ValidateWindowGeometry(const QRect &rect, const QSize &size,
                                                const QPoint &position, bool fromLeft, bool fromTop)
{
    if (rect.isValid()) {
        const QRect screen = TavoLib::ScreenList::screenGeometry(TavoLib::ScreenList::screenNumber(rect.topLeft()));
        if (screen.contains(rect.topLeft())) {
            // Kept on purpose: a negative coordinate goes to 0, also on a screen left of the
            // primary one; only the top left is tested, so a window may reach past the screen.
            QRect fitted = rect;
            if (fitted.left() < 0)
                fitted.moveLeft(0);
            if (fitted.top() < 0)
                fitted.moveTop(0);
            return fitted;
        }
    }
    return TavoLib::ScreenList::placed(availableGeometry(), size, position, fromLeft, fromTop);
}
