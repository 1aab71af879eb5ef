#include "core/StandardLineHeadStyleProvider.h"

#include <QCoreApplication>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace TavoLib {

namespace {
QString tr(const char *text)
{
    return QCoreApplication::translate("TavoLib::StandardLineHeadStyleProvider", text);
}
} // namespace

StandardLineHeadStyleProvider::StandardLineHeadStyleProvider(Contents contents)
{
    if (contents == Empty)
        return;
    addStyle(0, tr("None"), NoHead);
    addStyle(1, tr("Open Arrow"), OpenArrow);
    addStyle(2, tr("Filled Arrow"), FilledArrow);
    addStyle(3, tr("Barbed Arrow"), BarbedArrow);
    addStyle(4, tr("Circle"), Circle);
    addStyle(5, tr("Square"), Square);
    addStyle(6, tr("Diamond"), Diamond);
    addStyle(7, tr("Bar"), Bar);
    addAlias(100, 0);
}

StandardLineHeadStyleProvider::~StandardLineHeadStyleProvider() = default;

QPainterPath StandardLineHeadStyleProvider::shapePath(Shape shape)
{
    QPainterPath path;
    switch (shape) {
    case NoHead:
        break;
    case OpenArrow:
        path.moveTo(-5, -3);
        path.lineTo(0, 0);
        path.lineTo(-5, 3);
        break;
    case FilledArrow:
        path.moveTo(0, 0);
        path.lineTo(-6, -3);
        path.lineTo(-6, 3);
        path.closeSubpath();
        break;
    case BarbedArrow:
        path.moveTo(0, 0);
        path.lineTo(-7, -3.5);
        path.lineTo(-5, 0);
        path.lineTo(-7, 3.5);
        path.closeSubpath();
        break;
    case Circle:
        path.addEllipse(QPointF(-2.5, 0), 2.5, 2.5);
        break;
    case Square:
        path.addRect(QRectF(-5, -2.5, 5, 5));
        break;
    case Diamond:
        path.moveTo(0, 0);
        path.lineTo(-3, -3);
        path.lineTo(-6, 0);
        path.lineTo(-3, 3);
        path.closeSubpath();
        break;
    case Bar:
        path.moveTo(0, -3);
        path.lineTo(0, 3);
        break;
    }
    return path;
}

bool StandardLineHeadStyleProvider::isShapeFilled(Shape shape)
{
    return shape != NoHead && shape != OpenArrow && shape != Bar;
}

bool StandardLineHeadStyleProvider::addStyle(
    short id, const QString &name, const QPainterPath &path, bool filled)
{
    if (id == NoStyle || name.isEmpty() || mEntries.count(id) || mAliases.count(id))
        return false;
    mEntries[id] = Entry { name, path, filled };
    mOrder.push_back(id);
    return true;
}

bool StandardLineHeadStyleProvider::addStyle(short id, const QString &name, Shape shape)
{
    return addStyle(id, name, shapePath(shape), isShapeFilled(shape));
}

bool StandardLineHeadStyleProvider::addAlias(short alias, short id)
{
    if (alias == NoStyle || mEntries.count(alias) || mAliases.count(alias) || !mEntries.count(id))
        return false;
    mAliases[alias] = id;
    return true;
}

void StandardLineHeadStyleProvider::clear()
{
    mEntries.clear();
    mOrder.clear();
    mAliases.clear();
}

const StandardLineHeadStyleProvider::Entry *StandardLineHeadStyleProvider::entry(short id) const
{
    const short canonical = canonicalStyle(id);
    return canonical == NoStyle ? nullptr : &mEntries.at(canonical);
}

QString StandardLineHeadStyleProvider::name(short id) const
{
    const Entry *e = entry(id);
    return e ? e->name : QString();
}

short StandardLineHeadStyleProvider::canonicalStyle(short id) const
{
    const auto alias = mAliases.find(id);
    if (alias != mAliases.end())
        return alias->second;
    return mEntries.count(id) ? id : NoStyle;
}

std::list<short> StandardLineHeadStyleProvider::styleList() const
{
    return std::list<short>(mOrder.begin(), mOrder.end());
}

QPainterPath StandardLineHeadStyleProvider::headPath(short id) const
{
    const Entry *e = entry(id);
    return e ? e->path : QPainterPath();
}

bool StandardLineHeadStyleProvider::isFilled(short id) const
{
    const Entry *e = entry(id);
    return e && e->filled;
}

QPixmap StandardLineHeadStyleProvider::preview(short id, bool start, const QSize &size) const
{
    const Entry *e = entry(id);
    if (!e || size.width() <= 0 || size.height() <= 0 || size.width() > 16384
        || size.height() > 16384)
        return QPixmap();
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);

    // The head is scaled by the line width; a tenth of the height leaves room for the widest
    // built-in head.
    const QRectF bounds = e->path.boundingRect();
    const qreal extent
        = std::max({ 6.0, 2 * std::abs(bounds.top()), 2 * std::abs(bounds.bottom()) });
    const qreal unit = std::max(1.0, size.height() * 0.8 / (extent + 1));
    const qreal y = size.height() / 2.0;
    const qreal tipX = start ? unit : size.width() - unit;

    QPen pen(Qt::black, unit, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    painter.setPen(pen);
    painter.drawLine(QPointF(start ? size.width() : 0, y), QPointF(tipX, y));

    painter.translate(tipX, y);
    painter.scale(start ? -unit : unit, unit);
    QPen headPen(Qt::black, 1.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    painter.setPen(e->filled ? QPen(Qt::NoPen) : headPen);
    painter.setBrush(e->filled ? QBrush(Qt::black) : QBrush(Qt::NoBrush));
    painter.drawPath(e->path);
    painter.end(); // a pixmap still painted on would be copied on return
    return pixmap;
}

} // namespace TavoLib
