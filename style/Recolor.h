#pragma once

// Internal helper of the style folder: paints every pixel of an image in one colour, keeping
// the pixel's coverage (alpha times the colour's alpha). Used for tinted icons.
#include <QColor>
#include <QImage>

namespace TavoLib {
namespace StyleDetail {

QImage recolored(const QImage &image, const QColor &color);

} // namespace StyleDetail
} // namespace TavoLib
