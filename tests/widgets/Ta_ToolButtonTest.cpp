// The library's tool button: "COLORIZEICON" recolours the icon in the button text colour at
// ratio 1 and 2, and the arrow opens the menu as an IconMenu by mouse and keyboard, while
// the rest of the button clicks.
#include "widgets/Ta_ToolButton.h"
#include "TestRegistry.h"

#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QSignalSpy>
#include <QStyleFactory>
#include <QTest>

namespace {

QIcon redSquare()
{
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.fillRect(4, 4, 24, 24, Qt::red);
    return QIcon(pixmap);
}

// The button drawn at `ratio`, as an image in device pixels.
QImage drawn(QWidget *button, qreal ratio)
{
    QPixmap pixmap(button->size() * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::white);
    button->render(&pixmap);
    return pixmap.toImage();
}

void closePopups()
{
    for (QWidget *w : QApplication::topLevelWidgets())
        if (qobject_cast<IconMenu *>(w))
            w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class Ta_ToolButtonTest : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { closePopups(); }

    void colorizesAsAsked()
    {
        QScopedPointer<QStyle> fusion(QStyleFactory::create(QStringLiteral("Fusion")));
        Ta_ToolButton button;
        button.setStyle(fusion.data());
        button.setIcon(redSquare());
        button.setIconSize(QSize(16, 16));
        button.resize(28, 28);
        QPalette palette = button.palette();
        palette.setColor(QPalette::ButtonText, QColor(0, 0, 160));
        button.setPalette(palette);
        QCOMPARE(button.property("COLORIZEICON").toBool(), true);
        for (qreal ratio : { 1.0, 2.0 }) {
            const QPoint centre = QPoint(14, 14) * ratio;
            QCOMPARE(drawn(&button, ratio).pixelColor(centre), QColor(0, 0, 160));
            // Sharp at ratio 2: the icon's edge falls between two device pixels.
            const QImage image = drawn(&button, ratio);
            const int edge = int((14 - 6) * ratio); // left edge of the 12 px square
            QCOMPARE(image.pixelColor(edge, centre.y()), QColor(0, 0, 160));
            QVERIFY(image.pixelColor(edge - 1, centre.y()) != QColor(0, 0, 160));
        }
        // Grabbed at the screen's ratio (run at 1 and 2): recoloured and sharp there too.
        const qreal ratio = button.devicePixelRatioF();
        const QImage grabbed = button.grab().toImage();
        QCOMPARE(grabbed.pixelColor(QPoint(14, 14) * ratio), QColor(0, 0, 160));
        QCOMPARE(grabbed.pixelColor(int(8 * ratio), int(14 * ratio)), QColor(0, 0, 160));
        QVERIFY(grabbed.pixelColor(int(8 * ratio) - 1, int(14 * ratio)) != QColor(0, 0, 160));
        button.setColorizeIcon(false);
        QCOMPARE(drawn(&button, 1.0).pixelColor(14, 14), QColor(Qt::red));
        button.setProperty("COLORIZEICON", true);
        button.setEnabled(false);
        QCOMPARE(drawn(&button, 1.0).pixelColor(14, 14),
            palette.color(QPalette::Disabled, QPalette::ButtonText));
    }

    void arrowOpensTheIconMenu()
    {
        QWidget window;
        auto *button = new Ta_ToolButton(&window);
        button->setIcon(redSquare());
        QMenu menu;
        QAction *first = menu.addAction(QStringLiteral("First"));
        QAction *second = menu.addAction(QStringLiteral("Second"));
        const int plainWidth = button->sizeHint().width();
        button->setIconMenu(&menu);
        QVERIFY(button->sizeHint().width() > plainWidth);
        button->resize(button->sizeHint());
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QSignalSpy clicked(button, &QToolButton::clicked);
        QSignalSpy chosen(&menu, &QMenu::triggered);

        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(4, button->height() / 2));
        QCOMPARE(clicked.count(), 1);
        QVERIFY(!button->popup());
        QTest::mousePress(button, Qt::LeftButton, {}, button->arrowRect().center());
        QVERIFY(button->popup());
        QCOMPARE(button->popup()->y(), button->mapToGlobal(QPoint(0, button->height())).y());
        QTest::mouseRelease(button, Qt::LeftButton, {}, button->arrowRect().center());
        QTest::keyClick(button->popup(), Qt::Key_Escape);
        QTRY_VERIFY(!button->popup());
        QCOMPARE(clicked.count(), 1);

        // By keyboard: Alt+Down opens, Down and Return choose.
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Down, Qt::AltModifier);
        QVERIFY(button->popup());
        IconMenu *popup = button->popup();
        popup->setCurrentIndex(popup->model()->index(0, 0));
        QTest::keyClick(popup, Qt::Key_Down);
        QTest::keyClick(popup, Qt::Key_Return);
        QTRY_VERIFY(!button->popup());
        QCOMPARE(chosen.count(), 1);
        QCOMPARE(chosen.at(0).at(0).value<QAction *>(), second);
        Q_UNUSED(first);

        // Instant popup: Space opens it; a menu the host deletes takes the arrow away.
        button->setPopupMode(QToolButton::InstantPopup);
        QTest::keyClick(button, Qt::Key_Space);
        QVERIFY(button->popup());
        closePopups();
        QMenu *gone = new QMenu;
        gone->addAction(QStringLiteral("x"));
        button->setIconMenu(gone);
        delete gone;
        QVERIFY(button->arrowRect().isEmpty());
        QTest::keyClick(button, Qt::Key_F4);
        QVERIFY(!button->popup());
    }
};

TAVO_TEST(Ta_ToolButtonTest)
#include "Ta_ToolButtonTest.moc"
