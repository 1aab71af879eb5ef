#include "property/ListPropertyWidget.h"

#include "property/ListPropertyWidgetDelegate_p.h"
#include "property/ListPropertyWidgetItem_p.h"
#include "widgets/TabChain_p.h"

#include "core/ActivatableGroupProperty.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/GroupProperty.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QHeaderView>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QVariant>

namespace TavoLib {

namespace {

// A plain group is one element of several columns: an editor per child.
bool isColumns(const Property *element)
{
    return dynamic_cast<const GroupProperty *>(element)
        && !dynamic_cast<const ActivatableGroupProperty *>(element)
        && !dynamic_cast<const ExtendedSelectorProperty *>(element);
}

} // namespace

ListPropertyWidget::ListPropertyWidget(QWidget *parent) : QWidget(parent)
{
    // The rows' editors lie inside this widget's own frame.
    mFactory.setWithEditorFrame(false);
    connect(&mFactory, &PropertyEditorFactory::propertyChanged, this,
        &ListPropertyWidget::elementChanged);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    mRowsArea = new QWidget(this);
    mRowsLayout = new QVBoxLayout(mRowsArea);
    mRowsLayout->setContentsMargins(0, 0, 0, 0);
    mRowsLayout->setSpacing(2);
    layout->addWidget(mRowsArea);

    auto *buttons = new QHBoxLayout;
    buttons->setContentsMargins(0, 0, 0, 0);
    mAddButton = new QToolButton(this);
    mAddButton->setObjectName(QStringLiteral("add"));
    mAddButton->setDefaultAction(new QAction(tr("Add"), mAddButton));
    mAddButton->setToolTip(tr("Add an entry at the end"));
    // Taking the focus on a click commits a cell being typed in before the button acts.
    mAddButton->setFocusPolicy(Qt::StrongFocus);
    connect(mAddButton, &QToolButton::triggered, this, &ListPropertyWidget::addNewEntry);
    buttons->addWidget(mAddButton);
    // Only a long list's view has it: rows carry their own.
    mDeleteButton = new QToolButton(this);
    mDeleteButton->setObjectName(QStringLiteral("delete"));
    mDeleteButton->setText(tr("Delete"));
    mDeleteButton->setToolTip(tr("Delete the current entry"));
    mDeleteButton->setAccessibleName(tr("Delete the current entry"));
    mDeleteButton->setFocusPolicy(Qt::StrongFocus);
    mDeleteButton->hide();
    connect(mDeleteButton, &QToolButton::clicked, this, &ListPropertyWidget::removeCurrentEntry);
    buttons->addWidget(mDeleteButton);
    mUndefinedButton = new QToolButton(this);
    mUndefinedButton->setObjectName(QStringLiteral("undefined"));
    mUndefinedButton->setText(tr("Undefined"));
    mUndefinedButton->setCheckable(true);
    mUndefinedButton->setFocusPolicy(Qt::StrongFocus);
    mUndefinedButton->setToolTip(tr("Leave the list undefined, or give it entries again"));
    connect(
        mUndefinedButton, &QToolButton::clicked, this, &ListPropertyWidget::undefinedButtonClicked);
    buttons->addWidget(mUndefinedButton);
    buttons->addStretch(1);
    layout->addLayout(buttons);
    updateButtons();
}

ListPropertyWidget::~ListPropertyWidget()
{
    // The rows go with this widget; the factory must not hear of them any more. The view and
    // its editor go first, while the factory they use is still there.
    mFactory.disconnect(this);
    delete mView; // with its delegate
    mFactory.clear();
}

void ListPropertyWidget::setStylesheetManager(TAutoPtr<StylesheetManager const> manager)
{
    mFactory.setStylesheetManager(manager);
}

void ListPropertyWidget::setBrushProvider(TAutoPtr<BrushProviderQt const> provider)
{
    mFactory.setBrushProvider(provider);
}

void ListPropertyWidget::setPenStyleProvider(TAutoPtr<PenStyleProviderQt const> provider)
{
    mFactory.setPenStyleProvider(provider);
}

void ListPropertyWidget::setLineHeadStyleProvider(TAutoPtr<LineHeadStyleProviderQt const> provider)
{
    mFactory.setLineHeadStyleProvider(provider);
}

void ListPropertyWidget::setFontProvider(TAutoPtr<FontProviderQt const> provider)
{
    mFactory.setFontProvider(provider);
}

void ListPropertyWidget::setTranslator(TAutoPtr<Translator const> translator)
{
    mFactory.setTranslator(translator);
    mTranslator = translator;
    if (mDelegate)
        mDelegate->setTranslator(translator);
}

QString ListPropertyWidget::translate(const QString &text) const
{
    return mTranslator ? mTranslator->translate(text) : text;
}

int ListPropertyWidget::rowCount() const
{
    return mShowsView ? mView->topLevelItemCount() : mRows.size();
}

void ListPropertyWidget::setValues(TAutoPtr<ListProperty> list)
{
    // The list shown, given again after a change in place, is rebuilt: its inner factory
    // cannot re-apply an object to its own editors without losing their side entries.
    const bool sameShape = !mShowsView && list && mList && list != mList
        && list->size() == mRows.size() && list->masterProperty() == mList->masterProperty();
    mList = list;
    if (!sameShape) {
        rebuild();
        return;
    }
    // The rows fit the new list: its elements go into the editors that are there.
    int index = 0;
    for (const auto &element : *mList) {
        const QString owner = QString::number(index++);
        if (isColumns(element.get())) {
            for (const auto &child : *TAutoPtr<GroupProperty>(element))
                mFactory.applyPropertyValues(child, owner);
        } else {
            mFactory.applyPropertyValues(element, owner);
        }
    }
    updateButtons();
}

QWidget *ListPropertyWidget::makeRow(int index, TAutoPtr<Property> element)
{
    auto *row = new QWidget(mRowsArea);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    const QString owner = QString::number(index);
    QList<TAutoPtr<Property>> parts;
    if (isColumns(element.get())) {
        for (const auto &child : *TAutoPtr<GroupProperty>(element))
            parts.append(child);
    } else {
        parts.append(element);
    }
    QWidget *first = nullptr;
    for (const auto &part : parts) {
        QWidget *editor = part ? mFactory.createEditor(part, row, owner) : nullptr;
        if (!editor)
            editor = new QLabel(part ? part->toString() : QString(), row);
        layout->addWidget(editor, 1);
        if (!first)
            first = editor;
    }
    auto *remove = new QToolButton(row);
    remove->setObjectName(QStringLiteral("delete"));
    remove->setText(tr("Delete"));
    remove->setProperty("element index", QVariant(index));
    remove->setFocusPolicy(Qt::StrongFocus);
    remove->setAccessibleName(tr("Delete entry %1").arg(index + 1));
    connect(remove, &QToolButton::clicked, this, &ListPropertyWidget::removeCurrentEntry);
    layout->addWidget(remove);
    row->setFocusProxy(first ? first : remove);
    return row;
}

void ListPropertyWidget::rebuild()
{
    // Rows may be rebuilt from a click inside one of them: they go once that click is done.
    if (mDelegate)
        mDelegate->dropEdit();
    mFactory.clear();
    for (const QPointer<QWidget> &row : qAsConst(mRows)) {
        if (row) {
            row->hide();
            row->deleteLater();
        }
    }
    mRows.clear();
    mShowsView = mList && mList->size() > mViewThreshold;
    if (mShowsView) {
        makeView();
        fillView();
    } else if (mView) {
        mView->clear();
        mView->hide();
    }
    if (mList && !mShowsView) {
        int index = 0;
        for (const auto &element : *mList) {
            QWidget *row = makeRow(index++, element);
            mRowsLayout->addWidget(row);
            row->show();
            mRows.append(row);
        }
    }
    updateButtons();
    // Rows rebuilt in a list on screen (Add, Delete) take their place in the chain at once; a
    // list still being built takes it when it shows, once, whatever reloads came before (a
    // walk over the window at each reload would make a large form's load quadratic).
    if (isVisible())
        updateTabOrder();
    else
        mTabOrderPending = true;
}

void ListPropertyWidget::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (mTabOrderPending) {
        mTabOrderPending = false;
        updateTabOrder();
    }
}

void ListPropertyWidget::makeView()
{
    if (mView)
        return;
    mView = new QTreeWidget(mRowsArea);
    mView->setObjectName(QStringLiteral("entries"));
    mView->setRootIsDecorated(false);
    mView->setUniformRowHeights(true);
    mView->setSelectionMode(QAbstractItemView::SingleSelection);
    mView->setSelectionBehavior(QAbstractItemView::SelectItems);
    // Tab leaves the view for the buttons; arrows move between the cells.
    mView->setTabKeyNavigation(false);
    mView->setFocusPolicy(Qt::StrongFocus);
    mView->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked
        | QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    mView->header()->setSectionsMovable(false);
    mDelegate = new ListPropertyWidgetDelegate(&mFactory, mView);
    mDelegate->setTranslator(mTranslator);
    mView->setItemDelegate(mDelegate);
    connect(mDelegate, &ListPropertyWidgetDelegate::elementEdited, this,
        &ListPropertyWidget::reportEdit);
    connect(mView, &QTreeWidget::currentItemChanged, this, &ListPropertyWidget::updateButtons);
    mRowsLayout->addWidget(mView);
    // Made after the buttons, the view stood after them in the window's chain: they follow it.
    QWidget::setTabOrder(mView, mAddButton);
    QWidget::setTabOrder(mAddButton, mDeleteButton);
    QWidget::setTabOrder(mDeleteButton, mUndefinedButton);
}

void ListPropertyWidget::fillView()
{
    // The current cell stays where it was, as far as the list still reaches.
    const QModelIndex current = mView->currentIndex();
    mView->clear();
    const Property *pattern
        = mList->masterProperty() ? mList->masterProperty().get() : mList->at(0).get();
    const bool columns = isColumns(pattern);
    QStringList heads;
    if (columns) {
        for (const auto &child : *static_cast<const GroupProperty *>(pattern))
            heads << translate(child->visibleName());
    } else {
        heads << translate(pattern ? pattern->visibleName() : mList->visibleName());
    }
    mView->setColumnCount(heads.size());
    mView->setHeaderLabels(heads);
    mView->setAccessibleName(translate(mList->visibleName()));
    QList<QTreeWidgetItem *> items;
    items.reserve(mList->size());
    for (const auto &element : *mList)
        items.append(new ListPropertyWidgetItem(element, columns));
    mView->addTopLevelItems(items);
    const int row = qBound(0, current.row(), items.size() - 1);
    mView->setCurrentItem(items.value(row), qBound(0, current.column(), heads.size() - 1));
    mView->show();
}

void ListPropertyWidget::updateTabOrder()
{
    // New rows stand at the end of the window's tab chain; the chain is laid again from the
    // field before this list: the rows in order (or the view), then Add, Delete, Undefined.
    QList<QWidget *> chain;
    for (const QPointer<QWidget> &row : qAsConst(mRows))
        if (row)
            chain += TabChain::stops(row);
    if (mShowsView)
        chain << mView;
    chain << mAddButton << mDeleteButton << mUndefinedButton;
    TabChain::link(this, chain);
}

bool ListPropertyWidget::commitPendingEdit()
{
    // The buttons may act while a cell still holds typed text (a host's call, a key): the
    // cell commits on losing the focus, before the rows change under it.
    if (mDelegate && mDelegate->openEditor()) {
        QPointer<ListPropertyWidget> self(this);
        mDelegate->finishEdit(true, ListPropertyWidgetDelegate::FocusStays);
        return !self.isNull();
    }
    QWidget *focused = QApplication::focusWidget();
    if (!focused || !mRowsArea->isAncestorOf(focused))
        return true;
    QPointer<ListPropertyWidget> self(this);
    focused->clearFocus();
    return !self.isNull();
}

void ListPropertyWidget::updateButtons()
{
    const bool undefined = mList && mList->isUndefined();
    mRowsArea->setVisible(!undefined);
    // Also for a list that cannot be undefined but is (a host's, or one copied in): the
    // button is its way back to entries.
    mUndefinedButton->setVisible(mList && (mList->isUndefinable() || undefined));
    mUndefinedButton->setChecked(undefined);
    mAddButton->setEnabled(
        mList && !undefined && mList->masterProperty() && mList->size() < mList->maximum());
    const bool canRemove = mList && mList->size() > mList->minimum();
    for (const QPointer<QWidget> &row : qAsConst(mRows))
        if (row)
            if (auto *remove = row->findChild<QToolButton *>(QStringLiteral("delete")))
                remove->setEnabled(canRemove);
    mDeleteButton->setVisible(mShowsView);
    mDeleteButton->setEnabled(mShowsView && canRemove && mView->currentItem());
    // Focus given to the list, as by Tab from the field before it, goes to the view of a long
    // list, or to Undefined while the list is. Kept on purpose: to Add for rows, since with
    // the first row as proxy Tab from the last row of a list alone in its window wraps into
    // the rows again (Qt cannot chain a widget after the window's last one there).
    QWidget *first = undefined ? mUndefinedButton
        : mShowsView           ? static_cast<QWidget *>(mView)
                               : mAddButton;
    if (focusProxy() != first)
        setFocusProxy(first);
}

void ListPropertyWidget::elementChanged(TavoLib::Property::Ptr)
{
    // The view's editor works on a copy: the element changes when its edit is stored.
    if (mShowsView)
        return;
    reportEdit();
}

void ListPropertyWidget::reportEdit()
{
    if (mList && mList->isUndefined()) {
        mList->setUndefined(false);
        updateButtons();
    }
    emit propertiesChanged();
}

void ListPropertyWidget::undefinedButtonClicked()
{
    if (!mList || !commitPendingEdit() || !mList)
        return;
    if (!mList->isUndefinable() && mList->isDefined()) {
        updateButtons();
        return;
    }
    mList->setUndefined(!mList->isUndefined());
    updateButtons();
    emit propertiesChanged();
}

void ListPropertyWidget::addNewEntry()
{
    if (!mList || !commitPendingEdit() || !mList || !mList->insertProperty(mList->size()))
        return;
    mList->setUndefined(false);
    rebuild();
    if (mShowsView) {
        mView->setCurrentItem(mView->topLevelItem(mView->topLevelItemCount() - 1), 0);
        mView->setFocus(Qt::OtherFocusReason);
    } else if (!mRows.isEmpty() && mRows.last()) {
        mRows.last()->setFocus(Qt::OtherFocusReason);
    }
    emit propertiesChanged();
}

void ListPropertyWidget::removeCurrentEntry()
{
    if (!mList)
        return;
    int index = -1;
    if (QObject *button = sender())
        if (button->property("element index").isValid())
            index = button->property("element index").toInt();
    if (index < 0 && mShowsView && mView->currentItem())
        index = mView->currentIndex().row();
    for (int i = 0; index < 0 && i < mRows.size(); ++i)
        if (mRows.at(i) && mRows.at(i)->isAncestorOf(QApplication::focusWidget()))
            index = i;
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    if (index < 0 || !commitPendingEdit() || !mList || !mList->removeProperty(index))
        return;
    rebuild();
    // The row that takes the deleted one's place gets the focus, else the last, else Add.
    if (hadFocus && mShowsView) {
        mView->setCurrentItem(mView->topLevelItem(qMin(index, mView->topLevelItemCount() - 1)), 0);
        mView->setFocus(Qt::TabFocusReason);
    } else if (hadFocus) {
        QWidget *next = mRows.value(qMin(index, mRows.size() - 1));
        (next ? next : static_cast<QWidget *>(mAddButton))->setFocus(Qt::TabFocusReason);
    }
    emit propertiesChanged();
}

} // namespace TavoLib
