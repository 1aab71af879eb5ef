#pragma once

// Small helpers shared by the menu tests: posted deletions, row positions in a popup, plain
// icons, and the check that no popup outlives a test.
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

// Flushes deletions, then fails if an icon menu is still a top-level window.
inline bool noPopupLeft()
{
    flushDeletes();
    for (QWidget *w : QApplication::topLevelWidgets()) {
        if (qobject_cast<IconMenu *>(w))
            return false;
    }
    return true;
}

} // namespace MenuTest
