#include "core/units/CParser.h"

#include <charconv>
#include <cmath>
#include <cstring>

AOperand::~AOperand() = default;

namespace {

// The one kind of operand the parser hands out: a plain number.
class NumberOperand final : public AOperand
{
public:
    explicit NumberOperand(double value) : mValue(value) { }
    double Value() const override { return mValue; }

private:
    double mValue;
};

bool isDigit(unsigned char c)
{
    return c >= '0' && c <= '9';
}

bool isUnitChar(unsigned char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '%' || c == '"' || c == 0xB0;
}

bool isSpace(unsigned char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v' || c == 0xA0;
}

// Recursive descent over the bytes; every function returns false on the first error.
class Evaluator
{
public:
    Evaluator(const char *begin, const char *end, const CUnit &unit)
        : mPos(begin),
          mEnd(end),
          mUnit(unit.GetUnitID()),
          mClass(unit.GetClassID()),
          mConversion(unit.GetConversion())
    {
    }

    bool run(double *result)
    {
        if (mClass == CUnit::ClassUnknown)
            return false;
        double value = 0.0;
        if (!expression(&value))
            return false;
        skipSpaces();
        if (mPos != mEnd || !std::isfinite(value))
            return false;
        *result = value;
        return true;
    }

private:
    void skipSpaces()
    {
        while (mPos != mEnd && isSpace(static_cast<unsigned char>(*mPos)))
            ++mPos;
    }

    bool expression(double *out)
    {
        double value = 0.0;
        if (!term(&value))
            return false;
        for (;;) {
            skipSpaces();
            if (mPos == mEnd || (*mPos != '+' && *mPos != '-'))
                break;
            const char op = *mPos++;
            double rhs = 0.0;
            if (!term(&rhs))
                return false;
            value = op == '+' ? value + rhs : value - rhs;
            if (!std::isfinite(value))
                return false;
        }
        *out = value;
        return true;
    }

    bool term(double *out)
    {
        double value = 0.0;
        if (!unary(&value))
            return false;
        for (;;) {
            skipSpaces();
            if (mPos == mEnd || (*mPos != '*' && *mPos != '/'))
                break;
            const char op = *mPos++;
            double rhs = 0.0;
            if (!unary(&rhs))
                return false;
            if (op == '*') {
                value *= rhs;
            } else {
                if (rhs == 0.0)
                    return false;
                value /= rhs;
            }
            if (!std::isfinite(value))
                return false;
        }
        *out = value;
        return true;
    }

    bool unary(double *out)
    {
        if (++mDepth > CParser::kMaxDepth)
            return false;
        skipSpaces();
        bool ok;
        if (mPos != mEnd && (*mPos == '-' || *mPos == '+')) {
            const bool negate = *mPos++ == '-';
            ok = unary(out);
            if (ok && negate)
                *out = -*out;
        } else {
            ok = primary(out);
        }
        --mDepth;
        return ok;
    }

    bool primary(double *out)
    {
        if (mPos == mEnd)
            return false;
        if (*mPos == '(') {
            ++mPos;
            if (!expression(out))
                return false;
            skipSpaces();
            if (mPos == mEnd || *mPos != ')')
                return false;
            ++mPos;
            return true;
        }
        return number(out);
    }

    // digits [separator digits] | separator digits, then an optional unit symbol.
    bool number(double *out)
    {
        const char *start = mPos;
        const char *intEnd = start;
        while (intEnd != mEnd && isDigit(static_cast<unsigned char>(*intEnd)))
            ++intEnd;
        const char *fracBegin = intEnd;
        const char *fracEnd = intEnd;
        if (intEnd != mEnd && (*intEnd == '.' || *intEnd == ',')) {
            fracBegin = intEnd + 1;
            fracEnd = fracBegin;
            while (fracEnd != mEnd && isDigit(static_cast<unsigned char>(*fracEnd)))
                ++fracEnd;
        }
        if (intEnd == start && fracEnd == fracBegin)
            return false;
        mPos = fracEnd;

        double value = 0.0;
        if (!convertDigits(start, intEnd, fracBegin, fracEnd, &value))
            return false;

        // An optional unit symbol, blanks allowed in between ("5 cm").
        const char *afterNumber = mPos;
        skipSpaces();
        const char *symbolEnd = mPos;
        while (symbolEnd != mEnd && isUnitChar(static_cast<unsigned char>(*symbolEnd)))
            ++symbolEnd;
        if (symbolEnd == mPos) {
            mPos = afterNumber;
            *out = value;
            return true;
        }
        const unsigned int code = CUnit::codeForSymbol(mPos, int(symbolEnd - mPos));
        mPos = symbolEnd;
        if (code == 0)
            return false;
        if (code != mUnit) {
            const CUnit unit(code);
            if (unit.GetClassID() != mClass)
                return false;
            value = value * unit.GetConversion() / mConversion;
            if (!std::isfinite(value))
                return false;
        }
        *out = value;
        return true;
    }

    // Correctly rounded and independent of the C locale, so that printed numbers read back
    // exactly.
    static bool convertDigits(const char *intBegin, const char *intEnd, const char *fracBegin,
        const char *fracEnd, double *out)
    {
        const std::size_t intLength = std::size_t(intEnd - intBegin);
        const std::size_t fracLength = std::size_t(fracEnd - fracBegin);
        const std::size_t length = (intLength ? intLength : 1) + 1 + fracLength;
        char local[64];
        std::string heap;
        char *buffer = local;
        if (length > sizeof(local)) {
            heap.resize(length);
            buffer = &heap[0];
        }
        char *p = buffer;
        if (intLength) {
            std::memcpy(p, intBegin, intLength);
            p += intLength;
        } else {
            *p++ = '0';
        }
        if (fracLength) {
            *p++ = '.';
            std::memcpy(p, fracBegin, fracLength);
            p += fracLength;
        }
        double value = 0.0;
        const auto result = std::from_chars(buffer, p, value);
        if (result.ec != std::errc() || result.ptr != p || !std::isfinite(value))
            return false;
        *out = value;
        return true;
    }

    const char *mPos;
    const char *mEnd;
    unsigned int mUnit;
    unsigned int mClass;
    double mConversion;
    int mDepth = 0;
};

} // namespace

CParser::CParser(const std::string &text) : mText(text) { }

CParser::~CParser() = default;

TAutoPtr<AOperand> CParser::Calc(const CUnit &unit)
{
    double value = 0.0;
    if (!evaluate(mText.data(), mText.size(), unit, &value))
        return TAutoPtr<AOperand>();
    return TAutoPtr<AOperand>(new NumberOperand(value));
}

bool CParser::evaluate(const char *text, std::size_t length, const CUnit &unit, double *result)
{
    if (!text || !result)
        return false;
    Evaluator evaluator(text, text + length, unit);
    return evaluator.run(result);
}
