#pragma once

// UnitValue is a number together with the unit it is written in. The number stays in its own
// unit; get() converts into another unit of the same class.
#include "core/units/CUnit.h"

class OMALIB_EXPORT UnitValue
{
public:
    UnitValue() : mValue(0.0), mUnit(CUnit::No) {}
    UnitValue(double value, const CUnit &unit) : mValue(value), mUnit(unit) {}

    double value() const { return mValue; }
    void setValue(double value) { mValue = value; }
    const CUnit &unit() const { return mUnit; }

    // The number converted into `unit`; the number itself when the classes differ.
    double get(const CUnit &unit) const;

    // The number with `precision` decimals (trailing zeros dropped, full stop as separator),
    // followed by the unit's written symbol. CParser::Calc reads it back to the same number.
    QString strWithUnit(int precision) const;

    bool operator==(const UnitValue &other) const
    {
        return mValue == other.mValue && mUnit == other.mUnit;
    }
    bool operator!=(const UnitValue &other) const { return !(*this == other); }

private:
    double mValue;
    CUnit mUnit;
};
