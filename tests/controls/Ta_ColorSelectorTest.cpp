// The colour picker as a user drives it: a strip clicked, a number typed, a colour typed in
// hexadecimal, and the model changed, with the colour kept throughout.
#include "TestRegistry.h"

#include "controls/Ta_ColorSelector.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QVBoxLayout>

namespace {
QList<QSpinBox *> visibleNumbers(const Ta_ColorSelector &selector)
{
    QList<QSpinBox *> shown;
    for (QSpinBox *box : selector.findChildren<QSpinBox *>())
        if (box->isVisibleTo(&selector))
            shown << box;
    return shown;
}
} // namespace

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

    // The hexadecimal field applies only what the user typed in it: a stale text never takes
    // back a colour chosen since, by a drag or by the host.
    void hexFieldNeverReappliesAStaleColour()
    {
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *selector = new Ta_ColorSelector;
        auto *ok = new QPushButton("OK");
        layout->addWidget(selector);
        layout->addWidget(ok);
        selector->setModel(Ta_ColorComponentSelector::RGB);
        selector->setColor(QColor(10, 20, 30));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QSignalSpy changed(selector, &Ta_ColorSelector::colorChanged);
        auto *hex = selector->findChild<QLineEdit *>();

        QTest::mouseClick(hex, Qt::LeftButton);
        QVERIFY(hex->hasFocus());
        auto *red = selector->findChildren<Ta_ColorComponentSelector *>().first();
        QTest::mousePress(red, Qt::LeftButton, {}, QPoint(red->width() / 2, 5));
        QMouseEvent drag(
            QEvent::MouseMove, QPointF(red->width() - 2, 5), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(red, &drag);
        QTest::mouseRelease(red, Qt::LeftButton, {}, QPoint(red->width() - 2, 5));
        QCOMPARE(selector->color(), QColor(255, 20, 30));
        ok->setFocus();
        QCOMPARE(selector->color(), QColor(255, 20, 30));
        QCOMPARE(hex->text(), QString("#ff141e"));

        hex->setFocus();
        selector->setColor(QColor(1, 2, 3));
        QCOMPARE(hex->text(), QString("#010203"));
        ok->setFocus();
        QCOMPARE(selector->color(), QColor(1, 2, 3));
        QCOMPARE(changed.last().at(0).value<QColor>(), QColor(255, 20, 30));
    }

    // A host may change the model from its colorChanged handler, under a strip's click or a
    // number's change.
    void hostChangesTheModelFromItsHandler()
    {
        Ta_ColorSelector selector;
        selector.setModel(Ta_ColorComponentSelector::RGB);
        selector.setColor(Qt::black);
        selector.resize(400, 200);
        selector.show();
        QVERIFY(QTest::qWaitForWindowExposed(&selector));
        connect(&selector, &Ta_ColorSelector::colorChanged, &selector, [&selector] {
            selector.setModel(selector.model() == Ta_ColorComponentSelector::RGB
                    ? Ta_ColorComponentSelector::HSV
                    : Ta_ColorComponentSelector::RGB);
        });
        auto *strip = selector.findChildren<Ta_ColorComponentSelector *>().first();
        QTest::mouseClick(strip, Qt::LeftButton, {}, QPoint(strip->width() - 2, 5));
        QCOMPARE(selector.model(), Ta_ColorComponentSelector::HSV);
        QCOMPARE(selector.color(), QColor(255, 0, 0));
        QCoreApplication::processEvents();
        visibleNumbers(selector)[2]->setValue(100);
        QCOMPARE(selector.model(), Ta_ColorComponentSelector::RGB);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(selector.findChildren<Ta_ColorComponentSelector *>().size(), 3);
    }

    // In the CMYK and Lab models the host sets and reads the model's own numbers.
    void theColourInItsModel()
    {
        Ta_ColorSelector selector;
        selector.setModel(Ta_ColorComponentSelector::CMYK);
        selector.setColor(QColor::fromCmyk(10, 20, 30, 40));
        const QColor got = selector.color();
        QCOMPARE(got, got.toCmyk()); // held as CMYK
        QCOMPARE(QList<int>({ got.cyan(), got.magenta(), got.yellow(), got.black() }),
            QList<int>({ 10, 20, 30, 40 }));
        QCOMPARE(selector.oldColor(), QColor::fromCmyk(10, 20, 30, 40));
        QList<int> shown;
        for (QSpinBox *box : visibleNumbers(selector))
            shown << box->value();
        QCOMPARE(shown, QList<int>({ 10, 20, 30, 40 }));

        // The user's change reaches the host in CMYK too.
        selector.resize(400, 200);
        selector.show();
        QVERIFY(QTest::qWaitForWindowExposed(&selector));
        QSignalSpy changed(&selector, &Ta_ColorSelector::colorChanged);
        visibleNumbers(selector)[3]->setValue(50);
        const QColor sent = changed.last().at(0).value<QColor>();
        QCOMPARE(sent, sent.toCmyk());
        QCOMPARE(QList<int>({ sent.cyan(), sent.magenta(), sent.yellow(), sent.black() }),
            QList<int>({ 10, 20, 30, 50 }));

        selector.setModel(Ta_ColorComponentSelector::Lab);
        selector.setLab(50.25, 10.5, -20.75);
        double l, a, b;
        selector.lab(l, a, b);
        QCOMPARE(QList<double>({ l, a, b }), QList<double>({ 50.25, 10.5, -20.75 }));
        QCOMPARE(selector.color(), selector.color().toRgb()); // held as RGB
    }

    // Tab runs down the rows and then to the hexadecimal field; every field is named.
    void tabOrderAndNames()
    {
        Ta_ColorSelector selector;
        selector.setModel(Ta_ColorComponentSelector::CMYK);
        selector.show();
        QVERIFY(QTest::qWaitForWindowExposed(&selector));
        auto *combo = selector.findChild<QComboBox *>();
        combo->setFocus();
        QStringList names;
        for (int i = 0; i < 9; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QWidget *focused = QApplication::focusWidget();
            QVERIFY(focused);
            names << QString::fromLatin1(focused->metaObject()->className());
        }
        QCOMPARE(names,
            QStringList({ "Ta_ColorComponentSelector", "QSpinBox", "Ta_ColorComponentSelector",
                "QSpinBox", "Ta_ColorComponentSelector", "QSpinBox", "Ta_ColorComponentSelector",
                "QSpinBox", "QLineEdit" }));
        for (QLabel *label : selector.findChildren<QLabel *>()) {
            if (!label->text().isEmpty())
                QVERIFY2(qobject_cast<QSpinBox *>(label->buddy()), qPrintable(label->text()));
        }
        QVERIFY(!QAccessible::queryAccessibleInterface(selector.findChild<QLineEdit *>())
                     ->text(QAccessible::Name)
                     .isEmpty());
    }
};

TAVO_TEST(Ta_ColorSelectorTest)
#include "Ta_ColorSelectorTest.moc"
