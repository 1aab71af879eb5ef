// The palette title bar and its window buttons: dragging moves the window, a double click,
// the collapse button or Space collapse it to the bar and back, Ctrl+arrows move it, close
// and float act on the window or dock widget; the buttons draw their glyphs at ratio 1 and 2.
#include "widgets/OmaTitleBar.h"
#include "style/Device.h"
#include "widgets/WindowButton.h"
#include "TestRegistry.h"
#include "TitleBarPalette.h"

#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QPainter>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

namespace {

// The shared palette, active as a user's window would be.
struct Palette : TitleBarPalette
{
    Palette() { QApplication::setActiveWindow(&window); }
};

void sendMouse(QWidget *widget, QEvent::Type type, const QPoint &global, Qt::MouseButtons buttons)
{
    QMouseEvent event(type, widget->mapFromGlobal(global), global,
        type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

int darkPixels(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
    return count;
}

} // namespace

class OmaTitleBarTest : public QObject
{
    Q_OBJECT
private slots:
    void dragAndCollapse()
    {
        Palette p;
        QVERIFY(QTest::qWaitForWindowExposed(&p.window));
        QCOMPARE(p.bar->title(), QStringLiteral("Swatches"));
        p.window.setWindowTitle(QStringLiteral("Colours"));
        QCOMPARE(p.bar->title(), QStringLiteral("Colours"));

        const QPoint start = p.window.pos();
        const QPoint grip = p.bar->mapToGlobal(QPoint(20, 5));
        // A click that wavers a little is no drag.
        sendMouse(p.bar, QEvent::MouseButtonPress, grip, Qt::LeftButton);
        sendMouse(p.bar, QEvent::MouseMove, grip + QPoint(2, 1), Qt::LeftButton);
        sendMouse(p.bar, QEvent::MouseButtonRelease, grip + QPoint(2, 1), Qt::NoButton);
        QCOMPARE(p.window.pos(), start);
        sendMouse(p.bar, QEvent::MouseButtonPress, grip, Qt::LeftButton);
        sendMouse(p.bar, QEvent::MouseMove, grip + QPoint(30, 15), Qt::LeftButton);
        sendMouse(p.bar, QEvent::MouseMove, grip + QPoint(50, 25), Qt::LeftButton);
        sendMouse(p.bar, QEvent::MouseButtonRelease, grip + QPoint(50, 25), Qt::NoButton);
        QCOMPARE(p.window.pos(), start + QPoint(50, 25));

        QSignalSpy collapsed(p.bar, &OmaTitleBar::collapsedChanged);
        QTest::mouseDClick(p.bar, Qt::LeftButton, {}, QPoint(20, 5));
        QVERIFY(p.bar->isCollapsed());
        QVERIFY(!p.content->isVisible());
        QCOMPARE(p.window.height(), p.bar->height());
        QVERIFY(p.bar->button(OmaTitleBar::CollapseButton)->isChecked());
        QCOMPARE(p.bar->button(OmaTitleBar::CollapseButton)->accessibleName(),
            QStringLiteral("Expand"));
        QTest::mouseClick(p.bar->button(OmaTitleBar::CollapseButton), Qt::LeftButton);
        QVERIFY(!p.bar->isCollapsed());
        QVERIFY(p.content->isVisible());
        QCOMPARE(p.window.height(), 200);
        QCOMPARE(collapsed.count(), 2);
    }

    void byKeyboard()
    {
        Palette p;
        QVERIFY(QTest::qWaitForWindowActive(&p.window));
        QPointer<QWidget> window(&p.window);
        // Tab order: the field, then the bar, its buttons from the left.
        p.content->setFocus();
        QTest::keyClick(p.content, Qt::Key_Tab);
        QVERIFY(p.bar->hasFocus());
        QTest::keyClick(p.bar, Qt::Key_Space);
        QVERIFY(p.bar->isCollapsed());
        QTest::keyClick(p.bar, Qt::Key_Return);
        QVERIFY(!p.bar->isCollapsed());
        const QPoint start = p.window.pos();
        QTest::keyClick(p.bar, Qt::Key_Right, Qt::ControlModifier);
        QTest::keyClick(p.bar, Qt::Key_Up, Qt::ControlModifier);
        // Ten pixels at 96 dpi, scaled like every other length.
        const int step = int(TavoLib::Device::scale(10.0));
        QCOMPARE(p.window.pos(), start + QPoint(step, -step));
        QTest::keyClick(p.bar, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), p.bar->button(OmaTitleBar::CollapseButton));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), p.bar->button(OmaTitleBar::FloatButton));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        WindowButton *close = p.bar->button(OmaTitleBar::CloseButton);
        QCOMPARE(QApplication::focusWidget(), close);
        QCOMPARE(close->accessibleName(), QStringLiteral("Close"));
        QTest::keyClick(close, Qt::Key_Space);
        QVERIFY(!p.window.isVisible());
    }

    void floatsItsDockWidget()
    {
        QMainWindow main;
        auto *dock = new QDockWidget(QStringLiteral("Layers"), &main);
        auto *bar = new OmaTitleBar(dock);
        bar->setButtons(OmaTitleBar::FloatButton | OmaTitleBar::CloseButton);
        dock->setTitleBarWidget(bar);
        dock->setWidget(new QTextEdit);
        main.addDockWidget(Qt::LeftDockWidgetArea, dock);
        main.show();
        QVERIFY(QTest::qWaitForWindowExposed(&main));
        QVERIFY(!bar->button(OmaTitleBar::CollapseButton)->isVisible());
        QSignalSpy floated(bar, &OmaTitleBar::floatClicked);
        QTest::mouseClick(bar->button(OmaTitleBar::FloatButton), Qt::LeftButton);
        QVERIFY(dock->isFloating());
        QCOMPARE(floated.count(), 1);
        QCOMPARE(bar->title(), QStringLiteral("Layers"));
    }

    void buttonsDrawTheirGlyphs()
    {
        for (auto type : { WindowButton::CloseButton, WindowButton::CollapseButton,
                 WindowButton::FloatButton }) {
            WindowButton button(type);
            button.resize(button.sizeHint());
            QCOMPARE(button.sizeHint(), TavoLib::Device::scaleSize(QSize(16, 16)));
            const qreal screenRatio = button.devicePixelRatioF();
            const auto renderedDark = [&button](qreal ratio) {
                QPixmap pixmap((QSizeF(button.size()) * ratio).toSize());
                pixmap.setDevicePixelRatio(ratio);
                pixmap.fill(Qt::white);
                button.render(&pixmap);
                return darkPixels(pixmap.toImage());
            };
            int previous = 0;
            for (qreal ratio : { 1.0, 2.0 }) {
                // A glyph, and at ratio 2 one that fills the device's pixels (lines twice as
                // long and thick), not the ratio 1 drawing in a corner.
                const int dark = renderedDark(ratio);
                QVERIFY(dark > 4);
                if (previous)
                    QVERIFY2(dark > previous * 2,
                        qPrintable(QStringLiteral("%1 then %2").arg(previous).arg(dark)));
                previous = dark;
            }
            const int atScreenRatio = renderedDark(screenRatio);
            // Grabbed from the widget at the screen's ratio (run at 1 and 2), the same drawing.
            const QPixmap grabbed = button.grab();
            QCOMPARE(grabbed.devicePixelRatio(), screenRatio);
            QImage image(grabbed.size(), QImage::Format_ARGB32);
            image.setDevicePixelRatio(screenRatio);
            image.fill(Qt::white);
            QPainter(&image).drawImage(0, 0, grabbed.toImage());
            QCOMPARE(darkPixels(image), atScreenRatio);
        }
    }
};

TAVO_TEST(OmaTitleBarTest)
#include "OmaTitleBarTest.moc"
