#pragma once

// Recolouring of icons and masks. ColorizeImage keeps the shape (the alpha channel) and
// replaces every colour by the given one, whose own alpha scales the result.
// ConvertImageToIndexedMono makes a two-entry indexed image: index 0 transparent, index 1 the
// colour; a pixel is set where its coverage (alpha, or darkness for an opaque image) is above
// the threshold, 0 to 255. Null input gives a null image.
#include "core/TavoLibCoreExport.h"

#include <QColor>
#include <QImage>

TAVOLIBCORE_EXPORT QImage ColorizeImage(const QImage &image, const QColor &color);
TAVOLIBCORE_EXPORT QImage ConvertImageToIndexedMono(
    QImage &image, const QColor &color, int threshold);
