#pragma once

// IconMenuItemDelegate paints the entries of an IconMenuBarView: the icon at the top, the bold
// name under it (elided when too wide), a dark backing for the entry whose popup is open, and
// a thin vertical rule for a separator.
#include "style/TavoLibGuiExport.h"

#include <QItemDelegate>

class IconMenuBarView;

class TAVOLIBGUI_EXPORT IconMenuItemDelegate : public QItemDelegate
{
    Q_OBJECT
public:
    explicit IconMenuItemDelegate(IconMenuBarView *view);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    IconMenuBarView *mView;
};
