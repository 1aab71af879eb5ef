#pragma once

// IconMenuToolButton is a tool button that paints itself and opens its menu as a light
// IconMenu under the button. StyleType 0 is a bare grey icon that shows a small arrow under
// the mouse when it has a menu; StyleType 1 is a framed light button with the icon and, with
// a menu, an arrow. With ResultType 1 the last action chosen from the menu becomes the
// button's default action, so the button shows the current choice.
#include "menus/IconMenu.h"
#include "style/TavoLibGuiExport.h"

#include <QPointer>
#include <QToolButton>


class TAVOLIBGUI_EXPORT IconMenuToolButton : public QToolButton
{
    Q_OBJECT
public:
    enum StyleType { StyleType0 = 0, StyleType1 = 1 };
    enum ResultType { ResultType0 = 0, ResultType1 = 1 };

    IconMenuToolButton(StyleType style, ResultType result, QWidget *parent = nullptr);

    // Also sets the width: wider with a menu, for its arrow.
    void setMenu(QMenu *menu);

    StyleType styleType() const { return mStyleType; }
    ResultType resultType() const { return mResultType; }
    // The open popup, or null.
    IconMenu *popup() const { return mPopup; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private slots:
    void triggered(QAction *action);

private:
    bool menuShown() const { return !mPopup.isNull(); }
    void paintBare(QPainter &painter);
    void paintFramed(QPainter &painter);

    StyleType mStyleType;
    ResultType mResultType;
    QPointer<IconMenu> mPopup;
};
