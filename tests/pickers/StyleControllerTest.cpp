// Pen style and line-head combo boxes: population with the measuring placeholder, aliases,
// null previews and reading the choice.
#include "ComboTexts.h"
#include "TestLineHeadStyleProvider.h"
#include "TestPenStyleProvider.h"
#include "TestRegistry.h"
#include "pickers/LineHeadStyleControllerQt.h"
#include "pickers/PenStyleControllerQt.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QTest>

using namespace TavoLib;
using TavoTest::TestLineHeadStyleProvider;
using TavoTest::TestPenStyleProvider;

using TavoTest::comboTexts;

class StyleControllerTest : public QObject
{
    Q_OBJECT

private slots:
    void penStylesWithPreviews()
    {
        TestPenStyleProvider::Ptr pens(new TestPenStyleProvider);
        pens->setNullPreview(3);
        PenStyleControllerQt controller(pens);
        QComboBox combo;
        combo.addItem("Existing");
        QSignalSpy texts_(&combo, &QComboBox::currentTextChanged);
        // 20 stands for "Solid".
        controller.populate(&combo, 20);
        QCOMPARE(
            comboTexts(combo), QStringList({ "Existing", "Solid", "Dash", "Dot", "Dash Dot" }));
        QCOMPARE(combo.currentIndex(), 1);
        for (const QList<QVariant> &signal : qAsConst(texts_))
            QVERIFY(signal.first().toString() != "Temp");
        QCOMPARE(combo.itemIcon(1).availableSizes().value(0), combo.iconSize());
        // A null preview still lists the style, without an icon.
        QVERIFY(combo.itemIcon(3).isNull());
        QCOMPARE(controller.penStyleAt(3, &combo), short(3));

        QCOMPARE(controller.currentPenStyle(&combo), short(1));
        QVERIFY(controller.setCurrentPenStyle(&combo, 4));
        QCOMPARE(controller.currentPenStyle(&combo), short(4));
        // Aliases are compared as given here.
        QVERIFY(!controller.setCurrentPenStyle(&combo, 20));
        QCOMPARE(controller.penStyleAt(0, &combo), short(-100));
        QCOMPARE(controller.penStyleAt(99, &combo), short(-100));
    }

    void unknownCurrentAndEmptyProvider()
    {
        PenStyleControllerQt pens(new TestPenStyleProvider);
        QComboBox combo;
        pens.populate(&combo, 777);
        QCOMPARE(combo.currentIndex(), 0);
        QCOMPARE(combo.count(), 4);

        PenStyleControllerQt empty(new TestPenStyleProvider(TestPenStyleProvider::Empty));
        QComboBox none;
        const QSize before = none.iconSize();
        empty.populate(&none, 1);
        QCOMPARE(none.count(), 0);
        QCOMPARE(none.iconSize(), before);
        QCOMPARE(empty.currentPenStyle(&none), short(-100));
    }

    void lineHeadsForStartAndEnd()
    {
        TestLineHeadStyleProvider::Ptr provider(new TestLineHeadStyleProvider);
        LineHeadStyleControllerQt controller(provider);
        QComboBox start;
        QComboBox end;
        controller.populate(true, &start, 2);
        controller.populate(false, &end, 20);
        QCOMPARE(
            comboTexts(start), QStringList({ "None", "Filled Arrow", "Open Arrow", "Circle" }));
        QCOMPARE(comboTexts(end), comboTexts(start));
        QCOMPARE(controller.currentStyle(&start), short(2));
        QCOMPARE(controller.currentStyle(&end), short(1));

        // The flag reaches the preview: an arrow drawn at the other end.
        const QImage a = controller.stylePreview(2, true, QSize(40, 16)).toImage();
        const QImage b = controller.stylePreview(2, false, QSize(40, 16)).toImage();
        QCOMPARE(a.size(), b.size());
        QVERIFY(a != b);
        // Selection compares ids as given, without the alias step of populate.
        QVERIFY(controller.setCurrentStyle(&end, 3));
        QCOMPARE(controller.styleAt(2, &end), short(3));
        QVERIFY(!controller.setCurrentStyle(&end, 20));
    }
};

TAVO_TEST(StyleControllerTest)
#include "StyleControllerTest.moc"
