// The click frame: a click released inside, or Space/Return/Enter with the focus, is one
// clicked(); a release outside, other buttons, keys with modifiers are none.
#include "widgets/Ta_ClickFrame.h"
#include "TestRegistry.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

class Ta_ClickFrameTest : public QObject
{
    Q_OBJECT
private slots:
    void clicksAndKeys()
    {
        QWidget window;
        auto *before = new QWidget(&window);
        before->setFocusPolicy(Qt::StrongFocus);
        auto *frame = new Ta_ClickFrame(&window);
        frame->setGeometry(10, 10, 60, 40);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QSignalSpy clicked(frame, &Ta_ClickFrame::clicked);

        QTest::mouseClick(frame, Qt::LeftButton);
        QCOMPARE(clicked.count(), 1);
        QVERIFY(frame->hasFocus());
        QTest::mouseClick(frame, Qt::RightButton);
        QTest::mousePress(frame, Qt::LeftButton);
        QVERIFY(frame->isDown());
        QTest::mouseRelease(frame, Qt::LeftButton, {}, QPoint(-5, -5));
        QVERIFY(!frame->isDown());
        QCOMPARE(clicked.count(), 1);

        // By keyboard alone: Tab reaches it, the three keys click, Ctrl+Return does not.
        before->setFocus();
        QTest::keyClick(&window, Qt::Key_Tab);
        QVERIFY(frame->hasFocus());
        QTest::keyClick(frame, Qt::Key_Space);
        QTest::keyClick(frame, Qt::Key_Return);
        QTest::keyClick(frame, Qt::Key_Enter, Qt::KeypadModifier);
        QTest::keyClick(frame, Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(clicked.count(), 4);
    }

    void aHandlerMayDeleteTheFrame()
    {
        QPointer<Ta_ClickFrame> frame = new Ta_ClickFrame;
        frame->resize(40, 40);
        frame->show();
        QSignalSpy doubled(frame.data(), &Ta_ClickFrame::doubleClicked);
        QTest::mouseDClick(frame, Qt::LeftButton);
        QCOMPARE(doubled.count(), 1);
        connect(frame, &Ta_ClickFrame::clicked, [&frame] { delete frame; });
        QTest::mouseClick(frame, Qt::LeftButton);
        QVERIFY(!frame);
    }
};

TAVO_TEST(Ta_ClickFrameTest)
#include "Ta_ClickFrameTest.moc"
