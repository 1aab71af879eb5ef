// The popups on a real X server without a compositing manager, where windows cannot be
// translucent: what the screen shows just outside the body is the host window, not black.
// Run by run-under-xvfb.sh on a private Xvfb with the xcb platform.
#include "TestRegistry.h"
#include "menus/IconMenu.h"
#include "menus/MyComboBox.h"

#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <QTest>

class IconMenuXcbTest : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        if (QGuiApplication::platformName() != QLatin1String("xcb"))
            QSKIP("needs an X server: run through run-under-xvfb.sh");
        QVERIFY(!IconMenu::translucentWindows());
    }

    void outsideTheBodyShowsTheWindow_data()
    {
        QTest::addColumn<bool>("combo");
        QTest::newRow("combo popup") << true;
        QTest::newRow("menu popup with pointer") << false;
    }
    void outsideTheBodyShowsTheWindow()
    {
        QFETCH(bool, combo);
        const QColor colour(40, 120, 200);
        QWidget window;
        window.setGeometry(50, 50, 500, 400);
        QPalette palette = window.palette();
        palette.setColor(QPalette::Window, colour);
        window.setPalette(palette);
        window.setAutoFillBackground(true);
        auto *box = new MyComboBox(&window);
        box->setGeometry(20, 20, 200, 24);
        box->addItems({ QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three") });
        QMenu menu;
        menu.addAction(QStringLiteral("Open"));
        menu.addAction(QStringLiteral("Close"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));

        const QPoint tip = window.mapToGlobal(QPoint(250, 60));
        QPointer<IconMenu> popup;
        if (combo) {
            QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(30, 30));
            popup = box->popup();
        } else {
            IconMenuConfiguration config;
            config.noPointer = false;
            popup = new IconMenu(config, &menu, tip, &window, &window);
            popup->makePopupWindow();
            popup->show();
        }
        QVERIFY(popup);
        QVERIFY(popup->isShaped());
        QVERIFY(QTest::qWaitForWindowExposed(popup));

        const QRect g = popup->geometry();
        const IconMenuConfiguration config = popup->configuration();
        QImage screen;
        auto at = [&](int x, int y) { return screen.pixelColor(g.topLeft() + QPoint(x, y)); };
        // Painted once the body's middle differs from the window.
        QVERIFY(QTest::qWaitFor([&] {
            screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
            return at(g.width() / 2, g.height() / 2) != colour;
        }));
        // Where the shadow would be: beside and below the body.
        const int below = g.height() - 1 - int(config.shadowOffset / 2);
        QCOMPARE(at(g.width() / 2, below), colour);
        QCOMPARE(at(1, g.height() / 2), colour);
        QCOMPARE(at(g.width() - 2, g.height() / 2), colour);
        if (!combo) {
            // The pointer is part of the body; beside its tip is the window.
            const QPoint inPointer = tip + QPoint(0, config.pointerSize - 1);
            QVERIFY(screen.pixelColor(inPointer) != colour);
            QCOMPARE(screen.pixelColor(tip + QPoint(-config.pointerSize - 2, 2)), colour);
            QCOMPARE(screen.pixelColor(tip + QPoint(config.pointerSize + 2, 2)), colour);
        }
        popup->close();
    }
};

TAVO_TEST(IconMenuXcbTest)
#include "IconMenuXcbTest.moc"
