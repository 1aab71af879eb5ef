#pragma once

// Device turns the library's design-time pixel numbers, all written for a 96 dpi screen, into
// screen pixels, and loads resource icons at a size (optionally recoloured) through the
// process-wide pixmap cache. Everything is static; the screen is read once, lazily, on the
// first scale() that finds a primary screen. GUI thread only.
#include "style/TavoLibGuiExport.h"

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QSize>
#include <QString>

class QWidget;

namespace TavoLib {

class TAVOLIBGUI_EXPORT Device
{
public:
    // The numbers are part of pixmap cache keys and must not change. The fixed underlying
    // type makes any int, -1 say, a valid (unknown) size type.
    enum SizeType : int {
        SizeType0 = 0,
        SizeType1 = 1,
        SizeType2 = 2,
        SizeType3 = 3,
        SizeType4 = 4,
        SizeType5 = 5,
        SizeType6 = 6,
        SizeType7 = 7,
        SizeType8 = 8,
        SizeType9 = 9,
        SizeType10 = 10
    };

    Device() = delete;

    // The application's device pixel ratio as last read; 1.0 until the first successful scale().
    static double pixelRatio();

    // A design number (96 dpi) in screen pixels, unrounded.
    static double scale(double value);
    // The pixmap resampled to the scaled size of width x height; unchanged when that scaled
    // size equals the numbers passed in (so never at 96 dpi), whatever the pixmap's own size.
    static QPixmap scale(const QPixmap &pixmap, int width, int height);
    // Scales the size limits of the widget and all its descendants once; returns widget.
    static QWidget *scale(QWidget *widget);
    // Each side scaled and rounded to nearest.
    static QSize scaleSize(const QSize &size);
    // The size a pixmap covers when drawn, in logical pixels: its pixels over its device pixel
    // ratio, rounded to nearest. Layout reads this, never the pixel count.
    static QSize logicalSize(const QPixmap &pixmap);
    // A length in points in pixels at the screen's physical resolution.
    static double viewScale(double value);

    static QSize unscaledSize(SizeType type);
    static QSize size(SizeType type);

    // Uncleared ARGB32 canvases of size times the pixel ratio plus one pixel per side, with
    // that ratio set; the caller fills them.
    static QImage emptyImage(const QSize &size);
    static QPixmap emptyPixmap(const QSize &size);

    // Pixmaps at a design size; a non-null colour recolours the result. Named lookups are
    // cached under keys of name, size and colour (colour without alpha).
    static QPixmap pixmap(const QIcon &icon, int width, int height, const QColor *color = nullptr);
    static QPixmap pixmap(const QIcon &icon, SizeType type, const QColor *color = nullptr);
    static QPixmap pixmap(
        const QString &name, int width, int height, const QColor *color = nullptr);
    static QPixmap pixmap(const QString &name, int height, const QColor *color = nullptr);
    static QPixmap pixmap(const QString &name, const QColor *color = nullptr);
    static QPixmap pixmap(const QString &name, SizeType type, const QColor *color = nullptr);

private:
    static double sPixelRatio;
    static bool sNeedsInit;
    static double sDpiFactor;
};

} // namespace TavoLib
