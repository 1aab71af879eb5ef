// The colour picker as a user drives it: a strip clicked, a number typed, a colour typed in
// hexadecimal, and the model changed, with the colour kept throughout.
#include "TestRegistry.h"

#include "controls/Ta_ColorSelector.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

class Ta_ColorSelectorTest : public QObject
{
    Q_OBJECT
private slots:
    void pickByStripNumberAndHex()
    {
        Ta_ColorSelector selector;
        selector.setModel(Ta_ColorComponentSelector::RGB);
        selector.setColor(QColor(10, 20, 30));
        selector.resize(400, 200);
        selector.show();
        QVERIFY(QTest::qWaitForWindowExposed(&selector));
        QSignalSpy changed(&selector, &Ta_ColorSelector::colorChanged);

        // The red strip's right margin gives full red; green and blue are held.
        auto strips = selector.findChildren<Ta_ColorComponentSelector *>();
        QCOMPARE(strips.size(), 3);
        QTest::mouseClick(strips[0], Qt::LeftButton, {}, QPoint(strips[0]->width() - 2, 5));
        QCOMPARE(selector.color(), QColor(255, 20, 30));
        QCOMPARE(changed.count(), 1);
        auto *hex = selector.findChild<QLineEdit *>();
        QCOMPARE(hex->text(), QString("#ff141e"));
        auto numbers = selector.findChildren<QSpinBox *>();
        QCOMPARE(numbers[0]->value(), 255);

        // A typed number, then a typed colour.
        numbers[2]->setValue(200);
        QCOMPARE(selector.color(), QColor(255, 20, 200));
        hex->setFocus();
        hex->selectAll();
        QTest::keyClicks(hex, "00ff00");
        QTest::keyClick(hex, Qt::Key_Return);
        QCOMPARE(selector.color(), QColor(0, 255, 0));
        QCOMPARE(numbers[1]->value(), 255);
        QCOMPARE(selector.oldColor(), QColor(10, 20, 30));
        const int sent = changed.count();

        // Another model keeps the colour and sends nothing.
        selector.findChild<QComboBox *>()->setCurrentIndex(int(Ta_ColorComponentSelector::HSV));
        QCOMPARE(selector.model(), Ta_ColorComponentSelector::HSV);
        QCOMPARE(selector.color(), QColor(0, 255, 0));
        QCOMPARE(selector.findChildren<QSpinBox *>()[0]->value(), 120);
        QCOMPARE(changed.count(), sent);
    }
};

TAVO_TEST(Ta_ColorSelectorTest)
#include "Ta_ColorSelectorTest.moc"
