#include "browser/TreePropertyBrowser_p.h"

#include "browser/TreePropertyEditorDelegate_p.h"
#include "browser/TreePropertyEditorView_p.h"
#include "browser/TreePropertyRows_p.h"
#include "propertybrowser/QtBrowserItem.h"
#include "propertybrowser/QtProperty.h"
#include "style/Device.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyleOption>

namespace TavoLib {

using namespace TreeRows;

namespace {

QPixmap branchPixmap(QStyle *style, const QPalette &palette, bool open)
{
    // Sharp at any density: drawn at the screen's resolution, in scaled logical pixels.
    // scale() first: it reads the screen, and the ratio is known from then on.
    const int side = qRound(Device::scale(14));
    const double ratio = Device::pixelRatio();
    QPixmap pixmap(QSize(side, side) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QStyleOption option;
    const int margin = qRound(Device::scale(2));
    const int mark = qRound(Device::scale(9));
    option.rect = QRect(margin, margin, mark, mark);
    option.palette = palette;
    option.state = QStyle::State_Children;
    if (open)
        option.state |= QStyle::State_Open;
    QPainter painter(&pixmap);
    style->drawPrimitive(QStyle::PE_IndicatorBranch, &option, &painter);
    painter.end();
    return pixmap;
}

} // namespace

TreePropertyBrowserPrivate::TreePropertyBrowserPrivate(TreePropertyBrowser *browser)
    : mBrowser(browser)
{
}

void TreePropertyBrowserPrivate::init(QWidget *parent)
{
    auto *layout = new QHBoxLayout(parent);
    layout->setContentsMargins(0, 0, 0, 0);
    mTreeWidget = new TreePropertyEditorView(parent);
    mTreeWidget->setEditorPrivate(this);
    // Rows differ in height: a multi-line string takes several lines.
    mTreeWidget->setUniformRowHeights(false);
    mTreeWidget->setIconSize(Device::scaleSize(QSize(18, 18)));
    layout->addWidget(mTreeWidget);
    mTreeWidget->setColumnCount(2);
    mTreeWidget->setHeaderLabels({ QCoreApplication::translate("TreePropertyBrowser", "Property"),
        QCoreApplication::translate("TreePropertyBrowser", "Value") });
    mTreeWidget->setAlternatingRowColors(true);
    mTreeWidget->setEditTriggers(QAbstractItemView::EditKeyPressed);
    mDelegate = new TreePropertyEditorDelegate(parent);
    mDelegate->setEditorPrivate(this);
    mTreeWidget->setItemDelegate(mDelegate);
    QHeaderView *header = mTreeWidget->header();
    header->setSectionsMovable(false);
    // The name column fits its contents at first, whatever the resize mode says.
    header->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    // Where names leave the value column no room to stretch into, Qt gives it the size it had
    // when stretching began: the least, not the style's default (150 px at 144 dpi), so that a
    // narrow tree does not scroll sideways.
    header->resizeSection(1, header->minimumSectionSize());
    header->setStretchLastSection(true);

    QStyle *style = mBrowser->style();
    const QPalette palette = mBrowser->palette();
    const QPixmap closed = branchPixmap(style, palette, false);
    const QPixmap open = branchPixmap(style, palette, true);
    mExpandIcon.addPixmap(closed, QIcon::Normal, QIcon::Off);
    mExpandIcon.addPixmap(closed, QIcon::Selected, QIcon::Off);
    mExpandIcon.addPixmap(open, QIcon::Normal, QIcon::On);
    mExpandIcon.addPixmap(open, QIcon::Selected, QIcon::On);

    connect(mTreeWidget, &QTreeView::collapsed, this, &TreePropertyBrowserPrivate::slotCollapsed);
    connect(mTreeWidget, &QTreeView::expanded, this, &TreePropertyBrowserPrivate::slotExpanded);
    connect(mTreeWidget, &QTreeWidget::currentItemChanged, this,
        &TreePropertyBrowserPrivate::slotCurrentTreeItemChanged);
}

void TreePropertyBrowserPrivate::shutDown()
{
    // An editor that commits on its way out must find rows that no longer answer (the
    // private half stays until the tree is gone).
    mDestroying = true;
    TreePropertyEditorView *view = mTreeWidget;
    mTreeWidget = nullptr;
    view->setEditorPrivate(nullptr);
    mDelegate->setEditorPrivate(nullptr);
    delete view;
}

QWidget *TreePropertyBrowserPrivate::createEditor(QtProperty *property, QWidget *parent) const
{
    return mBrowser->createEditor(property, parent);
}

QtBrowserItem *TreePropertyBrowserPrivate::currentItem() const
{
    if (QTreeWidgetItem *item = mTreeWidget ? mTreeWidget->currentItem() : nullptr)
        return mItemToIndex.value(item);
    return nullptr;
}

void TreePropertyBrowserPrivate::setCurrentItem(QtBrowserItem *item, bool block)
{
    if (!mTreeWidget)
        return;
    const bool blocked = block ? mTreeWidget->blockSignals(true) : false;
    mTreeWidget->setCurrentItem(treeItem(item));
    if (block)
        mTreeWidget->blockSignals(blocked);
}

void TreePropertyBrowserPrivate::editItem(QtBrowserItem *item)
{
    QTreeWidgetItem *row = treeItem(item);
    if (!row || !mTreeWidget)
        return;
    mTreeWidget->setCurrentItem(row, 1);
    mTreeWidget->openEditor(mTreeWidget->valueIndex(row));
}

void TreePropertyBrowserPrivate::closeEditor() const
{
    if (QTreeWidgetItem *edited = mDelegate ? mDelegate->editedItem() : nullptr)
        if (QtBrowserItem *item = mItemToIndex.value(edited))
            mDelegate->closeEditor(item->property());
}

QTreeWidgetItem *TreePropertyBrowserPrivate::editedItem() const
{
    return mDelegate ? mDelegate->editedItem() : nullptr;
}

bool TreePropertyBrowserPrivate::hasValue(QTreeWidgetItem *item) const
{
    QtBrowserItem *browserItem = mItemToIndex.value(item);
    return browserItem ? browserItem->property()->hasValue() : true;
}

QTreeWidgetItem *TreePropertyBrowserPrivate::indexToItem(const QModelIndex &index) const
{
    return mTreeWidget ? mTreeWidget->indexToItem(index) : nullptr;
}

QtBrowserItem *TreePropertyBrowserPrivate::indexToBrowserItem(const QModelIndex &index) const
{
    QTreeWidgetItem *item = indexToItem(index);
    return item ? mItemToIndex.value(item) : nullptr;
}

QtProperty *TreePropertyBrowserPrivate::indexToProperty(const QModelIndex &index) const
{
    QtBrowserItem *item = indexToBrowserItem(index);
    return item ? item->property() : nullptr;
}

bool TreePropertyBrowserPrivate::lastColumn(int column) const
{
    return mTreeWidget && mTreeWidget->header()->visualIndex(column) == mTreeWidget->columnCount() - 1;
}

bool TreePropertyBrowserPrivate::allowUpdateGeometry() const
{
    return !mBrowser->property("BLOCK_UPDATE_GEOMETRY").toBool();
}

QColor TreePropertyBrowserPrivate::calculatedBackgroundColor(QtBrowserItem *item) const
{
    if (!item || !mTreeWidget)
        return QColor();
    return item->parent() ? mTreeWidget->palette().color(QPalette::Midlight)
                          : mTreeWidget->palette().color(QPalette::Button);
}

void TreePropertyBrowserPrivate::disableItem(QTreeWidgetItem *item) const
{
    if (!item)
        return;
    // Qt shows the children of a disabled row disabled already, so the walk goes on below
    // rows that are: an editor open anywhere in the branch closes.
    item->setFlags(item->flags() & ~Qt::ItemIsEnabled);
    if (QtBrowserItem *browserItem = mItemToIndex.value(item)) {
        QWidget *editor = mDelegate->editorOf(browserItem->property());
        QWidget *focus = QApplication::focusWidget();
        if (editor && focus && (focus == editor || editor->isAncestorOf(focus)) && mTreeWidget)
            mTreeWidget->setFocus(Qt::OtherFocusReason);
        mDelegate->closeEditor(browserItem->property());
    }
    for (int i = 0; i < item->childCount(); ++i)
        disableItem(item->child(i));
}

void TreePropertyBrowserPrivate::enableItem(QTreeWidgetItem *item) const
{
    if (!item)
        return;
    item->setFlags(item->flags() | Qt::ItemIsEnabled);
    for (int i = 0; i < item->childCount(); ++i) {
        QTreeWidgetItem *child = item->child(i);
        QtBrowserItem *browserItem = mItemToIndex.value(child);
        if (browserItem && browserItem->property()->isEnabled())
            enableItem(child);
    }
}

void TreePropertyBrowserPrivate::propertyInserted(QtBrowserItem *item, QtBrowserItem *afterItem)
{
    if (!item || !mTreeWidget)
        return;
    QTreeWidgetItem *after = treeItem(afterItem);
    QTreeWidgetItem *parent = treeItem(item->parent());
    QtProperty *property = item->property();
    // The row is filled before it goes into the tree: a loose row tells the view nothing,
    // while each cell set in the tree is a change the view handles one by one.
    auto *row = new Row;
    mItemToIndex[row] = item;
    mIndexToItem[item] = row;
    row->setFlags(row->flags() | Qt::ItemIsEditable);
    // Known once per row: asking the property is a cast per painted cell.
    if (isMultiLine(property)) {
        ++mMultiLineRows;
        mMultiLineItems.insert(row);
    }
    showValue(row, property);
    // A null `after` puts the row first, as the framework means it. Rows mostly come last,
    // so the last row is tried before Qt's search from the front (a pass over the whole
    // level at each row of a long flat list).
    QTreeWidgetItem *level = parent ? parent : mTreeWidget->invisibleRootItem();
    const int last = level->childCount() - 1;
    const int index
        = after && last >= 0 && level->child(last) == after ? last : level->indexOfChild(after);
    level->insertChild(index + 1, row);
    // A top-level row comes as the user left the row of its name, also one rebuilt.
    setExpanded(
        row, parent ? true : mBrowser->mExpansionStates.value(expansionKey(property), true));
    // The parent shows its first child now, as it was asked to when it came.
    if (Row *filled = rowOf(parent); filled && filled->expandWhenFilled) {
        filled->expandWhenFilled = false;
        parent->setExpanded(true);
    }
    // What depends on the row's place: its enabled state under its parent.
    syncEnabled(row, property);
    mTreeWidget->viewport()->update();
    mBrowser->setBackgroundColor(item, calculatedBackgroundColor(item));
}

void TreePropertyBrowserPrivate::propertyRemoved(QtBrowserItem *item)
{
    QTreeWidgetItem *row = treeItem(item);
    if (!row)
        return;
    if (mTreeWidget && mTreeWidget->currentItem() == row)
        mTreeWidget->setCurrentItem(nullptr);
    // The open editor of the row goes with it; its address must not stand for a row.
    mDelegate->forgetItem(row);
    if (mMultiLineItems.remove(row))
        --mMultiLineRows;
    mIndexToItem.remove(item);
    mItemToIndex.remove(row);
    mIndexToBackgroundColor.remove(item);
    delete row;
}

void TreePropertyBrowserPrivate::takeRows(const QList<QtBrowserItem *> &items)
{
    if (!mTreeWidget)
        return;
    // Qt walks every expanded row's persistent index at each removal from the model, so
    // rows that go together leave it together. The items are distinct, and so are their
    // rows: when they are all top-level rows and as many as the tree has, every row goes.
    int topLevelRows = 0;
    for (QtBrowserItem *item : items) {
        QTreeWidgetItem *row = treeItem(item);
        if (!row || row->parent()) {
            topLevelRows = -1;
            break;
        }
        ++topLevelRows;
    }
    if (topLevelRows > 0 && topLevelRows == mTreeWidget->topLevelItemCount()) {
        // Every row goes: the rows and their bookkeeping are dropped at once, and the
        // removals the framework reports next find no row left to take. The tables go
        // first, so that rows a listener adds while the rows leave keep theirs. The
        // framework has let the current item go already; the tree lets it go quietly.
        if (mTreeWidget->currentItem()) {
            const QSignalBlocker quiet(mTreeWidget);
            mTreeWidget->setCurrentItem(nullptr);
        }
        mDelegate->forgetItem(mDelegate->editedItem());
        mIndexToItem.clear();
        mItemToIndex.clear();
        mIndexToBackgroundColor.clear();
        mMultiLineItems.clear();
        mMultiLineRows = 0;
        // One reset of the model: cheaper than taking the rows out as a block of removed rows.
        mTreeWidget->clear();
        return;
    }
    QSet<QTreeWidgetItem *> rows;
    for (QtBrowserItem *item : items) {
        if (QTreeWidgetItem *row = treeItem(item))
            rows.insert(row);
    }
    if (rows.isEmpty())
        return;
    // The framework has let the current item go already; a tree whose current row goes
    // all the same lets it go quietly, else Qt makes a neighbour current as the rows leave.
    for (QTreeWidgetItem *up = mTreeWidget->currentItem(); up; up = up->parent()) {
        if (rows.contains(up)) {
            const QSignalBlocker quiet(mTreeWidget);
            mTreeWidget->setCurrentItem(nullptr);
            break;
        }
    }
    for (QTreeWidgetItem *row : qAsConst(rows)) {
        // A listener told of a change of the current row may have removed rows meanwhile.
        if (!mItemToIndex.contains(row))
            continue;
        if (QTreeWidgetItem *parent = row->parent())
            parent->removeChild(row);
        else
            mTreeWidget->takeTopLevelItem(mTreeWidget->indexOfTopLevelItem(row));
    }
}

void TreePropertyBrowserPrivate::setExpanded(QTreeWidgetItem *item, bool expanded)
{
    if (item->childCount() > 0) {
        item->setExpanded(expanded);
        return;
    }
    Row *row = rowOf(item);
    if (row)
        row->expandWhenFilled = expanded;
    // A row that has lost its children may still be expanded in the tree.
    if (!expanded)
        item->setExpanded(false);
}

bool TreePropertyBrowserPrivate::isExpanded(QTreeWidgetItem *item) const
{
    // A row that lost its children stays expanded in the tree, to show the ones it gets.
    const Row *row = rowOf(item);
    return item->isExpanded() || (row && row->expandWhenFilled);
}

void TreePropertyBrowserPrivate::propertyChanged(QtBrowserItem *item)
{
    if (QTreeWidgetItem *row = treeItem(item))
        updateItem(row);
}

void TreePropertyBrowserPrivate::updateItem(QTreeWidgetItem *item)
{
    QtBrowserItem *browserItem = mItemToIndex.value(item);
    if (!browserItem || !mTreeWidget)
        return;
    QtProperty *property = browserItem->property();
    showValue(item, property);
    fitEditorHeight(item);
    syncEnabled(item, property);
    mTreeWidget->viewport()->update();
}

void TreePropertyBrowserPrivate::showValue(QTreeWidgetItem *item, QtProperty *property)
{
    QIcon expandIcon;
    if (property->hasValue()) {
        const QIcon icon = property->valueIcon();
        const QString text = property->valueText();
        // A new text of the same one-line look changes no row's height or column width:
        // the view is not told cell by cell (each time it would look the row up from the
        // top), the viewport is painted again once. A string qualifies when both texts are
        // plain lines and no placeholder changes its look.
        const TAutoPtr<const StringProperty> string = stringOf(property);
        const QString shown = item->text(1);
        const bool sameLook = shown != text && icon.isNull() == item->icon(1).isNull()
            && !isMultiLineRow(item)
            && (!string
                || (string->placeholderText().isEmpty() && isPlainLine(text) && isPlainLine(shown)))
            && mTreeWidget->header()->sectionResizeMode(1) != QHeaderView::ResizeToContents;
        setIcon(item, 1, icon);
        if (sameLook) {
            const QSignalBlocker quiet(mTreeWidget->model());
            item->setText(1, text);
        } else {
            item->setText(1, text);
        }
        showPlaceholderLook(item, property);
    } else if (mMarkPropertiesWithoutValue && !mTreeWidget->rootIsDecorated()) {
        expandIcon = mExpandIcon;
    }
    setIcon(item, 0, expandIcon);
    item->setText(0, property->propertyName());
}

void TreePropertyBrowserPrivate::setIcon(QTreeWidgetItem *item, int column, const QIcon &icon)
{
    // Qt cannot compare icons, so every icon set is a change the view lays out again;
    // an icon that stays null, or stays the same icon, is not set.
    const QIcon shown = item->icon(column);
    if (shown.isNull() ? icon.isNull() : shown.cacheKey() == icon.cacheKey())
        return;
    item->setIcon(column, icon);
}

void TreePropertyBrowserPrivate::showPlaceholderLook(QTreeWidgetItem *item, QtProperty *property)
{
    const TAutoPtr<const StringProperty> string = stringOf(property);
    if (!string || string->placeholderText().isEmpty())
        return;
    const bool empty = string->toString().isEmpty();
    QFont font = item->font(1);
    font.setItalic(empty);
    item->setFont(1, font);
    item->setForeground(
        1, mTreeWidget->palette().brush(empty ? QPalette::Disabled : QPalette::Active, QPalette::Text));
}

void TreePropertyBrowserPrivate::fitEditorHeight(QTreeWidgetItem *item)
{
    // A multi-line editor stays as tall as its own row while its text grows; other rows'
    // refreshes leave it alone.
    if (item != mDelegate->editedItem())
        return;
    if (QWidget *edited = mDelegate->editedWidget())
        if (textEditIn(edited))
            edited->setFixedHeight(mTreeWidget->visualItemRect(item).height());
}

void TreePropertyBrowserPrivate::syncEnabled(QTreeWidgetItem *item, QtProperty *property)
{
    bool enabled = property->isEnabled();
    if (QTreeWidgetItem *parent = item->parent())
        enabled = enabled && (parent->flags() & Qt::ItemIsEnabled);
    if (enabled != bool(item->flags() & Qt::ItemIsEnabled)) {
        if (enabled)
            enableItem(item);
        else
            disableItem(item);
    }
}

void TreePropertyBrowserPrivate::slotCollapsed(const QModelIndex &index)
{
    if (QtBrowserItem *item = indexToBrowserItem(index)) {
        rememberExpansion(item, false);
        emit mBrowser->collapsed(item);
    }
}

void TreePropertyBrowserPrivate::slotExpanded(const QModelIndex &index)
{
    if (QtBrowserItem *item = indexToBrowserItem(index)) {
        rememberExpansion(item, true);
        emit mBrowser->expanded(item);
    }
}

void TreePropertyBrowserPrivate::rememberExpansion(QtBrowserItem *item, bool expanded)
{
    if (item && !item->parent())
        mBrowser->mExpansionStates[expansionKey(item->property())] = expanded;
}

void TreePropertyBrowserPrivate::slotCurrentBrowserItemChanged(QtBrowserItem *item)
{
    if (mBrowserChangedBlocked || item == currentItem())
        return;
    setCurrentItem(item, true);
}

void TreePropertyBrowserPrivate::slotCurrentTreeItemChanged(QTreeWidgetItem *current, QTreeWidgetItem *)
{
    mBrowserChangedBlocked = true;
    mBrowser->setCurrentItem(current ? mItemToIndex.value(current) : nullptr);
    mBrowserChangedBlocked = false;
}

void TreePropertyBrowserPrivate::refreshHeadings()
{
    for (QTreeWidgetItem *item : mItemToIndex.keys())
        if (!hasValue(item))
            updateItem(item);
}

} // namespace TavoLib
