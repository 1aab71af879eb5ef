#include "core/units/NumToStr.h"

NumToStr::NumToStr() = default;

NumToStr::~NumToStr() = default;

QString NumToStr::get(double value, short precision)
{
    return format(value, precision);
}

QString NumToStr::format(double value, int precision)
{
    precision = qBound(0, precision, 15);
    QString number = QString::number(value, 'f', precision);
    if (precision > 0 && number.contains(QLatin1Char('.'))) {
        int end = number.size();
        while (end > 0 && number.at(end - 1) == QLatin1Char('0'))
            --end;
        if (end > 0 && number.at(end - 1) == QLatin1Char('.'))
            --end;
        number.truncate(end);
    }
    // A value that rounds to zero prints without its sign.
    if (number == QLatin1String("-0"))
        number = QStringLiteral("0");
    return number;
}
