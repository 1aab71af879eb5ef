// Feeds arbitrary bytes to the expression parser of the measure fields, in every unit, and
// checks what must hold for any text: a result is finite, and the printed form of a result
// reads back to the printed number.
#include "core/units/CParser.h"
#include "core/units/NumToStr.h"
#include "core/units/UnitValue.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0)
        return 0;
    // The first byte picks the unit, the rest is the text.
    int count = 0;
    const unsigned int *codes = CUnit::allCodes(&count);
    const CUnit unit(codes[data[0] % count]);
    const std::string text(reinterpret_cast<const char *>(data + 1), size - 1);

    CParser parser(text);
    TAutoPtr<AOperand> result = parser.Calc(unit);
    if (!result)
        return 0;
    const double value = result->Value();
    if (!std::isfinite(value))
        std::abort();

    const int precision = data[0] % 7;
    const QString printed = UnitValue(value, unit).strWithUnit(precision);
    const QByteArray bytes = printed.toLatin1();
    CParser again(std::string(bytes.constData(), std::size_t(bytes.size())));
    TAutoPtr<AOperand> back = again.Calc(unit);
    if (!back)
        std::abort();
    const double expected = NumToStr::format(value, precision).toDouble();
    if (back->Value() != expected && !(expected == 0.0 && back->Value() == 0.0))
        std::abort();
    return 0;
}
