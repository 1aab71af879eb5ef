#pragma once

// FontItemDelegate paints the rows of the font lists. Separator rows become a thin grey
// line. In the example column the sample text is drawn as a filled outline, scaled to the
// row's height and right-aligned, so samples of any face line up; a sample too wide for
// its cell is shortened with "...".
#include "style/TavoLibGuiExport.h"

#include <QStyledItemDelegate>

namespace TavoLib {

class TAVOLIBGUI_EXPORT FontItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit FontItemDelegate(QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    // Every font row is as high as a CJK ideograph of the view's font plus a small margin, so
    // rows of different scripts and faces share one height; a separator is 10 pixels high.
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    // Leaves the example column without text, which drawDisplay paints itself.
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
    // Paints the example text of column 1 into rect; does nothing in other columns.
    virtual void drawDisplay(QPainter *painter, const QStyleOptionViewItem &option,
        const QRect &rect, const QString &text) const;

private:
    // The index being painted, for drawDisplay; null until the first paint.
    mutable const QModelIndex *mIndex = nullptr;
};

} // namespace TavoLib
