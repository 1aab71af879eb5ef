#include "pickers/FontStyleItemModel.h"

#include "pickers/PickerRoles.h"

#include <QTreeView>

namespace TavoLib {

namespace {

constexpr quintptr kOwnIndex = 1;

} // namespace

FontStyleItemModel::FontStyleItemModel(TAutoPtr<const FontProviderQt> provider,
    const QString &family, QTreeView *view, bool showExamples)
    : QAbstractItemModel(view),
      mProvider(provider),
      mFamily(family),
      mView(view),
      mShowExamples(showExamples)
{
    if (!mProvider)
        return;
    const double size = (mView ? mView->font() : QFont()).pixelSize();
    for (short id : mProvider->fontsOfFamily(mFamily)) {
        Item row;
        row.name = mProvider->styleName(id);
        row.example = mProvider->exampleText(id);
        row.id = id;
        row.font = mProvider->qFont(id, size);
        mItems.append(row);
    }
}

FontStyleItemModel::~FontStyleItemModel() = default;

const FontStyleItemModel::Item *FontStyleItemModel::item(const QModelIndex &index) const
{
    if (!index.isValid() || index.model() != this || index.internalId() != kOwnIndex
        || index.row() >= mItems.size())
        return nullptr;
    return &mItems.at(index.row());
}

int FontStyleItemModel::columnCount(const QModelIndex &) const
{
    return mShowExamples ? 2 : 1;
}

int FontStyleItemModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : mItems.size();
}

QModelIndex FontStyleItemModel::index(int row, int column, const QModelIndex &parent) const
{
    if (parent.isValid())
        return QModelIndex();
    return createIndex(row, column, kOwnIndex);
}

QModelIndex FontStyleItemModel::parent(const QModelIndex &) const
{
    return QModelIndex();
}

QVariant FontStyleItemModel::data(const QModelIndex &index, int role) const
{
    const Item *row = item(index);
    if (!row)
        return QVariant();
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return column == 1 ? row->example : row->name;
    case Qt::FontRole:
        if (column == 0) {
            if (mProvider && mProvider->isEmphasized(row->id)) {
                QFont bold = mView ? mView->font() : QFont();
                bold.setBold(true);
                return bold;
            }
            return QVariant();
        }
        return column == 1 ? QVariant(row->font) : QVariant();
    case Qt::TextAlignmentRole:
        return column == 1 ? QVariant(int(Qt::AlignRight)) : QVariant();
    case FontIdRole:
        return int(row->id);
    default:
        return QVariant();
    }
}

Qt::ItemFlags FontStyleItemModel::flags(const QModelIndex &index) const
{
    return item(index) ? Qt::ItemIsSelectable | Qt::ItemIsEnabled : Qt::NoItemFlags;
}

bool FontStyleItemModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || count <= 0 || row < 0 || count > mItems.size() - row)
        return false;
    beginRemoveRows(QModelIndex(), row, row + count - 1);
    mItems.remove(row, count);
    endRemoveRows();
    return true;
}

} // namespace TavoLib
