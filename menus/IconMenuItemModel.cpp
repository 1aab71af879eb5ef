#include "menus/IconMenuItemModel.h"

#include <QAction>
#include <QActionEvent>
#include <QKeySequence>
#include <QMenu>

IconMenuItemModel::IconMenuItemModel(QMenu *menu, QObject *parent)
    : QAbstractItemModel(parent), mMenu(menu)
{
    if (menu)
        menu->installEventFilter(this);
    resetData();
}

bool IconMenuItemModel::eventFilter(QObject *watched, QEvent *event)
{
    // Only action events are compared with the menu: a menu being destroyed is no QMenu any
    // more, and its other events must not go through the guarded pointer.
    const QEvent::Type type = event->type();
    const bool actionEvent = type == QEvent::ActionAdded || type == QEvent::ActionRemoved
        || type == QEvent::ActionChanged;
    if (actionEvent && !mMenu.isNull() && watched == mMenu.data()) {
        switch (type) {
        case QEvent::ActionAdded:
        case QEvent::ActionRemoved:
            resetData();
            break;
        case QEvent::ActionChanged: {
            auto *a = static_cast<QActionEvent *>(event)->action();
            const int row = mActions.indexOf(a);
            if (a->isVisible() != (row >= 0) || (row >= 0 && a->isSeparator())) {
                resetData();
            } else if (row >= 0) {
                const QModelIndex changed = index(row, 0);
                emit dataChanged(changed, changed);
            }
            break;
        }
        default:
            break;
        }
    }
    return QAbstractItemModel::eventFilter(watched, event);
}

QAction *IconMenuItemModel::action(const QModelIndex &index) const
{
    if (!index.isValid() || !mMenu || index.model() != this)
        return nullptr;
    if (index.row() < 0 || index.row() >= mActions.size())
        return nullptr;
    return mActions.at(index.row());
}

void IconMenuItemModel::resetData()
{
    beginResetModel();
    mActions.clear();
    if (mMenu) {
        bool lastIsSeparator = false;
        const QList<QAction *> actions = mMenu->actions();
        for (QAction *a : actions) {
            if (!a->isVisible())
                continue;
            if (!a->isSeparator()) {
                mActions.append(a);
                lastIsSeparator = false;
            } else if (!lastIsSeparator && !mActions.isEmpty()) {
                mActions.append(a);
                lastIsSeparator = true;
            }
        }
        if (lastIsSeparator)
            mActions.removeLast();
    }
    endResetModel();
}

QModelIndex IconMenuItemModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!mMenu || parent.isValid() || column != 0 || row < 0 || row >= mActions.size())
        return QModelIndex();
    return createIndex(row, column, mActions.at(row));
}

QModelIndex IconMenuItemModel::parent(const QModelIndex &) const
{
    return QModelIndex();
}

int IconMenuItemModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : mActions.size();
}

int IconMenuItemModel::columnCount(const QModelIndex &) const
{
    return 1;
}

QVariant IconMenuItemModel::data(const QModelIndex &index, int role) const
{
    QAction *a = action(index);
    if (!a)
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return a->text().replace(QStringLiteral("&&"), QStringLiteral("&"));
    case Qt::DecorationRole:
        return a->icon();
    case Qt::ToolTipRole:
        return QString();
    case Qt::CheckStateRole:
        return a->isChecked();
    case Qt::UserRole + 1:
        return a->isSeparator();
    case Qt::UserRole + 2:
        return a->shortcut().toString(QKeySequence::NativeText);
    default:
        return QVariant();
    }
}

Qt::ItemFlags IconMenuItemModel::flags(const QModelIndex &index) const
{
    QAction *a = action(index);
    if (!a || a->isSeparator())
        return Qt::NoItemFlags;
    Qt::ItemFlags f = Qt::ItemIsSelectable;
    if (a->isEnabled())
        f |= Qt::ItemIsEnabled;
    return f;
}
