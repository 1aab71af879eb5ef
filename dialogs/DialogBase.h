#pragma once

// DialogBase is the base class of the library's dialogs: every dialog passes through
// DialogUtilities::prepareDialog before it runs.
#include "style/TavoLibGuiExport.h"

#include <QDialog>

namespace TavoLib {

class TAVOLIBGUI_EXPORT DialogBase : public QDialog
{
    Q_OBJECT
public:
    explicit DialogBase(QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());

    int exec() override;
};

} // namespace TavoLib
