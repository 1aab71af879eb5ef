#pragma once

// Laying the Tab order of widgets made at different times: Qt appends every new widget to
// the end of its window's chain, so a form that adds rows later must put them back in
// screen order itself. Internal to the library.
#include <QWidget>

namespace TavoLib {
namespace TabChain {

// The widgets inside `root` (root included) that Tab stops at, in the order they were made
// in each parent; a widget that hands its focus on to a proxy is left out for the proxy.
inline QList<QWidget *> stops(QWidget *root)
{
    QList<QWidget *> result;
    if (!root)
        return result;
    QList<QWidget *> widgets{ root };
    widgets += root->findChildren<QWidget *>();
    for (QWidget *widget : qAsConst(widgets))
        if ((widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy() && !widget->isWindow())
            result.append(widget);
    return result;
}

// Puts `chain` into the window's Tab order, in its order, right after the last Tab stop
// that comes before `anchor` and lies outside it; without one the chain keeps the place
// of its first widget.
inline void link(QWidget *anchor, const QList<QWidget *> &chain)
{
    QWidget *previous = nullptr;
    for (QWidget *w = anchor->previousInFocusChain(); w && w != anchor; w = w->previousInFocusChain()) {
        if (w->isWindow())
            break;
        if (!anchor->isAncestorOf(w) && (w->focusPolicy() & Qt::TabFocus) && !w->focusProxy()) {
            previous = w;
            break;
        }
    }
    for (QWidget *widget : chain) {
        if (previous && previous->window() == widget->window())
            QWidget::setTabOrder(previous, widget);
        previous = widget;
    }
}

} // namespace TabChain
} // namespace TavoLib
