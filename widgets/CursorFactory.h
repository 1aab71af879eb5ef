#pragma once

// CursorFactory is the one place where the application's own cursors are made: the pipette,
// the zoom lenses, rotation and cropping. A host asks for one by its CursorType and gets a
// QCursor drawn from the library's artwork (the SVG resources under ":/TavoLib/Cursors/"),
// at the cursor size of the screen's density (32 pixels at 96 dpi, scaled like every size of
// the library) and rendered at the application's device pixel ratio, so it is sharp on
// high-density screens, with its hot spot on the point of the picture that acts (the
// pipette's tip, the lens's centre). Cursors are made once and cached for the life of the
// process, as the density is read once. Artwork that cannot be loaded gives Qt's cross
// cursor; an unknown type gives the arrow. GUI thread only.
#include "style/TavoLibGuiExport.h"

#include <QCursor>
#include <QPoint>
#include <QSize>
#include <QString>

namespace TavoLib {

class TAVOLIBGUI_EXPORT CursorFactory
{
public:
    enum CursorType : int {
        PipetteCursor = 0,
        ZoomInCursor = 1,
        ZoomOutCursor = 2,
        RotateCursor = 3,
        CropCursor = 4
    };

    CursorFactory() = delete;

    // The cursor of `type`, cached.
    static QCursor cursor(CursorType type);
    // A cursor of `type` at `size` logical pixels and device pixel `ratio`, made anew; the hot
    // spot is in logical pixels. What cursor() caches, at the screen's values.
    static QCursor createCursor(CursorType type, const QSize &size, qreal ratio);

    // The resource of the artwork, empty for an unknown type.
    static QString resourceName(CursorType type);
    // The hot spot on the artwork's 32 pixel grid; (-1, -1) for an unknown type.
    static QPoint hotSpot(CursorType type);
};

} // namespace TavoLib
