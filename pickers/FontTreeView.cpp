#include "pickers/FontTreeView.h"

namespace TavoLib {

FontTreeView::FontTreeView(QWidget *parent) : QTreeView(parent)
{
    // Rows are as high as the first one anyway; telling the view so spares it from asking
    // the delegate about every face when the list is laid out.
    setUniformRowHeights(true);
}

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
