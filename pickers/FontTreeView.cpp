#include "pickers/FontTreeView.h"

namespace TavoLib {

// Rows are measured one by one (no uniform row heights), so separators stay thin; the
// delegate keeps each measure cheap.
FontTreeView::FontTreeView(QWidget *parent) : QTreeView(parent) { }

int FontTreeView::sizeHintForRow(int) const
{
    return QAbstractItemView::sizeHintForRow(0);
}

void FontTreeView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    if (current.isValid() && current.column() == 1)
        QTreeView::currentChanged(current.sibling(current.row(), 0), previous);
    else
        QTreeView::currentChanged(current, previous);
}

QModelIndexList FontTreeView::selectedIndexes() const
{
    const QModelIndexList all = QTreeView::selectedIndexes();
    if (all.isEmpty())
        return all;
    const QModelIndex first = all.first();
    return { first.sibling(first.row(), 0) };
}

void FontTreeView::scrollContentsBy(int, int dy)
{
    QTreeView::scrollContentsBy(0, dy);
}

} // namespace TavoLib
