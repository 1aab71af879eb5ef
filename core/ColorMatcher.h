#pragma once

// Converts colours between RGB, CMYK and CIELAB. The base class treats RGB as sRGB and
// uses the D65 white point; CMYK goes through RGB with full black generation. A host with
// colour management subclasses it. All integer channels run from 0 to 255; L from 0 to
// 100, a and b about -128 to 127. Out-of-range input is clamped.
#include "core/MAutoObj.h"
#include "core/TAutoPtr.h"
#include "core/TavoLibCoreExport.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT ColorMatcher : public MAutoObj
{
public:
    using Ptr = TAutoPtr<ColorMatcher>;

    ColorMatcher();
    ~ColorMatcher() override;

    virtual void rgbToLab(int r, int g, int b, double &l, double &a, double &bb) const;
    virtual void labToRgb(double l, double a, double bb, int &r, int &g, int &b) const;
    virtual void cmykToLab(int c, int m, int y, int k, double &l, double &a, double &bb) const;
    virtual void labToCmyk(double l, double a, double bb, int &c, int &m, int &y, int &k) const;
    virtual void rgbToCmyk(int r, int g, int b, int &c, int &m, int &y, int &k) const;
    virtual void cmykToRgb(int c, int m, int y, int k, int &r, int &g, int &b) const;
};

} // namespace TavoLib
