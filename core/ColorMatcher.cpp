#include "core/ColorMatcher.h"

#include "core/ColorFunctions.h"

#include <algorithm>
#include <cmath>

namespace TavoLib {

namespace {

// D65 reference white.
constexpr double kWhiteX = 0.95047;
constexpr double kWhiteY = 1.0;
constexpr double kWhiteZ = 1.08883;
constexpr double kEpsilon = 216.0 / 24389.0;
constexpr double kKappa = 24389.0 / 27.0;

double finite(double v)
{
    return std::isfinite(v) ? v : 0.0;
}

double toLinear(int channel)
{
    const double c = std::clamp(channel, 0, 255) / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

int fromLinear(double linear)
{
    linear = std::clamp(finite(linear), 0.0, 1.0);
    const double c
        = linear <= 0.0031308 ? linear * 12.92 : 1.055 * std::pow(linear, 1 / 2.4) - 0.055;
    return std::clamp(int(std::lround(c * 255.0)), 0, 255);
}

double labF(double t)
{
    return t > kEpsilon ? std::cbrt(t) : (kKappa * t + 16.0) / 116.0;
}

double labFInverse(double f)
{
    const double cube = f * f * f;
    return cube > kEpsilon ? cube : (116.0 * f - 16.0) / kKappa;
}

} // namespace

ColorMatcher::ColorMatcher() = default;
ColorMatcher::~ColorMatcher() = default;

void ColorMatcher::rgbToLab(int r, int g, int b, double &l, double &a, double &bb) const
{
    const double lr = toLinear(r), lg = toLinear(g), lb = toLinear(b);
    const double x = 0.4124564 * lr + 0.3575761 * lg + 0.1804375 * lb;
    const double y = 0.2126729 * lr + 0.7151522 * lg + 0.0721750 * lb;
    const double z = 0.0193339 * lr + 0.1191920 * lg + 0.9503041 * lb;
    const double fx = labF(x / kWhiteX), fy = labF(y / kWhiteY), fz = labF(z / kWhiteZ);
    l = 116.0 * fy - 16.0;
    a = 500.0 * (fx - fy);
    bb = 200.0 * (fy - fz);
}

void ColorMatcher::labToRgb(double l, double a, double bb, int &r, int &g, int &b) const
{
    l = std::clamp(finite(l), 0.0, 100.0);
    a = std::clamp(finite(a), -200.0, 200.0);
    bb = std::clamp(finite(bb), -200.0, 200.0);
    const double fy = (l + 16.0) / 116.0;
    const double fx = fy + a / 500.0;
    const double fz = fy - bb / 200.0;
    const double x = labFInverse(fx) * kWhiteX;
    const double y = (l > kKappa * kEpsilon ? fy * fy * fy : l / kKappa) * kWhiteY;
    const double z = labFInverse(fz) * kWhiteZ;
    r = fromLinear(3.2404542 * x - 1.5371385 * y - 0.4985314 * z);
    g = fromLinear(-0.9692660 * x + 1.8760108 * y + 0.0415560 * z);
    b = fromLinear(0.0556434 * x - 0.2040259 * y + 1.0572252 * z);
}

void ColorMatcher::cmykToLab(int c, int m, int y, int k, double &l, double &a, double &bb) const
{
    int r = 0, g = 0, b = 0;
    cmykToRgb(c, m, y, k, r, g, b);
    rgbToLab(r, g, b, l, a, bb);
}

void ColorMatcher::labToCmyk(double l, double a, double bb, int &c, int &m, int &y, int &k) const
{
    int r = 0, g = 0, b = 0;
    labToRgb(l, a, bb, r, g, b);
    rgbToCmyk(r, g, b, c, m, y, k);
}

void ColorMatcher::rgbToCmyk(int r, int g, int b, int &c, int &m, int &y, int &k) const
{
    rgb2cmyk(r, g, b, c, m, y, k);
}

void ColorMatcher::cmykToRgb(int c, int m, int y, int k, int &r, int &g, int &b) const
{
    cmyk2rgb(c, m, y, k, r, g, b);
}

} // namespace TavoLib
