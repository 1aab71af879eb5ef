#pragma once

// The delegate of the tree browser: makes the one editor of the value cell clicked, places
// it, and paints the other cells as text and icon.
#include <QFont>
#include <QHash>
#include <QItemDelegate>
#include <QMap>
#include <QSize>

class QTreeWidgetItem;
class QtProperty;

namespace TavoLib {

class TreePropertyBrowserPrivate;

// Sizes of single-line cells by text, icon and font, for as long as the view's font and
// icon size stay. The tree asks every row again at each layout, and laying out a text is
// costly. Most of those questions are for a row's height only, which for a line of plain
// text does not depend on the text: those are answered by icon and font alone.
class CellSizeCache
{
public:
    // The size kept for the cell, or an invalid size; forgets everything when the font or
    // icon size has changed or the cache has grown too large.
    QSize find(const QStyleOptionViewItem &option, const QModelIndex &index);
    void insert(const QSize &size) { mSizes.insert(mKey, size); }
    // The height of a cell of one line of Latin-1 text (no other font can take part, so no
    // other line height), as a size of width 0; invalid when not known or not such a cell.
    QSize findHeight(const QStyleOptionViewItem &option, const QModelIndex &index);
    void insertHeight(const QSize &size);

private:
    void keep(const QStyleOptionViewItem &option);
    // Icon and font of the cell: the part of the key that is not the text.
    static QString lookOf(const QModelIndex &index);

    QHash<QString, QSize> mSizes;
    QHash<QString, int> mHeights;
    QFont mFont;
    QSize mDecoration;
    // The keys of the last cell looked for, for insert() and insertHeight().
    QString mKey;
    QString mHeightKey;
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
    QWidget *editorOf(QtProperty *property) const { return mPropertyToEditor.value(property); }
    // The row is going: its address no longer names the edited row.
    void forgetItem(QTreeWidgetItem *item);
    QTreeWidgetItem *editedItem() const { return mEditedItem; }
    QWidget *editedWidget() const { return mEditedWidget; }
    // Set while the view measures a column: only then are the cells' widths used.
    void setWidthsWanted(bool wanted) { mWidthsWanted = wanted; }
    bool widthsWanted() const { return mWidthsWanted; }
    // kept on purpose: not called by the tree itself, offered for code that places things
    // in a row.
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
    mutable CellSizeCache mSizes;
    bool mWidthsWanted = false;
};

} // namespace TavoLib
