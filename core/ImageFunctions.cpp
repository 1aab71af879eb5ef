#include "core/ImageFunctions.h"

#include <algorithm>

QImage ColorizeImage(const QImage &image, const QColor &color)
{
    if (image.isNull())
        return QImage();
    const QColor c = color.isValid() ? color : QColor(Qt::black);
    QImage result = image.convertToFormat(QImage::Format_ARGB32);
    const int red = c.red(), green = c.green(), blue = c.blue(), alpha = c.alpha();
    for (int y = 0; y < result.height(); ++y) {
        QRgb *line = reinterpret_cast<QRgb *>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            const int a = (qAlpha(line[x]) * alpha + 127) / 255;
            line[x] = qRgba(red, green, blue, a);
        }
    }
    result = result.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    result.setDevicePixelRatio(image.devicePixelRatio());
    return result;
}

QImage ConvertImageToIndexedMono(QImage &image, const QColor &color, int threshold)
{
    if (image.isNull())
        return QImage();
    threshold = std::clamp(threshold, 0, 255);
    const bool useAlpha = image.hasAlphaChannel();
    const QImage source = image.convertToFormat(QImage::Format_ARGB32);
    QImage result(source.size(), QImage::Format_Indexed8);
    const QColor c = color.isValid() ? color : QColor(Qt::black);
    result.setColorCount(2);
    result.setColor(0, qRgba(0, 0, 0, 0));
    result.setColor(1, c.rgba());
    for (int y = 0; y < source.height(); ++y) {
        const QRgb *in = reinterpret_cast<const QRgb *>(source.constScanLine(y));
        uchar *out = result.scanLine(y);
        for (int x = 0; x < source.width(); ++x) {
            const int coverage = useAlpha ? qAlpha(in[x]) : 255 - qGray(in[x]);
            out[x] = coverage > threshold ? 1 : 0;
        }
    }
    result.setDevicePixelRatio(image.devicePixelRatio());
    return result;
}
