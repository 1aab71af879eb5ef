#pragma once

// MyComboBox is a combo box that paints itself as a light rounded button and opens the
// library's light IconMenu instead of the platform's popup. A press while the popup is open
// closes it. Choosing a row in the popup sets the current index and emits activated(int), as a
// choice in the platform's popup would.
#include "menus/IconMenu.h"
#include "style/TavoLibGuiExport.h"

#include <QComboBox>
#include <QPointer>


class TAVOLIBGUI_EXPORT MyComboBox : public QComboBox
{
    Q_OBJECT
public:
    explicit MyComboBox(QWidget *parent = nullptr);

    // Emits activated(int) (and activated(QString)) for a row chosen outside the platform's
    // popup; an index outside the rows is ignored.
    void emitActivated(int index);

    // The open popup, or null.
    IconMenu *popup() const { return mPopup; }

    void showPopup() override;
    void hidePopup() override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    QPointer<IconMenu> mPopup;
};
