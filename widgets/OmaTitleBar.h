#pragma once

// OmaTitleBar is the title bar of the library's floating palettes and tool windows, which are
// frameless: the palette's icon and title, and close, collapse and float buttons
// (WindowButtons) at its right end. It sits at the top of its window's layout.
//
// - Dragging the bar with the left button moves its window (the top-level window it is in,
//   or the target set), once the pointer has moved a little: a click is no drag.
//   In a QDockWidget that is docked, the press is left to the dock widget, which drags
//   itself out.
// - A double click, the collapse button, or Space/Return while the bar has the focus
//   collapses the window to its title bar: the content widget is hidden and the window
//   shrinks to fit; expanding shows it again at the window's former height.
// - The close button closes the window (so its closeEvent may refuse).
// - The float button toggles a QDockWidget between docked and floating and emits
//   floatClicked() in any case, for hosts with their own docking.
// - By keyboard: the bar takes the focus by Tab, the buttons follow it in the tab order; with
//   the bar focused, Ctrl and the arrow keys move the window by ten pixels (at 96 dpi, scaled).
//
// The title follows the window's title unless setTitle() gives one; likewise the icon.
#include "style/TavoLibGuiExport.h"

#include <QIcon>
#include <QPointer>
#include <QWidget>

class WindowButton;

class TAVOLIBGUI_EXPORT OmaTitleBar : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(bool collapsed READ isCollapsed WRITE setCollapsed NOTIFY collapsedChanged)
public:
    enum Button { NoButton = 0, CloseButton = 1, CollapseButton = 2, FloatButton = 4 };
    Q_DECLARE_FLAGS(Buttons, Button)
    Q_FLAG(Buttons)

    explicit OmaTitleBar(QWidget *parent = nullptr);
    ~OmaTitleBar() override;

    // The given title, or the window's when none was given.
    QString title() const;
    void setTitle(const QString &title);
    QIcon icon() const;
    void setIcon(const QIcon &icon);

    Buttons buttons() const { return mButtons; }
    // Which buttons show; all three by default.
    void setButtons(Buttons buttons);
    // The button of `button`, or null for a combination.
    WindowButton *button(Button button) const;

    // The part of the window hidden when it collapses; without one, the collapse button
    // still reports collapsedChanged() but hides nothing.
    QWidget *contentWidget() const { return mContent; }
    void setContentWidget(QWidget *content);
    bool isCollapsed() const { return mCollapsed; }

    // The widget the bar moves, collapses and closes and whose title and icon it shows: its
    // top-level window unless set (a frame inside a page, say).
    QWidget *target() const;
    void setTarget(QWidget *target);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    void setCollapsed(bool collapsed);

signals:
    void collapsedChanged(bool collapsed);
    void floatClicked();

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void floatButtonClicked();
    void closeButtonClicked();
    void layoutButtons();
    void watchTarget();
    void checkWindowPosition(QWidget *win);
    // The window the bar moves; null when a docked dock widget drags itself.
    QWidget *movableWindow() const;
    int barHeight() const;
    QRect titleRect() const;

    QString mTitle;
    QIcon mIcon;
    Buttons mButtons = Buttons(CloseButton | CollapseButton | FloatButton);
    WindowButton *mClose = nullptr;
    WindowButton *mCollapse = nullptr;
    WindowButton *mFloat = nullptr;
    QPointer<QWidget> mContent;
    bool mCollapsed = false;
    int mExpandedHeight = 0;
    // A press waits to become a drag until the pointer moves far enough; then the bar moves
    // the window, keeping where in the window the drag took hold.
    enum DragState { NoDrag, DragPending, Dragging };
    DragState mDrag = NoDrag;
    QPoint mPressPos;
    QPoint mDragOffset;
    // Whether the window's position was checked with the window system since it showed.
    bool mPositionChecked = false;
    // The window whose title and icon the bar shows and follows.
    QPointer<QWidget> mWatched;
    QPointer<QWidget> mTarget;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(OmaTitleBar::Buttons)
