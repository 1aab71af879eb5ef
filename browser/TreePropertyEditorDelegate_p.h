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
// costly.
class CellSizeCache
{
public:
    // The size kept for the cell, or an invalid size; forgets everything when the font or
    // icon size has changed or the cache has grown too large.
    QSize find(const QStyleOptionViewItem &option, const QModelIndex &index);
    void insert(const QSize &size) { mSizes.insert(mKey, size); }

private:
    QHash<QString, QSize> mSizes;
    QFont mFont;
    QSize mDecoration;
    // The key of the last cell looked for, for insert().
    QString mKey;
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
};

} // namespace TavoLib
