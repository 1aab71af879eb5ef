#pragma once

// FontTreeView is the pop-up list of the font combo boxes. It treats a row as one item
// (the name column stands for the row), never scrolls sideways, and gives every row the
// height of the first, so a long list of faces lays out without measuring each face.
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
