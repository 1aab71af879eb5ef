#pragma once

// UnitValue is a number together with the unit it is written in. The number stays in its own
// unit; get() converts into another unit of the same class, and strWithUnit() prints a text
// that CParser reads back to the printed number.
#include "core/units/CUnit.h"

#include <QMetaType>

class OMALIB_EXPORT UnitValue
{
public:
    UnitValue() : mValue(0.0), mUnit(CUnit::No) { }
    UnitValue(double value, const CUnit &unit) : mValue(value), mUnit(unit) { }

    double value() const { return mValue; }
    void setValue(double value) { mValue = value; }
    const CUnit &unit() const { return mUnit; }

    // The number converted into `unit`; the number unchanged when the classes differ or
    // either unit is unknown.
    double get(const CUnit &unit) const;

    // The number with `precision` decimals (0 to 15; trailing zeros dropped, full stop as
    // separator), followed by the unit's symbol: "12.5mm", "3\"", "45°" (Latin-1 0xB0).
    // CParser::Calc with the same unit reads it back to the printed number. Values that are
    // not finite print as "inf" or "nan" and do not read back.
    QString strWithUnit(int precision) const;
    // The shortest text that reads back to exactly this number, with the unit's symbol:
    // "12.5mm", "0.30000000000000004pt". Two different numbers never print alike.
    QString strWithUnit() const;

    bool operator==(const UnitValue &other) const
    {
        return mValue == other.mValue && mUnit == other.mUnit;
    }
    bool operator!=(const UnitValue &other) const { return !(*this == other); }

private:
    double mValue;
    CUnit mUnit;
};

Q_DECLARE_METATYPE(UnitValue)
