// Printing and reading back: whatever strWithUnit prints, in any unit and at any precision,
// the parser must read back to exactly the printed number, since fields re-read their own
// text on every keystroke.
#include "core/units/UnitValue.h"
#include "TestRegistry.h"
#include "core/units/CParser.h"
#include "core/units/NumToStr.h"

#include <QTest>
#include <cmath>
#include <limits>

class UnitValueTest : public QObject
{
    Q_OBJECT
private slots:
    void printedTextReadsBackForEveryUnitAndPrecision()
    {
        const double values[] = { 0.0, 1.0, -1.0, 0.5, -0.5, 12.5, -12.5, 12.345678, -12.345678,
            1.0 / 3.0, -2.0 / 3.0, 200.0 / 3.0, 0.0005, -0.00049999, 1e-7, 72.0, 25.4, 123456.789,
            -98765.4321, 1e12, -1e15, 0.125, 2.675, 1.005, 999.9999995 };
        int count = 0;
        const unsigned int *codes = CUnit::allCodes(&count);
        for (int c = 0; c < count; ++c) {
            const CUnit unit(codes[c]);
            for (int precision = 0; precision <= 6; ++precision) {
                for (double v : values) {
                    const QString text = UnitValue(v, unit).strWithUnit(precision);
                    const double printed = QString::number(v, 'f', precision).toDouble();
                    CParser parser(text.toLatin1().toStdString());
                    TAutoPtr<AOperand> back = parser.Calc(unit);
                    QVERIFY2(back, qPrintable(text));
                    QVERIFY2(back->Value() == printed,
                        qPrintable(QStringLiteral("%1 read as %2, printed %3")
                                       .arg(text)
                                       .arg(back->Value(), 0, 'g', 17)
                                       .arg(printed, 0, 'g', 17)));
                }
            }
        }
    }

    void printedForms()
    {
        QCOMPARE(UnitValue(12.5, CUnit(CUnit::MM)).strWithUnit(3), QStringLiteral("12.5mm"));
        QCOMPARE(UnitValue(2.0 / 3.0, CUnit(CUnit::Inch)).strWithUnit(2), QStringLiteral("0.67\""));
        QCOMPARE(UnitValue(90.0, CUnit(CUnit::Angle)).strWithUnit(0),
            QString(QStringLiteral("90") + QChar(0xB0)));
        QCOMPARE(UnitValue(-0.0001, CUnit(CUnit::MM)).strWithUnit(2), QStringLiteral("0mm"));
        QCOMPARE(UnitValue(50.0, CUnit(CUnit::RelativePercent)).strWithUnit(0),
            QStringLiteral("50rel%"));
        // Precision out of range is clamped, not undefined.
        QCOMPARE(UnitValue(1.25, CUnit(CUnit::MM)).strWithUnit(-3), QStringLiteral("1mm"));
        QCOMPARE(UnitValue(0.1, CUnit(CUnit::MM)).strWithUnit(99), QStringLiteral("0.1mm"));

        // Without a unit; printed non-finite values do not read back as a number.
        NumToStr formatter;
        QCOMPARE(formatter.get(1234.5678, 2), QStringLiteral("1234.57"));
        QCOMPARE(formatter.get(100.0, 4), QStringLiteral("100"));
        QCOMPARE(formatter.get(std::numeric_limits<double>::infinity(), 2), QStringLiteral("inf"));
        const QString text
            = UnitValue(std::numeric_limits<double>::quiet_NaN(), CUnit(CUnit::MM)).strWithUnit(2);
        CParser parser(text.toLatin1().toStdString());
        QVERIFY(!parser.Calc(CUnit(CUnit::MM)));
    }
};

TAVO_TEST(UnitValueTest)
#include "UnitValueTest.moc"
