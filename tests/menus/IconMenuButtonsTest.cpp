// The buttons that open icon menus: the tool button taking over the chosen action, and the
// menu bar strip with its submenus, driven by mouse and key events.
#include "MenuTestHelpers.h"
#include "TestRegistry.h"
#include "menus/IconMenuBarView.h"
#include "menus/IconMenuToolButton.h"

#include <QMenu>
#include <QSignalSpy>

using namespace MenuTest;

class IconMenuButtonsTest : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { QVERIFY2(noPopupLeft(), "a popup outlived its test"); }

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
        auto *button = new IconMenuToolButton(
            IconMenuToolButton::StyleType1, IconMenuToolButton::ResultType(result), &window);
        const int narrow = button->width();
        QMenu menu;
        QAction *a = menu.addAction(filled(Qt::red), QStringLiteral("A"));
        QAction *b = menu.addAction(filled(Qt::blue), QStringLiteral("B"));
        QAction *c = menu.addAction(QStringLiteral("C"));
        a->setCheckable(true);
        b->setCheckable(true);
        a->setChecked(true);
        button->setMenu(&menu);
        QVERIFY(button->width() > narrow); // room for the arrow
        button->setDefaultAction(a);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));

        auto choose = [&](int row) {
            QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
            IconMenu *popup = button->popup();
            QVERIFY(popup);
            QCOMPARE(popup->y(), button->mapToGlobal(QPoint(0, button->height())).y());
            QTest::mouseClick(popup->windowHandle(), Qt::LeftButton, {}, rowCentre(popup, row));
            flushDeletes();
        };
        choose(1);
        QCOMPARE(button->defaultAction(), result == 1 ? b : a);
        QCOMPARE(button->icon().cacheKey(), button->defaultAction()->icon().cacheKey());
        QCOMPARE(a->isChecked(), result != 1);
        choose(0);
        QCOMPARE(button->defaultAction(), a);
        if (result == 1) {
            QVERIFY(!b->isChecked());
            // The current default chosen again stays checked; a plain action stays plain.
            choose(0);
            QVERIFY(a->isChecked());
            choose(2);
            QCOMPARE(button->defaultAction(), c);
            QVERIFY(!a->isChecked() && !c->isCheckable());
        }
        button->setMenu(nullptr);
        QCOMPARE(button->width(), narrow);
    }

    void menuBarOpensAndFollows()
    {
        QWidget window;
        window.setGeometry(0, 0, 600, 200);
        QMenu root;
        root.addMenu(filled(Qt::red), QStringLiteral("File"))->addAction(QStringLiteral("Open"));
        QAction *plain = root.addAction(QStringLiteral("Plain"));
        root.addSeparator();
        root.addMenu(QStringLiteral("Edit"))->addAction(QStringLiteral("Copy"));
        auto *bar = new IconMenuBarView(&root, nullptr, &window);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));

        auto centre = [&](int row) {
            return bar->viewport()->mapTo(
                &window, bar->visualRect(bar->model()->index(row, 0)).center());
        };
        QWindow *handle = window.windowHandle();
        QTest::mouseClick(handle, Qt::LeftButton, {}, centre(0));
        QPointer<IconMenu> popup = bar->popup();
        QVERIFY(popup && !popup->configuration().noPointer);
        QCOMPARE(bar->currentSubMenuIndex().row(), 0);
        // Over an entry without a submenu the popup stays; over another submenu it follows.
        QTest::mouseMove(handle, centre(1));
        QCOMPARE(bar->popup(), popup.data());
        QTest::mouseMove(handle, centre(3));
        QCOMPARE(bar->currentSubMenuIndex().row(), 3);
        // Left in the popup goes back to the previous entry with a submenu.
        QTest::keyClick(bar->popup(), Qt::Key_Left);
        QCOMPARE(bar->currentSubMenuIndex().row(), 0);
        // A second press on the open entry closes it.
        QTest::mouseClick(handle, Qt::LeftButton, {}, centre(0));
        flushDeletes();
        QVERIFY(!bar->popup() && !bar->currentSubMenuIndex().isValid());

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
};

TAVO_TEST(IconMenuButtonsTest)
#include "IconMenuButtonsTest.moc"
