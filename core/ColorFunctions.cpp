#include "core/ColorFunctions.h"

#include <algorithm>
#include <cmath>

namespace {
int clamp255(int v)
{
    return std::clamp(v, 0, 255);
}
int roundDiv(long numerator, long denominator)
{
    return int((numerator + denominator / 2) / denominator);
}
} // namespace

void hsv2rgb(int h, int s, int v, int &r, int &g, int &b)
{
    h = ((h % 360) + 360) % 360;
    s = clamp255(s);
    v = clamp255(v);
    if (s == 0) {
        r = g = b = v;
        return;
    }
    const double sector = h / 60.0;
    const int i = int(sector);
    const double f = sector - i;
    const double sv = s / 255.0;
    const int p = int(std::lround(v * (1.0 - sv)));
    const int q = int(std::lround(v * (1.0 - sv * f)));
    const int t = int(std::lround(v * (1.0 - sv * (1.0 - f))));
    switch (i) {
    case 0:
        r = v;
        g = t;
        b = p;
        break;
    case 1:
        r = q;
        g = v;
        b = p;
        break;
    case 2:
        r = p;
        g = v;
        b = t;
        break;
    case 3:
        r = p;
        g = q;
        b = v;
        break;
    case 4:
        r = t;
        g = p;
        b = v;
        break;
    default:
        r = v;
        g = p;
        b = q;
        break;
    }
}

void rgb2hsv(int r, int g, int b, int &h, int &s, int &v)
{
    r = clamp255(r);
    g = clamp255(g);
    b = clamp255(b);
    const int max = std::max({ r, g, b });
    const int min = std::min({ r, g, b });
    const int delta = max - min;
    v = max;
    s = max == 0 ? 0 : roundDiv(255L * delta, max);
    if (delta == 0) {
        h = 0;
        return;
    }
    double hue;
    if (max == r)
        hue = 60.0 * double(g - b) / delta;
    else if (max == g)
        hue = 60.0 * (2.0 + double(b - r) / delta);
    else
        hue = 60.0 * (4.0 + double(r - g) / delta);
    h = int(std::lround(hue));
    h = ((h % 360) + 360) % 360;
}

void rgb2cmyk(int r, int g, int b, int &c, int &m, int &y, int &k)
{
    r = clamp255(r);
    g = clamp255(g);
    b = clamp255(b);
    const int max = std::max({ r, g, b });
    k = 255 - max;
    if (max == 0) {
        c = m = y = 0;
        return;
    }
    c = roundDiv(255L * (max - r), max);
    m = roundDiv(255L * (max - g), max);
    y = roundDiv(255L * (max - b), max);
}

void cmyk2rgb(int c, int m, int y, int k, int &r, int &g, int &b)
{
    const int white = 255 - clamp255(k);
    r = roundDiv(long(255 - clamp255(c)) * white, 255);
    g = roundDiv(long(255 - clamp255(m)) * white, 255);
    b = roundDiv(long(255 - clamp255(y)) * white, 255);
}
