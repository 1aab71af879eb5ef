#pragma once

// The inner parts of TreePropertyBrowser: the private half that keeps the rows of the tree
// widget in step with the browser items, the tree widget that paints rows and opens the
// one editor, and the delegate that makes and places that editor.
#include "browser/TreePropertyBrowser.h"

#include <QHash>
#include <QIcon>
#include <QImage>
#include <QItemDelegate>
#include <QPointer>
#include <QSet>
#include <QTreeWidget>

namespace TavoLib {

class TreePropertyEditorView;
class TreePropertyEditorDelegate;

class TreePropertyBrowserPrivate : public QObject
{
    Q_OBJECT
public:
    explicit TreePropertyBrowserPrivate(TreePropertyBrowser *browser);

    void init(QWidget *parent);
    QWidget *createEditor(QtProperty *property, QWidget *parent) const;
    QtBrowserItem *currentItem() const;
    void setCurrentItem(QtBrowserItem *item, bool block);
    void editItem(QtBrowserItem *item);
    void closeEditor() const;
    QTreeWidgetItem *editedItem() const;
    bool hasValue(QTreeWidgetItem *item) const;

    QTreeWidgetItem *indexToItem(const QModelIndex &index) const;
    QtBrowserItem *indexToBrowserItem(const QModelIndex &index) const;
    QtProperty *indexToProperty(const QModelIndex &index) const;
    bool lastColumn(int column) const;
    bool markPropertiesWithoutValue() const { return mMarkPropertiesWithoutValue; }
    bool allowUpdateGeometry() const;
    QColor calculatedBackgroundColor(QtBrowserItem *item) const;
    void disableItem(QTreeWidgetItem *item) const;
    void enableItem(QTreeWidgetItem *item) const;

    void propertyInserted(QtBrowserItem *item, QtBrowserItem *afterItem);
    void propertyRemoved(QtBrowserItem *item);
    void propertyChanged(QtBrowserItem *item);
    void updateItem(QTreeWidgetItem *item);

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
    // Rows that are to be expanded and have no children yet. Qt keeps every expanded row as
    // a persistent index, which each insertion and removal of a row walks; so a row is only
    // expanded in the tree once it has a child to show.
    QSet<QTreeWidgetItem *> mExpandWhenFilled;
    // Rows of multi-line texts, whose height follows the width of the value column.
    int mMultiLineRows = 0;
    void setExpanded(QTreeWidgetItem *item, bool expanded);
    bool isExpanded(QTreeWidgetItem *item) const;

public slots:
    void slotCollapsed(const QModelIndex &index);
    void slotExpanded(const QModelIndex &index);
    void slotCurrentBrowserItemChanged(QtBrowserItem *item);
    void slotCurrentTreeItemChanged(QTreeWidgetItem *current, QTreeWidgetItem *previous);
};

class TreePropertyEditorDelegate : public QItemDelegate
{
    Q_OBJECT
public:
    explicit TreePropertyEditorDelegate(QObject *parent = nullptr);

    void setEditorPrivate(TreePropertyBrowserPrivate *editorPrivate) { mEditorPrivate = editorPrivate; }
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    // The editors talk to their properties themselves; the tree's items hold no data to
    // exchange with them.
    void setModelData(QWidget *, QAbstractItemModel *, const QModelIndex &) const override { }
    void setEditorData(QWidget *, const QModelIndex &) const override { }
    bool eventFilter(QObject *object, QEvent *event) override;

    void closeEditor(QtProperty *property);
    // The row is going: its address no longer names the edited row.
    void forgetItem(QTreeWidgetItem *item);
    QTreeWidgetItem *editedItem() const { return mEditedItem; }
    QWidget *editedWidget() const { return mEditedWidget; }
    int indentation(const QModelIndex &index) const;

protected:
    void drawDecoration(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
        const QPixmap &pixmap) const override;
    void drawDisplay(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
        const QString &text) const override;

private slots:
    void slotEditorDestroyed(QObject *object);

private:
    mutable QMap<QWidget *, QtProperty *> mEditorToProperty;
    mutable QMap<QtProperty *, QWidget *> mPropertyToEditor;
    TreePropertyBrowserPrivate *mEditorPrivate = nullptr;
    mutable QTreeWidgetItem *mEditedItem = nullptr;
    mutable QWidget *mEditedWidget = nullptr;
    mutable bool mDisablePainting = false;
    // The row being painted, for drawDecoration.
    mutable QtProperty *mPaintedProperty = nullptr;
    // Sizes of single-line cells by text, icon and font, for the font and icon size below.
    mutable QHash<QString, QSize> mSizes;
    mutable QFont mSizeFont;
    mutable QSize mSizeDecoration;
};

class TreePropertyEditorView : public QTreeWidget
{
    Q_OBJECT
public:
    explicit TreePropertyEditorView(QWidget *parent = nullptr);

    void setEditorPrivate(TreePropertyBrowserPrivate *editorPrivate) { mEditorPrivate = editorPrivate; }
    QTreeWidgetItem *indexToItem(const QModelIndex &index) const { return itemFromIndex(index); }
    void forceUpdateGeometries() { updateGeometries(); }

protected slots:
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

protected:
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    void drawBranches(QPainter *painter, const QRect &rect, const QModelIndex &index) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    bool event(QEvent *event) override;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void updateGeometries() override;

private:
    TreePropertyBrowserPrivate *mEditorPrivate = nullptr;
    // The branch arrows, closed and open, for the colour and resolution they were made for.
    mutable QImage mArrows[2];
    mutable QColor mArrowColour;
    mutable double mArrowRatio = 0;
};

} // namespace TavoLib
