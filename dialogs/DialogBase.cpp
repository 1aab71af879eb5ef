#include "dialogs/DialogBase.h"

#include "dialogs/DialogUtilities.h"

namespace TavoLib {

DialogBase::DialogBase(QWidget *parent, Qt::WindowFlags flags) : QDialog(parent, flags) { }

int DialogBase::exec()
{
    DialogUtilities::prepareDialog(*this);
    return QDialog::exec();
}

} // namespace TavoLib
