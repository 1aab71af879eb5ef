#include "attributes/AttributesDialog.h"

#include "attributes/AttributesWidget.h"
#include "browser/PropertyWidgetGroupWidget.h"

#include <QPointer>
#include <QSpacerItem>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace TavoLib {

namespace {

AttributesWidgetCommon *common(QWidget *widget)
{
    return dynamic_cast<AttributesWidgetCommon *>(widget);
}

} // namespace

AttributesDialog::AttributesDialog(
    Type type, QWidget *parent, Qt::WindowFlags flags, bool previewEnabled, int minimumWidth)
    : PropertyDialog(parent, flags, minimumWidth), mPreviewEnabled(previewEnabled)
{
    if (type == Tabs) {
        mTabWidget = new QTabWidget(this);
        mainLayout()->addWidget(mTabWidget);
    } else if (type == PageTree) {
        mSplitter = new QSplitter(Qt::Horizontal, this);
        mPageTree = new QTreeWidget(mSplitter);
        mPageTree->setRootIsDecorated(false);
        mPageTree->setHeaderHidden(true);
        mStackedWidget = new QStackedWidget(mSplitter);
        mSplitter->setCollapsible(0, false);
        mSplitter->setCollapsible(1, false);
        mainLayout()->addWidget(mSplitter);
        connect(mPageTree, &QTreeWidget::itemSelectionChanged, this, &AttributesDialog::currentPageChanged);
    }
    // The dialog takes its size from its pages.
    if (layout())
        layout()->setSizeConstraint(QLayout::SetFixedSize);
    mPreview->setVisible(previewEnabled);
    connect(mPreview, &QCheckBox::stateChanged, this, &AttributesDialog::previewButtonClicked);
}

AttributesDialog::~AttributesDialog()
{
    // The pages' last signals must not reach a dialog that is going.
    for (QWidget *widget : widgets())
        widget->disconnect(this);
}

QList<QWidget *> AttributesDialog::widgets()
{
    // A widget the host deleted is forgotten here, so nothing reaches it later.
    mWidgets.remove_if([](const QPointer<QWidget> &widget) { return widget.isNull(); });
    QList<QWidget *> result;
    for (const QPointer<QWidget> &widget : mWidgets)
        result << widget.data();
    return result;
}

QWidget *AttributesDialog::addTab(const QString &name)
{
    auto *page = new QWidget(this);
    auto *column = new QVBoxLayout(page);
    // Keeps the content at the top of a taller page.
    column->addItem(new QSpacerItem(10, 0, QSizePolicy::Fixed, QSizePolicy::Expanding));
    if (mTabWidget) {
        mTabWidget->addTab(page, name);
    } else if (mStackedWidget) {
        auto *item = new QTreeWidgetItem(mPageTree, { name });
        item->setData(0, Qt::UserRole, name);
        mPages[name] = page;
        mStackedWidget->addWidget(page);
        mPageItems[page] = item;
    }
    return page;
}

void AttributesDialog::addWidget(QWidget *page, QWidget *widget)
{
    if (!page || !widget)
        return;
    auto *column = qobject_cast<QBoxLayout *>(page->layout());
    if (!column)
        return;
    column->insertWidget(qMax(0, column->count() - 1), widget);
    widget->setProperty("page", QVariant::fromValue<QWidget *>(page));
    setupWidget(widget);
}

void AttributesDialog::addWidget(QWidget *widget)
{
    if (!widget)
        return;
    mainLayout()->addWidget(widget);
    setupWidget(widget);
}

void AttributesDialog::setupWidget(QWidget *widget)
{
    mWidgets.push_back(widget);
    // Any page that reports changes the usual way: property panels and their groups.
    if (widget->metaObject()->indexOfSignal("signalPropertyChanged()") >= 0)
        connect(widget, SIGNAL(signalPropertyChanged()), this, SLOT(anyPropertyChanged()));
}

void AttributesDialog::setCurrentTab(QWidget *page)
{
    if (mTabWidget)
        mTabWidget->setCurrentWidget(page);
    else if (mStackedWidget)
        mStackedWidget->setCurrentWidget(page);
}

int AttributesDialog::exec()
{
    prepareToRun();
    return DialogBase::exec();
}

void AttributesDialog::prepareToRun()
{
    // kept on purpose: the preview box keeps its state between runs, so a dialog reopened
    // with it ticked previews nothing until the first edit.
    loadValues();
    alignLabels();
    if (mPageTree)
        openOnFirstMarkedPage();
    // kept on purpose: one entry for two panes; the tree gets 150 and the stack the rest.
    if (mSplitter)
        mSplitter->setSizes({ 150 });
    resize(minimumSizeHint());
}

void AttributesDialog::alignLabels()
{
    QList<QWidget *> parents;
    for (QWidget *widget : widgets()) {
        if (parents.contains(widget->parentWidget()))
            continue;
        parents << widget->parentWidget();
        synchronizeLabelSizes(widget);
    }
}

void AttributesDialog::openOnFirstMarkedPage()
{
    const QMap<QTreeWidgetItem *, PageLabelMark> marks = pageLabelMarks();
    markPageLabels(marks);
    int index = mPageTree->topLevelItemCount();
    for (auto it = marks.constBegin(); it != marks.constEnd(); ++it)
        if (it.value() != NoMark)
            index = qMin(index, mPageTree->indexOfTopLevelItem(it.key()));
    if (index >= mPageTree->topLevelItemCount())
        index = 0;
    mPageTree->setCurrentItem(mPageTree->topLevelItem(index));
}

void AttributesDialog::loadValues()
{
    for (QWidget *widget : widgets())
        loadWidgetValues(widget);
}

void AttributesDialog::loadWidgetValues(QWidget *)
{
}

bool AttributesDialog::checkValues()
{
    for (QWidget *widget : widgets())
        if (!checkWidgetValues(widget))
            return false;
    return true;
}

bool AttributesDialog::checkWidgetValues(QWidget *)
{
    return true;
}

void AttributesDialog::saveValues()
{
    for (QWidget *widget : widgets())
        saveWidgetValues(widget);
}

void AttributesDialog::saveWidgetValues(QWidget *)
{
}

void AttributesDialog::accept()
{
    if (!checkValues())
        return;
    // Closed first: the values are written by a dialog that is no longer shown.
    QDialog::accept();
    saveValues();
}

void AttributesDialog::reject()
{
    restorePages();
    QDialog::reject();
}

void AttributesDialog::savePages()
{
    for (QWidget *widget : widgets())
        if (AttributesWidgetCommon *page = common(widget))
            page->saveValues();
}

void AttributesDialog::restorePages()
{
    for (QWidget *widget : widgets())
        if (AttributesWidgetCommon *page = common(widget))
            page->restoreValues();
}

void AttributesDialog::previewButtonClicked()
{
    // kept on purpose: the box acts whether or not the dialog was built with the preview, so
    // after showPreviewOption(true) on such a dialog ticking it writes once and later edits
    // are not previewed (anyPropertyChanged asks mPreviewEnabled).
    if (mPreview->isChecked())
        savePages();
    else
        restorePages();
}

void AttributesDialog::anyPropertyChanged()
{
    if (mPreviewEnabled && mPreview->isChecked())
        savePages();
    if (auto *sender = qobject_cast<AttributesWidget *>(this->sender()))
        synchronizeLabelSizes(sender);
    markPageLabels(pageLabelMarks());
}

void AttributesDialog::synchronizeLabelSizes(QWidget *widget)
{
    if (!widget)
        return;
    QList<PropertyWidget *> siblings;
    for (QWidget *other : widgets())
        if (other->parentWidget() == widget->parentWidget())
            if (auto *page = qobject_cast<AttributesWidget *>(other))
                siblings << page;
    synchronizeLabelWidths(siblings);
}

QMap<QTreeWidgetItem *, AttributesDialog::PageLabelMark> AttributesDialog::pageLabelMarks()
{
    QMap<QTreeWidgetItem *, PageLabelMark> marks;
    const QList<QWidget *> live = widgets();
    // Marks only where each page holds one widget.
    if (!mPageTree || mPages.size() != live.size())
        return marks;
    for (QWidget *widget : live) {
        AttributesWidgetCommon *page = common(widget);
        auto *pageWidget = widget->property("page").value<QWidget *>();
        QTreeWidgetItem *item = pageWidget ? mPageItems.value(pageWidget) : nullptr;
        if (!page || !item)
            continue;
        const AttributesWidgetCommon::AttributesState state = page->attributesState();
        marks[item] = state == AttributesWidgetCommon::Active ? BoldMark
            : state == AttributesWidgetCommon::Undefined      ? BoldItalicMark
                                                              : NoMark;
    }
    if (marks.size() != mPageTree->topLevelItemCount())
        marks.clear();
    return marks;
}

void AttributesDialog::markPageLabels(const QMap<QTreeWidgetItem *, PageLabelMark> &marks)
{
    for (auto it = marks.constBegin(); it != marks.constEnd(); ++it) {
        QFont font = it.key()->font(0);
        font.setBold(it.value() != NoMark);
        font.setItalic(it.value() == BoldItalicMark);
        it.key()->setFont(0, font);
    }
}

void AttributesDialog::currentPageChanged()
{
    const QList<QTreeWidgetItem *> selected = mPageTree ? mPageTree->selectedItems() : QList<QTreeWidgetItem *>();
    if (selected.isEmpty())
        return;
    if (QWidget *page = mPages.value(selected.first()->data(0, Qt::UserRole).toString()))
        setCurrentTab(page);
}

} // namespace TavoLib
