#pragma once

// FontTreeView is the pop-up list of the font combo boxes. It treats a row as one item
// (the name column stands for the row) and never scrolls sideways. Its size hint for any
// row is that of the first, a font row; separator rows are laid out thinner.
#include "style/TavoLibGuiExport.h"

#include <QTreeView>

namespace TavoLib {

class TAVOLIBGUI_EXPORT FontTreeView : public QTreeView
{
    Q_OBJECT
public:
    explicit FontTreeView(QWidget *parent);

    int sizeHintForRow(int row) const override;

protected slots:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

protected:
    QModelIndexList selectedIndexes() const override;
    void scrollContentsBy(int dx, int dy) override;
};

} // namespace TavoLib
