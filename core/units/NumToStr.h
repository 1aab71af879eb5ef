#pragma once

// NumToStr formats a number without a unit, as ruler labels and measure fields show it:
// a fixed number of decimals with trailing zeros dropped and a full stop as the separator.
#include "core/units/OmaLibExport.h"

#include <QString>

class OMALIB_EXPORT NumToStr
{
public:
    NumToStr();
    ~NumToStr();

    // `value` with at most `precision` decimals (clamped to 0..15): "12.5", "-3", "0".
    QString get(double value, short precision);

    // The same without an object; UnitValue::strWithUnit prints its number with it.
    static QString format(double value, int precision);
};
