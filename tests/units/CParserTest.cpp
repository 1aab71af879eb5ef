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
    void readsExpressions_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<uint>("unit");
        QTest::addColumn<double>("expected");
        auto row = [](const char *name, const QByteArray &text, unsigned int unit, double v) {
            QTest::newRow(name) << text << uint(unit) << v;
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
        row("inch sign", "1\"", CUnit::MM, 25.4);
        row("inch word", "2in", CUnit::PT, 144.0);
        row("case ignored", "1CM", CUnit::MM, 10.0);
        row("metre", "0.5m", CUnit::CM, 50.0);
        row("pica", "1pi", CUnit::PT, 12.0);
        row("cicero", "1c", CUnit::PDidot, 12.0);
        row("didot", "1dd", CUnit::MM, 0.376065);
        row("decipoint", "10dp", CUnit::PT, 1.0);
        row("decimal inch", "1dz", CUnit::Inch, 1.0);
        row("q", "4q", CUnit::MM, 1.0);
        row("degree sign", "45\xB0", CUnit::Angle, 45.0);
        row("percent", "50%", CUnit::Percent, 50.0);
        row("relative percent", "50rel%", CUnit::RelativePercent, 50.0);
        row("em", "2g", CUnit::Geviert, 2.0);
        row("lines per inch", "2.54lpi", CUnit::LPC, 1.0);
        row("lines per centimetre", "1lpcm", CUnit::LPI, 2.54);
        row("resolution", "300ppi", CUnit::DPI, 300.0);
        row("no unit", "3*4", CUnit::No, 12.0);
        row("deep but allowed", QByteArray(150, '(') + "7" + QByteArray(150, ')'), CUnit::MM, 7.0);
        row("long digits", QByteArray("0.") + QByteArray(300, '3'), CUnit::MM, 1.0 / 3.0);
    }
    void readsExpressions()
    {
        QFETCH(QByteArray, text);
        QFETCH(uint, unit);
        QFETCH(double, expected);
        TAutoPtr<AOperand> result = calc(text.toStdString(), unit);
        QVERIFY(result);
        QCOMPARE(result->Value(), expected);
    }

    void refusesBadText_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<uint>("unit");
        auto row = [](const char *name, const QByteArray &text, unsigned int unit) {
            QTest::newRow(name) << text << uint(unit);
        };
        row("empty", "", CUnit::MM);
        row("blanks", "   ", CUnit::MM);
        row("words", "abc", CUnit::MM);
        row("unknown suffix", "5xy", CUnit::MM);
        row("suffix twice", "5 mm mm", CUnit::MM);
        row("suffix without number", "mm", CUnit::MM);
        row("unit after parenthesis", "(5)mm", CUnit::MM);
        row("two separators", "1.2.3", CUnit::MM);
        row("lone separator", ".", CUnit::MM);
        row("exponent", "1e3", CUnit::MM);
        row("dangling operator", "5+", CUnit::MM);
        row("two operators", "5*/2", CUnit::MM);
        row("open parenthesis", "(1+2", CUnit::MM);
        row("close parenthesis", "1+2)", CUnit::MM);
        row("empty parentheses", "()", CUnit::MM);
        row("other class for length", "5%", CUnit::MM);
        row("length for percent", "5mm", CUnit::Percent);
        row("percent for relative", "5%", CUnit::RelativePercent);
        row("length for no unit", "5mm", CUnit::No);
        row("unknown requested unit", "5", 0x12345678u);
        row("division by zero", "1/0", CUnit::MM);
        row("division by computed zero", "1/(2mm-2mm)", CUnit::MM);
        row("overflow", QByteArray(300, '9') + "*" + QByteArray(300, '9'), CUnit::MM);
        row("out of range number", QByteArray(400, '9'), CUnit::MM);
        row("overflow by conversion", QByteArray(308, '9') + "m", CUnit::MM);
        row("question mark from a foreign character", "5?", CUnit::MM);
        row("embedded null", QByteArray("5\0mm", 4), CUnit::MM);
        row("too deep parentheses", QByteArray(100000, '(') + "1" + QByteArray(100000, ')'),
            CUnit::MM);
        row("unclosed flood", QByteArray(100000, '('), CUnit::MM);
        row("too many signs", QByteArray(100000, '-') + "1", CUnit::MM);
    }
    void refusesBadText()
    {
        QFETCH(QByteArray, text);
        QFETCH(uint, unit);
        QVERIFY(!calc(text.toStdString(), unit));
    }

    void longFlatExpressionsAreNotNesting()
    {
        // A long sum is a loop, not recursion: no depth limit applies.
        std::string sum = "1";
        for (int i = 0; i < 20000; ++i)
            sum += "+1";
        TAutoPtr<AOperand> result = calc(sum, CUnit::MM);
        QVERIFY(result);
        QCOMPARE(result->Value(), 20001.0);
    }
};

TAVO_TEST(CParserTest)
#include "CParserTest.moc"
