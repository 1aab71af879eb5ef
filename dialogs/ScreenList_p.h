#pragma once

// The screens by number, as the dialog services count them: the order of
// QGuiApplication::screens(), with -1 (or any number out of range) standing for the primary
// screen. Without any screen every rectangle is empty.
#include <QGuiApplication>
#include <QRect>
#include <QScreen>

namespace TavoLib {
namespace ScreenList {

inline QScreen *screen(int number)
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    if (number >= 0 && number < screens.size())
        return screens.at(number);
    return QGuiApplication::primaryScreen();
}

inline int count()
{
    return QGuiApplication::screens().size();
}

inline int primary()
{
    return qMax(0, QGuiApplication::screens().indexOf(QGuiApplication::primaryScreen()));
}

// The number of the screen that holds `point`, or of the primary screen.
inline int screenNumber(const QPoint &point)
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (int i = 0; i < screens.size(); ++i) {
        if (screens.at(i)->geometry().contains(point))
            return i;
    }
    return primary();
}

inline QRect screenGeometry(int number)
{
    QScreen *s = screen(number);
    return s ? s->geometry() : QRect();
}

inline QRect availableGeometry(int number)
{
    QScreen *s = screen(number);
    return s ? s->availableGeometry() : QRect();
}

// A rectangle of `size` at `position`, counted from the left and top of `available`, or from
// its right and bottom.
inline QRect placed(const QRect &available, const QSize &size, const QPoint &position, bool fromLeft,
                    bool fromTop)
{
    const int y = fromTop ? position.y() : available.bottom() - position.y() - size.height();
    const int x = fromLeft ? position.x() : available.right() - position.x() - size.width();
    return QRect(QPoint(x, y), size);
}

} // namespace ScreenList
} // namespace TavoLib
