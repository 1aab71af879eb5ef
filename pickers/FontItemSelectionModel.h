#pragma once

// FontItemSelectionModel keeps a font row whole: touching the example column selects both
// columns of the row and moves the current index back to the name column, so a combo box
// always reads its choice from column 0.
#include "style/TavoLibGuiExport.h"

#include <QItemSelectionModel>

namespace TavoLib {

class TAVOLIBGUI_EXPORT FontItemSelectionModel : public QItemSelectionModel
{
    Q_OBJECT
public:
    explicit FontItemSelectionModel(QAbstractItemModel *model);

public slots:
    void select(const QModelIndex &index, QItemSelectionModel::SelectionFlags command) override;
    // Selects the whole row of the selection's first index; an empty selection is ignored.
    void select(
        const QItemSelection &selection, QItemSelectionModel::SelectionFlags command) override;

private slots:
    void currentChanged_correction(const QModelIndex &current, const QModelIndex &previous);
};

} // namespace TavoLib
