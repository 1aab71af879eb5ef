// The unit table: classes that convert exactly where they should, real
// typographic factors.
#include "core/units/CUnit.h"
#include "TestRegistry.h"
#include "core/units/UnitValue.h"

#include <QTest>

class CUnitTest : public QObject
{
    Q_OBJECT
private slots:
    void lengthFactorsAreTypographic()
    {
        auto mm = [](unsigned int code) { return UnitValue(1.0, CUnit(code)).get(CUnit::MM); };
        QCOMPARE(mm(CUnit::Inch), 25.4);
        QCOMPARE(mm(CUnit::PT), 25.4 / 72.0);
        QCOMPARE(mm(CUnit::DP), 25.4 / 720.0);
        QCOMPARE(mm(CUnit::Pica), 12.0 * 25.4 / 72.0);
        QCOMPARE(mm(CUnit::PDidot), 0.376065);
        QCOMPARE(mm(CUnit::Cicero), 12.0 * 0.376065);
        QCOMPARE(mm(CUnit::Q), 0.25);
        QCOMPARE(mm(CUnit::Meter), 1000.0);
        QCOMPARE(mm(CUnit::CM), 10.0);
        QCOMPARE(mm(CUnit::DecInch), 25.4);
        QCOMPARE(UnitValue(2.54, CUnit(CUnit::LPC)).get(CUnit(CUnit::LPI)), 2.54 * 2.54);
        QCOMPARE(UnitValue(1.0, CUnit(CUnit::LPI)).get(CUnit(CUnit::LPC)), 1.0 / 2.54);
    }

    void getKeepsTheNumberAcrossClassesAndUnknownCodes()
    {
        QCOMPARE(UnitValue(7.0, CUnit(CUnit::MM)).get(CUnit(CUnit::Percent)), 7.0);
        QCOMPARE(UnitValue(7.0, CUnit(CUnit::Percent)).get(CUnit(CUnit::RelativePercent)), 7.0);
        QCOMPARE(UnitValue(7.0, CUnit(0x12345678u)).get(CUnit(CUnit::MM)), 7.0);
        const CUnit garbage(0xFFFFFFFFu);
        QVERIFY(!garbage.isKnown());
        QCOMPARE(garbage.GetConversion(), 0.0);
        QVERIFY(garbage.symbol().isEmpty());
        QCOMPARE(UnitValue(1.5, garbage).strWithUnit(2), QStringLiteral("1.5"));
    }
};

TAVO_TEST(CUnitTest)
#include "CUnitTest.moc"
