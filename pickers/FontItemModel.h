#pragma once

// FontItemModel lists the font families of a provider for a family combo box: one row per
// family and writing system section (symbol families first, then families without a writing
// system, then by writing system number), with separator rows between sections. Fonts the
// document uses but that are not installed appear by their full name in braces and answer
// with their identifier, since there are no styles to choose from. With examples switched on
// a second column carries a sample of each family in its own face.
#include "core/FontProviderQt.h"
#include "style/TavoLibGuiExport.h"

#include <QAbstractItemModel>
#include <QFont>
#include <QIcon>
#include <QMap>
#include <QVariant>
#include <QVector>

class QTreeView;

namespace TavoLib {

class TAVOLIBGUI_EXPORT FontItemModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    // Row kinds; the numbers double as the one identifying role a row answers.
    enum Kind { SeparatorKind = 0x100, MissingFontKind = 0x11F, FamilyKind = 0x120 };

    struct Item
    {
        QString name;
        QString example;
        int kind = SeparatorKind;
        short id = -1;
        QFont font;
        // Not used by the model; kept so that rows keep their established layout.
        QString reserved;
        // Values written through setData, answered ahead of everything else.
        QMap<int, QVariant> roles;
    };

    // Builds the rows once from the provider's current state; the view becomes the parent
    // and lends its font to the rows. omitMissing leaves out fonts that are not installed.
    FontItemModel(TAutoPtr<const FontProviderQt> provider, QTreeView *view, bool showExamples,
        bool omitMissing);
    ~FontItemModel() override;

    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QModelIndex index(
        int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    QVariant headerData(
        int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    // Inserts empty, unselectable-looking rows; a combo box uses this to add separators.
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

private:
    const Item *item(const QModelIndex &index) const;

    TAutoPtr<const FontProviderQt> mProvider;
    QVector<Item> mItems;
    QIcon mTrueTypeIcon;
    QIcon mOpenTypeIcon;
    QIcon mType1Icon;
    QTreeView *mView;
    bool mShowExamples;
};

} // namespace TavoLib
