#include "menus/IconMenuBarView.h"

#include "menus/IconMenu.h"
#include "menus/IconMenuItemDelegate.h"
#include "menus/IconMenuItemModel.h"
#include "style/Device.h"

#include <QAction>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScreen>

using TavoLib::Device;

IconMenuBarView::IconMenuBarView(QMenu *menu, Ta_MenuBar *menuBar, QWidget *parent)
    : QListView(parent), mModel(nullptr), mMenuBar(menuBar)
{
    setFocusPolicy(Qt::StrongFocus);
    setSelectionRectVisible(false);
    setMouseTracking(true);
    setAutoScroll(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    setItemDelegate(new IconMenuItemDelegate(this));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);

    mModel = new IconMenuItemModel(menu, this);
    setModel(mModel);

    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_NoSystemBackground);
    setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_DeleteOnClose);
    viewport()->setAttribute(Qt::WA_NoSystemBackground);
    viewport()->setAutoFillBackground(false);
    setStyleSheet(QStringLiteral("\t\t QListView {\t\t\tborder: none;\t\t\tbackground-color: "
                                 "rgb(220, 220, 220);\t\t\tcolor: rgb(80, 80, 80);\t\t\tfont: 75 "
                                 "8pt;\t\t }\t\t"));

    const QScreen *screen = QGuiApplication::primaryScreen();
    resize((screen ? screen->geometry().width() : 800) - 1, int(Device::scale(60.0)));
    setFlow(QListView::LeftToRight);
    move(QPoint(0, 0));
}

QModelIndex IconMenuBarView::currentSubMenuIndex()
{
    if (mPopup && mPopup->isVisible())
        return mSubMenuIndex;
    return QModelIndex();
}

QAction *IconMenuBarView::actionAt(const QPoint &pos) const
{
    return mModel->action(indexAt(pos));
}

void IconMenuBarView::showSubMenu(QAction *action, const QModelIndex &index)
{
    if (!action || !action->menu())
        return;
    if (mPopup && mPopup->isVisible() && index == mSubMenuIndex)
        return;
    if (mPopup)
        mPopup->close();

    mSubMenuIndex = index;
    setCurrentIndex(index);
    const QRect entry = visualRect(index);
    const QPoint anchor = viewport()->mapToGlobal(QPoint(entry.center().x(), entry.bottom()));

    IconMenuConfiguration config;
    config.noPointer = false;
    auto *popup = new IconMenu(config, action->menu(), anchor, viewport(), nativeParentWidget());
    popup->setKeyEventHandler(this);
    popup->makePopupWindow();
    mPopup = popup;
    popup->show();
    viewport()->update();
}

void IconMenuBarView::mousePressEvent(QMouseEvent *event)
{
    QListView::mousePressEvent(event);
    QAction *action = actionAt(event->pos());
    if (action && action->isEnabled() && action->menu()) {
        if (mPopup) {
            mPopup->close();
            viewport()->update();
            return;
        }
        showSubMenu(action, indexAt(event->pos()));
    }
}

void IconMenuBarView::mouseMoveEvent(QMouseEvent *event)
{
    QListView::mouseMoveEvent(event);
    if (!mPopup)
        return;
    QAction *action = actionAt(event->pos());
    if (action && action->isEnabled() && action->menu())
        showSubMenu(action, indexAt(event->pos()));
}

void IconMenuBarView::mouseReleaseEvent(QMouseEvent *event)
{
    QListView::mouseReleaseEvent(event);
    const QModelIndex current = currentIndex();
    QAction *action = mModel->action(current);
    if (action && action->isEnabled() && indexAt(event->pos()) == current)
        action->activate(QAction::Trigger);
}

void IconMenuBarView::keyPressEvent(QKeyEvent *event)
{
    if ((event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) && mPopup
        && mPopup->isVisible() && mSubMenuIndex.isValid()) {
        const QModelIndex next
            = moveCursor(event->key() == Qt::Key_Left ? MoveLeft : MoveRight, event->modifiers());
        if (next.isValid() && next != QModelIndex(mSubMenuIndex)) {
            // Entries without a submenu (and separators) are passed over on the way.
            const int step = next.row() > mSubMenuIndex.row() ? 1 : -1;
            for (int row = next.row(); row >= 0 && row < mModel->rowCount(); row += step) {
                const QModelIndex candidate = mModel->index(row, 0);
                QAction *action = mModel->action(candidate);
                if (action && action->isEnabled() && action->menu()) {
                    showSubMenu(action, candidate);
                    break;
                }
            }
            event->accept();
            return;
        }
    }
    QAbstractItemView::keyPressEvent(event);
}
