#pragma once

// Laying the Tab order of widgets made at different times: Qt appends every new widget to
// the end of its window's chain, so a form that adds rows later must put them back in
// screen order itself. Internal to the library.
#include <QWidget>

namespace TavoLib {
namespace TabChain {

inline bool isStop(const QWidget *widget)
{
    return (widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy() && !widget->isWindow();
}

// The Tab stops inside `root` (root included), in the order they were made in each parent.
inline QList<QWidget *> stops(QWidget *root)
{
    QList<QWidget *> result;
    if (!root)
        return result;
    QList<QWidget *> widgets { root };
    widgets += root->findChildren<QWidget *>();
    for (QWidget *widget : qAsConst(widgets))
        if (widget->window() == root->window() && isStop(widget))
            result.append(widget);
    return result;
}

// Puts `chain` into the window's Tab order, in its order, right after the last Tab stop that
// stands before `anchor` in the window's widget tree (its screen order, whatever order the
// widgets were made in); without one the chain keeps the place of its first widget. Qt moves
// each widget alone, so the inner widgets of a compound (a text field's viewport) stay where
// they were: a form that holds such widgets also steps through its stops itself.
inline void link(QWidget *anchor, const QList<QWidget *> &chain)
{
    QWidget *window = anchor->window();
    QWidget *previous = nullptr;
    for (QWidget *w : window->findChildren<QWidget *>()) {
        if (w == anchor)
            break;
        if (w->window() == window && isStop(w))
            previous = w;
    }
    for (QWidget *widget : chain) {
        if (previous && previous != widget && previous->window() == widget->window())
            QWidget::setTabOrder(previous, widget);
        previous = widget;
    }
}

// Whether Tab may stop at the widget now.
inline bool canTakeFocus(const QWidget *widget)
{
    return isStop(widget) && widget->isEnabled() && widget->isVisibleTo(widget->window());
}

// Steps the focus inside `form` along `stops` (in screen order) from the stop that holds it,
// and out of the form at either end, to the next widget in the window's chain outside it.
// False when the focus is not at one of the stops.
inline bool step(QWidget *form, const QList<QWidget *> &stops, bool next)
{
    QWidget *focused = form->focusWidget();
    const int at = stops.indexOf(focused);
    if (at < 0)
        return false;
    for (int i = next ? at + 1 : at - 1; i >= 0 && i < stops.size(); i += next ? 1 : -1)
        if (canTakeFocus(stops.at(i))) {
            stops.at(i)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    QWidget *w = form;
    do {
        w = next ? w->nextInFocusChain() : w->previousInFocusChain();
        if (w != form && !form->isAncestorOf(w) && canTakeFocus(w)) {
            w->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    } while (w && w != form);
    return false;
}

} // namespace TabChain
} // namespace TavoLib
