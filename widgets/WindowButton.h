#pragma once

// WindowButton is one of the small buttons of a title bar: close, collapse (a checkable
// button whose arrow points down while the window is open and right while it is collapsed)
// and float (dock or undock). Its glyph is drawn as lines in the button text colour, scaled
// with the density, so it is sharp at any resolution and device pixel ratio; under the
// library's GuiStyle the mouse-over and pressed backdrop is GuiStyle's hover pill, under
// another style the style's tool button panel. It takes the focus by Tab (not by click, so
// that a click does not take the focus from the window's fields), clicks with Space, and is
// named for assistive technology after what it does.
#include "style/TavoLibGuiExport.h"

#include <QAbstractButton>

class TAVOLIBGUI_EXPORT WindowButton : public QAbstractButton
{
    Q_OBJECT
public:
    enum ButtonType { CloseButton, CollapseButton, FloatButton };
    Q_ENUM(ButtonType)

    explicit WindowButton(ButtonType type, QWidget *parent = nullptr);
    ~WindowButton() override;

    ButtonType type() const { return mType; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;

private:
    void updateName();

    ButtonType mType;
};
