// The popup list driven through real mouse, wheel and key events on the offscreen screen
// (800 x 600): placement, scrolling, rows, accepting an item, closing, shadow or mask.
#include "MenuTestHelpers.h"
#include "TestRegistry.h"
#include "menus/IconMenuDelegate.h"
#include "menus/MyComboBox.h"

#include <QMenu>
#include <QScreen>
#include <QSignalSpy>
#include <memory>

using namespace MenuTest;

class IconMenuTest : public QObject
{
    Q_OBJECT
    std::unique_ptr<QWidget> mWindow;
    MyComboBox *mCombo = nullptr;
    const QPoint mOnCombo { 30, 32 };

    // A window at (100, 100) holding a combo box of `rows` rows at `current`.
    void makeCombo(int rows, int current)
    {
        mWindow = std::make_unique<QWidget>();
        mWindow->setGeometry(100, 100, 300, 200);
        mCombo = new MyComboBox(mWindow.get());
        mCombo->setGeometry(20, 20, 200, 24);
        for (int i = 0; i < rows; ++i)
            mCombo->addItem(QStringLiteral("Item %1").arg(i));
        mCombo->setCurrentIndex(current);
        mWindow->show();
        QVERIFY(QTest::qWaitForWindowExposed(mWindow.get()));
    }
    IconMenu *openComboPopup()
    {
        QTest::mouseClick(mWindow->windowHandle(), Qt::LeftButton, {}, mOnCombo);
        return mCombo->popup();
    }
    // What is shown plus what is hidden above and below.
    static int content(IconMenu *p) { return p->height() + p->hiddenTop() + p->hiddenBottom(); }
    static void wheel(IconMenu *popup, const QPoint &pos, int delta)
    {
        QWheelEvent event(pos, popup->viewport()->mapToGlobal(pos), QPoint(), QPoint(0, delta),
            Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(popup->viewport(), &event);
    }

private slots:
    void cleanup()
    {
        mWindow.reset();
        QVERIFY2(noPopupLeft(), "a popup outlived its test");
    }

    void comboRowFarDownLiesOverTheCombo()
    {
        makeCombo(40, 30);
        IconMenu *popup = openComboPopup();
        // 30 rows above the current one do not fit above the combo box.
        QVERIFY(popup && popup->isVisible() && popup->hiddenTop() > 0);
        const QRect row = popup->visualRect(popup->model()->index(30, 0));
        QCOMPARE(popup->viewport()->mapToGlobal(row.topLeft()).y(), mCombo->mapToGlobal(QPoint()).y());
        // The first Down marks the current row; the next one moves.
        QTest::keyClick(popup, Qt::Key_Down);
        QCOMPARE(popup->currentIndex().row(), 30);
        QVERIFY(popup->selectionModel()->isSelected(popup->currentIndex()));
        QTest::keyClick(popup, Qt::Key_Down);
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(mCombo->currentIndex(), 31);
    }

    void tallPopupScrollsByHoverAndWheel()
    {
        makeCombo(40, 0);
        IconMenu *popup = openComboPopup();
        const int total = content(popup);
        const int hidden = popup->hiddenBottom();
        QVERIFY(popup->hiddenTop() == 0 && hidden > 0);
        const QPoint pos = rowCentre(popup, 3);
        wheel(popup, pos, -360);
        QCOMPARE(popup->hiddenBottom(), hidden - 60);
        // Less than a notch scrolls nothing but still follows the pointer.
        popup->selectionModel()->clearCurrentIndex();
        wheel(popup, pos, -60);
        QCOMPARE(popup->hiddenBottom(), hidden - 60);
        QCOMPARE(popup->currentIndex(), popup->indexAt(pos));

        // Just above the body's bottom edge: 20 at once, then on a timer until nothing is
        // hidden below; the content stays whole and the window within the available area.
        const IconMenuConfiguration config = popup->configuration();
        const int edge = int(popup->height() - 1 - config.shadowSize - config.shadowOffset);
        QTest::mouseMove(popup->windowHandle(), QPoint(popup->width() / 2, edge - 8));
        QCOMPARE(popup->hiddenBottom(), hidden - 80);
        QVERIFY(QTest::qWaitFor([&] { return popup->hiddenBottom() == 0; }));
        const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
        QCOMPARE(popup->geometry(),
            QRect(popup->x(), available.top() + 10, popup->width(), available.height() - 20));
        QCOMPARE(content(popup), total);
        // The top mark's zone and a notch up scroll back 20 each.
        const int top = popup->hiddenTop();
        QTest::mouseMove(popup->windowHandle(), QPoint(popup->width() / 2, 4));
        QCOMPARE(popup->hiddenTop(), top - 20);
        QTest::mouseMove(popup->windowHandle(), pos);
        wheel(popup, pos, 120);
        QCOMPARE(popup->hiddenTop(), top - 40);
        QTest::keyClick(popup, Qt::Key_Escape);
    }

    void pressDragReleaseAndSecondPress()
    {
        makeCombo(8, 2);
        QSignalSpy activated(mCombo, QOverload<int>::of(&QComboBox::activated));
        QTest::mousePress(mWindow->windowHandle(), Qt::LeftButton, {}, mOnCombo);
        IconMenu *popup = mCombo->popup();
        QVERIFY(popup);
        // The combo keeps the mouse; its moves reach the popup through the anchor.
        const QPoint target = mWindow->mapFromGlobal(popup->mapToGlobal(rowCentre(popup, 5)));
        QTest::mouseMove(mWindow->windowHandle(), target);
        QTest::mouseRelease(mWindow->windowHandle(), Qt::LeftButton, {}, target);
        QCOMPARE(mCombo->currentIndex(), 5);
        QCOMPARE(activated.count(), 1);
        flushDeletes();
        // A click leaves a popup open; a second one closes it and opens nothing.
        QPointer<IconMenu> first = openComboPopup();
        QVERIFY(first && first->isVisible());
        openComboPopup();
        flushDeletes();
        QVERIFY(!first && !mCombo->popup());
    }

    void hiddenPopupCloses()
    {
        makeCombo(5, 0);
        QMenu menu;
        menu.addAction(QStringLiteral("Entry"));
        // Hidden by the host, or with its window: closed and deleted, not left behind.
        for (int how = 0; how < 2; ++how) {
            QPointer<IconMenu> popup
                = new IconMenu(IconMenuConfiguration(), &menu, {}, mCombo, mWindow.get());
            popup->show();
            how == 0 ? popup->hide() : mWindow->hide();
            flushDeletes();
            QVERIFY(!popup);
        }
    }

    void separatorsAndDisabledRows()
    {
        QWidget anchor;
        anchor.show();
        QMenu menu;
        menu.addAction(QStringLiteral("Alpha"));
        menu.addSeparator();
        menu.addAction(QStringLiteral("Beta"))->setEnabled(false);
        IconMenuConfiguration config;
        config.itemHeight = 30;
        QSignalSpy shown(&menu, &QMenu::aboutToShow);
        QPointer<IconMenu> popup = menuPopup(&menu, config, &anchor);
        QCOMPARE(shown.count(), 1);
        QCOMPARE(popup->visualRect(popup->model()->index(1, 0)).height(), 10);
        QCOMPARE(popup->visualRect(popup->model()->index(0, 0)).height(), 30);
        // Separators and disabled rows cannot become current.
        for (int row : { 0, 1, 0, 2 }) {
            QTest::mouseMove(popup->windowHandle(), rowCentre(popup, row));
            QCOMPARE(popup->currentIndex().isValid(), row == 0);
        }
        // Releasing over a disabled row closes the popup and triggers nothing.
        QSignalSpy triggered(&menu, &QMenu::triggered);
        QTest::mouseClick(popup->windowHandle(), Qt::LeftButton, {}, rowCentre(popup, 2));
        flushDeletes();
        QVERIFY(!popup);
        QCOMPARE(triggered.count(), 0);
    }

    void iconAndCheckColumns()
    {
        QWidget anchor;
        anchor.show();
        const IconMenuConfiguration config = IconMenuConfiguration::light();
        // The width of a row, or -1 when the delegate draws other columns than asked.
        auto widthOf = [&](bool icon, bool check) {
            QMenu menu;
            QAction *one = menu.addAction(icon ? filled(Qt::blue) : QIcon(), QStringLiteral("1"));
            one->setCheckable(check);
            one->setChecked(check);
            IconMenu *popup = menuPopup(&menu, config, &anchor);
            auto *delegate = qobject_cast<IconMenuDelegate *>(popup->itemDelegate());
            const int w = popup->visualRect(popup->model()->index(0, 0)).width();
            const bool columns = delegate->drawIcons() == icon && delegate->drawCheckStates() == check;
            popup->close();
            flushDeletes();
            return columns ? w : -1;
        };
        const int plain = widthOf(false, false);
        QCOMPARE(widthOf(true, false) - plain, config.spacing + config.iconSize);
        QCOMPARE(widthOf(false, true) - plain, config.spacing * 2);
    }

    void oddInput()
    {
        QMenu menu;
        IconMenuConfiguration config;
        // An empty menu or combo box: Return with nothing current just closes.
        QPointer<IconMenu> popup = menuPopup(&menu, config, nullptr);
        QTest::keyClick(popup, Qt::Key_Return);
        popup = new IconMenu(config, static_cast<QComboBox *>(nullptr), nullptr);
        popup->show();
        QTest::keyClick(popup, Qt::Key_Down);
        QTest::keyClick(popup, Qt::Key_Return);
        flushDeletes();
        QVERIFY(!popup);
        // A pointer popup at the screen's right edge stays on the screen.
        menu.addAction(QStringLiteral("Entry"));
        config.noPointer = false;
        auto *anchor = new QWidget;
        popup = new IconMenu(config, &menu, QPoint(799, 100), anchor, nullptr);
        QVERIFY(popup->x() + popup->width() - config.shadowSize <= 800);
        delete anchor; // the popup must not touch it afterwards
        delete popup;
    }

    void shadowOrMask_data()
    {
        QTest::addColumn<bool>("translucent");
        QTest::newRow("translucent: shadow") << true;
        QTest::newRow("opaque: body mask") << false;
    }
    void shadowOrMask()
    {
        QFETCH(bool, translucent);
        QWidget anchor;
        anchor.show();
        QMenu menu;
        menu.addAction(QStringLiteral("Entry"));
        IconMenuConfiguration config;
        config.noPointer = false;
        IconMenu::overrideTranslucentWindows(translucent);
        IconMenu *popup = menuPopup(&menu, config, &anchor);
        IconMenu::overrideTranslucentWindows(std::nullopt);
        QCOMPARE(popup->isShaped(), !translucent);

        QImage image(popup->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        popup->render(&image, QPoint(), QRegion(), QWidget::DrawChildren | QWidget::IgnoreMask);
        const QPoint below(popup->width() / 2, popup->height() - int(config.shadowSize));
        const QPoint middle(popup->width() / 2, popup->height() / 2 - 2);
        const QPoint inPointer = QPoint(200, 100 + config.pointerSize - 1) - popup->pos();
        QVERIFY(image.pixelColor(middle).value() < 100); // the dark body, pointer included
        QVERIFY(image.pixelColor(inPointer).value() < 100);
        const QRegion mask = popup->mask();
        if (translucent) {
            // Under the body, offset down, the white background is darkened.
            QVERIFY(image.pixelColor(below).value() < 250 && mask.isEmpty());
        } else {
            // No shadow but the host's colour; the window is the body, pointer included.
            QCOMPARE(image.pixelColor(below), anchor.palette().color(QPalette::Window));
            QVERIFY(mask.contains(middle) && mask.contains(inPointer));
            QVERIFY(!mask.contains(below) && !mask.contains(QPoint(0, 0)));
            popup->resize(popup->width(), popup->height() + 40); // the mask follows
            QVERIFY(popup->mask().contains(below + QPoint(0, 20)));
        }
        popup->close();
    }
};

TAVO_TEST(IconMenuTest)
#include "IconMenuTest.moc"
