#include "core/units/UnitValue.h"

#include <QLocale>

#include "core/units/NumToStr.h"

double UnitValue::get(const CUnit &unit) const
{
    if (unit == mUnit || unit.GetClassID() != mUnit.GetClassID())
        return mValue;
    const double from = mUnit.GetConversion();
    const double to = unit.GetConversion();
    if (from == 0.0 || to == 0.0)
        return mValue;
    return mValue * from / to;
}

QString UnitValue::strWithUnit(int precision) const
{
    return NumToStr::format(mValue, precision) + QLatin1String(mUnit.latin1Symbol());
}

QString UnitValue::strWithUnit() const
{
    // Fixed notation, never an exponent, which the parser would not read.
    QString number = QString::number(mValue, 'f', QLocale::FloatingPointShortest);
    if (number == QLatin1String("-0"))
        number = QStringLiteral("0");
    return number + QLatin1String(mUnit.latin1Symbol());
}
