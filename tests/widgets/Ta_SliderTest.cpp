// The measure slider: steps of its precision in its unit, keys and a focused wheel move it,
// and an attached unit field and the slider follow each other once per change, no echo.
#include "widgets/Ta_Slider.h"
#include "TestRegistry.h"

#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

class Ta_SliderTest : public QObject
{
    Q_OBJECT
private slots:
    void stepsInItsUnit()
    {
        Ta_Slider slider;
        slider.setValueRange(0.0, 20.0);
        slider.setPrecision(1);
        slider.setUnitValue(UnitValue(1.0, CUnit(CUnit::CM)));
        QCOMPARE(slider.unitValue(), UnitValue(10.0, CUnit(CUnit::MM)));
        QCOMPARE(slider.valueText(), QStringLiteral("10mm"));
        QCOMPARE(slider.toolTip(), QStringLiteral("10mm"));
        slider.setUnitValue(UnitValue(50.0, CUnit(CUnit::Percent))); // another class: ignored
        slider.setUnitValue(UnitValue(1.0, CUnit(CUnit::Inch)));     // clamped
        QCOMPARE(slider.unitValue().value(), 20.0);
        slider.show();
        QSignalSpy changed(&slider, &Ta_Slider::unitValueChanged);
        slider.setFocus();
        QTest::keyClick(&slider, Qt::Key_Left);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(slider.valueText(), QStringLiteral("19.9mm"));
        QTest::keyClick(&slider, Qt::Key_Home);
        QCOMPARE(slider.unitValue().value(), 0.0);
        QCOMPARE(changed.count(), 2);
        slider.setUnit(Ta_UnitEdit::UnitPT);
        QCOMPARE(slider.unitValue().unit(), CUnit(CUnit::PT));
        QVERIFY(qAbs(slider.maximumValue() - 20.0 / 25.4 * 72.0) < 1e-9);
    }

    void theWheelNeedsTheFocus()
    {
        QWidget window;
        auto *other = new QWidget(&window);
        other->setFocusPolicy(Qt::StrongFocus);
        auto *slider = new Ta_Slider(&window);
        slider->setGeometry(0, 30, 200, 30);
        slider->setUnitValue(UnitValue(50.0, CUnit(CUnit::MM)));
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        other->setFocus();
        const auto wheel = [slider] {
            const QPoint at = slider->rect().center();
            QWheelEvent event(at, slider->mapToGlobal(at), QPoint(), QPoint(0, 120), Qt::NoButton,
                Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(slider, &event);
        };
        wheel();
        QCOMPARE(slider->unitValue().value(), 50.0);
        slider->setFocus();
        wheel();
        QVERIFY(slider->unitValue().value() != 50.0);
    }

    void keepsItsFieldInStep()
    {
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *slider = new Ta_Slider;
        auto *edit = new Ta_UnitEdit;
        layout->addWidget(slider);
        layout->addWidget(edit);
        slider->setValueRange(0.0, 100.0);
        slider->setUnitValue(UnitValue(12.5, CUnit(CUnit::MM)));
        slider->setUnitEdit(edit);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(edit->text(), QStringLiteral("12.5mm"));
        QCOMPARE(edit->maximum(), 100.0);
        QSignalSpy changed(slider, &Ta_Slider::unitValueChanged);
        QSignalSpy typed(edit, &Ta_UnitEdit::valueOnComplete);
        QSignalSpy live(edit, QOverload<const UnitValue &>::of(&Ta_UnitEdit::valueChanged));

        slider->setFocus();
        QTest::keyClick(slider, Qt::Key_Right);
        QCOMPARE(edit->text(), QStringLiteral("12.6mm"));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(typed.count() + live.count(), 0); // no echo from the field

        // Typed in the field: nothing moves before Return, then once.
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, "2cm+1mm");
        QCOMPARE(slider->unitValue().value(), 12.6);
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(slider->unitValue().value(), 21.0);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(edit->text(), QStringLiteral("21mm"));
        // A value above the limit is clamped in the field, the slider takes the clamped one.
        edit->selectAll();
        QTest::keyClicks(edit, "1m");
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(slider->unitValue().value(), 100.0);
        QCOMPARE(slider->sliderPosition(), slider->maximum());

        delete edit; // the slider goes on alone
        QTest::keyClick(slider, Qt::Key_Left);
        QCOMPARE(slider->unitEdit(), nullptr);
    }
};

TAVO_TEST(Ta_SliderTest)
#include "Ta_SliderTest.moc"
