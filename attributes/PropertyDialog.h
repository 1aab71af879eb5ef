#pragma once

// PropertyDialog is the common frame of the library's property dialogs: a main area that
// subclasses fill through mainLayout(), and below it a "Preview" check box with the OK and
// Cancel buttons. It holds no property logic of its own.
#include "attributes/Ui_PropertyDialog.h"
#include "dialogs/DialogBase.h"

namespace TavoLib {

class TAVOLIBGUI_EXPORT PropertyDialog : public DialogBase, public Ui_PropertyDialog
{
    Q_OBJECT
public:
    // `minimumWidth` is the minimum width of the button box, not of the dialog.
    PropertyDialog(QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags(), int minimumWidth = 0);

    QLayout *mainLayout();
    void showPreviewOption(bool show);

protected:
    QVBoxLayout *mMainLayout;
};

} // namespace TavoLib
