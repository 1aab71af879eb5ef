#pragma once

// The tree widget of the tree browser: paints the rows, opens the one editor on a click or
// key, and moves it with the keyboard.
#include <QColor>
#include <QImage>
#include <QTreeWidget>

namespace TavoLib {

class TreePropertyBrowserPrivate;

class TreePropertyEditorView : public QTreeWidget
{
    Q_OBJECT
public:
    explicit TreePropertyEditorView(QWidget *parent = nullptr);

    void setEditorPrivate(TreePropertyBrowserPrivate *editorPrivate) { mEditorPrivate = editorPrivate; }
    QTreeWidgetItem *indexToItem(const QModelIndex &index) const { return itemFromIndex(index); }
    QModelIndex valueIndex(QTreeWidgetItem *item) const { return indexFromItem(item, 1); }
    void forceUpdateGeometries() { updateGeometries(); }
    // Opens the editor of a value cell, when the cell can have one and none is open.
    void openEditor(const QModelIndex &index);

protected slots:
    void commitData(QWidget *editor) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

protected:
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    void drawBranches(QPainter *painter, const QRect &rect, const QModelIndex &index) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    bool event(QEvent *event) override;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex &index, const QEvent *event = nullptr) const override;
    void updateGeometries() override;
    int sizeHintForColumn(int column) const override;
    bool viewportEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    // The text of a freshly opened editor is selected, so that typing replaces it.
    static bool selectEditorText(QWidget *editor);
    // The click that opened the editor also acts in it.
    static void forwardClick(QWidget *editor, const QMouseEvent &event);

    // Gives the focus to the next (or previous) widget after the tree.
    void leave(bool next);

    TreePropertyBrowserPrivate *mEditorPrivate = nullptr;
    // Set while a key is handled: a change of the current row then opens the editor.
    bool mKeyMove = false;
    // The branch arrows, closed and open, for the colour and resolution they were made for.
    mutable QImage mArrows[2];
    mutable QColor mArrowColour;
    mutable double mArrowRatio = 0;
};

} // namespace TavoLib
