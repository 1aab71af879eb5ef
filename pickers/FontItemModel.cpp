#include "pickers/FontItemModel.h"

#include "pickers/PickerRoles.h"
#include "style/Device.h"

#include <QSet>
#include <QTreeView>
#include <limits>
#include <map>

namespace TavoLib {

namespace {

// Internal identifier of every index the font models make; data() ignores anything else.
constexpr quintptr kOwnIndex = 1;
const QString kSeparator = QStringLiteral("separator");

QIcon typeIcon(const char *name)
{
    return QIcon(Device::pixmap(QString::fromLatin1(name), 12, 12));
}

} // namespace

FontItemModel::FontItemModel(
    TAutoPtr<const FontProviderQt> provider, QTreeView *view, bool showExamples, bool omitMissing)
    : QAbstractItemModel(view),
      mProvider(provider),
      mTrueTypeIcon(typeIcon(":/TavoLib/FontHandler/truetypefont-icon")),
      mOpenTypeIcon(typeIcon(":/TavoLib/FontHandler/opentypefont-icon")),
      mType1Icon(typeIcon(":/TavoLib/FontHandler/type1font-icon")),
      mView(view),
      mShowExamples(showExamples)
{
    if (!mProvider)
        return;

    const QFont viewFont = mView ? mView->font() : QFont();
    const double size = viewFont.pixelSize();
    QSet<QString> seen;
    std::map<int, QVector<Item>> sections;

    for (short id : mProvider->fontList(false)) {
        QString name = mProvider->familyName(id);
        const bool symbol = mProvider->isSymbolFamily(name);
        const bool missing = mProvider->isMissing(id);
        if (missing) {
            if (omitMissing)
                continue;
            name = QLatin1Char('{') + mProvider->fontName(id) + QLatin1Char('}');
        }
        if (seen.contains(name))
            continue;

        Item row;
        row.name = name;
        row.id = id;
        if (missing) {
            row.kind = MissingFontKind;
            sections[symbol ? -1 : 0].append(row);
        } else {
            row.kind = FamilyKind;
            row.example = mProvider->exampleText(id);
            row.font = mProvider->qFont(id, size);
            QList<int> keys;
            if (symbol)
                keys.append(-1);
            else
                keys = mProvider->baseWritingSystems(id);
            if (keys.isEmpty())
                keys.append(0);
            for (int key : qAsConst(keys))
                sections[key].append(row);
        }
        seen.insert(name);
    }

    for (const auto &section : sections) {
        if (!mItems.isEmpty()) {
            Item separator;
            separator.roles.insert(Qt::AccessibleDescriptionRole, kSeparator);
            mItems.append(separator);
        }
        mItems += section.second;
    }
}

FontItemModel::~FontItemModel() = default;

const FontItemModel::Item *FontItemModel::item(const QModelIndex &index) const
{
    if (!index.isValid() || index.model() != this || index.internalId() != kOwnIndex
        || index.row() >= mItems.size())
        return nullptr;
    return &mItems.at(index.row());
}

int FontItemModel::columnCount(const QModelIndex &) const
{
    return mShowExamples ? 2 : 1;
}

int FontItemModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : mItems.size();
}

QModelIndex FontItemModel::index(int row, int column, const QModelIndex &parent) const
{
    if (parent.isValid())
        return QModelIndex();
    return createIndex(row, column, kOwnIndex);
}

QModelIndex FontItemModel::parent(const QModelIndex &) const
{
    return QModelIndex();
}

QVariant FontItemModel::data(const QModelIndex &index, int role) const
{
    const Item *row = item(index);
    if (!row)
        return QVariant();

    const auto stored = row->roles.constFind(role);
    if (stored != row->roles.constEnd())
        return stored.value();

    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return column == 1 ? row->example : row->name;
    case Qt::FontRole:
        if (column == 0) {
            if (mProvider && row->id != -1 && mProvider->isEmphasized(row->id)) {
                QFont bold = mView ? mView->font() : QFont();
                bold.setBold(true);
                return bold;
            }
            return QVariant();
        }
        if (column == 1)
            return row->font;
        return QVariant();
    case Qt::TextAlignmentRole:
        return column == 1 ? QVariant(int(Qt::AlignRight)) : QVariant();
    case Qt::DecorationRole:
        if (column != 0 || row->id == -1 || !mProvider)
            return QVariant();
        switch (mProvider->fontType(row->id)) {
        case FontProvider::TrueType:
            return mTrueTypeIcon;
        case FontProvider::OpenType:
            return mOpenTypeIcon;
        case FontProvider::Type1:
            return mType1Icon;
        default:
            return QIcon();
        }
    case FontIdRole:
        return row->kind == MissingFontKind ? QVariant(int(row->id)) : QVariant();
    case FontFamilyRole:
        return row->kind == FamilyKind ? QVariant(row->name) : QVariant();
    default:
        return QVariant();
    }
}

Qt::ItemFlags FontItemModel::flags(const QModelIndex &index) const
{
    const Item *row = item(index);
    if (!row || row->roles.value(Qt::AccessibleDescriptionRole).toString() == kSeparator)
        return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled;
}

QVariant FontItemModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    // Marks the model as one that sizes its rows from the first row.
    if (section == 0 && orientation == Qt::Horizontal && role == StyleIdRole)
        return 1;
    return QAbstractItemModel::headerData(section, orientation, role);
}

bool FontItemModel::insertRows(int row, int count, const QModelIndex &parent)
{
    // Checked by subtraction, since row + count overflows for a huge count; no vector could
    // hold more rows than this anyway.
    const int room = std::numeric_limits<int>::max() / int(sizeof(Item)) - mItems.size();
    if (parent.isValid() || row < 0 || row > mItems.size() || count < 1 || count > room)
        return false;
    beginInsertRows(QModelIndex(), row, row + count - 1);
    mItems.insert(row, count, Item());
    endInsertRows();
    return true;
}

bool FontItemModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || count <= 0 || row < 0 || count > mItems.size() - row)
        return false;
    beginRemoveRows(QModelIndex(), row, row + count - 1);
    mItems.remove(row, count);
    endRemoveRows();
    return true;
}

bool FontItemModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || index.model() != this || index.row() >= mItems.size())
        return false;
    mItems[index.row()].roles.insert(role, value);
    emit dataChanged(index, index);
    return true;
}

} // namespace TavoLib
