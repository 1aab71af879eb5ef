#include "pickers/FontItemSelectionModel.h"

namespace TavoLib {

FontItemSelectionModel::FontItemSelectionModel(QAbstractItemModel *model)
    : QItemSelectionModel(model)
{
    connect(this, &QItemSelectionModel::currentChanged, this,
        &FontItemSelectionModel::currentChanged_correction);
}

void FontItemSelectionModel::select(
    const QModelIndex &index, QItemSelectionModel::SelectionFlags command)
{
    QItemSelectionModel::select(index, command);
}

void FontItemSelectionModel::select(
    const QItemSelection &selection, QItemSelectionModel::SelectionFlags command)
{
    const QModelIndexList indexes = selection.indexes();
    if (indexes.isEmpty())
        return;
    const QModelIndex first = indexes.first();
    const QAbstractItemModel *m = first.model();
    if (!m)
        return;
    // Kept on purpose: a one-column list selects its one cell, not an invalid column 1.
    const int last = m->columnCount(first.parent()) > 1 ? 1 : 0;
    const QModelIndex left = m->index(first.row(), 0, first.parent());
    const QModelIndex right = m->index(first.row(), last, first.parent());
    QItemSelectionModel::select(QItemSelection(left, right), command);
}

void FontItemSelectionModel::currentChanged_correction(
    const QModelIndex &current, const QModelIndex &)
{
    if (!current.isValid() || current.column() != 1)
        return;
    const QModelIndex left = current.sibling(current.row(), 0);
    const QModelIndex right = current.sibling(current.row(), 1);
    select(right, QItemSelectionModel::Select);
    setCurrentIndex(left, QItemSelectionModel::Select | QItemSelectionModel::Current);
}

} // namespace TavoLib
