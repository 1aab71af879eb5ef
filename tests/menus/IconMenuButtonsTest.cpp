// The buttons that open icon menus: tool button sizes, taking over the chosen action, and the
// menu bar strip with its submenus, driven by mouse and key events.
#include "MenuTestHelpers.h"
#include "TestRegistry.h"
#include "menus/IconMenu.h"
#include "menus/IconMenuBarView.h"
#include "menus/IconMenuToolButton.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <memory>

using namespace MenuTest;

class IconMenuButtonsTest : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { QVERIFY2(noPopupLeft(), "a popup outlived its test"); }

    void toolButtonWidthsFollowTheMenu()
    {
        QMenu menu;
        IconMenuToolButton framed(IconMenuToolButton::StyleType1, IconMenuToolButton::ResultType0);
        QCOMPARE(framed.height(), 22);
        QCOMPARE(framed.width(), 24);
        framed.setMenu(&menu);
        QCOMPARE(framed.width(), 40);
        framed.setMenu(nullptr);
        QCOMPARE(framed.width(), 24);

        IconMenuToolButton bare(IconMenuToolButton::StyleType0, IconMenuToolButton::ResultType0);
        QCOMPARE(bare.width(), 28);
        bare.setMenu(&menu);
        QCOMPARE(bare.width(), 28);
        bare.setMenu(nullptr);
        QCOMPARE(bare.width(), 22);
    }

    void chosenActionBecomesDefault_data()
    {
        QTest::addColumn<int>("result");
        QTest::newRow("takes over") << 1;
        QTest::newRow("keeps its action") << 0;
    }
    void chosenActionBecomesDefault()
    {
        QFETCH(int, result);
        QWidget window;
        window.setGeometry(50, 50, 200, 100);
        auto *button = new IconMenuToolButton(
            IconMenuToolButton::StyleType1, IconMenuToolButton::ResultType(result), &window);
        button->move(10, 10);
        QMenu menu;
        QAction *a = menu.addAction(filled(Qt::red), QStringLiteral("A"));
        QAction *b = menu.addAction(filled(Qt::blue), QStringLiteral("B"));
        QAction *c = menu.addAction(QStringLiteral("C"));
        a->setCheckable(true);
        b->setCheckable(true);
        button->setMenu(&menu);
        button->setDefaultAction(a);
        a->setChecked(true);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));

        auto choose = [&](int row) {
            QTest::mouseClick(
                window.windowHandle(), Qt::LeftButton, {}, button->mapTo(&window, QPoint(5, 5)));
            IconMenu *popup = button->popup();
            QVERIFY(popup);
            // Opened under the button, at its left edge.
            QCOMPARE(popup->geometry().top(), button->mapToGlobal(QPoint(0, button->height())).y());
            QTest::mouseClick(popup->windowHandle(), Qt::LeftButton, {}, rowCentre(popup, row));
            flushDeletes();
            QVERIFY(!button->popup());
        };
        choose(1);
        if (result == 1) {
            QCOMPARE(button->defaultAction(), b);
            QVERIFY(!a->isChecked());
            QVERIFY(b->isChecked());
            QCOMPARE(button->icon().cacheKey(), b->icon().cacheKey());
        } else {
            QCOMPARE(button->defaultAction(), a);
            QCOMPARE(button->icon().cacheKey(), a->icon().cacheKey());
        }
        // A second opening does not connect twice: one choice, one change.
        QSignalSpy triggered(&menu, &QMenu::triggered);
        choose(0);
        QCOMPARE(triggered.count(), 1);
        QCOMPARE(button->defaultAction(), a);
        if (result == 1) {
            QVERIFY(!b->isChecked());
            // The current default chosen again stays checked; a plain action stays plain.
            choose(0);
            QCOMPARE(button->defaultAction(), a);
            QVERIFY(a->isChecked());
            choose(2);
            QCOMPARE(button->defaultAction(), c);
            QVERIFY(!a->isChecked() && !c->isCheckable());
        }
    }

    void secondPressClosesToolButtonMenu()
    {
        QWidget window;
        auto *button = new IconMenuToolButton(
            IconMenuToolButton::StyleType0, IconMenuToolButton::ResultType0, &window);
        QMenu menu;
        menu.addAction(QStringLiteral("A"));
        button->setMenu(&menu);
        window.show();
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
        QPointer<IconMenu> popup = button->popup();
        QVERIFY(popup);
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
        flushDeletes();
        QVERIFY(!popup);
        QVERIFY(!button->popup());
    }

    void menuBarOpensAndFollows()
    {
        QWidget window;
        window.setGeometry(0, 0, 600, 200);
        QMenu root;
        QMenu *file = root.addMenu(filled(Qt::red), QStringLiteral("File"));
        file->addAction(QStringLiteral("Open"));
        QAction *plain = root.addAction(QStringLiteral("Plain"));
        root.addSeparator();
        QMenu *edit = root.addMenu(QStringLiteral("Edit"));
        edit->addAction(QStringLiteral("Copy"));
        auto *bar = new IconMenuBarView(&root, nullptr, &window);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(bar->model()->rowCount(), 4);
        QCOMPARE(bar->visualRect(bar->model()->index(2, 0)).width(), 10);

        auto centre = [&](int row) {
            return bar->viewport()->mapTo(
                &window, bar->visualRect(bar->model()->index(row, 0)).center());
        };
        QWindow *handle = window.windowHandle();
        QTest::mousePress(handle, Qt::LeftButton, {}, centre(0));
        QTest::mouseRelease(handle, Qt::LeftButton, {}, centre(0));
        QPointer<IconMenu> popup = bar->popup();
        QVERIFY(popup);
        QCOMPARE(bar->currentSubMenuIndex().row(), 0);
        QVERIFY(!popup->configuration().noPointer);

        // Over an entry without a submenu the popup stays; over another submenu it follows.
        QTest::mouseMove(handle, centre(1));
        QCOMPARE(bar->popup(), popup.data());
        QTest::mouseMove(handle, centre(3));
        flushDeletes();
        QVERIFY(!popup);
        popup = bar->popup();
        QVERIFY(popup);
        QCOMPARE(bar->currentSubMenuIndex().row(), 3);

        // Left in the popup goes back to the previous entry with a submenu.
        QTest::keyClick(popup, Qt::Key_Left);
        flushDeletes();
        QVERIFY(!popup);
        popup = bar->popup();
        QVERIFY(popup);
        QCOMPARE(bar->currentSubMenuIndex().row(), 0);

        // A second press on the open entry closes it.
        QTest::mousePress(handle, Qt::LeftButton, {}, centre(0));
        QTest::mouseRelease(handle, Qt::LeftButton, {}, centre(0));
        flushDeletes();
        QVERIFY(!popup);
        QVERIFY(!bar->currentSubMenuIndex().isValid());

        // A plain entry fires on release over itself, not over another entry.
        QSignalSpy fired(plain, &QAction::triggered);
        QTest::mousePress(handle, Qt::LeftButton, {}, centre(1));
        QTest::mouseRelease(handle, Qt::LeftButton, {}, centre(3));
        QCOMPARE(fired.count(), 0);
        flushDeletes();
        if (bar->popup())
            bar->popup()->close();
        QTest::mouseClick(handle, Qt::LeftButton, {}, centre(1));
        QCOMPARE(fired.count(), 1);
    }

    void menuBarElidesLongTexts()
    {
        QMenu root;
        root.addAction(QStringLiteral("A rather long entry name..."));
        IconMenuBarView bar(&root, nullptr);
        bar.setAttribute(Qt::WA_DeleteOnClose, false);
        bar.show();
        QVERIFY(!bar.grab().isNull());
    }
};

TAVO_TEST(IconMenuButtonsTest)
#include "IconMenuButtonsTest.moc"
