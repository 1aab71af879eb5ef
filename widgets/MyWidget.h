#pragma once

// MyWidget holds several editors that together edit one value (a font's family and style,
// say) and stands in for them as a single editor: focus given to it goes to its focus proxy,
// the first focusable child editor unless one is set with setFocusProxy, and its size hint
// is that of its layout.
#include "style/TavoLibGuiExport.h"

#include <QWidget>

class TAVOLIBGUI_EXPORT MyWidget : public QWidget
{
    Q_OBJECT
public:
    explicit MyWidget(QWidget *parent = nullptr);
    ~MyWidget() override;

protected:
    void childEvent(QChildEvent *event) override;

private:
    void takeFirstEditorAsProxy();
};
