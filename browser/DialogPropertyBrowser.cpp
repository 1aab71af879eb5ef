#include "browser/DialogPropertyBrowser.h"

#include "browser/ViewProperty.h"
#include "core/StringProperty.h"
#include "property/ListPropertyWidget.h"
#include "propertybrowser/QtBrowserItem.h"

#include "widgets/TabChain_p.h"

#include <QApplication>
#include <QFrame>
#include <QPointer>

#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <functional>
#include <utility>

namespace TavoLib {

namespace {

// Gives the focus back to the widget inside `editor` that had it, once the editor has been
// moved to another parent.
class FocusKeeper
{
public:
    explicit FocusKeeper(QWidget *editor)
    {
        QWidget *focused = QApplication::focusWidget();
        if (editor && focused && (focused == editor || editor->isAncestorOf(focused)))
            mFocused = focused;
    }
    ~FocusKeeper()
    {
        if (mFocused && mFocused->isVisible() && !mFocused->hasFocus())
            mFocused->setFocus(Qt::OtherFocusReason);
    }

private:
    QPointer<QWidget> mFocused;
};

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

DialogPropertyBrowser::DialogPropertyBrowser(QWidget *parent) : QtAbstractPropertyBrowser(parent)
{
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

DialogPropertyBrowser::~DialogPropertyBrowser() = default;

// The left margins of the widgets from `from` up to `to` (both included), or to the top.
static int marginsUpTo(const QWidget *from, const QWidget *to)
{
    int offset = 0;
    for (const QWidget *w = from; w && w->layout(); w = w->parentWidget()) {
        // The widget's own margins count too: a group box keeps its frame there, and
        // without it the labels in a group would end a frame's width off the others.
        offset += w->layout()->contentsMargins().left() + w->contentsMargins().left();
        if (w == to || !w->parentWidget())
            break;
    }
    return offset;
}

int DialogPropertyBrowser::labelOffset(const QLabel *label)
{
    return marginsUpTo(label->parentWidget(), nullptr);
}

int DialogPropertyBrowser::innerOffset(const QLabel *label) const
{
    return marginsUpTo(label->parentWidget(), this);
}

int DialogPropertyBrowser::outerOffset() const
{
    return marginsUpTo(parentWidget(), nullptr);
}

int DialogPropertyBrowser::maxLabelWidth() const
{
    int width = 0;
    for (const auto &entry : mWidgetInfos)
        if (entry.second->mLabel)
            width = qMax(width, entry.second->mLabel->minimumSizeHint().width()
                    + innerOffset(entry.second->mLabel));
    return width > 0 ? width + outerOffset() : 0;
}

void DialogPropertyBrowser::setMaxLabelWidth(int width)
{
    // Kept relative to this browser: the margins above it may change later (a group box put
    // around the panel, a panel placed into a window), and rows added then still line up.
    // decided: a width given from outside stands until a wider label comes or the widest
    // row goes, when the browser's own maximum is taken again.
    mLabelWidth = width - outerOffset();
    for (const auto &entry : mWidgetInfos)
        if (QLabel *label = entry.second->mLabel)
            label->setFixedWidth(mLabelWidth - innerOffset(label));
}

void DialogPropertyBrowser::updateSizes()
{
    setMaxLabelWidth(maxLabelWidth());
}

// Fits one label to the common edge; only a label wider than all others makes every label
// move, so inserting n rows does not visit all rows n times.
void DialogPropertyBrowser::fitLabel(QLabel *label)
{
    const int width = label->minimumSizeHint().width() + innerOffset(label);
    if (width > mLabelWidth)
        setMaxLabelWidth(width + outerOffset());
    else
        label->setFixedWidth(mLabelWidth - innerOffset(label));
}

// kept on purpose: `afterItem` is not used; a row is appended to its grid, so the
// framework's item order and the form's order may differ.
void DialogPropertyBrowser::itemInserted(QtBrowserItem *item, QtBrowserItem *)
{
    TAutoPtr<WidgetInfo> info(new WidgetInfo);
    info->mEditor = createEditor(item->property(), this);
    if (info->mEditor)
        info->mEditor->setEnabled(item->property()->isEnabled());
    info->mLabel = new QLabel(this);
    info->mLabel->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    // A name is text, never markup; with a buddy an "&" would become a mnemonic.
    info->mLabel->setTextFormat(Qt::PlainText);
    QString text = item->property()->propertyName();
    if (!text.endsWith(QLatin1Char(':')))
        text += QLatin1Char(':');
    info->mLabel->setText(QString(text).replace(QLatin1Char('&'), QLatin1String("&&")));
    if (info->mEditor)
        info->mLabel->setBuddy(info->mEditor);
    mWidgetInfos[item] = info;
    scheduleTabOrder();

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
        if (TAutoPtr<const StringProperty> string { view->data() }) {
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
    // Moving a widget to another parent takes the focus out of it: the editor the user is
    // working in (a choice that brings new rows) keeps it.
    const FocusKeeper keeper(parent.mEditor);
    outer->removeWidget(label);
    if (parent.mEditor)
        outer->removeWidget(parent.mEditor);

    QWidget *container = nullptr;
    if (!parent.mEditor) {
        // A heading: a framed group titled by the label.
        auto *box = new QGroupBox(this);
        box->setFlat(false);
        // The label's text has its "&" doubled already, as a title needs it too.
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
    const FocusKeeper keeper(parent.mEditor);
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
    const bool widest = info->mLabel
        && info->mLabel->minimumSizeHint().width() + innerOffset(info->mLabel) >= mLabelWidth;
    // The entry goes first and its pointers are taken: hiding a focused editor commits it,
    // and whatever that sets off may come back here for the same row.
    mWidgetInfos.erase(found);
    QWidget *editor = std::exchange(info->mEditor, nullptr);
    QLabel *label = std::exchange(info->mLabel, nullptr);
    QWidget *container = std::exchange(info->mContainer, nullptr);
    delete label;
    // The editor may be the very widget whose signal led here (a host reloading from a
    // change handler, a focus-out being delivered): it leaves the form now and is deleted
    // once control is back in the event loop.
    if (editor) {
        editor->hide();
        editor->setParent(this);
        editor->deleteLater();
    }
    delete container;
    if (mWidgetInfos.empty()) {
        // A grid never gives its rows back: an empty browser starts on a fresh one, so that
        // reloads do not stack forms below each other.
        delete layout();
        auto *grid = new QGridLayout(this);
        grid->setContentsMargins(0, 0, 0, 0);
        mLabelWidth = -1;
        return;
    }

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

void DialogPropertyBrowser::itemChanged(QtBrowserItem *item)
{
    // Editors follow their values through the editor factory; the enabled state of a row
    // (a switchable group's children) is the browser's to show.
    auto found = mWidgetInfos.find(item);
    if (found != mWidgetInfos.end() && found->second->mEditor)
        found->second->mEditor->setEnabled(item->property()->isEnabled());
}

QWidget *DialogPropertyBrowser::editorOf(QtBrowserItem *item) const
{
    auto found = mWidgetInfos.find(item);
    return found == mWidgetInfos.end() ? nullptr : found->second->mEditor;
}

QList<QtBrowserItem *> DialogPropertyBrowser::itemsInFormOrder() const
{
    QList<QtBrowserItem *> result;
    std::function<void(QtBrowserItem *)> visit = [&](QtBrowserItem *item) {
        result.append(item);
        for (QtBrowserItem *child : item->children())
            visit(child);
    };
    for (QtBrowserItem *item : topLevelItems())
        visit(item);
    return result;
}

void DialogPropertyBrowser::scheduleTabOrder()
{
    // Once per batch of rows, when control is back in the event loop: a load of many rows
    // does not lay the chain again per row.
    if (mTabOrderPending)
        return;
    mTabOrderPending = true;
    QMetaObject::invokeMethod(
        this, [this] { updateTabOrder(); }, Qt::QueuedConnection);
}

QList<QWidget *> DialogPropertyBrowser::tabStops() const
{
    QList<QWidget *> chain;
    for (QtBrowserItem *item : itemsInFormOrder())
        chain += TabChain::stops(editorOf(item));
    return chain;
}

void DialogPropertyBrowser::updateTabOrder()
{
    mTabOrderPending = false;
    TabChain::link(this, tabStops());
}

bool DialogPropertyBrowser::focusNextPrevChild(bool next)
{
    // Tab and Backtab from a row go to the next row of the form, whatever Qt's chain has
    // kept of the inner widgets of editors that were moved in it.
    if (TabChain::step(this, tabStops(), next))
        return true;
    return QtAbstractPropertyBrowser::focusNextPrevChild(next);
}

} // namespace TavoLib
