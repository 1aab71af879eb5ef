#include "browser/DialogPropertyBrowser.h"

#include "browser/ViewProperty.h"
#include "core/StringProperty.h"
#include "property/ListPropertyWidget.h"
#include "propertybrowser/QtBrowserItem.h"

#include <QFrame>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

namespace TavoLib {

namespace {

QGridLayout *gridOf(QWidget *widget)
{
    return widget ? qobject_cast<QGridLayout *>(widget->layout()) : nullptr;
}

// Where a widget stands in a grid; false when it is not there.
bool positionIn(QGridLayout *grid, QWidget *widget, int *row, int *column)
{
    const int index = grid && widget ? grid->indexOf(widget) : -1;
    if (index < 0)
        return false;
    int rowSpan = 0;
    int columnSpan = 0;
    grid->getItemPosition(index, row, column, &rowSpan, &columnSpan);
    return true;
}

} // namespace

DialogPropertyBrowser::DialogPropertyBrowser(QWidget *parent)
    : QtAbstractPropertyBrowser(parent)
{
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

DialogPropertyBrowser::~DialogPropertyBrowser() = default;

int DialogPropertyBrowser::labelOffset(const QLabel *label)
{
    int offset = 0;
    for (const QWidget *w = label->parentWidget(); w && w->layout(); w = w->parentWidget()) {
        // The widget's own margins count too: a group box keeps its frame there, and
        // without it the labels in a group would end a frame's width off the others.
        offset += w->layout()->contentsMargins().left() + w->contentsMargins().left();
        if (!w->parentWidget())
            break;
    }
    return offset;
}

int DialogPropertyBrowser::labelWidth(const QLabel *label)
{
    return label->minimumSizeHint().width() + labelOffset(label);
}

int DialogPropertyBrowser::maxLabelWidth() const
{
    int width = 0;
    for (const auto &entry : mWidgetInfos)
        if (entry.second->mLabel)
            width = qMax(width, labelWidth(entry.second->mLabel));
    return width;
}

void DialogPropertyBrowser::setMaxLabelWidth(int width)
{
    mLabelWidth = width;
    for (const auto &entry : mWidgetInfos)
        if (QLabel *label = entry.second->mLabel)
            label->setFixedWidth(int(double(width) - double(labelOffset(label))));
}

void DialogPropertyBrowser::updateSizes()
{
    setMaxLabelWidth(maxLabelWidth());
}

// Fits one label to the common edge; only a label wider than all others makes every label
// move, so inserting n rows does not visit all rows n times.
void DialogPropertyBrowser::fitLabel(QLabel *label)
{
    const int width = labelWidth(label);
    if (width > mLabelWidth)
        setMaxLabelWidth(width);
    else
        label->setFixedWidth(int(double(mLabelWidth) - double(labelOffset(label))));
}

void DialogPropertyBrowser::itemInserted(QtBrowserItem *item, QtBrowserItem *)
{
    TAutoPtr<WidgetInfo> info(new WidgetInfo);
    info->mEditor = createEditor(item->property(), this);
    info->mLabel = new QLabel(this);
    info->mLabel->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    QString text = item->property()->propertyName();
    if (!text.endsWith(QLatin1Char(':')))
        text += QLatin1Char(':');
    info->mLabel->setText(text);
    mWidgetInfos[item] = info;

    QGridLayout *grid = static_cast<QGridLayout *>(layout());
    if (QtBrowserItem *parent = item->parent()) {
        auto found = mWidgetInfos.find(parent);
        if (found != mWidgetInfos.end()) {
            if (parent->children().size() == 1 || !found->second->mChildArea)
                promote(*found->second);
            grid = gridOf(found->second->mChildArea);
        }
    }
    if (!grid)
        return;

    const int r = grid->rowCount();
    QWidget *editor = info->mEditor;
    bool labelVisible = true;
    bool multiLine = false;
    if (auto *view = dynamic_cast<ViewProperty *>(item->property()))
        if (TAutoPtr<const StringProperty> string{ view->data() }) {
            labelVisible = string->isLabelVisible();
            multiLine = string->multiLine();
        }
    if (!labelVisible) {
        info->mLabel->hide();
        if (editor) {
            grid->addWidget(info->mLabel, r, 0);
            grid->addWidget(editor, r, 0, 1, 2);
        }
    } else if (multiLine || qobject_cast<ListPropertyWidget *>(editor)) {
        // A list or a text of several lines: its label above it, the editor the full width.
        grid->addWidget(info->mLabel, r, 0, 1, 2);
        if (editor)
            grid->addWidget(editor, r + 1, 0, 1, 2);
    } else {
        grid->addWidget(info->mLabel, r, 0);
        if (editor)
            grid->addWidget(editor, r, 1);
    }
    fitLabel(info->mLabel);
    // Every new widget queues a request to be polished. Qt walks that whole queue whenever a
    // new widget gets its layout or a widget is deleted, so a load of thousands of rows in
    // one go would cost n squared. The requests are dropped now and then: a widget is
    // polished anyway before it is first shown or measured.
    if (++mInsertedSinceTrim >= 64) {
        mInsertedSinceTrim = 0;
        QCoreApplication::removePostedEvents(nullptr, QEvent::PolishRequest);
    }
}

void DialogPropertyBrowser::promote(WidgetInfo &parent)
{
    QLabel *label = parent.mLabel;
    QGridLayout *outer = label ? gridOf(label->parentWidget()) : nullptr;
    int row = 0;
    int column = 0;
    if (!outer || !positionIn(outer, label, &row, &column))
        return;
    outer->removeWidget(label);
    if (parent.mEditor)
        outer->removeWidget(parent.mEditor);

    QWidget *container = nullptr;
    if (!parent.mEditor) {
        // A heading: a framed group titled by the label.
        auto *box = new QGroupBox(this);
        box->setFlat(false);
        QString title = label->text();
        if (title.endsWith(QLatin1Char(':')))
            title.chop(1);
        box->setTitle(title);
        auto *grid = new QGridLayout(box);
        grid->setContentsMargins(9, 9, 9, 9);
        container = box;
        parent.mChildArea = box;
    } else {
        // A row with children: its own row, a line, and the children indented below.
        container = new QWidget(this);
        auto *grid = new QGridLayout(container);
        grid->setContentsMargins(0, 0, 0, 0);
        auto *area = new QFrame(container);
        auto *areaGrid = new QGridLayout(area);
        areaGrid->setContentsMargins(15, 0, 0, 0);
        parent.mChildArea = area;
    }
    QGridLayout *g = gridOf(container);
    const int r = g->rowCount();
    g->addWidget(label, r, 0);
    if (parent.mEditor) {
        g->addWidget(parent.mEditor, r, 1);
        parent.mSeparator = new QFrame(container);
        parent.mSeparator->setFrameShape(QFrame::HLine);
        parent.mSeparator->setFrameShadow(QFrame::Sunken);
        g->addWidget(parent.mSeparator, r + 1, 0, 1, 2);
        g->addWidget(parent.mChildArea, r + 2, 0, 1, 2);
    } else {
        // The title has taken the text; the label stays for the width of the column.
        label->hide();
    }
    parent.mContainer = container;
    outer->addWidget(container, row, 0, 1, 2);
    container->show();
    // The label now stands inside the container's margins.
    fitLabel(label);
}

void DialogPropertyBrowser::demote(WidgetInfo &parent)
{
    QWidget *container = parent.mContainer;
    QGridLayout *inner = gridOf(container);
    QGridLayout *outer = container ? gridOf(container->parentWidget()) : nullptr;
    int row = 0;
    int column = 0;
    if (!inner || !outer || !positionIn(outer, container, &row, &column))
        return;
    inner->removeWidget(parent.mLabel);
    if (parent.mEditor)
        inner->removeWidget(parent.mEditor);
    outer->removeWidget(container);
    QWidget *host = outer->parentWidget();
    parent.mLabel->setParent(host);
    outer->addWidget(parent.mLabel, row, 0);
    if (parent.mEditor) {
        parent.mEditor->setParent(host);
        outer->addWidget(parent.mEditor, row, 1);
        parent.mEditor->show();
    }
    parent.mLabel->show();
    delete container;
    parent.mContainer = nullptr;
    parent.mChildArea = nullptr;
    parent.mSeparator = nullptr;
}

void DialogPropertyBrowser::itemRemoved(QtBrowserItem *item)
{
    auto found = mWidgetInfos.find(item);
    if (found == mWidgetInfos.end())
        return;
    const TAutoPtr<WidgetInfo> info = found->second;
    const bool widest = info->mLabel && labelWidth(info->mLabel) >= mLabelWidth;
    // The editor may be the very widget whose signal led here (a host reloading from a
    // change handler, a focus-out being delivered): it leaves the form now and is deleted
    // once control is back in the event loop.
    if (info->mEditor) {
        info->mEditor->hide();
        info->mEditor->setParent(this);
        info->mEditor->deleteLater();
    }
    delete info->mLabel;
    delete info->mContainer;
    mWidgetInfos.erase(found);

    // The framework still counts the item: one child left means the last one is going.
    QtBrowserItem *parent = item->parent();
    bool demoted = false;
    if (parent && parent->children().size() == 1) {
        auto parentInfo = mWidgetInfos.find(parent);
        if (parentInfo != mWidgetInfos.end() && parentInfo->second->mContainer) {
            demote(*parentInfo->second);
            demoted = true;
        }
    }
    // Only the widest label's going can move the common edge; a demoted parent's label
    // left its group's margins and is fitted again.
    if (widest || demoted)
        setMaxLabelWidth(maxLabelWidth());
}

void DialogPropertyBrowser::itemChanged(QtBrowserItem *)
{
    // Editors follow their values through the editor factory.
}

} // namespace TavoLib
