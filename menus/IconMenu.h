#pragma once

// IconMenu is the library's popup list, used in place of the platform's popup for a QComboBox
// or a QMenu. It draws its own rounded body with an optional pointer triangle and a soft
// shadow, and scrolls a list taller than the screen by growing and moving its own window
// (hover over the marks at either end, the wheel, or the keys) rather than by a scroll bar.
//
// The owner makes it, gives it its window flags (makePopupWindow() sets the usual ones) and
// shows it. It lives until it is closed, by choosing an item, Escape, losing the focus or being
// hidden, and then deletes itself; owners hold it by QPointer. While open it watches its anchor widget,
// so that a press on the anchor can be dragged into the popup and released on an item.
#include "menus/IconMenuConfiguration.h"
#include "style/TavoLibGuiExport.h"

#include <QListView>
#include <QPainterPath>
#include <QPointer>
#include <optional>

class QComboBox;
class QMenu;
class IconMenuDelegate;
class IconMenuItemModel;

class TAVOLIBGUI_EXPORT IconMenu : public QListView
{
    Q_OBJECT
public:
    // A popup over the combo box's own model, placed so that its current row lies over the
    // combo box.
    IconMenu(const IconMenuConfiguration &config, QComboBox *comboBox, QWidget *parent);
    // A popup of the menu's visible actions; `position` is the global anchor point: the left
    // edge of the popup, or the tip of its pointer when the configuration has one.
    IconMenu(const IconMenuConfiguration &config, QMenu *menu, const QPoint &position,
        QWidget *anchor, QWidget *parent);
    ~IconMenu() override;

    const IconMenuConfiguration &configuration() const { return mConfig; }
    // The shadow's area as last painted: all of the window outside the body.
    QPainterPath contentClip() { return mContentClip; }
    // Left and Right keys go to this widget first (a menu bar that moves to the next entry).
    void setKeyEventHandler(QWidget *handler) { mKeyEventHandler = handler; }

    // Content hidden above and below the window, in pixels.
    int hiddenTop() const { return mHiddenTop; }
    int hiddenBottom() const { return mHiddenBottom; }
    // The model made for a menu popup; null for a combo box popup.
    IconMenuItemModel *menuModel() const { return mModel; }

    // Makes the popup a frameless, translucent top-level window over its parent's window.
    void makePopupWindow();

    // Whether the window system shows translucent windows: on X11 only while a compositing
    // manager runs, elsewhere always. A popup window asks when it is first shown; without
    // translucency it has no shadow and is clipped to its body by a mask.
    static bool translucentWindows();
    // Replaces the window system's answer (tests); std::nullopt asks the window system again.
    static void overrideTranslucentWindows(std::optional<bool> answer);
    // True when this popup is drawn without its shadow and masked to its body.
    bool isShaped() const { return mShaped; }

    void setVisible(bool visible) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    int horizontalOffset() const override;
    int verticalOffset() const override;

private:
    void init(const IconMenuConfiguration &config, const QPoint &position, QWidget *anchor);
    // Puts the window's top left at a global point, also while it is still a child widget.
    void placeAt(const QPoint &globalTopLeft);
    void scrollToTop(int amount);
    void scrollToBottom(int amount);
    void stopScrollTimers();
    void acceptCurrent();
    int pointerHeight() const;
    // The outline of the body, pointer included, in the popup's coordinates.
    QPainterPath bodyPath() const;
    void updateMask();

    IconMenuItemModel *mModel = nullptr;
    IconMenuDelegate *mDelegate = nullptr;
    QPointer<QWidget> mAnchor;
    QPoint mGlobalAnchor;
    QPoint mLocalAnchor;
    QPainterPath mContentClip;
    IconMenuConfiguration mConfig;
    QPointer<QComboBox> mComboBox;
    QPointer<QMenu> mMenu;
    int mHiddenTop = 0;
    int mHiddenBottom = 0;
    int mScrollUpTimer = 0;
    int mScrollDownTimer = 0;
    QRect mAvailable;
    bool mMovedFromAnchor = false;
    QPointer<QWidget> mKeyEventHandler;
    QPoint mGlobalTopLeft;
    bool mShaped = false;
};
