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
    // The text of a freshly opened editor is selected, so that typing replaces it.
    static bool selectEditorText(QWidget *editor);
    // The click that opened the editor also acts in it.
    static void forwardClick(QWidget *editor, const QMouseEvent &event);

    TreePropertyBrowserPrivate *mEditorPrivate = nullptr;
    // The branch arrows, closed and open, for the colour and resolution they were made for.
    mutable QImage mArrows[2];
    mutable QColor mArrowColour;
    mutable double mArrowRatio = 0;
};

} // namespace TavoLib
