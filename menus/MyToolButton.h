#pragma once

// MyToolButton is a flat icon button without frame or background: the icon alone, in its
// selected form under the mouse, and as a faint black silhouette while pressed.
#include "style/TavoLibGuiExport.h"

#include <QToolButton>

class TAVOLIBGUI_EXPORT MyToolButton : public QToolButton
{
    Q_OBJECT
public:
    explicit MyToolButton(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
