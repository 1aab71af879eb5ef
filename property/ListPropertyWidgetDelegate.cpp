#include "property/ListPropertyWidgetDelegate_p.h"

#include "property/ListPropertyWidgetItem_p.h"
#include "property/PropertyEditorFactory.h"
#include "widgets/TabChain_p.h"

#include "core/BrushProperty.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace TavoLib {

namespace {

// The owner under which the factory keeps the one editor of the view.
const QString cellOwner = QStringLiteral("cell");

Property::Ptr cellOf(const QModelIndex &index)
{
    return index.data(ListPropertyWidgetItem::PropertyRole).value<Property::Ptr>();
}

// Return makes a new line in a text of several lines instead of ending the edit.
bool takesReturn(const QWidget *widget)
{
    for (const QWidget *w = widget; w; w = w->parentWidget())
        if (qobject_cast<const QTextEdit *>(w) || qobject_cast<const QPlainTextEdit *>(w))
            return true;
    return false;
}

} // namespace

ListPropertyWidgetDelegate::ListPropertyWidgetDelegate(
    PropertyEditorFactory *factory, QAbstractItemView *view)
    : QStyledItemDelegate(view), mFactory(factory), mView(view)
{
    QLineEdit line;
    QComboBox combo;
    mRowHeight = qMax(line.sizeHint().height(), combo.sizeHint().height());
    view->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, &ListPropertyWidgetDelegate::focusMoved);
}

void ListPropertyWidgetDelegate::initStyleOption(
    QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const TAutoPtr<BrushProperty> brush(cellOf(index));
    const TAutoPtr<BrushProviderQt const> brushes = mFactory->brushProvider();
    if (brush && brush->isDefined() && brushes) {
        option->text = brushes->displayName(brush->brush());
        // Framed, so that a white fill shows on a white row.
        QPixmap preview = brushes->preview(brush->brush(), option->decorationSize);
        QPainter painter(&preview);
        painter.setPen(option->palette.color(QPalette::Mid));
        painter.drawRect(preview.rect().adjusted(0, 0, -1, -1));
        painter.end();
        option->icon = QIcon(preview);
        option->features |= QStyleOptionViewItem::HasDecoration;
    }
    if (mTranslator)
        option->text = mTranslator->translate(option->text);
}

QSize ListPropertyWidgetDelegate::sizeHint(
    const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return QSize(size.width(), qMax(size.height(), mRowHeight));
}

QWidget *ListPropertyWidgetDelegate::createEditor(
    QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &index) const
{
    // One editor at a time: a second one is refused until the first is done.
    const Property::Ptr cell = cellOf(index);
    if (mEditor || !cell || cell->readOnly())
        return nullptr;
    mScratch = cell->clone();
    QWidget *editor = mFactory->createEditor(mScratch, parent, cellOwner);
    if (!editor) {
        mScratch = Property::Ptr();
        return nullptr;
    }
    // A compound editor hands the focus, and the key that opened it, to its first field.
    if (!editor->focusProxy() && !(editor->focusPolicy() & Qt::TabFocus)) {
        const QList<QWidget *> stops = TabChain::stops(editor);
        if (!stops.isEmpty())
            editor->setFocusProxy(stops.first());
    }
    editor->setAutoFillBackground(true);
    auto *self = const_cast<ListPropertyWidgetDelegate *>(this);
    editor->installEventFilter(self);
    for (QWidget *child : editor->findChildren<QWidget *>())
        child->installEventFilter(self);
    mEditor = editor;
    mFresh = true;
    mCell = cell;
    mIndex = index;
    return editor;
}

void ListPropertyWidgetDelegate::destroyEditor(QWidget *editor, const QModelIndex &) const
{
    if (editor == mEditor)
        const_cast<ListPropertyWidgetDelegate *>(this)->dropEdit();
    // The view's only editor is going: the factory keeps nothing of it.
    mFactory->clear();
    editor->deleteLater();
}

void ListPropertyWidgetDelegate::updateEditorGeometry(
    QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex &) const
{
    QRect rect = option.rect;
    rect.setHeight(qMax(rect.height(), editor->sizeHint().height()));
    editor->setGeometry(rect);
}

void ListPropertyWidgetDelegate::dropEdit()
{
    mEditor = nullptr;
    mCell = Property::Ptr();
    mScratch = Property::Ptr();
    mIndex = QPersistentModelIndex();
}

void ListPropertyWidgetDelegate::finishEdit(bool store, FocusAfter focus)
{
    if (!mEditor || mFinishing)
        return;
    mFinishing = true;
    QPointer<ListPropertyWidgetDelegate> self(this);
    QPointer<QWidget> editor = mEditor;
    bool changed = false;
    if (store) {
        // A field commits what was typed into the copy as it loses the focus; a message it
        // shows runs a loop in which a host may reload or delete the list.
        QWidget *focused = QApplication::focusWidget();
        if (focused && holds(focused))
            focused->clearFocus();
        if (!self)
            return;
        if (!editor) {
            mFinishing = false;
            return;
        }
        if (mScratch && mCell && mScratch->toString() != mCell->toString()) {
            mCell->copyValueFrom(*mScratch);
            changed = true;
        }
    }
    const QModelIndex index = mIndex;
    dropEdit();
    emit closeEditor(editor, QAbstractItemDelegate::NoHint);
    if (index.isValid())
        mView->update(index);
    if (focus != FocusStays)
        mView->setFocus(Qt::OtherFocusReason);
    if (focus == FocusAfterView || focus == FocusBeforeView)
        TabChain::step(mView, { mView }, focus == FocusAfterView);
    mFinishing = false;
    if (changed)
        emit elementEdited();
}

bool ListPropertyWidgetDelegate::holds(const QWidget *widget) const
{
    for (const QWidget *w = widget; w && mEditor; w = w->parentWidget())
        if (w == mEditor)
            return true;
    return false;
}

void ListPropertyWidgetDelegate::focusMoved(QWidget *, QWidget *now)
{
    // The focus left the editor for another field of the window: the edit is done. A window
    // that loses the focus, a popup or a dialog of the editor (a colour chooser), or a
    // message over the window, leaves it open.
    if (!mEditor || mFinishing || !now || holds(now) || QApplication::activePopupWidget())
        return;
    if (now->window() != mView->window() && now->window()->isModal())
        return;
    finishEdit(true, FocusStays);
}

bool ListPropertyWidgetDelegate::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (object == mView) {
        // Return on a cell opens its editor (the view would only report it as activated).
        if (enter && !mEditor && mView->currentIndex().isValid()) {
            mView->edit(mView->currentIndex());
            return true;
        }
        return false;
    }
    auto *widget = qobject_cast<QWidget *>(object);
    if (!widget || !holds(widget) || mFinishing)
        return false;
    // The first character typed replaces the value, also the one that opened the editor
    // (the view selects the text of a plain line edit only).
    if (mFresh) {
        mFresh = false;
        if (!key->text().isEmpty() && key->text().at(0).isPrint()) {
            if (auto *spin = qobject_cast<QAbstractSpinBox *>(widget))
                spin->selectAll();
            else if (auto *line = qobject_cast<QLineEdit *>(widget))
                line->selectAll();
        }
    }
    if (key->key() == Qt::Key_Escape) {
        finishEdit(false, FocusToView);
        return true;
    }
    if (enter && !takesReturn(widget)) {
        finishEdit(true, FocusToView);
        return true;
    }
    const bool tab = key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab;
    if (tab && !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        // Tab walks the fields of a compound editor, and past its last one ends the edit and
        // goes on from the view, as it would from a cell without an editor.
        const bool next = key->key() == Qt::Key_Tab && !(key->modifiers() & Qt::ShiftModifier);
        QList<QWidget *> stops;
        for (QWidget *stop : TabChain::stops(mEditor))
            if (TabChain::canTakeFocus(stop))
                stops.append(stop);
        QWidget *focused = QApplication::focusWidget();
        while (focused && !stops.contains(focused) && holds(focused->parentWidget()))
            focused = focused->parentWidget();
        const int at = stops.indexOf(focused);
        if (at < 0 || (next ? at == stops.size() - 1 : at == 0)) {
            finishEdit(true, next ? FocusAfterView : FocusBeforeView);
            return true;
        }
    }
    return false;
}

} // namespace TavoLib
