#pragma once

// CParser evaluates the text of a measure field: decimal numbers (point or comma), + - * /,
// parentheses, unary signs, and a unit symbol after any number ("10mm + 2pt",
// "(1/3 + 2/3) * 5 cm"). Each number is converted into the unit asked for; a number without
// a symbol is taken in that unit. The text is Latin-1 bytes, so the degree sign is 0xB0.
// Whatever goes wrong (bad syntax, an unknown symbol or one of another unit class, division
// by zero, a result that is not finite, nesting deeper than kMaxDepth) gives a null result.
#include "core/TAutoPtr.h"
#include "core/units/AOperand.h"
#include "core/units/CUnit.h"

#include <string>

class OMALIB_EXPORT CParser
{
public:
    // Deepest nesting of parentheses and unary signs that is evaluated; deeper gives null.
    static constexpr int kMaxDepth = 200;

    explicit CParser(const std::string &text);
    ~CParser();
    CParser(const CParser &) = delete;
    CParser &operator=(const CParser &) = delete;

    // The value of the text in `unit`, or null.
    TAutoPtr<AOperand> Calc(const CUnit &unit);

    // The same without the result object, for callers that only want the number.
    static bool evaluate(const char *text, std::size_t length, const CUnit &unit, double *result);

private:
    std::string mText;
};
