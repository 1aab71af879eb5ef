#pragma once

// Ta_ToolButton is the library's tool button for palettes and tool bars. Its icon is drawn
// recoloured in the palette's button text colour (highlight colour under the mouse, greyed
// when disabled) while the dynamic property "COLORIZEICON" is true, which the constructor
// sets; a host sets it false (or calls setColorizeIcon(false)) for an icon that keeps its own
// colours. Icons are rendered at the paint device's pixel ratio, so they stay sharp on
// high-density screens.
//
// With an icon menu set, the button shows a small arrow at its right edge. A press on the
// arrow, Alt+Down or F4 opens the menu as an IconMenu under the button; with popupMode()
// InstantPopup a press anywhere and Space open it too. The rest of the button clicks as
// usual. The menu stays the host's; a menu deleted by the host is simply gone.
#include "menus/IconMenu.h"
#include "style/TavoLibGuiExport.h"

#include <QPixmap>
#include <QPointer>
#include <QToolButton>

#include <QMenu>

class TAVOLIBGUI_EXPORT Ta_ToolButton : public QToolButton
{
    Q_OBJECT
public:
    explicit Ta_ToolButton(QWidget *parent = nullptr);
    ~Ta_ToolButton() override;

    // Reads and writes the "COLORIZEICON" property.
    bool colorizeIcon() const;
    void setColorizeIcon(bool colorize);

    QMenu *iconMenu() const { return mMenu; }
    // The menu whose visible actions the popup lists; null removes the arrow.
    void setIconMenu(QMenu *menu);
    // The open popup, or null.
    IconMenu *popup() const { return mPopup; }
    // The area of the menu arrow, empty without a menu.
    QRect arrowRect() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    void showIconMenu();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    int arrowWidth() const;
    // The icon for painting at `ratio`, recoloured if asked.
    QIcon paintedIcon(const QSize &size, qreal ratio);

    QPointer<QMenu> mMenu;
    QPointer<IconMenu> mPopup;
    // The last recoloured icon, with what it was made from.
    QIcon mColoredIcon;
    qint64 mColoredKey = 0;
    QRgb mColoredRgb = 0;
    QSize mColoredSize;
    qreal mColoredRatio = 0.0;
};
