#pragma once

// Helpers shared by the menu tests: posted deletions, row positions, plain icons, popups.
#include "menus/IconMenu.h"

#include <QApplication>
#include <QPixmap>
#include <QTest>

namespace MenuTest {

inline void flushDeletes()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

inline QPoint rowCentre(IconMenu *popup, int row)
{
    return popup->visualRect(popup->model()->index(row, 0)).center();
}

inline QIcon filled(const QColor &colour)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(colour);
    return QIcon(pixmap);
}

// A menu popup window shown at (200, 100).
inline IconMenu *menuPopup(QMenu *menu, const IconMenuConfiguration &config, QWidget *anchor)
{
    auto *popup = new IconMenu(config, menu, QPoint(200, 100), anchor, anchor);
    popup->makePopupWindow();
    popup->show();
    return popup;
}

// After posted deletions, is no icon menu left as a top-level window?
inline bool noPopupLeft()
{
    flushDeletes();
    for (QWidget *w : QApplication::topLevelWidgets())
        if (qobject_cast<IconMenu *>(w))
            return false;
    return true;
}

} // namespace MenuTest
