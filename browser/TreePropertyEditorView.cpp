#include "browser/TreePropertyEditorView_p.h"

#include "browser/TreePropertyBrowser_p.h"
#include "browser/TreePropertyEditorDelegate_p.h"
#include "browser/TreePropertyRows_p.h"
#include "core/ImageFunctions.h"
#include "core/QtCompat_p.h"
#include "propertybrowser/QtBrowserItem.h"
#include "propertybrowser/QtProperty.h"
#include "style/Device.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <QSpinBox>
#include <QToolTip>

namespace TavoLib {

using namespace TreeRows;

namespace {
// Set on an editor once it is closed, for the fields that report their focus going later.
const char *const kClosedEditor = "tavoClosedEditor";
} // namespace

TreePropertyEditorView::TreePropertyEditorView(QWidget *parent) : QTreeWidget(parent)
{
    setTabKeyNavigation(true);
    // The tree never shows a selection, not even beside the cells; the current row is
    // enough to edit. decided: selectionCommand(), not the mode alone, keeps selections
    // away, so that keys move the current row under every style.
    setSelectionMode(QAbstractItemView::NoSelection);
    // A text taller than the view can be scrolled through.
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    // For the application's style; nothing in the library reads it.
    setProperty("NOSELECTION", true);
    connect(header(), &QHeaderView::sectionDoubleClicked, this, &QTreeView::resizeColumnToContents);
}

void TreePropertyEditorView::drawRow(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOptionViewItem opt = option;
    QtBrowserItem *item = mEditorPrivate ? mEditorPrivate->indexToBrowserItem(index) : nullptr;
    const bool hasValue = item ? item->property()->hasValue() : true;
    if (!hasValue && mEditorPrivate && mEditorPrivate->markPropertiesWithoutValue()) {
        const QColor colour = option.palette.color(QPalette::Dark);
        painter->fillRect(option.rect, colour);
        opt.palette.setColor(QPalette::AlternateBase, colour);
    } else if (mEditorPrivate) {
        const QColor colour = mEditorPrivate->calculatedBackgroundColor(item);
        if (colour.isValid()) {
            painter->fillRect(option.rect, colour);
            opt.palette.setColor(QPalette::AlternateBase, colour.lighter(112));
        }
    }
    QTreeWidget::drawRow(painter, opt, index);
    const QColor line = QColor::fromRgba(
        QRgb(style()->styleHint(QStyle::SH_Table_GridLineColor, &opt, this)));
    painter->save();
    painter->setPen(QPen(line));
    painter->drawLine(opt.rect.left(), opt.rect.bottom(), opt.rect.right(), opt.rect.bottom());
    painter->restore();
}

void TreePropertyEditorView::drawBranches(
    QPainter *painter, const QRect &rect, const QModelIndex &index) const
{
    QTreeWidgetItem *item = itemFromIndex(index);
    if (!item || item->childCount() == 0)
        return;
    int level = rootIsDecorated() ? 0 : -1;
    for (QModelIndex i = index.parent(); i.isValid(); i = i.parent())
        ++level;
    if (level < 0)
        return;
    // The library's own arrow, in the colour of button text: pointing down when open,
    // turned to point right when closed. The two are made once per colour and resolution.
    const QColor colour = palette().buttonText().color();
    const double ratio = Device::pixelRatio();
    const bool open = item->isExpanded();
    if (mArrowColour != colour || mArrowRatio != ratio || mArrows[0].isNull()) {
        const QImage arrow = ColorizeImage(
            Device::pixmap(QStringLiteral(":/TavoLib/Controls/combobox-arrow"), 8, 8).toImage(),
            colour);
        mArrows[1] = arrow;
        mArrows[0] = arrow.transformed(QTransform().rotate(270));
        mArrows[0].setDevicePixelRatio(ratio);
        mArrows[1].setDevicePixelRatio(ratio);
        mArrowColour = colour;
        mArrowRatio = ratio;
    }
    const QImage &image = mArrows[open ? 1 : 0];
    const int x = int(rect.left() + level * indentation() + (indentation() - image.width() / ratio) * 0.5);
    const int y = int(rect.top() + (rect.height() - image.height() / ratio) * 0.5);
    painter->drawImage(QPoint(x, y), image);
}

void TreePropertyEditorView::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if ((key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) && mEditorPrivate
        && !mEditorPrivate->editedItem()) {
        QTreeWidgetItem *item = currentItem();
        if (item && item->columnCount() > 1 && (item->flags() & Qt::ItemIsEditable)
            && (item->flags() & Qt::ItemIsEnabled)) {
            event->accept();
            QModelIndex index = currentIndex();
            if (index.column() == 0) {
                index = index.sibling(index.row(), 1);
                setCurrentIndex(index);
            }
            edit(index, AllEditTriggers, nullptr);
            return;
        }
    }
    // A key that moves the current row moves the editor along: currentChanged opens it
    // once the row has changed.
    const bool wasMoving = mKeyMove;
    mKeyMove = true;
    QTreeWidget::keyPressEvent(event);
    mKeyMove = wasMoving;
}

void TreePropertyEditorView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    // Qt closes the editor of the previous cell only; with the name cell current, the
    // editor of the value cell beside it goes here.
    if (previous.isValid() && (previous.row() != current.row() || previous.parent() != current.parent())) {
        const QModelIndex value = previous.sibling(previous.row(), 1);
        if (QWidget *open = previous.column() != 1 && value.isValid() ? indexWidget(value) : nullptr) {
            commitData(open);
            closeEditor(open, QAbstractItemDelegate::NoHint);
        }
    }
    QTreeWidget::currentChanged(current, previous);
    // decided: the editor is opened after the current row has changed, not in moveCursor:
    // while the old editor is open Qt refuses to edit, and the new row would get none.
    if (!mKeyMove || !current.isValid())
        return;
    mKeyMove = false;
    openEditor(current.sibling(current.row(), 1));
}

void TreePropertyEditorView::openEditor(const QModelIndex &index)
{
    if (!index.isValid() || state() == EditingState)
        return;
    if (!(index.flags() & Qt::ItemIsEditable) || !(index.flags() & Qt::ItemIsEnabled))
        return;
    edit(index, AllEditTriggers, nullptr);
}

QItemSelectionModel::SelectionFlags TreePropertyEditorView::selectionCommand(
    const QModelIndex &, const QEvent *) const
{
    // Not NoUpdate: Qt then moves the current row by key only on styles that allow moving
    // without updating the selection.
    return QItemSelectionModel::Clear;
}

void TreePropertyEditorView::mousePressEvent(QMouseEvent *event)
{
    // Shared by all views: a nested event loop started by an edit must not come back in.
    static bool inPress = false;
    if (inPress) {
        event->ignore();
        return;
    }
    inPress = true;
    QTreeWidget::mousePressEvent(event);
    QTreeWidgetItem *item = itemAt(event->pos());
    if (item && mEditorPrivate) {
        if (item != mEditorPrivate->editedItem() && event->button() == Qt::LeftButton
            && header()->logicalIndexAt(event->pos().x()) == 1
            && (item->flags() & Qt::ItemIsEditable) && (item->flags() & Qt::ItemIsEnabled)) {
            edit(indexFromItem(item, 1), QAbstractItemView::AllEditTriggers, event);
        } else if (!mEditorPrivate->hasValue(item) && mEditorPrivate->markPropertiesWithoutValue()
            && !rootIsDecorated() && event->pos().x() + header()->offset() < Device::scale(20)) {
            const bool expand = !mEditorPrivate->isExpanded(item);
            mEditorPrivate->setExpanded(item, expand);
            mEditorPrivate->rememberExpansion(mEditorPrivate->browserItem(item), expand);
        }
    }
    inPress = false;
}

bool TreePropertyEditorView::event(QEvent *event)
{
    // Tab stays in the tree instead of leaving it for the next widget of the window;
    // Ctrl+Tab and Ctrl+Shift+Tab leave it, as in Qt's text editors.
    if (event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        const bool tab = key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab;
        if (tab && !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
            keyPressEvent(key);
            event->accept();
            return true;
        }
        if (tab && (key->modifiers() & Qt::ControlModifier) && !(key->modifiers() & Qt::AltModifier)) {
            leave(key->key() == Qt::Key_Tab && !(key->modifiers() & Qt::ShiftModifier));
            event->accept();
            return true;
        }
    }
    return QTreeWidget::event(event);
}

void TreePropertyEditorView::leave(bool next)
{
    // The open editor commits and closes; the focus goes from the tree to the next widget.
    if (QWidget *open = mEditorPrivate && mEditorPrivate->delegate()
            ? mEditorPrivate->delegate()->editedWidget()
            : nullptr) {
        if (open->isVisible()) {
            commitData(open);
            closeEditor(open, QAbstractItemDelegate::NoHint);
        }
    }
    setFocus(Qt::OtherFocusReason);
    // Past the view's own Tab handling, which keeps the focus in the tree.
    QWidget::focusNextPrevChild(next);
}

bool TreePropertyEditorView::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    if (!QTreeWidget::edit(index, trigger, event))
        return false;
    // The editor of this cell, if one was made: a closing editor of another row may still be
    // the delegate's last.
    QWidget *editor = indexWidget(index);
    if (!editor)
        return true;
    if (!selectEditorText(editor) && event
        && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick))
        forwardClick(editor, *static_cast<QMouseEvent *>(event));
    return true;
}

bool TreePropertyEditorView::selectEditorText(QWidget *editor)
{
    QWidget *proxy = editor->focusProxy();
    if (auto *spin = qobject_cast<QAbstractSpinBox *>(proxy)) {
        spin->selectAll();
        return true;
    }
    if (auto *line = qobject_cast<QLineEdit *>(proxy)) {
        line->selectAll();
        return true;
    }
    return false;
}

void TreePropertyEditorView::forwardClick(QWidget *editor, const QMouseEvent &event)
{
    const QPoint global = QtCompat::globalPos(&event);
    if (QTextEdit *text = textEditIn(editor)) {
        text->setFocus();
        const QPoint pos = text->viewport()->mapFromGlobal(global);
        const int hit = text->document()->documentLayout()->hitTest(
            pos + QPoint(text->horizontalScrollBar()->value(), text->verticalScrollBar()->value()),
            Qt::FuzzyHit);
        if (hit < 0) {
            text->selectAll();
        } else {
            QTextCursor cursor = text->textCursor();
            cursor.setPosition(hit, QTextCursor::MoveAnchor);
            text->setTextCursor(cursor);
        }
        return;
    }
    QWidget *proxy = editor->focusProxy();
    QWidget *target = proxy ? proxy : editor;
    // The click lands on the child under the pointer, as it would have.
    target->ensurePolished();
    QPoint local = target->mapFromGlobal(global);
    if (QWidget *child = target->childAt(local)) {
        local = child->mapFrom(target, local);
        target = child;
    }
    QMouseEvent press(QEvent::MouseButtonPress, local, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, local, global, Qt::LeftButton, Qt::NoButton,
        Qt::NoModifier);
    QCoreApplication::sendEvent(target, &release);
}

void TreePropertyEditorView::commitData(QWidget *)
{
    // Nothing to commit: every editor writes its value itself as it changes, and the
    // delegate's setModelData is empty. Fields inside an editor that ask are not editors Qt
    // knows (Qt 6 would warn).
}

void TreePropertyEditorView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    QWidget *child = editor && editor->objectName() != QLatin1String("editor") ? editor : nullptr;
    // The delegate watches every field of an editor, and Qt knows only the outer widget
    // named "editor": whichever field asks, the outer widget is closed, for every hint.
    while (editor && editor->objectName() != QLatin1String("editor"))
        editor = editor->parentWidget();
    // A field of an editor already closed still reports its focus going; the editor is gone
    // from the view by then (Qt 6 would warn).
    if (!editor || editor->property(kClosedEditor).toBool())
        return;
    editor->setProperty(kClosedEditor, true);
    const bool moving
        = hint == QAbstractItemDelegate::EditNextItem || hint == QAbstractItemDelegate::EditPreviousItem;
    // A nested field of a compound editor keeps the focus when the tab order moves on.
    if (moving && child && child != editor)
        editor->setFocusProxy(child);
    // Escape: what was typed and not yet written is dropped, not written as the focus leaves.
    if (hint == QAbstractItemDelegate::RevertModelCache) {
        editor->blockSignals(true);
        for (QWidget *field : editor->findChildren<QWidget *>())
            field->blockSignals(true);
    }
    // An editor closed while it has the focus gives it to the tree.
    QWidget *focus = QApplication::focusWidget();
    const bool hadFocus = focus && (focus == editor || editor->isAncestorOf(focus));
    QTreeWidget::closeEditor(editor, hint);
    if (hadFocus && !moving && focusPolicy() != Qt::NoFocus)
        setFocus(Qt::OtherFocusReason);
}

void TreePropertyEditorView::resizeEvent(QResizeEvent *event)
{
    // A long (translated) name takes at most half the width, so that the values stay in
    // view; the name is cut and shows whole as its tooltip.
    header()->setMaximumSectionSize(qMax(header()->minimumSectionSize(), viewport()->width() / 2));
    QTreeWidget::resizeEvent(event);
}

bool TreePropertyEditorView::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QTreeWidget::viewportEvent(event);
    // A name or value cut short shows whole as the cell's tooltip.
    auto *help = static_cast<QHelpEvent *>(event);
    const QModelIndex index = indexAt(help->pos());
    const QString text = index.data(Qt::DisplayRole).toString();
    const QRect cell = visualRect(index);
    int room = cell.width() - 6;
    if (!qvariant_cast<QIcon>(index.data(Qt::DecorationRole)).isNull())
        room -= iconSize().width() + 4;
    const bool wrapped = index.column() == 1 && mEditorPrivate && mEditorPrivate->isMultiLineRow(index);
    if (!text.isEmpty() && !wrapped && fontMetrics().horizontalAdvance(text) > room) {
        QToolTip::showText(help->globalPos(), text, viewport(), cell);
    } else {
        QToolTip::hideText();
        event->ignore();
    }
    return true;
}

int TreePropertyEditorView::sizeHintForColumn(int column) const
{
    // The one place where the cells' widths count: the delegate measures texts only here.
    TreePropertyEditorDelegate *delegate = mEditorPrivate ? mEditorPrivate->delegate() : nullptr;
    if (!delegate)
        return QTreeWidget::sizeHintForColumn(column);
    const bool wanted = delegate->widthsWanted();
    delegate->setWidthsWanted(true);
    const int width = QTreeWidget::sizeHintForColumn(column);
    delegate->setWidthsWanted(wanted);
    return width;
}

void TreePropertyEditorView::updateGeometries()
{
    if (mEditorPrivate && !mEditorPrivate->allowUpdateGeometry())
        return;
    QTreeWidget::updateGeometries();
    const int rows = topLevelItemCount();
    // kept on purpose: only wrapped texts change height with the width; without one no row
    // is asked for its height again, which saves a pass over every row at each resize.
    if (rows == 0 || !mEditorPrivate || mEditorPrivate->multiLineRows() == 0)
        return;
    // Asks every row for its height again: multi-line texts change with the width.
    emit model()->dataChanged(model()->index(0, 1), model()->index(rows - 1, 1), {});
    for (int i = 0; i < rows; ++i) {
        QTreeWidgetItem *row = topLevelItem(i);
        if (mEditorPrivate->isMultiLineRow(row))
            mEditorPrivate->updateItem(row);
    }
}

} // namespace TavoLib
