#pragma once

// IconMenuBarView shows the top-level actions of a QMenu as a horizontal strip of large icons
// with their names. An entry with a submenu opens it as an IconMenu with a pointer under the
// entry; while a popup is open it follows the pointer and the Left and Right keys along the
// strip. An entry without a submenu fires when the mouse is released on it.
#include "menus/IconMenu.h"
#include "style/TavoLibGuiExport.h"

#include <QListView>
#include <QPointer>

class QAction;
class QMenu;
class IconMenuItemModel;
class Ta_MenuBar;

class TAVOLIBGUI_EXPORT IconMenuBarView : public QListView
{
    Q_OBJECT
public:
    // menuBar is the application's own menu bar, kept for the host and not used here.
    IconMenuBarView(QMenu *menu, Ta_MenuBar *menuBar, QWidget *parent = nullptr);

    // The entry whose popup is open, or an invalid index.
    QModelIndex currentSubMenuIndex();
    IconMenuItemModel *menuModel() const { return mModel; }
    Ta_MenuBar *menuBar() const { return mMenuBar; }
    // The open popup, or null.
    IconMenu *popup() const { return mPopup; }

    // Opens the submenu of the entry (unless it is open already).
    void showSubMenu(QAction *action, const QModelIndex &index);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QAction *actionAt(const QPoint &pos) const;

    IconMenuItemModel *mModel;
    Ta_MenuBar *mMenuBar;
    QPointer<IconMenu> mPopup;
    QPersistentModelIndex mSubMenuIndex;
};
