#include "attributes/PropertyDialog.h"

#include <QPushButton>

namespace TavoLib {

PropertyDialog::PropertyDialog(QWidget *parent, Qt::WindowFlags flags, int minimumWidth)
    : DialogBase(parent, flags)
{
    setupUi(this);
    mMainLayout = new QVBoxLayout(mMainWidget);
    mMainLayout->setContentsMargins(0, 0, 0, 0);
    layout()->setSpacing(20);
    buttonBox->setMinimumWidth(minimumWidth);
    // The dialog's own catalogue names the buttons, not the button box's.
    buttonBox->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    buttonBox->button(QDialogButtonBox::Ok)->setText(tr("OK"));
}

QLayout *PropertyDialog::mainLayout()
{
    return mMainLayout;
}

void PropertyDialog::showPreviewOption(bool show)
{
    mPreview->setVisible(show);
}

} // namespace TavoLib
