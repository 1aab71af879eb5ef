// The expression grammar of the measure fields: what it reads, what it converts, and every
// way a text can fail, which must give a null result rather than a number or a crash.
#include "core/units/CParser.h"
#include "TestRegistry.h"

#include <QTest>
#include <string>

namespace {

TAutoPtr<AOperand> calc(const std::string &text, unsigned int unit)
{
    CParser parser(text);
    return parser.Calc(CUnit(unit));
}

const double kPt = 25.4 / 72.0;

} // namespace

class CParserTest : public QObject
{
    Q_OBJECT
private slots:
    void evaluates_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<uint>("unit");
        QTest::addColumn<double>("expected");
        auto row = [](const char *name, const QByteArray &text, unsigned int unit, double v) {
            QTest::newRow(name) << text << uint(unit) << v;
        };
        auto bad = [](const char *name, const QByteArray &text, unsigned int unit) {
            QTest::newRow(name) << text << uint(unit) << qQNaN();
        };
        row("plain number takes the unit", "12.5", CUnit::MM, 12.5);
        row("comma separator", "12,5", CUnit::PT, 12.5);
        row("leading separator", ".5", CUnit::MM, 0.5);
        row("trailing separator", "3.", CUnit::MM, 3.0);
        row("mixed separators", "1,5 + 2.5", CUnit::MM, 4.0);
        row("sum of units", "10mm + 2pt", CUnit::MM, 10.0 + 2.0 * kPt);
        row("number times length", "3 * 2cm", CUnit::MM, 60.0);
        row("parentheses", "(1/3 + 2/3) * 5 cm", CUnit::MM, 50.0);
        row("precedence", "10mm+2pt*3", CUnit::PT, 10.0 / kPt + 6.0);
        row("unary minus", "-(2 - 5)", CUnit::MM, 3.0);
        row("double sign", "--4 + +1", CUnit::MM, 5.0);
        row("blanks everywhere", " \t 2 *\t( 3 + 1 ) ", CUnit::MM, 8.0);
        row("inch word", "2in", CUnit::PT, 144.0);
        row("case ignored", "1CM", CUnit::MM, 10.0);
        row("lines per centimetre", "1lpcm", CUnit::LPI, 2.54);
        row("no unit", "3*4", CUnit::No, 12.0);
        row("deep but allowed", QByteArray(150, '(') + "7" + QByteArray(150, ')'), CUnit::MM, 7.0);
        row("long digits", QByteArray("0.") + QByteArray(300, '3'), CUnit::MM, 1.0 / 3.0);
        // A long sum is a loop, not recursion: no depth limit applies.
        row("long flat sum", "1" + QByteArray("+1").repeated(20000), CUnit::MM, 20001.0);
        bad("empty", "", CUnit::MM);
        bad("words", "abc", CUnit::MM);
        bad("unknown suffix", "5xy", CUnit::MM);
        bad("suffix twice", "5 mm mm", CUnit::MM);
        bad("suffix without number", "mm", CUnit::MM);
        bad("unit after parenthesis", "(5)mm", CUnit::MM);
        bad("two separators", "1.2.3", CUnit::MM);
        bad("lone separator", ".", CUnit::MM);
        bad("exponent", "1e3", CUnit::MM);
        bad("dangling operator", "5+", CUnit::MM);
        bad("two operators", "5*/2", CUnit::MM);
        bad("open parenthesis", "(1+2", CUnit::MM);
        bad("close parenthesis", "1+2)", CUnit::MM);
        bad("empty parentheses", "()", CUnit::MM);
        bad("other class for length", "5%", CUnit::MM);
        bad("length for no unit", "5mm", CUnit::No);
        bad("unknown requested unit", "5", 0x12345678u);
        bad("division by zero", "1/0", CUnit::MM);
        bad("overflow", QByteArray(300, '9') + "*" + QByteArray(300, '9'), CUnit::MM);
        bad("out of range number", QByteArray(400, '9'), CUnit::MM);
        bad("overflow by conversion", QByteArray(308, '9') + "m", CUnit::MM);
        bad("question mark from a foreign character", "5?", CUnit::MM);
        bad("embedded null", QByteArray("5\0mm", 4), CUnit::MM);
        bad("too deep parentheses", QByteArray(100000, '(') + "1" + QByteArray(100000, ')'),
            CUnit::MM);
        bad("unclosed flood", QByteArray(100000, '('), CUnit::MM);
        bad("too many signs", QByteArray(100000, '-') + "1", CUnit::MM);
    }
    void evaluates()
    {
        QFETCH(QByteArray, text);
        QFETCH(uint, unit);
        QFETCH(double, expected);
        TAutoPtr<AOperand> result = calc(text.toStdString(), unit);
        QCOMPARE(bool(result), !qIsNaN(expected));
        if (result)
            QCOMPARE(result->Value(), expected);
    }
};

TAVO_TEST(CParserTest)
#include "CParserTest.moc"
