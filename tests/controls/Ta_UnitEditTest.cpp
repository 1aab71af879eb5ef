// The unit field driven as a user drives it: keys typed, Return pressed, focus moved away,
// with the signals it sends, the clamping, the special value and the second unit.
#include "controls/Ta_UnitEdit.h"
#include "MessageBoxCloser.h"
#include "TestRegistry.h"

#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {

using ValueSignal = void (Ta_UnitEdit::*)(const UnitValue &);
using TextSignal = void (Ta_UnitEdit::*)(const QString &);
const ValueSignal kValueChanged = &Ta_UnitEdit::valueChanged;
const TextSignal kTextChanged = &Ta_UnitEdit::valueChanged;

UnitValue lastValue(const QSignalSpy &spy)
{
    return qvariant_cast<UnitValue>(spy.last().at(0));
}

UnitValue mm(double v)
{
    return UnitValue(v, CUnit(CUnit::MM));
}

// A shown, active window with the field and a second field that takes the focus away.
struct Window
{
    Window()
    {
        auto *layout = new QVBoxLayout(&widget);
        edit = new Ta_UnitEdit(&widget);
        other = new QLineEdit(&widget);
        layout->addWidget(edit);
        layout->addWidget(other);
        widget.show();
        QApplication::setActiveWindow(&widget);
        active = QTest::qWaitForWindowActive(&widget);
        edit->setFocus();
    }
    void type(const QString &text) { QTest::keyClicks(edit, text); }
    void clearField()
    {
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(edit, Qt::Key_Backspace);
    }
    void leave()
    {
        other->setFocus();
        QCoreApplication::processEvents();
    }

    QWidget widget;
    bool active = false;
    Ta_UnitEdit *edit;
    QLineEdit *other;
};

} // namespace

class Ta_UnitEditTest : public QObject
{
    Q_OBJECT
private slots:
    void typingReportsEveryKeystrokeAndNeverRefusesOne()
    {
        Window w;
        QSignalSpy values(w.edit, kValueChanged);
        QSignalSpy texts(w.edit, kTextChanged);
        w.type(QStringLiteral("12,5"));
        QCOMPARE(values.count(), 4);
        QCOMPARE(lastValue(values), mm(12.5));
        QCOMPARE(texts.last().at(0).toString(), QStringLiteral("12.5mm"));
        QCOMPARE(w.edit->lastValidValue(), QStringLiteral("12,5"));
        QVERIFY(w.edit->hasAcceptableInput());

        // Half-typed text stays in the field; it reads as the default and "invalid".
        w.type(QStringLiteral("*("));
        QCOMPARE(w.edit->text(), QStringLiteral("12,5*("));
        QVERIFY(!w.edit->hasAcceptableInput());
        QCOMPARE(texts.last().at(0).toString(), QStringLiteral("invalid"));
        QCOMPARE(lastValue(values), mm(0.0));
        QCOMPARE(w.edit->lastValidValue(), QStringLiteral("12,5"));

        w.type(QStringLiteral("2pt)"));
        QCOMPARE(lastValue(values).value(), 12.5 * 2.0 * 25.4 / 72.0);
    }

    void returnCommitsOnceAndClampsToTheLimits()
    {
        Window w;
        QVERIFY(w.active);
        w.edit->setMaximum(100.0);
        QSignalSpy typed(w.edit, kValueChanged);
        QSignalSpy byFocusOut(w.edit, &Ta_UnitEdit::valueByFocusOut);
        QSignalSpy onComplete(w.edit, &Ta_UnitEdit::valueOnComplete);

        w.type(QStringLiteral("5cm+10cm"));
        QCOMPARE(lastValue(typed), mm(150.0)); // not clamped while typing
        QTest::keyClick(w.edit, Qt::Key_Return);
        QCOMPARE(w.edit->text(), QStringLiteral("100mm"));
        QCOMPARE(byFocusOut.count(), 1);
        QCOMPARE(onComplete.count(), 1);
        QCOMPARE(lastValue(byFocusOut), mm(100.0));
        QCOMPARE(lastValue(onComplete), mm(100.0));

        // Leaving the field without a further change commits nothing more.
        w.leave();
        QVERIFY(!w.edit->hasFocus());
        QCOMPARE(byFocusOut.count(), 1);
        QCOMPARE(onComplete.count(), 1);

        // Below the minimum, and leaving the field as the commit.
        w.edit->setFocus();
        w.edit->setMinimum(QStringLiteral("1cm"));
        QCOMPARE(w.edit->minimum(), 10.0);
        w.clearField();
        w.type(QStringLiteral("-3"));
        w.leave();
        QCOMPARE(w.edit->text(), QStringLiteral("10mm"));
        QCOMPARE(byFocusOut.count(), 2);
        QCOMPARE(lastValue(onComplete), mm(10.0));
    }

    void invalidTextFallsBackToTheLastValidEntry()
    {
        Window w;
        w.type(QStringLiteral("7"));
        QTest::keyClick(w.edit, Qt::Key_Return);
        QCOMPARE(w.edit->text(), QStringLiteral("7mm"));
        QSignalSpy onComplete(w.edit, &Ta_UnitEdit::valueOnComplete);
        MessageBoxCloser closer;

        // Return on unreadable text: the validator's fixup puts back the last valid entry,
        // which was the committed one, so nothing new is committed and nothing is shown.
        w.type(QStringLiteral("x"));
        QTest::keyClick(w.edit, Qt::Key_Return);
        QCOMPARE(w.edit->text(), QStringLiteral("7mm"));
        QCOMPARE(onComplete.count(), 0);

        // Text that bypassed the validator's fixup reaches the commit itself: it is reset
        // and the user is told why, with no commit signal.
        w.edit->setText(QStringLiteral("7mm + ?"));
        emit w.edit->editingFinished();
        QCOMPARE(closer.count, 1);
        QCOMPARE(closer.title, QStringLiteral("Error"));
        QCOMPARE(closer.text,
            QStringLiteral("The entry contains syntax errors and will\ntherefore be reset to "
                           "the last valid entry"));
        QCOMPARE(closer.buttonText, QStringLiteral("OK"));
        QCOMPARE(w.edit->text(), QStringLiteral("7mm"));
        QCOMPARE(onComplete.count(), 0);
    }

    void emptyText()
    {
        Window w;
        QSignalSpy onComplete(w.edit, &Ta_UnitEdit::valueOnComplete);
        w.edit->setDefaultValue(4.0);
        w.type(QStringLiteral("3"));
        QTest::keyClick(w.edit, Qt::Key_Return);

        // Allowed: the empty field commits the default value.
        w.clearField();
        QCOMPARE(w.edit->text(), QString());
        QTest::keyClick(w.edit, Qt::Key_Return);
        QCOMPARE(onComplete.count(), 2);
        QCOMPARE(lastValue(onComplete), mm(4.0));

        // Not allowed: the field refills itself within the same keystroke. The refill is
        // reported first, then the emptied text, whose value is the default.
        w.edit->setAllowEmpty(false);
        w.edit->setValue(mm(12.0));
        QSignalSpy texts(w.edit, kTextChanged);
        QSignalSpy values(w.edit, kValueChanged);
        w.clearField();
        QCOMPARE(w.edit->text(), QStringLiteral("12mm"));
        QCOMPARE(texts.size(), 2);
        QCOMPARE(texts.at(0).at(0).toString(), QStringLiteral("12mm"));
        QCOMPARE(texts.at(1).at(0).toString(), QStringLiteral("invalid"));
        QCOMPARE(values.size(), 2);
        QCOMPARE(lastValue(values), mm(4.0));
        QCOMPARE(w.edit->lastValidValue(), QStringLiteral("12mm"));

        // An empty text that reaches the commit anyway is reset with a warning.
        MessageBoxCloser closer;
        w.edit->blockSignals(true);
        w.edit->setText(QString());
        w.edit->blockSignals(false);
        emit w.edit->editingFinished();
        QCOMPARE(closer.count, 1);
        QCOMPARE(closer.text,
            QStringLiteral("An empty field is not allowed and the\nlast valid "
                           "entry will be reset"));
        QCOMPARE(w.edit->text(), QStringLiteral("12mm"));
        QCOMPARE(onComplete.count(), 2);
    }

    void specialValue()
    {
        Window w;
        w.edit->setSpecialValue(-1.0, QStringLiteral("Auto"));
        QSignalSpy onComplete(w.edit, &Ta_UnitEdit::valueOnComplete);

        w.type(QStringLiteral("  aUTo "));
        QCOMPARE(w.edit->value(nullptr), mm(-1.0)); // below the minimum, but special
        QTest::keyClick(w.edit, Qt::Key_Return);
        QCOMPARE(w.edit->text(), QStringLiteral("Auto"));
        QCOMPARE(lastValue(onComplete), mm(-1.0));

        w.edit->setValue(mm(3.0));
        QCOMPARE(w.edit->text(), QStringLiteral("3mm"));
        w.edit->setValue(UnitValue(-0.1, CUnit(CUnit::CM)));
        QCOMPARE(w.edit->text(), QStringLiteral("Auto"));
        // Only the exact special number shows the text; a near one is clamped as usual.
        w.edit->setValue(UnitValue(-1.0, CUnit(CUnit::PT)));
        QCOMPARE(w.edit->text(), QStringLiteral("0mm"));
    }

    void secondUnit()
    {
        Window w;
        w.edit->setUseSecondUnit(true);
        w.edit->setSecondMaximum(50.0);
        QSignalSpy values(w.edit, kValueChanged);
        QSignalSpy texts(w.edit, kTextChanged);
        QSignalSpy onComplete(w.edit, &Ta_UnitEdit::valueOnComplete);

        w.type(QStringLiteral("33.3%"));
        QCOMPARE(lastValue(values), UnitValue(33.3, CUnit(CUnit::Percent)));
        QCOMPARE(texts.last().at(0).toString(), QStringLiteral("33%"));
        QCOMPARE(w.edit->currentUnit(), Ta_UnitEdit::UnitPercent);
        w.type(QStringLiteral("*2"));
        QTest::keyClick(w.edit, Qt::Key_Return);
        QCOMPARE(w.edit->text(), QStringLiteral("50%"));
        QCOMPARE(lastValue(onComplete), UnitValue(50.0, CUnit(CUnit::Percent)));

        // A length still goes to the first unit.
        w.clearField();
        w.type(QStringLiteral("1in"));
        QTest::keyClick(w.edit, Qt::Key_Return);
        QCOMPARE(w.edit->text(), QStringLiteral("25.4mm"));
        QCOMPARE(w.edit->currentUnit(), Ta_UnitEdit::UnitMM);

        // Without the second unit, a percentage is unreadable.
        w.edit->setUseSecondUnit(false);
        w.clearField();
        w.type(QStringLiteral("5%"));
        QCOMPARE(texts.last().at(0).toString(), QStringLiteral("invalid"));
    }

    void lowerMaximumReachesTheTextAtTheNextCommit()
    {
        Window w;
        w.edit->setValue(mm(50.0));
        w.edit->setMaximum(20.0);
        QCOMPARE(w.edit->text(), QStringLiteral("50mm"));
        QCOMPARE(w.edit->value(nullptr), mm(20.0));
        w.type(QStringLiteral(" "));
        QTest::keyClick(w.edit, Qt::Key_Return);
        QCOMPARE(w.edit->text(), QStringLiteral("20mm"));
    }

    void setValueFromOutside()
    {
        Ta_UnitEdit edit;
        edit.setPrecision(1);
        QSignalSpy values(&edit, kValueChanged);
        edit.setValue(UnitValue(1.0, CUnit(CUnit::Inch)));
        QCOMPARE(edit.text(), QStringLiteral("25.4mm"));
        QCOMPARE(values.count(), 1);

        // A value of neither class is ignored.
        edit.setValue(UnitValue(50.0, CUnit(CUnit::Percent)));
        QCOMPARE(edit.text(), QStringLiteral("25.4mm"));
        edit.setValue(UnitValue(1.0, CUnit(0xDEADBEEFu)));
        QCOMPARE(edit.text(), QStringLiteral("25.4mm"));

        edit.setValueWithoutSignals(mm(3.26));
        QCOMPARE(edit.text(), QStringLiteral("3.3mm"));
        QCOMPARE(values.count(), 1);
        QVERIFY(!edit.signalsBlocked());
    }
};

TAVO_TEST(Ta_UnitEditTest)
#include "Ta_UnitEditTest.moc"
