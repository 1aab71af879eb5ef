#include "style/Recolor.h"

namespace TavoLib {
namespace StyleDetail {

QImage recolored(const QImage &image, const QColor &color)
{
    if (image.isNull())
        return QImage();
    QImage result = image.convertToFormat(QImage::Format_ARGB32);
    const int red = color.red();
    const int green = color.green();
    const int blue = color.blue();
    const int alpha = color.alpha();
    for (int y = 0; y < result.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            const int a = (qAlpha(line[x]) * alpha + 127) / 255;
            line[x] = qRgba(red, green, blue, a);
        }
    }
    result.setDevicePixelRatio(image.devicePixelRatio());
    return result;
}

} // namespace StyleDetail
} // namespace TavoLib
