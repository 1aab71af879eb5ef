#include "widgets/DesignShadow.h"

#include <QtGlobal>
#include <algorithm>
#include <cmath>
#include <vector>

namespace {

// Largest radius honoured; beyond it a shadow only costs time.
constexpr double kMaxRadius = 500.0;

double saneRadius(double radius)
{
    if (!std::isfinite(radius) || radius <= 0.0)
        return 0.0;
    return std::min(radius, kMaxRadius);
}

// One box blur pass of half-width r over a line of n values at the given stride, from src
// into dst. Values beyond the ends count as 0, so the shadow fades out at the image border.
void boxLine(const int *src, int *dst, int n, int stride, int r)
{
    const int window = 2 * r + 1;
    long long sum = 0;
    for (int i = 0; i <= r && i < n; ++i)
        sum += src[i * stride];
    for (int i = 0; i < n; ++i) {
        dst[i * stride] = int((sum + window / 2) / window);
        const int add = i + r + 1;
        const int drop = i - r;
        if (add < n)
            sum += src[add * stride];
        if (drop >= 0)
            sum -= src[drop * stride];
    }
}

} // namespace

DesignShadow::DesignShadow(const DesignShadowSettings &settings) : mSettings(settings) { }

double DesignShadow::GetSize() const
{
    return 2.0 * saneRadius(mSettings.radius());
}

void DesignShadow::ConvertToShadow(QImage &image, const QColor &color) const
{
    if (image.isNull())
        return;
    const int w = image.width();
    const int h = image.height();
    const QImage source = image.convertToFormat(QImage::Format_ARGB32);

    std::vector<int> a(size_t(w) * size_t(h));
    for (int y = 0; y < h; ++y) {
        const QRgb *line = reinterpret_cast<const QRgb *>(source.constScanLine(y));
        for (int x = 0; x < w; ++x)
            a[size_t(y) * w + x] = qAlpha(line[x]);
    }

    // Three box passes of a third of the radius each reach about the radius in all.
    const int box = int(std::lround(saneRadius(mSettings.radius()) / 3.0));
    if (box > 0) {
        std::vector<int> tmp(a.size());
        for (int pass = 0; pass < 3; ++pass) {
            for (int y = 0; y < h; ++y)
                boxLine(&a[size_t(y) * w], &tmp[size_t(y) * w], w, 1, box);
            for (int x = 0; x < w; ++x)
                boxLine(&tmp[x], &a[x], h, w, box);
        }
    }

    const int strength = qBound(0, mSettings.strength(), 100);
    const QColor c = color.isValid() ? color.toRgb() : QColor(Qt::black);
    const int scale = c.alpha() * strength; // up to 25500
    QImage result(w, h, QImage::Format_ARGB32_Premultiplied);
    result.setDevicePixelRatio(image.devicePixelRatio());
    for (int y = 0; y < h; ++y) {
        QRgb *line = reinterpret_cast<QRgb *>(result.scanLine(y));
        for (int x = 0; x < w; ++x) {
            const int alpha = qBound(0, a[size_t(y) * w + x], 255) * scale / 25500;
            line[x] = qPremultiply(qRgba(c.red(), c.green(), c.blue(), alpha));
        }
    }
    image = result;
}
