#pragma once

// The private half of TreePropertyBrowser: keeps the rows of the tree widget in step with
// the browser items. The tree widget that paints rows and opens the one editor is in
// TreePropertyEditorView_p.h, the delegate that makes and places that editor in
// TreePropertyEditorDelegate_p.h.
#include "browser/TreePropertyBrowser.h"

#include <QIcon>
#include <QMap>
#include <QSet>

class QTreeWidgetItem;

namespace TavoLib {

class TreePropertyEditorView;
class TreePropertyEditorDelegate;

class TreePropertyBrowserPrivate : public QObject
{
    Q_OBJECT
public:
    explicit TreePropertyBrowserPrivate(TreePropertyBrowser *browser);

    void init(QWidget *parent);
    // The browser is being destroyed: the tree goes first, with its open editor.
    void shutDown();
    QWidget *createEditor(QtProperty *property, QWidget *parent) const;
    QtBrowserItem *currentItem() const;
    void setCurrentItem(QtBrowserItem *item, bool block);
    void editItem(QtBrowserItem *item);
    void closeEditor() const;
    QTreeWidgetItem *editedItem() const;
    bool hasValue(QTreeWidgetItem *item) const;

    TreePropertyEditorView *treeWidget() const { return mTreeWidget; }
    TreePropertyEditorDelegate *delegate() const { return mDelegate; }
    // The tree row of a browser item, or null.
    QTreeWidgetItem *treeItem(QtBrowserItem *item) const { return mIndexToItem.value(item); }
    QtBrowserItem *browserItem(QTreeWidgetItem *item) const { return mItemToIndex.value(item); }
    QTreeWidgetItem *indexToItem(const QModelIndex &index) const;
    QtBrowserItem *indexToBrowserItem(const QModelIndex &index) const;
    QtProperty *indexToProperty(const QModelIndex &index) const;
    // kept on purpose: not called by the tree itself, offered beside indentation() of the
    // delegate for code that places things by column.
    bool lastColumn(int column) const;
    bool markPropertiesWithoutValue() const { return mMarkPropertiesWithoutValue; }
    bool allowUpdateGeometry() const;
    int multiLineRows() const { return mMultiLineRows; }
    bool isMultiLineRow(QTreeWidgetItem *item) const { return mMultiLineRows > 0 && mMultiLineItems.contains(item); }
    bool isMultiLineRow(const QModelIndex &index) const
    {
        return mMultiLineRows > 0 && mMultiLineItems.contains(indexToItem(index));
    }
    QColor calculatedBackgroundColor(QtBrowserItem *item) const;
    void disableItem(QTreeWidgetItem *item) const;
    void enableItem(QTreeWidgetItem *item) const;

    void propertyInserted(QtBrowserItem *item, QtBrowserItem *afterItem);
    void propertyRemoved(QtBrowserItem *item);
    // Takes the rows of the items, with their children, out of the tree in one step each;
    // propertyRemoved then deletes the loose rows one by one. When the items are all the
    // top-level rows, every row is deleted here at once.
    void takeRows(const QList<QtBrowserItem *> &items);
    void propertyChanged(QtBrowserItem *item);
    // Shows the row's property again: value, look, the open editor's height, enabled state.
    void updateItem(QTreeWidgetItem *item);
    void showValue(QTreeWidgetItem *item, QtProperty *property);
    static void setIcon(QTreeWidgetItem *item, int column, const QIcon &icon);
    // An empty string with a placeholder shows in italics and greyed.
    void showPlaceholderLook(QTreeWidgetItem *item, QtProperty *property);
    void fitEditorHeight(QTreeWidgetItem *item);
    void syncEnabled(QTreeWidgetItem *item, QtProperty *property);
    // Refreshes every row without a value: their look follows the browser's settings.
    void refreshHeadings();

    void setExpanded(QTreeWidgetItem *item, bool expanded);
    // Keeps a top-level row's expansion by name, for the rows that replace it and saveState.
    void rememberExpansion(QtBrowserItem *item, bool expanded);
    bool isExpanded(QTreeWidgetItem *item) const;

    TreePropertyBrowser *mBrowser;
    QMap<QtBrowserItem *, QTreeWidgetItem *> mIndexToItem;
    QMap<QTreeWidgetItem *, QtBrowserItem *> mItemToIndex;
    QMap<QtBrowserItem *, QColor> mIndexToBackgroundColor;
    TreePropertyEditorView *mTreeWidget = nullptr;
    bool mHeaderVisible = true;
    TreePropertyBrowser::ResizeMode mResizeMode = TreePropertyBrowser::Stretch;
    TreePropertyEditorDelegate *mDelegate = nullptr;
    bool mMarkPropertiesWithoutValue = false;
    bool mBrowserChangedBlocked = false;
    QIcon mExpandIcon;
    // Set while the browser is destroyed: rows no longer follow the framework.
    bool mDestroying = false;
    // Rows of multi-line texts, whose height follows the width of the value column.
    int mMultiLineRows = 0;
    QSet<QTreeWidgetItem *> mMultiLineItems;

public slots:
    void slotCollapsed(const QModelIndex &index);
    void slotExpanded(const QModelIndex &index);
    void slotCurrentBrowserItemChanged(QtBrowserItem *item);
    void slotCurrentTreeItemChanged(QTreeWidgetItem *current, QTreeWidgetItem *previous);
};

} // namespace TavoLib
