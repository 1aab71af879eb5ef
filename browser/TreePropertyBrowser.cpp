#include "browser/TreePropertyBrowser.h"

#include "browser/TreePropertyBrowser_p.h"
#include "browser/ViewProperty.h"
#include "core/ImageFunctions.h"
#include "core/StringProperty.h"
#include "propertybrowser/QtBrowserItem.h"
#include "propertybrowser/QtProperty.h"
#include "style/Device.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QDataStream>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>
#include <QTextEdit>

namespace TavoLib {

namespace {

// The string behind a row, when the row shows one.
TAutoPtr<const StringProperty> stringOf(const QtProperty *property)
{
    const auto *view = dynamic_cast<const ViewProperty *>(property);
    return view ? TAutoPtr<const StringProperty>(view->data()) : TAutoPtr<const StringProperty>();
}

bool isMultiLine(const QtProperty *property)
{
    const TAutoPtr<const StringProperty> string = stringOf(property);
    return string && string->multiLine();
}

QTextEdit *textEditIn(QWidget *editor)
{
    if (!editor)
        return nullptr;
    if (auto *edit = qobject_cast<QTextEdit *>(editor))
        return edit;
    return editor->findChild<QTextEdit *>();
}

// The key under which a top-level row's expansion is remembered.
QString expansionKey(const QtProperty *property)
{
    if (const auto *view = dynamic_cast<const ViewProperty *>(property))
        if (view->data() && !view->data()->uniqueName().isEmpty())
            return view->data()->uniqueName();
    return property->propertyName();
}

QPixmap branchPixmap(QStyle *style, const QPalette &palette, bool open)
{
    QPixmap pixmap(14, 14);
    pixmap.fill(Qt::transparent);
    QStyleOption option;
    option.rect = QRect(2, 2, 9, 9);
    option.palette = palette;
    option.state = QStyle::State_Children;
    if (open)
        option.state |= QStyle::State_Open;
    QPainter painter(&pixmap);
    style->drawPrimitive(QStyle::PE_IndicatorBranch, &option, &painter);
    painter.end();
    return pixmap;
}

} // namespace

// ---- TreePropertyBrowserPrivate -----------------------------------------------------------

TreePropertyBrowserPrivate::TreePropertyBrowserPrivate(TreePropertyBrowser *browser)
    : mBrowser(browser)
{
}

void TreePropertyBrowserPrivate::init(QWidget *parent)
{
    auto *layout = new QHBoxLayout(parent);
    layout->setContentsMargins(0, 0, 0, 0);
    mTreeWidget = new TreePropertyEditorView(parent);
    mTreeWidget->setEditorPrivate(this);
    // Rows differ in height: a multi-line string takes several lines.
    mTreeWidget->setUniformRowHeights(false);
    mTreeWidget->setIconSize(Device::scaleSize(QSize(18, 18)));
    layout->addWidget(mTreeWidget);
    mTreeWidget->setColumnCount(2);
    mTreeWidget->setHeaderLabels({ QCoreApplication::translate("TreePropertyBrowser", "Property"),
        QCoreApplication::translate("TreePropertyBrowser", "Value") });
    mTreeWidget->setAlternatingRowColors(true);
    mTreeWidget->setEditTriggers(QAbstractItemView::EditKeyPressed);
    mDelegate = new TreePropertyEditorDelegate(parent);
    mDelegate->setEditorPrivate(this);
    mTreeWidget->setItemDelegate(mDelegate);
    QHeaderView *header = mTreeWidget->header();
    header->setSectionsMovable(false);
    // The name column fits its contents at first, whatever the resize mode says.
    header->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    header->setStretchLastSection(true);

    QStyle *style = mBrowser->style();
    const QPalette palette = mBrowser->palette();
    const QPixmap closed = branchPixmap(style, palette, false);
    const QPixmap open = branchPixmap(style, palette, true);
    mExpandIcon.addPixmap(closed, QIcon::Normal, QIcon::Off);
    mExpandIcon.addPixmap(closed, QIcon::Selected, QIcon::Off);
    mExpandIcon.addPixmap(open, QIcon::Normal, QIcon::On);
    mExpandIcon.addPixmap(open, QIcon::Selected, QIcon::On);

    connect(mTreeWidget, &QTreeView::collapsed, this, &TreePropertyBrowserPrivate::slotCollapsed);
    connect(mTreeWidget, &QTreeView::expanded, this, &TreePropertyBrowserPrivate::slotExpanded);
    connect(mTreeWidget, &QTreeWidget::currentItemChanged, this,
        &TreePropertyBrowserPrivate::slotCurrentTreeItemChanged);
}

QWidget *TreePropertyBrowserPrivate::createEditor(QtProperty *property, QWidget *parent) const
{
    return mBrowser->createEditor(property, parent);
}

QtBrowserItem *TreePropertyBrowserPrivate::currentItem() const
{
    if (QTreeWidgetItem *item = mTreeWidget ? mTreeWidget->currentItem() : nullptr)
        return mItemToIndex.value(item);
    return nullptr;
}

void TreePropertyBrowserPrivate::setCurrentItem(QtBrowserItem *item, bool block)
{
    if (!mTreeWidget)
        return;
    const bool blocked = block ? mTreeWidget->blockSignals(true) : false;
    mTreeWidget->setCurrentItem(item ? mIndexToItem.value(item) : nullptr);
    if (block)
        mTreeWidget->blockSignals(blocked);
}

void TreePropertyBrowserPrivate::editItem(QtBrowserItem *item)
{
    QTreeWidgetItem *treeItem = mIndexToItem.value(item);
    if (!treeItem || !mTreeWidget)
        return;
    mTreeWidget->setCurrentItem(treeItem, 1);
    mTreeWidget->editItem(treeItem, 1);
}

void TreePropertyBrowserPrivate::closeEditor() const
{
    if (QTreeWidgetItem *edited = mDelegate ? mDelegate->editedItem() : nullptr)
        if (QtBrowserItem *item = mItemToIndex.value(edited))
            mDelegate->closeEditor(item->property());
}

QTreeWidgetItem *TreePropertyBrowserPrivate::editedItem() const
{
    return mDelegate ? mDelegate->editedItem() : nullptr;
}

bool TreePropertyBrowserPrivate::hasValue(QTreeWidgetItem *item) const
{
    QtBrowserItem *browserItem = mItemToIndex.value(item);
    return browserItem ? browserItem->property()->hasValue() : true;
}

QTreeWidgetItem *TreePropertyBrowserPrivate::indexToItem(const QModelIndex &index) const
{
    return mTreeWidget ? mTreeWidget->indexToItem(index) : nullptr;
}

QtBrowserItem *TreePropertyBrowserPrivate::indexToBrowserItem(const QModelIndex &index) const
{
    QTreeWidgetItem *item = indexToItem(index);
    return item ? mItemToIndex.value(item) : nullptr;
}

QtProperty *TreePropertyBrowserPrivate::indexToProperty(const QModelIndex &index) const
{
    QtBrowserItem *item = indexToBrowserItem(index);
    return item ? item->property() : nullptr;
}

bool TreePropertyBrowserPrivate::lastColumn(int column) const
{
    return mTreeWidget
        && mTreeWidget->header()->visualIndex(column) == mTreeWidget->columnCount() - 1;
}

bool TreePropertyBrowserPrivate::allowUpdateGeometry() const
{
    return !mBrowser->property("BLOCK_UPDATE_GEOMETRY").toBool();
}

QColor TreePropertyBrowserPrivate::calculatedBackgroundColor(QtBrowserItem *item) const
{
    if (!item || !mTreeWidget)
        return QColor();
    return item->parent() ? mTreeWidget->palette().color(QPalette::Midlight)
                          : mTreeWidget->palette().color(QPalette::Button);
}

void TreePropertyBrowserPrivate::disableItem(QTreeWidgetItem *item) const
{
    if (!item || !(item->flags() & Qt::ItemIsEnabled))
        return;
    item->setFlags(item->flags() & ~Qt::ItemIsEnabled);
    if (QtBrowserItem *browserItem = mItemToIndex.value(item))
        mDelegate->closeEditor(browserItem->property());
    for (int i = 0; i < item->childCount(); ++i)
        disableItem(item->child(i));
}

void TreePropertyBrowserPrivate::enableItem(QTreeWidgetItem *item) const
{
    if (!item)
        return;
    item->setFlags(item->flags() | Qt::ItemIsEnabled);
    for (int i = 0; i < item->childCount(); ++i) {
        QTreeWidgetItem *child = item->child(i);
        QtBrowserItem *browserItem = mItemToIndex.value(child);
        if (browserItem && browserItem->property()->isEnabled())
            enableItem(child);
    }
}

void TreePropertyBrowserPrivate::propertyInserted(QtBrowserItem *item, QtBrowserItem *afterItem)
{
    if (!item || !mTreeWidget)
        return;
    QTreeWidgetItem *after = afterItem ? mIndexToItem.value(afterItem) : nullptr;
    QTreeWidgetItem *parent = item->parent() ? mIndexToItem.value(item->parent()) : nullptr;
    // A null `after` puts the row first, as the framework means it.
    auto *treeItem
        = parent ? new QTreeWidgetItem(parent, after) : new QTreeWidgetItem(mTreeWidget, after);
    mItemToIndex[treeItem] = item;
    mIndexToItem[item] = treeItem;
    treeItem->setFlags(treeItem->flags() | Qt::ItemIsEditable);
    setExpanded(treeItem, true);
    if (isMultiLine(item->property()))
        ++mMultiLineRows;
    // The parent shows its first child now, as it was asked to when it came.
    if (parent && mExpandWhenFilled.remove(parent))
        parent->setExpanded(true);
    updateItem(treeItem);
    mBrowser->setBackgroundColor(item, calculatedBackgroundColor(item));
}

void TreePropertyBrowserPrivate::propertyRemoved(QtBrowserItem *item)
{
    QTreeWidgetItem *treeItem = mIndexToItem.value(item);
    if (!treeItem)
        return;
    if (mTreeWidget && mTreeWidget->currentItem() == treeItem)
        mTreeWidget->setCurrentItem(nullptr);
    // The open editor of the row goes with it; its address must not stand for a row.
    mDelegate->forgetItem(treeItem);
    mExpandWhenFilled.remove(treeItem);
    if (isMultiLine(item->property()))
        --mMultiLineRows;
    mIndexToItem.remove(item);
    mItemToIndex.remove(treeItem);
    mIndexToBackgroundColor.remove(item);
    delete treeItem;
}

void TreePropertyBrowserPrivate::setExpanded(QTreeWidgetItem *item, bool expanded)
{
    if (item->childCount() > 0) {
        item->setExpanded(expanded);
        return;
    }
    if (expanded)
        mExpandWhenFilled.insert(item);
    else
        mExpandWhenFilled.remove(item);
}

bool TreePropertyBrowserPrivate::isExpanded(QTreeWidgetItem *item) const
{
    return item->childCount() > 0 ? item->isExpanded() : mExpandWhenFilled.contains(item);
}

void TreePropertyBrowserPrivate::propertyChanged(QtBrowserItem *item)
{
    if (QTreeWidgetItem *treeItem = mIndexToItem.value(item))
        updateItem(treeItem);
}

void TreePropertyBrowserPrivate::updateItem(QTreeWidgetItem *item)
{
    QtBrowserItem *browserItem = mItemToIndex.value(item);
    if (!browserItem || !mTreeWidget)
        return;
    QtProperty *property = browserItem->property();
    QIcon expandIcon;
    if (property->hasValue()) {
        item->setIcon(1, property->valueIcon());
        item->setText(1, property->valueText());
        const TAutoPtr<const StringProperty> string = stringOf(property);
        if (string && !string->placeholderText().isEmpty()) {
            const bool empty = string->toString().isEmpty();
            QFont font = item->font(1);
            font.setItalic(empty);
            item->setFont(1, font);
            item->setForeground(1,
                mTreeWidget->palette().brush(
                    empty ? QPalette::Disabled : QPalette::Active, QPalette::Text));
        }
    } else if (mMarkPropertiesWithoutValue && !mTreeWidget->rootIsDecorated()) {
        expandIcon = mExpandIcon;
    }
    // A multi-line editor stays as tall as its row while its text grows.
    if (QWidget *edited = mDelegate->editedWidget())
        if (textEditIn(edited))
            edited->setFixedHeight(mTreeWidget->visualItemRect(item).height());
    item->setIcon(0, expandIcon);
    item->setText(0, property->propertyName());

    bool enabled = property->isEnabled();
    if (QTreeWidgetItem *parent = item->parent())
        enabled = enabled && (parent->flags() & Qt::ItemIsEnabled);
    if (enabled != bool(item->flags() & Qt::ItemIsEnabled)) {
        if (enabled)
            enableItem(item);
        else
            disableItem(item);
    }
    mTreeWidget->viewport()->update();
}

void TreePropertyBrowserPrivate::slotCollapsed(const QModelIndex &index)
{
    if (QtBrowserItem *item = indexToBrowserItem(index))
        emit mBrowser->collapsed(item);
}

void TreePropertyBrowserPrivate::slotExpanded(const QModelIndex &index)
{
    if (QtBrowserItem *item = indexToBrowserItem(index))
        emit mBrowser->expanded(item);
}

void TreePropertyBrowserPrivate::slotCurrentBrowserItemChanged(QtBrowserItem *item)
{
    if (mBrowserChangedBlocked || item == currentItem())
        return;
    setCurrentItem(item, true);
}

void TreePropertyBrowserPrivate::slotCurrentTreeItemChanged(
    QTreeWidgetItem *current, QTreeWidgetItem *)
{
    mBrowserChangedBlocked = true;
    mBrowser->setCurrentItem(current ? mItemToIndex.value(current) : nullptr);
    mBrowserChangedBlocked = false;
}

// ---- TreePropertyBrowser ------------------------------------------------------------------

TreePropertyBrowser::TreePropertyBrowser(QWidget *parent)
    : QtAbstractPropertyBrowser(parent), mPrivate(new TreePropertyBrowserPrivate(this))
{
    mPrivate->init(this);
    connect(this, &QtAbstractPropertyBrowser::currentItemChanged, mPrivate,
        &TreePropertyBrowserPrivate::slotCurrentBrowserItemChanged);
}

TreePropertyBrowser::~TreePropertyBrowser()
{
    // The tree goes first, with its open editor; an editor that commits on its way out must
    // find rows that no longer answer (the private half stays until the tree is gone).
    mPrivate->mDestroying = true;
    TreePropertyEditorView *view = mPrivate->mTreeWidget;
    mPrivate->mTreeWidget = nullptr;
    view->setEditorPrivate(nullptr);
    mPrivate->mDelegate->setEditorPrivate(nullptr);
    delete view;
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
    for (QTreeWidgetItem *item : mPrivate->mItemToIndex.keys())
        if (!mPrivate->hasValue(item))
            mPrivate->updateItem(item);
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
    for (QTreeWidgetItem *item : mPrivate->mItemToIndex.keys())
        if (!mPrivate->hasValue(item))
            mPrivate->updateItem(item);
    mPrivate->mTreeWidget->viewport()->update();
}

QByteArray TreePropertyBrowser::saveState()
{
    for (QtBrowserItem *item : topLevelItems())
        mExpansionStates[expansionKey(item->property())] = isExpanded(item);
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    stream.setVersion(12);
    stream << quint8(1) << quint32(mExpansionStates.size());
    // Highest key first, as a QMap is written to a stream.
    for (auto it = mExpansionStates.constEnd(); it != mExpansionStates.constBegin();) {
        --it;
        stream << it.key() << it.value();
    }
    return data;
}

void TreePropertyBrowser::restoreState(const QByteArray &state)
{
    QDataStream stream(state);
    stream.setVersion(12);
    quint8 version = 0;
    stream >> version;
    if (stream.status() != QDataStream::Ok || version != 1)
        return;
    quint32 count = 0;
    stream >> count;
    // Entries are read one by one until the count or the data ends, so a count that the
    // data does not back allocates nothing; an entry cut short is left out.
    QMap<QString, bool> states;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        QString name;
        bool expanded = true;
        stream >> name >> expanded;
        if (stream.status() == QDataStream::Ok)
            states.insert(name, expanded);
    }
    if (stream.status() != QDataStream::Ok && states.isEmpty())
        return;
    mExpansionStates = states;
    for (QtBrowserItem *item : topLevelItems()) {
        const auto found = mExpansionStates.constFind(expansionKey(item->property()));
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
    if (!mPrivate->mIndexToItem.contains(item))
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
    if (QTreeWidgetItem *treeItem = mPrivate->mIndexToItem.value(item))
        mPrivate->setExpanded(treeItem, expanded);
}

bool TreePropertyBrowser::isExpanded(QtBrowserItem *item) const
{
    QTreeWidgetItem *treeItem = mPrivate->mIndexToItem.value(item);
    return treeItem && mPrivate->isExpanded(treeItem);
}

void TreePropertyBrowser::setItemVisible(QtBrowserItem *item, bool visible)
{
    if (QTreeWidgetItem *treeItem = mPrivate->mIndexToItem.value(item))
        treeItem->setHidden(!visible);
}

bool TreePropertyBrowser::isItemVisible(QtBrowserItem *item) const
{
    QTreeWidgetItem *treeItem = mPrivate->mIndexToItem.value(item);
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

void TreePropertyBrowser::itemChanged(QtBrowserItem *item)
{
    if (!mPrivate->mDestroying)
        mPrivate->propertyChanged(item);
}

// ---- TreePropertyEditorDelegate -----------------------------------------------------------

TreePropertyEditorDelegate::TreePropertyEditorDelegate(QObject *parent) : QItemDelegate(parent) { }

int TreePropertyEditorDelegate::indentation(const QModelIndex &index) const
{
    if (!mEditorPrivate || !mEditorPrivate->mTreeWidget)
        return 0;
    int depth = 0;
    for (QModelIndex i = index.parent(); i.isValid(); i = i.parent())
        ++depth;
    if (mEditorPrivate->mTreeWidget->rootIsDecorated())
        ++depth;
    return depth * mEditorPrivate->mTreeWidget->indentation();
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
    editor->setAutoFillBackground(true);
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
    if (index.column() == 1 && isMultiLine(property)) {
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

void TreePropertyEditorDelegate::drawDisplay(QPainter *painter, const QStyleOptionViewItem &option,
    const QRect &rect, const QString &text) const
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
        copy = QPixmap::fromImage(
            ColorizeImage(copy.toImage(), option.palette.buttonText().color()));
    const double ratio = Device::pixelRatio();
    copy.setDevicePixelRatio(ratio);
    const QSize logical(qRound(copy.width() / ratio), qRound(copy.height() / ratio));
    const QRect target
        = QStyle::alignedRect(option.direction, option.decorationAlignment, logical, rect);
    if (option.state & QStyle::State_Selected) {
        const QPixmap selected = QItemDelegate::selectedPixmap(
            copy, option.palette, option.state & QStyle::State_Enabled);
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
    QtProperty *property = mEditorPrivate ? mEditorPrivate->indexToProperty(index) : nullptr;
    const auto *tree = qobject_cast<const QTreeWidget *>(option.widget);
    if (index.column() == 1 && isMultiLine(property) && tree) {
        QStyleOptionViewItem wrapped = opt;
        wrapped.rect.setWidth(tree->header()->sectionSize(1) - 6);
        wrapped.rect.setHeight(1);
        wrapped.features |= QStyleOptionViewItem::WrapText;
        return QItemDelegate::sizeHint(wrapped, index) + QSize(3, 4);
    }
    // The tree asks every row again at each layout, and laying out a text is costly: the
    // answer is kept per text, icon and font, for as long as the view's font stays.
    if (index.data(Qt::CheckStateRole).isValid() || index.data(Qt::SizeHintRole).isValid())
        return QItemDelegate::sizeHint(opt, index) + QSize(3, 4);
    if (opt.font != mSizeFont || opt.decorationSize != mSizeDecoration || mSizes.size() > 20000) {
        mSizes.clear();
        mSizeFont = opt.font;
        mSizeDecoration = opt.decorationSize;
    }
    const QVariant decoration = index.data(Qt::DecorationRole);
    const bool icon = decoration.userType() == QMetaType::QIcon
        ? !qvariant_cast<QIcon>(decoration).isNull()
        : decoration.isValid();
    const QVariant font = index.data(Qt::FontRole);
    QString key = index.data(Qt::DisplayRole).toString();
    key += icon ? QLatin1String("\x1fi") : QLatin1String("\x1f-");
    if (font.isValid())
        key += qvariant_cast<QFont>(font).key();
    const auto found = mSizes.constFind(key);
    if (found != mSizes.constEnd())
        return found.value();
    const QSize size = QItemDelegate::sizeHint(opt, index) + QSize(3, 4);
    mSizes.insert(key, size);
    return size;
}

bool TreePropertyEditorDelegate::eventFilter(QObject *object, QEvent *event)
{
    // Switching to another window leaves the editor open.
    if (event->type() == QEvent::FocusOut
        && static_cast<QFocusEvent *>(event)->reason() == Qt::ActiveWindowFocusReason)
        return false;
    return QItemDelegate::eventFilter(object, event);
}

// ---- TreePropertyEditorView ---------------------------------------------------------------

TreePropertyEditorView::TreePropertyEditorView(QWidget *parent) : QTreeWidget(parent)
{
    setTabKeyNavigation(true);
    // The tree never shows a selection, not even beside the cells; the current row is
    // enough to edit.
    setSelectionMode(QAbstractItemView::NoSelection);
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
    const QColor line
        = QColor::fromRgba(QRgb(style()->styleHint(QStyle::SH_Table_GridLineColor, &opt, this)));
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
    const int x
        = int(rect.left() + level * indentation() + (indentation() - image.width() / ratio) * 0.5);
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
            QAbstractItemView::edit(index);
            return;
        }
    }
    QTreeWidget::keyPressEvent(event);
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
            && !rootIsDecorated() && event->pos().x() + header()->offset() < 20) {
            mEditorPrivate->setExpanded(item, !mEditorPrivate->isExpanded(item));
        }
    }
    inPress = false;
}

bool TreePropertyEditorView::event(QEvent *event)
{
    // Tab stays in the tree instead of leaving it for the next widget of the window.
    if (event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (!(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier))
            && (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab)) {
            keyPressEvent(key);
            event->accept();
            return true;
        }
    }
    return QTreeWidget::event(event);
}

bool TreePropertyEditorView::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    if (!QTreeWidget::edit(index, trigger, event))
        return false;
    QWidget *editor = mEditorPrivate && mEditorPrivate->mDelegate
        ? mEditorPrivate->mDelegate->editedWidget()
        : nullptr;
    if (!editor)
        return true;
    QWidget *proxy = editor->focusProxy();
    if (auto *spin = qobject_cast<QAbstractSpinBox *>(proxy)) {
        spin->selectAll();
    } else if (auto *line = qobject_cast<QLineEdit *>(proxy)) {
        line->selectAll();
    } else if (event
        && (event->type() == QEvent::MouseButtonPress
            || event->type() == QEvent::MouseButtonDblClick)) {
        // The click that opened the editor also acts in it.
        const QPoint global = static_cast<QMouseEvent *>(event)->globalPos();
        if (QTextEdit *text = textEditIn(editor)) {
            text->setFocus();
            const QPoint pos = text->viewport()->mapFromGlobal(global);
            const int hit = text->document()->documentLayout()->hitTest(pos
                    + QPoint(
                        text->horizontalScrollBar()->value(), text->verticalScrollBar()->value()),
                Qt::FuzzyHit);
            if (hit < 0) {
                text->selectAll();
            } else {
                QTextCursor cursor = text->textCursor();
                cursor.setPosition(hit, QTextCursor::MoveAnchor);
                text->setTextCursor(cursor);
            }
        } else {
            QWidget *target = proxy ? proxy : editor;
            // The click lands on the child under the pointer, as it would have.
            target->ensurePolished();
            QPoint local = target->mapFromGlobal(global);
            if (QWidget *child = target->childAt(local)) {
                local = child->mapFrom(target, local);
                target = child;
            }
            QMouseEvent press(QEvent::MouseButtonPress, local, global, Qt::LeftButton,
                Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(target, &press);
            QMouseEvent release(QEvent::MouseButtonRelease, local, global, Qt::LeftButton,
                Qt::NoButton, Qt::NoModifier);
            QCoreApplication::sendEvent(target, &release);
        }
    }
    return true;
}

QModelIndex TreePropertyEditorView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex result = QTreeWidget::moveCursor(action, modifiers);
    // Moving with the keyboard moves the open editor along.
    if (result.isValid())
        QAbstractItemView::edit(result);
    return result;
}

void TreePropertyEditorView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    QWidget *child = editor && editor->objectName() != QLatin1String("editor") ? editor : nullptr;
    if (hint == QAbstractItemDelegate::EditNextItem
        || hint == QAbstractItemDelegate::EditPreviousItem)
        while (editor && editor->objectName() != QLatin1String("editor"))
            editor = editor->parentWidget();
    // A nested field of a compound editor keeps the focus when the tab order moves on.
    if (child && editor && child != editor)
        editor->setFocusProxy(child);
    QTreeWidget::closeEditor(editor, hint);
}

void TreePropertyEditorView::updateGeometries()
{
    if (mEditorPrivate && !mEditorPrivate->allowUpdateGeometry())
        return;
    QTreeWidget::updateGeometries();
    const int rows = topLevelItemCount();
    // Only wrapped texts change height with the width; without one no row is asked again.
    if (rows == 0 || !mEditorPrivate || mEditorPrivate->mMultiLineRows == 0)
        return;
    // Asks every row for its height again: multi-line texts change with the width.
    emit model()->dataChanged(model()->index(0, 1), model()->index(rows - 1, 1), {});
    for (int i = 0; i < rows; ++i) {
        QtBrowserItem *item = mEditorPrivate->mItemToIndex.value(topLevelItem(i));
        if (item && isMultiLine(item->property()))
            mEditorPrivate->propertyChanged(item);
    }
}

} // namespace TavoLib
