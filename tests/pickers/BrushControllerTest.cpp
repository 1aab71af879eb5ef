// Brush lists in combo boxes and gradient menus: sorting, canonical identifiers, filters,
// reading the choice, and the framed previews.
#include "ComboTexts.h"
#include "TestBrushProvider.h"
#include "TestRegistry.h"
#include "core/ColorBrush.h"
#include "pickers/BrushControllerQt.h"
#include "style/Device.h"

#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QTest>

using namespace TavoLib;
using TavoTest::TestBrushProvider;

using TavoTest::comboTexts;

class BrushControllerTest : public QObject
{
    Q_OBJECT

private slots:
    void listIsSortedWithoutCaseAndCanonical()
    {
        TestBrushProvider::Ptr brushes(new TestBrushProvider);
        brushes->addColor(60, "lime", Qt::green, "lime");
        BrushControllerQt controller(brushes);
        QComboBox combo;
        // 50 is another identifier of "Red": it selects the listed red.
        controller.populate(&combo, false, 50);
        QCOMPARE(comboTexts(combo),
            QStringList({ "Black", "Cyan", "lime", "Linear Grey", "Radial Red", "Red",
                "Registration", "White" }));
        QCOMPARE(combo.currentText(), QStringLiteral("Red"));
        QCOMPARE(controller.currentBrush(&combo), short(3));
        // The previews are made at the combo's icon size, 1.6 times as wide as high.
        QCOMPARE(combo.itemIcon(0).availableSizes().value(0), combo.iconSize());
        QVERIFY(qAbs(combo.iconSize().width() - combo.iconSize().height() * 1.6) < 2);

        QVERIFY(controller.setCurrentBrush(&combo, 10));
        QCOMPARE(controller.currentBrush(&combo), short(10));
        QVERIFY(controller.setCurrentBrush(&combo, 50));
        QCOMPARE(controller.currentBrush(&combo), short(3));
        QVERIFY(!controller.setCurrentBrush(&combo, 999));
        QVERIFY(!controller.setCurrentBrush(&combo, -100));
        QCOMPARE(controller.brushAt(0, &combo), short(1));
        QCOMPARE(controller.brushAt(combo.count(), &combo), short(-100));
        combo.addItem("no brush");
        QCOMPARE(controller.brushAt(combo.count() - 1, &combo), short(-100));
    }

    void unknownCurrentOnlyColorsAndEmptyProvider()
    {
        BrushControllerQt controller(new TestBrushProvider);
        for (short current : { short(-100), short(999) }) {
            QComboBox combo;
            controller.populate(&combo, false, current);
            QCOMPARE(combo.currentIndex(), 0);
        }
        // Only colours: the gradients go, and a gradient as current selects the first.
        QComboBox combo;
        controller.populate(&combo, true, 10);
        QCOMPARE(
            comboTexts(combo), QStringList({ "Black", "Cyan", "Red", "Registration", "White" }));
        QCOMPARE(combo.currentIndex(), 0);

        // An empty provider adds nothing, keeps the icon size and still marks the combo box.
        BrushControllerQt empty(new TestBrushProvider(TestBrushProvider::Empty));
        QComboBox none;
        const QSize before = none.iconSize();
        empty.populate(&none, false, 1);
        QCOMPARE(none.count(), 0);
        QCOMPARE(none.iconSize(), before);
        QCOMPARE(none.property("SCALEICON"), QVariant(true));
        QMenu menu;
        empty.populateGradients(&menu, 10);
        QCOMPARE(empty.firstBrush(&menu), short(-100));
        QCOMPARE(empty.currentBrush(&menu), short(-100));
    }

    void gradientMenu()
    {
        BrushControllerQt controller(new TestBrushProvider);
        QMenu menu;
        controller.populateGradients(&menu, 11);
        const QList<QAction *> actions = menu.actions();
        QCOMPARE(actions.size(), 2);
        QCOMPARE(actions.at(0)->text(), QStringLiteral("Linear Grey"));
        QCOMPARE(actions.at(1)->text(), QStringLiteral("Radial Red"));
        QVERIFY(actions.at(1)->isChecked());
        QCOMPARE(controller.currentBrush(&menu), short(11));
        QCOMPARE(controller.firstBrush(&menu), short(10));

        // Checking is exclusive; a colour as current checks nothing.
        actions.at(0)->trigger();
        QVERIFY(!actions.at(1)->isChecked());
        QMenu colours;
        controller.populateGradients(&colours, 3);
        QCOMPARE(controller.currentBrush(&colours), short(-100));
    }

    void previewHasAOnePixelFrame()
    {
        BrushControllerQt controller(new TestBrushProvider);
        const QPixmap pixmap = controller.brushPreview(3, QSize(16, 10));
        const double ratio = Device::pixelRatio();
        QCOMPARE(pixmap.size(), QSize(qRound(16 * ratio), qRound(10 * ratio)));
        QCOMPARE(pixmap.devicePixelRatio(), ratio);
        const QImage image = pixmap.toImage();
        const int w = image.width();
        const int h = image.height();
        for (const QPoint &p : { QPoint(0, 0), QPoint(w - 1, h - 1), QPoint(w / 2, 0) })
            QCOMPARE(QColor(image.pixel(p)), QColor(Qt::black));
        // Inside the frame, from the first device pixel on, the brush itself.
        QCOMPARE(QColor(image.pixel(1, 1)).red(), 255);
        QCOMPARE(QColor(image.pixel(w - 2, h - 2)).red(), 255);
        QCOMPARE(QColor(image.pixel(w / 2, h / 2)).green(), 0);

        // Unknown brushes keep the frame around a transparent inside.
        const QImage unknown = controller.brushPreview(999, QSize(16, 10)).toImage();
        QCOMPARE(qAlpha(unknown.pixel(w / 2, h / 2)), 0);
        QCOMPARE(QColor(unknown.pixel(0, 0)), QColor(Qt::black));
        QVERIFY(controller.brushPreview(3, QSize(0, 10)).isNull());
    }
};

TAVO_TEST(BrushControllerTest)
#include "BrushControllerTest.moc"
