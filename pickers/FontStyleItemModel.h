#pragma once

// FontStyleItemModel lists the styles of one font family for a style combo box, in the
// provider's order, each answering with its font identifier. With examples switched on a
// second column carries a sample of each style in its own face.
#include "core/FontProviderQt.h"
#include "style/TavoLibGuiExport.h"

#include <QAbstractItemModel>
#include <QFont>
#include <QVector>

class QTreeView;

namespace TavoLib {

class TAVOLIBGUI_EXPORT FontStyleItemModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    struct Item
    {
        QString name;
        QString example;
        short id = -1;
        QFont font;
    };

    // Builds the rows once from the provider's current state; the view becomes the parent.
    FontStyleItemModel(TAutoPtr<const FontProviderQt> provider, const QString &family,
        QTreeView *view, bool showExamples);
    ~FontStyleItemModel() override;

    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QModelIndex index(
        int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;

private:
    const Item *item(const QModelIndex &index) const;

    TAutoPtr<const FontProviderQt> mProvider;
    QString mFamily;
    QVector<Item> mItems;
    QTreeView *mView;
    bool mShowExamples;
};

} // namespace TavoLib
