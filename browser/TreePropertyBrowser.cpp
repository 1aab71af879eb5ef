#include "browser/TreePropertyBrowser.h"

#include "browser/TreeExpansionState_p.h"
#include "browser/TreePropertyBrowser_p.h"
#include "browser/TreePropertyEditorDelegate_p.h"
#include "browser/TreePropertyEditorView_p.h"
#include "browser/TreePropertyRows_p.h"
#include "propertybrowser/QtBrowserItem.h"
#include "propertybrowser/QtProperty.h"

#include <QHeaderView>

namespace TavoLib {

TreePropertyBrowser::TreePropertyBrowser(QWidget *parent)
    : QtAbstractPropertyBrowser(parent), mPrivate(new TreePropertyBrowserPrivate(this))
{
    mPrivate->init(this);
    connect(this, &QtAbstractPropertyBrowser::currentItemChanged, mPrivate,
        &TreePropertyBrowserPrivate::slotCurrentBrowserItemChanged);
}

TreePropertyBrowser::~TreePropertyBrowser()
{
    mPrivate->shutDown();
    delete mPrivate;
}

int TreePropertyBrowser::indentation() const
{
    return mPrivate->mTreeWidget->indentation();
}

void TreePropertyBrowser::setIndentation(int indentation)
{
    mPrivate->mTreeWidget->setIndentation(indentation);
}

bool TreePropertyBrowser::rootIsDecorated() const
{
    return mPrivate->mTreeWidget->rootIsDecorated();
}

void TreePropertyBrowser::setRootIsDecorated(bool show)
{
    mPrivate->mTreeWidget->setRootIsDecorated(show);
    // The painted expand icon of headings depends on it.
    mPrivate->refreshHeadings();
}

bool TreePropertyBrowser::alternatingRowColors() const
{
    return mPrivate->mTreeWidget->alternatingRowColors();
}

void TreePropertyBrowser::setAlternatingRowColors(bool enable)
{
    mPrivate->mTreeWidget->setAlternatingRowColors(enable);
}

bool TreePropertyBrowser::isHeaderVisible() const
{
    return mPrivate->mHeaderVisible;
}

void TreePropertyBrowser::setHeaderVisible(bool visible)
{
    if (mPrivate->mHeaderVisible == visible)
        return;
    mPrivate->mHeaderVisible = visible;
    mPrivate->mTreeWidget->header()->setVisible(visible);
}

TreePropertyBrowser::ResizeMode TreePropertyBrowser::resizeMode() const
{
    return mPrivate->mResizeMode;
}

void TreePropertyBrowser::setResizeMode(ResizeMode mode)
{
    if (mPrivate->mResizeMode == mode)
        return;
    mPrivate->mResizeMode = mode;
    QHeaderView::ResizeMode headerMode = QHeaderView::Stretch;
    switch (mode) {
    case Interactive:
        headerMode = QHeaderView::Interactive;
        break;
    case Fixed:
        headerMode = QHeaderView::Fixed;
        break;
    case ResizeToContents:
        headerMode = QHeaderView::ResizeToContents;
        break;
    case Stretch:
        break;
    }
    mPrivate->mTreeWidget->header()->setSectionResizeMode(headerMode);
}

int TreePropertyBrowser::splitterPosition() const
{
    return mPrivate->mTreeWidget->header()->sectionSize(0);
}

void TreePropertyBrowser::setSplitterPosition(int position)
{
    mPrivate->mTreeWidget->header()->resizeSection(0, position);
}

bool TreePropertyBrowser::propertiesWithoutValueMarked() const
{
    return mPrivate->mMarkPropertiesWithoutValue;
}

void TreePropertyBrowser::setPropertiesWithoutValueMarked(bool mark)
{
    if (mPrivate->mMarkPropertiesWithoutValue == mark)
        return;
    mPrivate->mMarkPropertiesWithoutValue = mark;
    mPrivate->refreshHeadings();
    mPrivate->mTreeWidget->viewport()->update();
}

QByteArray TreePropertyBrowser::saveState()
{
    for (QtBrowserItem *item : topLevelItems())
        mExpansionStates[TreeRows::expansionKey(item->property())] = isExpanded(item);
    return TreeExpansionState::write(mExpansionStates);
}

void TreePropertyBrowser::restoreState(const QByteArray &state)
{
    QMap<QString, bool> states;
    if (!TreeExpansionState::read(state, &states))
        return;
    mExpansionStates = states;
    for (QtBrowserItem *item : topLevelItems()) {
        const auto found = mExpansionStates.constFind(TreeRows::expansionKey(item->property()));
        if (found != mExpansionStates.constEnd() && !found.value())
            setExpanded(item, false);
    }
}

void TreePropertyBrowser::blockUpdateGeometries(bool block)
{
    setProperty("BLOCK_UPDATE_GEOMETRY", block);
}

void TreePropertyBrowser::forceUpdateGeometries()
{
    if (mPrivate->mTreeWidget)
        mPrivate->mTreeWidget->forceUpdateGeometries();
}

QColor TreePropertyBrowser::backgroundColor(QtBrowserItem *item) const
{
    return mPrivate->mIndexToBackgroundColor.value(item);
}

void TreePropertyBrowser::setBackgroundColor(QtBrowserItem *item, const QColor &color)
{
    if (!mPrivate->treeItem(item))
        return;
    if (color.isValid())
        mPrivate->mIndexToBackgroundColor[item] = color;
    else
        mPrivate->mIndexToBackgroundColor.remove(item);
    mPrivate->mTreeWidget->viewport()->update();
}

QColor TreePropertyBrowser::calculatedBackgroundColor(QtBrowserItem *item) const
{
    return mPrivate->calculatedBackgroundColor(item);
}

void TreePropertyBrowser::setExpanded(QtBrowserItem *item, bool expanded)
{
    if (QTreeWidgetItem *treeItem = mPrivate->treeItem(item)) {
        mPrivate->setExpanded(treeItem, expanded);
        mPrivate->rememberExpansion(item, expanded);
    }
}

bool TreePropertyBrowser::isExpanded(QtBrowserItem *item) const
{
    QTreeWidgetItem *treeItem = mPrivate->treeItem(item);
    return treeItem && mPrivate->isExpanded(treeItem);
}

void TreePropertyBrowser::setItemVisible(QtBrowserItem *item, bool visible)
{
    if (QTreeWidgetItem *treeItem = mPrivate->treeItem(item))
        treeItem->setHidden(!visible);
}

bool TreePropertyBrowser::isItemVisible(QtBrowserItem *item) const
{
    QTreeWidgetItem *treeItem = mPrivate->treeItem(item);
    return treeItem && !treeItem->isHidden();
}

void TreePropertyBrowser::editItem(QtBrowserItem *item)
{
    mPrivate->editItem(item);
}

void TreePropertyBrowser::closeEditor() const
{
    mPrivate->closeEditor();
}

void TreePropertyBrowser::itemInserted(QtBrowserItem *item, QtBrowserItem *afterItem)
{
    if (!mPrivate->mDestroying)
        mPrivate->propertyInserted(item, afterItem);
}

void TreePropertyBrowser::itemRemoved(QtBrowserItem *item)
{
    if (!mPrivate->mDestroying)
        mPrivate->propertyRemoved(item);
}

void TreePropertyBrowser::itemsAboutToBeRemoved(const QList<QtBrowserItem *> &items)
{
    if (!mPrivate->mDestroying)
        mPrivate->takeRows(items);
}

void TreePropertyBrowser::itemChanged(QtBrowserItem *item)
{
    if (!mPrivate->mDestroying)
        mPrivate->propertyChanged(item);
}

} // namespace TavoLib
