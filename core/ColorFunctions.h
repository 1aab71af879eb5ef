#pragma once

// Conversions between the colour models of the colour selectors. Hue runs from 0 to 359, all
// other channels from 0 to 255. Input out of range is clamped (hue wraps round), so any
// numbers give a valid colour. A grey has hue 0. CMYK uses full black generation: K takes
// the common part of C, M and Y.
#include "core/TavoLibCoreExport.h"

TAVOLIBCORE_EXPORT void hsv2rgb(int h, int s, int v, int &r, int &g, int &b);
TAVOLIBCORE_EXPORT void rgb2hsv(int r, int g, int b, int &h, int &s, int &v);
TAVOLIBCORE_EXPORT void rgb2cmyk(int r, int g, int b, int &c, int &m, int &y, int &k);
TAVOLIBCORE_EXPORT void cmyk2rgb(int c, int m, int y, int k, int &r, int &g, int &b);
