#include "browser/TreePropertyEditorDelegate_p.h"

#include "browser/TreePropertyBrowser_p.h"
#include "browser/TreePropertyEditorView_p.h"
#include "browser/TreePropertyRows_p.h"
#include "core/ImageFunctions.h"
#include "propertybrowser/QtProperty.h"
#include "style/Device.h"

#include <QAbstractSpinBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QHeaderView>
#include <QPainter>

namespace TavoLib {

using namespace TreeRows;

void CellSizeCache::keep(const QStyleOptionViewItem &option)
{
    if (option.font != mFont || option.decorationSize != mDecoration || mSizes.size() > 20000) {
        mSizes.clear();
        mHeights.clear();
        mFont = option.font;
        mDecoration = option.decorationSize;
    }
}

QString CellSizeCache::lookOf(const QModelIndex &index)
{
    const QVariant decoration = index.data(Qt::DecorationRole);
    const bool icon = decoration.userType() == QMetaType::QIcon
        ? !qvariant_cast<QIcon>(decoration).isNull()
        : decoration.isValid();
    const QVariant font = index.data(Qt::FontRole);
    QString look = icon ? QStringLiteral("\x1fi") : QStringLiteral("\x1f-");
    if (font.isValid())
        look += qvariant_cast<QFont>(font).key();
    return look;
}

QSize CellSizeCache::find(const QStyleOptionViewItem &option, const QModelIndex &index)
{
    keep(option);
    mKey = index.data(Qt::DisplayRole).toString();
    mKey += lookOf(index);
    return mSizes.value(mKey);
}

QSize CellSizeCache::findHeight(const QStyleOptionViewItem &option, const QModelIndex &index)
{
    mHeightKey.clear();
    const QVariant display = index.data(Qt::DisplayRole);
    if (display.isValid() && display.userType() != QMetaType::QString)
        return QSize();
    const QString text = display.toString();
    if (!isPlainLine(text))
        return QSize();
    keep(option);
    // A null text takes no line at all, an empty one a line.
    mHeightKey = text.isNull() ? QStringLiteral("0") : QStringLiteral("1");
    mHeightKey += lookOf(index);
    const auto found = mHeights.constFind(mHeightKey);
    return found == mHeights.constEnd() ? QSize() : QSize(0, found.value());
}

void CellSizeCache::insertHeight(const QSize &size)
{
    if (!mHeightKey.isEmpty())
        mHeights.insert(mHeightKey, size.height());
}

TreePropertyEditorDelegate::TreePropertyEditorDelegate(QObject *parent) : QItemDelegate(parent) { }

int TreePropertyEditorDelegate::indentation(const QModelIndex &index) const
{
    const QTreeView *tree = mEditorPrivate ? mEditorPrivate->treeWidget() : nullptr;
    if (!tree)
        return 0;
    int depth = 0;
    for (QModelIndex i = index.parent(); i.isValid(); i = i.parent())
        ++depth;
    if (tree->rootIsDecorated())
        ++depth;
    return depth * tree->indentation();
}

void TreePropertyEditorDelegate::slotEditorDestroyed(QObject *object)
{
    // Only the address is used: the widget part of the object is gone already.
    auto *editor = static_cast<QWidget *>(object);
    if (!object || !mEditorToProperty.contains(editor))
        return;
    mPropertyToEditor.remove(mEditorToProperty.take(editor));
    if (editor == mEditedWidget) {
        mEditedWidget = nullptr;
        mEditedItem = nullptr;
    }
}

void TreePropertyEditorDelegate::closeEditor(QtProperty *property)
{
    if (QWidget *editor = mPropertyToEditor.value(property))
        editor->deleteLater();
}

void TreePropertyEditorDelegate::forgetItem(QTreeWidgetItem *item)
{
    if (item && item == mEditedItem)
        mEditedItem = nullptr;
}

QWidget *TreePropertyEditorDelegate::createEditor(
    QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &index) const
{
    if (index.column() != 1 || !mEditorPrivate)
        return nullptr;
    QtProperty *property = mEditorPrivate->indexToProperty(index);
    QTreeWidgetItem *item = mEditorPrivate->indexToItem(index);
    if (!property || !item || !(item->flags() & Qt::ItemIsEnabled))
        return nullptr;
    QWidget *editor = mEditorPrivate->createEditor(property, parent);
    if (!editor)
        return nullptr;
    // The row grows with a multi-line text instead of scrolling inside it.
    if (isMultiLine(property))
        if (QTextEdit *text = textEditIn(editor))
            text->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    editor->setObjectName(QStringLiteral("editor"));
    // Named for assistive technology by its row, also the field that takes the focus.
    editor->setAccessibleName(property->propertyName());
    if (QWidget *proxy = editor->focusProxy())
        proxy->setAccessibleName(property->propertyName());
    editor->setAutoFillBackground(true);
    // A number is written when it is committed (Return, Tab, the focus leaving), not at each
    // key, so that Escape can still drop what was typed.
    if (auto *spin = qobject_cast<QAbstractSpinBox *>(editor))
        spin->setKeyboardTracking(false);
    for (QAbstractSpinBox *spin : editor->findChildren<QAbstractSpinBox *>())
        spin->setKeyboardTracking(false);
    editor->installEventFilter(const_cast<TreePropertyEditorDelegate *>(this));
    for (QWidget *child : editor->findChildren<QWidget *>())
        child->installEventFilter(const_cast<TreePropertyEditorDelegate *>(this));
    connect(editor, &QObject::destroyed, this, &TreePropertyEditorDelegate::slotEditorDestroyed);
    mPropertyToEditor[property] = editor;
    mEditorToProperty[editor] = property;
    mEditedItem = item;
    mEditedWidget = editor;
    return editor;
}

void TreePropertyEditorDelegate::updateEditorGeometry(
    QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex &) const
{
    // One pixel short at the bottom, so the grid line stays visible.
    editor->setGeometry(option.rect.adjusted(0, 0, 0, -1));
}

void TreePropertyEditorDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOptionViewItem opt = option;
    QtProperty *property = mEditorPrivate ? mEditorPrivate->indexToProperty(index) : nullptr;
    const bool hasValue = property ? property->hasValue() : true;
    if ((index.column() == 0 || !hasValue) && property && property->isModified()) {
        opt.font.setBold(true);
        opt.fontMetrics = QFontMetrics(opt.font);
    }
    if (index.column() == 1 && mEditorPrivate && mEditorPrivate->isMultiLineRow(index)) {
        opt.features |= QStyleOptionViewItem::WrapText;
        opt.textElideMode = Qt::ElideNone;
    }
    // The tree never paints a selection.
    opt.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
    if (index.column() == 1 && mEditorPrivate && mEditedItem
        && mEditorPrivate->indexToItem(index) == mEditedItem)
        mDisablePainting = true;
    mPaintedProperty = property;
    QItemDelegate::paint(painter, opt, index);
    mPaintedProperty = nullptr;
    mDisablePainting = false;
}

void TreePropertyEditorDelegate::drawDisplay(
    QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect, const QString &text) const
{
    if (!mDisablePainting)
        QItemDelegate::drawDisplay(painter, option, rect, text);
}

void TreePropertyEditorDelegate::drawDecoration(QPainter *painter,
    const QStyleOptionViewItem &option, const QRect &rect, const QPixmap &pixmap) const
{
    if (mDisablePainting || pixmap.isNull() || !rect.isValid())
        return;
    QPixmap copy = pixmap;
    const auto *view = dynamic_cast<const ViewProperty *>(mPaintedProperty);
    if (view && view->data() && view->data()->allowColorizeIcon())
        copy = QPixmap::fromImage(ColorizeImage(copy.toImage(), option.palette.buttonText().color()));
    const double ratio = Device::pixelRatio();
    copy.setDevicePixelRatio(ratio);
    const QSize logical(qRound(copy.width() / ratio), qRound(copy.height() / ratio));
    const QRect target
        = QStyle::alignedRect(option.direction, option.decorationAlignment, logical, rect);
    if (option.state & QStyle::State_Selected) {
        const QPixmap selected = QItemDelegate::selectedPixmap(copy, option.palette,
            option.state & QStyle::State_Enabled);
        painter->drawPixmap(target.topLeft(), selected);
    } else {
        painter->drawPixmap(target.topLeft(), copy);
    }
}

QSize TreePropertyEditorDelegate::sizeHint(
    const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOptionViewItem opt = option;
    opt.decorationSize = Device::size(Device::SizeType5);
    const auto *tree = qobject_cast<const QTreeWidget *>(option.widget);
    if (index.column() == 1 && tree && mEditorPrivate && mEditorPrivate->isMultiLineRow(index)) {
        QStyleOptionViewItem wrapped = opt;
        wrapped.rect.setWidth(tree->header()->sectionSize(1) - 6);
        wrapped.rect.setHeight(1);
        wrapped.features |= QStyleOptionViewItem::WrapText;
        return QItemDelegate::sizeHint(wrapped, index) + QSize(3, 4);
    }
    if (index.data(Qt::CheckStateRole).isValid() || index.data(Qt::SizeHintRole).isValid())
        return QItemDelegate::sizeHint(opt, index) + QSize(3, 4);
    // Outside the measuring of a column the view reads only the height.
    if (!mWidthsWanted) {
        const QSize height = mSizes.findHeight(opt, index);
        if (height.isValid())
            return height;
    }
    const QSize known = mSizes.find(opt, index);
    if (known.isValid())
        return known;
    const QSize size = QItemDelegate::sizeHint(opt, index) + QSize(3, 4);
    mSizes.insert(size);
    if (!mWidthsWanted)
        mSizes.insertHeight(size);
    return size;
}

bool TreePropertyEditorDelegate::eventFilter(QObject *object, QEvent *event)
{
    // Switching to another window leaves the editor open.
    if (event->type() == QEvent::FocusOut
        && static_cast<QFocusEvent *>(event)->reason() == Qt::ActiveWindowFocusReason)
        return false;
    // Ctrl+Tab is no Tab to the next row: it goes on to the tree, which leaves it.
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if ((key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab)
            && (key->modifiers() & Qt::ControlModifier))
            return false;
    }
    return QItemDelegate::eventFilter(object, event);
}

} // namespace TavoLib
