#pragma once

// IconMenuItemModel lists the visible actions of a QMenu as rows, for icon menu popups and the
// icon menu bar. Separators are kept only between entries: never first, last or doubled. The
// rows are taken when the model is made and again on resetData(); a menu that is deleted
// leaves a model whose indexes are all invalid. Actions added to or removed from the menu
// later reset the rows, so a deleted action is never reached.
#include "style/TavoLibGuiExport.h"

#include <QAbstractItemModel>
#include <QList>
#include <QPointer>

class QAction;
class QMenu;

class TAVOLIBGUI_EXPORT IconMenuItemModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    IconMenuItemModel(QMenu *menu, QObject *parent);

    // The action of a row; null for an invalid index or once the menu is gone.
    QAction *action(const QModelIndex &index) const;
    // Takes the menu's visible actions again.
    void resetData();

    QModelIndex index(
        int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

protected:
    // Follows the menu's actions as they are added, removed, changed or deleted.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<QMenu> mMenu;
    QList<QAction *> mActions;
};
