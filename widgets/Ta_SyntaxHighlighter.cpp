#include "widgets/Ta_SyntaxHighlighter.h"

#include "core/units/CParser.h"

#include <QColor>

namespace {

bool isBlank(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c.unicode() == 0xA0;
}

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isUnitChar(QChar c)
{
    const ushort u = c.unicode();
    return (u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z') || u == '%' || u == '"' || u == 0xB0;
}

bool isOperator(QChar c)
{
    const ushort u = c.unicode();
    return u == '+' || u == '-' || u == '*' || u == '/';
}

// One pass over the text in the parser's grammar: hands each piece to `mark` and gives the
// index of the first character that does not fit it, or -1.
template<typename Mark>
int scan(const QString &text, const CUnit &unit, Mark mark)
{
    const int length = text.length();
    int depth = 0;
    bool operandExpected = true;
    int i = 0;
    while (i < length) {
        const QChar c = text.at(i);
        if (isBlank(c)) {
            ++i;
            continue;
        }
        if (operandExpected) {
            if (c == QLatin1Char('(') || c == QLatin1Char('+') || c == QLatin1Char('-')) {
                // Parentheses and unary signs nest in the parser, to a limit.
                if (++depth > CParser::kMaxDepth)
                    return i;
                if (c == QLatin1Char('('))
                    mark(i, 1, Ta_SyntaxHighlighter::Bracket);
                else {
                    mark(i, 1, Ta_SyntaxHighlighter::Operator);
                    --depth; // a sign closes with its operand, not with a bracket
                }
                ++i;
                continue;
            }
            // digits [separator digits] | separator digits
            int end = i;
            while (end < length && isDigit(text.at(end)))
                ++end;
            const int intEnd = end;
            int fracDigits = 0;
            if (end < length && (text.at(end) == QLatin1Char('.') || text.at(end) == QLatin1Char(','))) {
                ++end;
                while (end < length && isDigit(text.at(end))) {
                    ++end;
                    ++fracDigits;
                }
            }
            if (intEnd == i && fracDigits == 0)
                return i;
            mark(i, end - i, Ta_SyntaxHighlighter::Number);
            i = end;
            int symbol = i;
            while (symbol < length && isBlank(text.at(symbol)))
                ++symbol;
            int symbolEnd = symbol;
            while (symbolEnd < length && isUnitChar(text.at(symbolEnd)))
                ++symbolEnd;
            if (symbolEnd > symbol) {
                const unsigned int code
                    = CUnit::codeForSymbol(text.mid(symbol, symbolEnd - symbol));
                if (code == 0 || CUnit(code).GetClassID() != unit.GetClassID())
                    return symbol;
                mark(symbol, symbolEnd - symbol, Ta_SyntaxHighlighter::Unit);
                i = symbolEnd;
            }
            operandExpected = false;
            continue;
        }
        if (c == QLatin1Char(')')) {
            if (depth == 0)
                return i;
            --depth;
            mark(i, 1, Ta_SyntaxHighlighter::Bracket);
            ++i;
            continue;
        }
        if (isOperator(c)) {
            mark(i, 1, Ta_SyntaxHighlighter::Operator);
            operandExpected = true;
            ++i;
            continue;
        }
        return i;
    }
    if (operandExpected || depth > 0) {
        int last = length - 1;
        while (last >= 0 && isBlank(text.at(last)))
            --last;
        return last >= 0 ? last : -1;
    }
    return -1;
}

} // namespace

Ta_SyntaxHighlighter::Ta_SyntaxHighlighter(QTextDocument *document)
    : QSyntaxHighlighter(document), mUnit(CUnit::MM)
{
    mFormats[Number].setForeground(QColor(0x1f, 0x4e, 0x9a));
    mFormats[Unit].setForeground(QColor(0x2e, 0x7d, 0x32));
    mFormats[Operator].setForeground(QColor(0x6a, 0x1b, 0x9a));
    mFormats[Bracket].setForeground(QColor(0x6a, 0x1b, 0x9a));
    mFormats[Bracket].setFontWeight(QFont::Bold);
    mFormats[Error].setUnderlineStyle(QTextCharFormat::WaveUnderline);
    mFormats[Error].setUnderlineColor(QColor(0xd3, 0x2f, 0x2f));
    mFormats[Error].setForeground(QColor(0xd3, 0x2f, 0x2f));
}

Ta_SyntaxHighlighter::~Ta_SyntaxHighlighter() = default;

void Ta_SyntaxHighlighter::setUnit(const CUnit &unit)
{
    if (unit == mUnit)
        return;
    mUnit = unit;
    rehighlight();
}

QTextCharFormat Ta_SyntaxHighlighter::roleFormat(Role role) const
{
    return role >= Number && role <= Error ? mFormats[role] : QTextCharFormat();
}

void Ta_SyntaxHighlighter::setRoleFormat(Role role, const QTextCharFormat &format)
{
    if (role < Number || role > Error)
        return;
    mFormats[role] = format;
    rehighlight();
}

int Ta_SyntaxHighlighter::errorPosition(const QString &text, const CUnit &unit)
{
    const int position = scan(text, unit, [](int, int, Role) {});
    if (position >= 0)
        return position;
    if (text.trimmed().isEmpty())
        return -1;
    // The grammar holds; what remains is what only evaluating finds (a division by zero, a
    // result out of range, or a character outside Latin-1).
    const QByteArray bytes = text.toLatin1();
    double value = 0;
    if (CParser::evaluate(bytes.constData(), std::size_t(bytes.size()), unit, &value))
        return -1;
    int last = text.length() - 1;
    while (last >= 0 && isBlank(text.at(last)))
        --last;
    return last;
}

void Ta_SyntaxHighlighter::highlightBlock(const QString &text)
{
    scan(text, mUnit, [this](int start, int count, Role role) { setFormat(start, count, mFormats[role]); });
    const int error = errorPosition(text, mUnit);
    if (error >= 0) {
        QTextCharFormat format = QSyntaxHighlighter::format(error);
        format.merge(mFormats[Error]);
        setFormat(error, 1, format);
    }
}
