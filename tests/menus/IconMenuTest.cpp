// The popup list driven through real mouse, wheel and key events on the offscreen screen
// (800 x 600): placement against the available area, hover, wheel and key scrolling,
// separators and disabled rows, and accepting an item for combo boxes and menus.
#include "menus/IconMenu.h"
#include "MenuTestHelpers.h"
#include "TestRegistry.h"
#include "menus/IconMenuDelegate.h"
#include "menus/MyComboBox.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

using namespace MenuTest;

namespace {

// Whole content of a popup: what is shown plus what is hidden above and below.
int contentHeight(IconMenu *popup)
{
    return popup->height() + popup->hiddenTop() + popup->hiddenBottom();
}

} // namespace

class IconMenuTest : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<QWidget> mWindow;
    MyComboBox *mCombo = nullptr;

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

    QPoint comboInWindow(const QPoint &p = QPoint(10, 12)) const
    {
        return mCombo->mapTo(mWindow.get(), p);
    }

    IconMenu *openComboPopup()
    {
        QTest::mousePress(mWindow->windowHandle(), Qt::LeftButton, {}, comboInWindow());
        QTest::mouseRelease(mWindow->windowHandle(), Qt::LeftButton, {}, comboInWindow());
        return mCombo->popup();
    }

    // A menu popup shown at (200, 100) with the given configuration.
    static IconMenu *menuPopup(QMenu *menu, const IconMenuConfiguration &config, QWidget *anchor)
    {
        auto *popup = new IconMenu(config, menu, QPoint(200, 100), anchor, anchor);
        popup->makePopupWindow();
        popup->show();
        return popup;
    }

    static void wheel(IconMenu *popup, const QPoint &pos, int delta)
    {
        QWheelEvent event(QPointF(pos), QPointF(popup->viewport()->mapToGlobal(pos)), QPoint(),
            QPoint(0, delta), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(popup->viewport(), &event);
    }

private slots:
    void cleanup()
    {
        mWindow.reset();
        mCombo = nullptr;
        QVERIFY2(noPopupLeft(), "a popup outlived its test");
    }

    void comboRowFarDownLiesOverTheCombo()
    {
        makeCombo(40, 30);
        IconMenu *popup = openComboPopup();
        QVERIFY(popup);
        QVERIFY(popup->isVisible());
        // 30 rows of 24 pixels above the current one do not fit above the combo box.
        QVERIFY(popup->hiddenTop() > 0);
        const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
        QCOMPARE(popup->geometry().top(), available.top() + 10);
        const QRect row = popup->visualRect(popup->model()->index(30, 0));
        QCOMPARE(popup->viewport()->mapToGlobal(row.topLeft()).y(),
            mCombo->mapToGlobal(QPoint(0, 0)).y());
        QCOMPARE(popup->currentIndex().row(), 30);
        // The first Down marks the current row; the next one moves.
        QVERIFY(popup->selectionModel()->selectedIndexes().isEmpty());
        QTest::keyClick(popup, Qt::Key_Down);
        QCOMPARE(popup->currentIndex().row(), 30);
        QVERIFY(popup->selectionModel()->isSelected(popup->currentIndex()));
        QTest::keyClick(popup, Qt::Key_Down);
        QCOMPARE(popup->currentIndex().row(), 31);

        QSignalSpy activated(mCombo, QOverload<int>::of(&QComboBox::activated));
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(mCombo->currentIndex(), 31);
        QCOMPARE(activated.count(), 1);
        QCOMPARE(activated.at(0).at(0).toInt(), 31);
        flushDeletes();
        QVERIFY(!mCombo->popup());
    }

    void tallPopupScrollsByHover()
    {
        makeCombo(40, 0);
        IconMenu *popup = openComboPopup();
        QVERIFY(popup);
        QCOMPARE(popup->hiddenTop(), 0);
        QVERIFY(popup->hiddenBottom() > 0);
        const int total = contentHeight(popup);
        const int hidden = popup->hiddenBottom();
        const IconMenuConfiguration config = popup->configuration();

        // Just above the bottom edge of the body, in the mark's zone.
        const int edge = int(popup->rect().bottom() - config.shadowSize - config.shadowOffset);
        QTest::mouseMove(popup->windowHandle(), QPoint(popup->width() / 2, edge - 8));
        QCOMPARE(popup->hiddenBottom(), hidden - 20);
        QCOMPARE(contentHeight(popup), total);
        // The timer carries on until nothing is hidden below; the window never leaves the area.
        QVERIFY(QTest::qWaitFor([&] { return popup->hiddenBottom() == 0; }, 5000));
        QCOMPARE(contentHeight(popup), total);
        QVERIFY(popup->hiddenTop() > 0);
        const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
        QCOMPARE(popup->height(), available.height() - 20);
        QCOMPARE(popup->geometry().top(), available.top() + 10);

        // Leaving the zone stops the timer; the top mark's zone scrolls back by 20.
        QTest::mouseMove(popup->windowHandle(), rowCentre(popup, 20));
        const int top = popup->hiddenTop();
        QTest::qWait(120);
        QCOMPARE(popup->hiddenTop(), top);
        QTest::mouseMove(popup->windowHandle(), QPoint(popup->width() / 2, 4));
        QCOMPARE(popup->hiddenTop(), top - 20);
        QCOMPARE(popup->hiddenBottom(), 20);
        QTest::keyClick(popup, Qt::Key_Escape);
    }

    void wheelNotchesScroll()
    {
        makeCombo(40, 0);
        IconMenu *popup = openComboPopup();
        QVERIFY(popup);
        const int hidden = popup->hiddenBottom();
        const QPoint pos = rowCentre(popup, 3);
        wheel(popup, pos, -120);
        QCOMPARE(popup->hiddenBottom(), hidden - 20);
        wheel(popup, pos, -360);
        QCOMPARE(popup->hiddenBottom(), hidden - 80);
        // Less than a notch scrolls nothing but still follows the pointer.
        popup->selectionModel()->clearCurrentIndex();
        wheel(popup, pos, -60);
        QCOMPARE(popup->hiddenBottom(), hidden - 80);
        QCOMPARE(popup->currentIndex(), popup->indexAt(pos));
        QVERIFY(popup->currentIndex().isValid());
        // A notch up gives back at most 20 of what is hidden above; the content stays whole.
        const int total = contentHeight(popup);
        const int top = popup->hiddenTop();
        wheel(popup, pos, 120);
        QCOMPARE(popup->hiddenTop(), qMax(top - 20, 0));
        QCOMPARE(contentHeight(popup), total);
        popup->close();
    }

    void pressDragReleaseChoosesARow()
    {
        makeCombo(8, 2);
        QSignalSpy activated(mCombo, QOverload<int>::of(&QComboBox::activated));
        QTest::mousePress(mWindow->windowHandle(), Qt::LeftButton, {}, comboInWindow());
        IconMenu *popup = mCombo->popup();
        QVERIFY(popup);
        // The combo keeps the mouse; its moves reach the popup through the anchor.
        const QPoint target = popup->viewport()->mapToGlobal(rowCentre(popup, 5));
        const QPoint inWindow = mWindow->mapFromGlobal(target);
        QTest::mouseMove(mWindow->windowHandle(), inWindow);
        QCOMPARE(popup->currentIndex().row(), 5);
        QTest::mouseRelease(mWindow->windowHandle(), Qt::LeftButton, {}, inWindow);
        QCOMPARE(mCombo->currentIndex(), 5);
        QCOMPARE(activated.count(), 1);
        flushDeletes();
        QVERIFY(!mCombo->popup());
    }

    void secondPressCloses()
    {
        makeCombo(5, 0);
        QPointer<IconMenu> first = openComboPopup();
        QVERIFY(first);
        QVERIFY(first->isVisible()); // a release without a move closes nothing
        QTest::mousePress(mWindow->windowHandle(), Qt::LeftButton, {}, comboInWindow());
        QTest::mouseRelease(mWindow->windowHandle(), Qt::LeftButton, {}, comboInWindow());
        flushDeletes();
        QVERIFY(!first);
        QVERIFY(!mCombo->popup());
        QVERIFY(openComboPopup());
        QCOMPARE(mCombo->currentIndex(), 0);
    }

    void hiddenPopupCloses()
    {
        makeCombo(5, 0);
        QMenu menu;
        menu.addAction(QStringLiteral("Entry"));
        auto showInside = [&] {
            auto *popup = new IconMenu(
                IconMenuConfiguration(), &menu, QPoint(150, 150), mCombo, mWindow.get());
            popup->show();
            return QPointer<IconMenu>(popup);
        };
        // Hidden by the host, or with its window: closed and deleted, not left behind.
        QPointer<IconMenu> popup = showInside();
        popup->hide();
        flushDeletes();
        QVERIFY(!popup);
        popup = showInside();
        mWindow->hide();
        flushDeletes();
        QVERIFY(!popup);
    }

    void separatorsAndDisabledRows()
    {
        QWidget anchor;
        anchor.setGeometry(150, 80, 100, 20);
        anchor.show();
        QMenu menu;
        QAction *a = menu.addAction(QStringLiteral("Alpha"));
        menu.addSeparator();
        QAction *b = menu.addAction(QStringLiteral("Beta"));
        b->setEnabled(false);
        menu.addAction(QStringLiteral("Gamma"));
        IconMenuConfiguration config;
        config.itemHeight = 30;
        QPointer<IconMenu> popup = menuPopup(&menu, config, &anchor);

        QCOMPARE(popup->visualRect(popup->model()->index(1, 0)).height(), 10);
        QCOMPARE(popup->visualRect(popup->model()->index(0, 0)).height(), 30);

        QTest::mouseMove(popup->windowHandle(), rowCentre(popup, 0));
        QCOMPARE(popup->currentIndex().row(), 0);
        QTest::mouseMove(popup->windowHandle(), rowCentre(popup, 1));
        QVERIFY(!popup->currentIndex().isValid());
        QTest::mouseMove(popup->windowHandle(), rowCentre(popup, 0));
        QTest::mouseMove(popup->windowHandle(), rowCentre(popup, 2));
        QVERIFY(!popup->currentIndex().isValid());

        // Releasing over a disabled row closes the popup and triggers nothing.
        QSignalSpy triggered(&menu, &QMenu::triggered);
        QTest::mouseClick(popup->windowHandle(), Qt::LeftButton, {}, rowCentre(popup, 2));
        flushDeletes();
        QVERIFY(!popup);
        QCOMPARE(triggered.count(), 0);

        popup = menuPopup(&menu, config, &anchor);
        QSignalSpy shown(&menu, &QMenu::aboutToShow);
        popup->hide();
        popup->show();
        QCOMPARE(shown.count(), 1);
        QTest::mouseClick(popup->windowHandle(), Qt::LeftButton, {}, rowCentre(popup, 0));
        QCOMPARE(triggered.count(), 1);
        QCOMPARE(triggered.at(0).at(0).value<QAction *>(), a);
        flushDeletes();
        QVERIFY(!popup);
    }

    void iconAndCheckColumns()
    {
        QWidget anchor;
        anchor.show();
        const IconMenuConfiguration config = IconMenuConfiguration::light();
        // The width of a row, after checking which columns the delegate draws.
        auto widthOf = [&](bool icon, bool check) {
            QMenu menu;
            QAction *one = menu.addAction(QStringLiteral("One"));
            menu.addAction(QStringLiteral("Two"));
            if (icon)
                one->setIcon(filled(Qt::darkBlue));
            one->setCheckable(check);
            one->setChecked(check);
            IconMenu *popup = menuPopup(&menu, config, &anchor);
            auto *delegate = qobject_cast<IconMenuDelegate *>(popup->itemDelegate());
            const bool columnsRight
                = delegate->drawIcons() == icon && delegate->drawCheckStates() == check;
            const int w = popup->visualRect(popup->model()->index(0, 0)).width();
            popup->close();
            flushDeletes();
            return columnsRight ? w : -1;
        };
        const int plain = widthOf(false, false);
        QVERIFY(plain > 0);
        QCOMPARE(widthOf(true, false) - plain, config.spacing + config.iconSize);
        QCOMPARE(widthOf(false, true) - plain, config.spacing * 2);
    }

    void pointerPopupIsCentredAndClamped()
    {
        QWidget anchor;
        anchor.show();
        QMenu menu;
        menu.addAction(QStringLiteral("Entry"));
        IconMenuConfiguration config;
        config.noPointer = false;
        auto *popup = new IconMenu(config, &menu, QPoint(400, 100), &anchor, &anchor);
        popup->makePopupWindow();
        popup->show();
        const int body = popup->width() - int(config.shadowSize * 2.0);
        QVERIFY(qAbs(popup->geometry().left() + int(config.shadowSize) + body / 2 - 400) <= 2);
        popup->close();

        // Far right: the popup stays on the screen.
        popup = new IconMenu(config, &menu, QPoint(799, 100), &anchor, &anchor);
        popup->makePopupWindow();
        popup->show();
        QVERIFY(popup->geometry().left() + int(config.shadowSize) + body <= 800);
        QTest::keyClick(popup, Qt::Key_Escape);
        flushDeletes();
    }

    void emptyAndNullInput()
    {
        QWidget anchor;
        anchor.show();
        QMenu menu;
        IconMenuConfiguration config;
        QPointer<IconMenu> popup = menuPopup(&menu, config, &anchor);
        const int padding = int(config.frameWidth * 2 + config.shadowSize
            + std::max(config.shadowSize, config.shadowOffset));
        QCOMPARE(popup->height(), padding);
        QTest::keyClick(popup, Qt::Key_Return); // nothing to accept: closes
        flushDeletes();
        QVERIFY(!popup);

        popup = new IconMenu(config, static_cast<QComboBox *>(nullptr), nullptr);
        popup->show();
        QTest::keyClick(popup, Qt::Key_Down);
        QTest::keyClick(popup, Qt::Key_Return);
        flushDeletes();
        QVERIFY(!popup);
    }

    void anchorDeletedFirst()
    {
        auto *anchor = new QWidget;
        anchor->show();
        QMenu menu;
        menu.addAction(QStringLiteral("Entry"));
        QPointer<IconMenu> popup = menuPopup(&menu, IconMenuConfiguration(), nullptr);
        delete popup;
        auto *kept = new IconMenu(IconMenuConfiguration(), &menu, QPoint(10, 10), anchor, nullptr);
        delete anchor;
        delete kept; // must not touch the anchor
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
        QVERIFY(image.pixelColor(middle).value() < 100); // the dark body
        QVERIFY(image.pixelColor(inPointer).value() < 100);
        QVERIFY(!popup->contentClip().isEmpty());
        if (translucent) {
            // Under the body, offset down, the white background is darkened; far corners not.
            QVERIFY(image.pixelColor(below).value() < 250);
            QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white));
            QVERIFY(popup->mask().isEmpty());
        } else {
            // No shadow, the host's colour; the window is the body, pointer included, and
            // follows its size.
            QCOMPARE(image.pixelColor(below), anchor.palette().color(QPalette::Window));
            const QRegion mask = popup->mask();
            QVERIFY(mask.contains(middle) && mask.contains(inPointer));
            QVERIFY(!mask.contains(below) && !mask.contains(QPoint(0, 0)));
            popup->resize(popup->width(), popup->height() + 40);
            QVERIFY(popup->mask().contains(below + QPoint(0, 20)));
        }
        popup->close();
    }
};

TAVO_TEST(IconMenuTest)
#include "IconMenuTest.moc"
