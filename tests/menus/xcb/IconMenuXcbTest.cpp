// The popups on an X server without a compositing manager, where windows cannot be
// translucent: the screen shows the host window just outside the body, not black.
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
        window.setPalette(QPalette(colour));
        window.setAutoFillBackground(true);
        auto *box = new MyComboBox(&window);
        box->setGeometry(20, 20, 200, 24);
        box->addItems({ QStringLiteral("One"), QStringLiteral("Two") });
        QMenu menu;
        menu.addAction(QStringLiteral("Open"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));

        const QPoint tip = window.mapToGlobal(QPoint(250, 60));
        IconMenuConfiguration config;
        config.noPointer = false;
        QPointer<IconMenu> popup;
        if (combo) {
            QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(30, 30));
            popup = box->popup();
        } else {
            popup = new IconMenu(config, &menu, tip, &window, &window);
            popup->makePopupWindow();
            popup->show();
        }
        QVERIFY(popup && popup->isShaped() && QTest::qWaitForWindowExposed(popup));

        // The screen, once the body's middle is painted.
        const QRect g = popup->geometry();
        QImage screen;
        QVERIFY(QTest::qWaitFor([&] {
            screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
            return screen.pixelColor(g.center()) != colour;
        }));
        // Where the shadow would be: beside and below the body, beside the pointer's tip.
        const int offset = int(popup->configuration().shadowOffset / 2);
        QCOMPARE(screen.pixelColor(g.center().x(), g.bottom() - offset), colour);
        QCOMPARE(screen.pixelColor(g.left() + 1, g.center().y()), colour);
        QCOMPARE(screen.pixelColor(g.right() - 1, g.center().y()), colour);
        if (!combo) {
            QVERIFY(screen.pixelColor(tip + QPoint(0, config.pointerSize - 1)) != colour);
            QCOMPARE(screen.pixelColor(tip + QPoint(-config.pointerSize - 2, 2)), colour);
            QCOMPARE(screen.pixelColor(tip + QPoint(config.pointerSize + 2, 2)), colour);
        }
        popup->close();
    }
};

TAVO_TEST(IconMenuXcbTest)
#include "IconMenuXcbTest.moc"
