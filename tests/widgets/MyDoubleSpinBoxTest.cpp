// The measure spin box driven by keys and the wheel: steps on the shown digits that
// commit once each and stop at the limits, the empty field, read-only, and the size hint.
#include "widgets/MyDoubleSpinBox.h"
#include "TestRegistry.h"
#include "core/UnitValueProperty.h"

#include <QSignalSpy>
#include <QTest>

struct Spin : MyDoubleSpinBox
{
    QString text() const { return unitEdit()->text(); }
    // Whether the spin box took a wheel event, rather than leaving it to its parent.
    bool wheel(int delta)
    {
        QWheelEvent event(QPointF(5, 5), mapToGlobal(QPoint(5, 5)), QPoint(), QPoint(0, delta),
            Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(this, &event);
        return event.isAccepted();
    }
};

class MyDoubleSpinBoxTest : public QObject
{
    Q_OBJECT
    static UnitValue mm(double v) { return UnitValue(v, CUnit(CUnit::MM)); }

private slots:
    void stepsCommitOnceAndStopAtTheLimits()
    {
        Spin spin;
        spin.setUnitValue(mm(1.23), CUnit::MM, 0.0, 2.0, 1, false, false);
        spin.show();
        QApplication::setActiveWindow(&spin);
        QVERIFY(QTest::qWaitForWindowActive(&spin));
        spin.setFocus();
        QSignalSpy commits(&spin, &MyDoubleSpinBox::valueOnComplete);
        QTest::keyClick(&spin, Qt::Key_Up); // from 1.2, the shown value
        QCOMPARE(qvariant_cast<UnitValue>(commits.last().at(0)), mm(1.3));
        QTest::keyClick(&spin, Qt::Key_PageUp);
        QCOMPARE(spin.text(), QStringLiteral("2mm"));
        QTest::keyClick(&spin, Qt::Key_Up);
        QTest::keyClick(&spin, Qt::Key_Down);
        QCOMPARE(spin.text(), QStringLiteral("1.9mm"));
        QCOMPARE(commits.count(), 3);
        QTest::keyClicks(&spin, QStringLiteral("1")); // typed: the inner edit commits, once
        QTest::keyClick(&spin, Qt::Key_Return);
        spin.clearFocus();
        QCOMPARE(commits.count(), 4);

        // The wheel turns the value only while the field has the focus.
        QVERIFY(!spin.wheel(-120));
        QCOMPARE(spin.text(), QStringLiteral("1mm"));
        spin.setFocus();
        QVERIFY(spin.wheel(120));
        QCOMPARE(spin.text(), QStringLiteral("1.1mm"));
        QCOMPARE(commits.count(), 5);
    }

    void emptyFieldSpecialValueAndReadOnly()
    {
        TavoLib::UnitValueProperty::Ptr property(new TavoLib::UnitValueProperty(
            QStringLiteral("w"), QStringLiteral("Width"), mm(3.0), CUnit::PT, 5.0, 10.0, 0));
        property->setUndefinable(true);
        property->setUndefined(true);
        property->setSpecialValue(5.0, QStringLiteral("auto"));
        Spin spin;
        spin.setUnitValueProperty(property);
        QVERIFY(spin.isUndefined() && spin.allowEmpty());
        QTest::keyClick(&spin, Qt::Key_Up); // from the default, raised to the minimum
        QCOMPARE(spin.text(), QStringLiteral("6pt"));
        QTest::keyClick(&spin, Qt::Key_Down);
        spin.setSpecialValueText(QStringLiteral("Automatic"));
        QCOMPARE(spin.text(), QStringLiteral("Automatic"));
        spin.setReadOnly(true);
        QTest::keyClick(&spin, Qt::Key_Up);
        QCOMPARE(spin.text(), QStringLiteral("Automatic"));
    }

    void sizeHintFitsTheWidestNumberAtAnyFont()
    {
        Spin spin;
        spin.setUnitValue(mm(-19999.999), CUnit::MM, -20000.0, 20000.0, 3, false, false);
        spin.show();
        QLineEdit *edit = spin.unitEdit();
        auto cursorX = [edit] {
            edit->grab(); // the line edit scrolls to the cursor as it paints
            return edit->inputMethodQuery(Qt::ImCursorRectangle).toRect().left();
        };
        for (int points : { 7, 22 }) {
            spin.setFont(QFont(spin.font().family(), points));
            spin.resize(spin.sizeHint());
            edit->home(false);
            const int start = cursorX();
            edit->end(false);
            QVERIFY2(cursorX() - start >= edit->fontMetrics().horizontalAdvance(edit->text()) - 1,
                qPrintable(QString::number(points)));
        }
    }
};

TAVO_TEST(MyDoubleSpinBoxTest)
#include "MyDoubleSpinBoxTest.moc"
