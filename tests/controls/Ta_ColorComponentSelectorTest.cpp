// The colour strip driven by real clicks: the margins give the limits, one click announces
// the colour in every model in a fixed order, colours set from outside announce nothing, and
// Lab works only with a colour matcher.
#include "TestRegistry.h"

#include "controls/Ta_ColorComponentSelector.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

using Selector = Ta_ColorComponentSelector;

namespace {
struct Strip
{
    explicit Strip(Selector::ColorComponentType component, bool vertical = false)
    {
        selector.setOrientationType(vertical ? Selector::kOrientationVertical : Selector::kOrientationHorizontal);
        selector.resize(vertical ? QSize(22, 269) : QSize(269, 22));
        selector.setColorComponentType(component);
        selector.show();
    }
    void click(int at)
    {
        const bool vertical = selector.getOrientationType() == Selector::kOrientationVertical;
        QTest::mouseClick(&selector, Qt::LeftButton, {}, vertical ? QPoint(10, at) : QPoint(at, 10));
    }
    Selector selector;
};
} // namespace

class Ta_ColorComponentSelectorTest : public QObject
{
    Q_OBJECT
private slots:
    void marginsGiveTheLimits()
    {
        Strip hue(Selector::kHsvHue);
        QSignalSpy values(&hue.selector, &Selector::valueChanged);
        hue.click(266);
        QCOMPARE(values.last().at(0).toInt(), 359); // the hue runs to 359
        hue.click(2);
        QCOMPARE(values.last().at(0).toInt(), 0);

        // Vertically the maximum is at the top; a Lab a strip runs from 0 inside its margins.
        Strip a(Selector::kLabA, true);
        a.selector.setColorMatcher(new TavoLib::ColorMatcher);
        QSignalSpy labValues(&a.selector, &Selector::valueChanged);
        a.click(1);
        QCOMPARE(labValues.last().at(0).toInt(), 127);
        a.click(266);
        QCOMPARE(labValues.last().at(0).toInt(), -128);
    }

    void oneClickAnnouncesEveryModelInOrder()
    {
        Strip red(Selector::kRgbRed);
        red.selector.SetRgb(0, 0, 0);
        QStringList order;
        connect(&red.selector, &Selector::valueChanged, [&] { order << "value"; });
        connect(&red.selector, &Selector::hsvChanged, [&] { order << "hsv"; });
        connect(&red.selector, &Selector::labChanged, [&] { order << "lab"; });
        connect(&red.selector, &Selector::rgbChanged, [&](int r, int g, int b) {
            order << QString("rgb %1 %2 %3").arg(r).arg(g).arg(b);
            red.selector.SetRgb(1, 2, 3); // ignored while the signals are out
        });
        connect(&red.selector, &Selector::cmykChanged, [&](int c, int m, int y, int k) {
            order << QString("cmyk %1 %2 %3 %4").arg(c).arg(m).arg(y).arg(k);
        });
        red.click(266);
        QCOMPARE(order, QStringList({ "value", "hsv", "lab", "rgb 255 0 0", "cmyk 0 255 255 0" }));
        red.click(267); // the same value: nothing
        QCOMPARE(order.size(), 5);
        int r, g, b;
        red.selector.GetRgb(r, g, b);
        QCOMPARE(QList<int>({ r, g, b }), QList<int>({ 255, 0, 0 }));

        // A colour from outside goes into every model and announces nothing.
        red.selector.SetCmyk(255, 0, 0, 0);
        QCOMPARE(order.size(), 5);
        red.selector.GetRgb(r, g, b);
        QCOMPARE(QList<int>({ r, g, b }), QList<int>({ 0, 255, 255 }));
        int h, s, v;
        red.selector.GetHsv(h, s, v);
        QCOMPARE(h, 180);
    }

    void labNeedsAMatcher()
    {
        Strip l(Selector::kLabL);
        l.selector.SetRgb(255, 255, 255);
        double L, A, B;
        l.selector.GetLab(L, A, B);
        QCOMPARE(QList<double>({ L, A, B }), QList<double>({ 100, 100, 100 })); // as they were
        // The strip paints no colour it cannot know.
        const QImage blind = l.selector.grab().toImage();
        QCOMPARE(QColor(blind.pixel(100, 8)), QColor(Qt::black));

        l.selector.setColorMatcher(new TavoLib::ColorMatcher);
        l.selector.SetRgb(255, 0, 0);
        l.selector.GetLab(L, A, B);
        QVERIFY(qAbs(L - 53.24) < 0.05 && qAbs(A - 80.09) < 0.05);
        // Dark at the low end, light at the high end, with a and b held.
        const QImage seen = l.selector.grab().toImage();
        QVERIFY(qGray(seen.pixel(6, 8)) < 60);
        QVERIFY(qGray(seen.pixel(262, 8)) > qGray(seen.pixel(134, 8)));
    }

    // A slider for the keyboard: arrows step by one, Page keys by a tenth of the range, Home
    // and End go to the ends; the wheel only with the focus; only the left button moves it.
    void keyboardWheelAndButtons()
    {
        Strip red(Selector::kRgbRed);
        red.selector.SetRgb(100, 0, 0);
        QSignalSpy values(&red.selector, &Selector::valueChanged);
        const auto redNow = [&red] {
            int r, g, b;
            red.selector.GetRgb(r, g, b);
            return r;
        };
        QTest::mouseClick(&red.selector, Qt::RightButton, {}, QPoint(266, 10));
        QTest::mousePress(&red.selector, Qt::MiddleButton, {}, QPoint(10, 10));
        QTest::mouseRelease(&red.selector, Qt::MiddleButton, {}, QPoint(10, 10));
        QCOMPARE(redNow(), 100);
        QVERIFY(red.selector.focusPolicy() & Qt::TabFocus);

        QWheelEvent up(QPointF(50, 10), red.selector.mapToGlobal(QPoint(50, 10)), QPoint(),
            QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&red.selector, &up);
        QCOMPARE(redNow(), 100); // not focused: the wheel goes to whatever holds the strip

        red.selector.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&red.selector));
        red.selector.setFocus();
        QTest::keyClick(&red.selector, Qt::Key_Right);
        QCOMPARE(redNow(), 101);
        QCOMPARE(values.count(), 1);
        QTest::keyClick(&red.selector, Qt::Key_Down);
        QCOMPARE(redNow(), 100);
        QTest::keyClick(&red.selector, Qt::Key_PageUp);
        QCOMPARE(redNow(), 125);
        QTest::keyClick(&red.selector, Qt::Key_End);
        QCOMPARE(redNow(), 255);
        QTest::keyClick(&red.selector, Qt::Key_Right); // at the end: nothing
        QCOMPARE(redNow(), 255);
        QTest::keyClick(&red.selector, Qt::Key_Home);
        QCOMPARE(redNow(), 0);
        QWheelEvent again(QPointF(50, 10), red.selector.mapToGlobal(QPoint(50, 10)), QPoint(),
            QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&red.selector, &again);
        QCOMPARE(redNow(), 1);

        // Hue wraps nothing: Home and End are its ends too.
        Strip hue(Selector::kHsvHue, true);
        hue.selector.setFocus();
        QTest::keyClick(&hue.selector, Qt::Key_End);
        int h, s, v;
        hue.selector.GetHsv(h, s, v);
        QCOMPARE(h, 359);
        QTest::keyClick(&hue.selector, Qt::Key_PageDown);
        hue.selector.GetHsv(h, s, v);
        QCOMPARE(h, 323);

        // Named and valued for assistive technology.
        QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&red.selector);
        QCOMPARE(face->role(), QAccessible::Slider);
        QCOMPARE(face->text(QAccessible::Name), QString("Red"));
        QVERIFY(face->valueInterface());
        QCOMPARE(face->valueInterface()->currentValue().toInt(), 1);
        QCOMPARE(face->valueInterface()->maximumValue().toInt(), 255);
    }

    // A matcher set later brings the other models in line at once.
    void aLaterMatcherSynchronises()
    {
        Strip l(Selector::kLabL);
        l.selector.SetRgb(200, 100, 50);
        const QImage blind = l.selector.grab().toImage();
        TAutoPtr<TavoLib::ColorMatcher> matcher(new TavoLib::ColorMatcher);
        l.selector.setColorMatcher(matcher);
        double L, A, B, l2, a2, b2;
        l.selector.GetLab(L, A, B);
        matcher->rgbToLab(200, 100, 50, l2, a2, b2);
        QCOMPARE(QList<double>({ L, A, B }), QList<double>({ l2, a2, b2 }));
        int r, g, b;
        l.selector.GetRgb(r, g, b);
        QCOMPARE(QList<int>({ r, g, b }), QList<int>({ 200, 100, 50 }));
        QVERIFY(l.selector.grab().toImage() != blind);
    }
};

TAVO_TEST(Ta_ColorComponentSelectorTest)
#include "Ta_ColorComponentSelectorTest.moc"
