#include "core/units/UnitValue.h"

#include <cmath>

double UnitValue::get(const CUnit &unit) const
{
    if (unit == mUnit || unit.GetClassID() != mUnit.GetClassID())
        return mValue;
    const double to = unit.GetConversion();
    if (to == 0.0)
        return mValue;
    return mValue * mUnit.GetConversion() / to;
}

QString UnitValue::strWithUnit(int precision) const
{
    precision = qBound(0, precision, 15);
    QString number = QString::number(mValue, 'f', precision);
    if (number.contains(QLatin1Char('.'))) {
        while (number.endsWith(QLatin1Char('0')))
            number.chop(1);
        if (number.endsWith(QLatin1Char('.')))
            number.chop(1);
    }
    if (number == QLatin1String("-0"))
        number = QStringLiteral("0");
    return number + mUnit.symbol();
}
