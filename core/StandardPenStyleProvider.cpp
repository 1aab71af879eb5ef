#include "core/StandardPenStyleProvider.h"

#include <QCoreApplication>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace TavoLib {

namespace {
QString tr(const char *text)
{
    return QCoreApplication::translate("TavoLib::StandardPenStyleProvider", text);
}
} // namespace

StandardPenStyleProvider::StandardPenStyleProvider(Contents contents)
{
    if (contents == Empty)
        return;
    addStyle(0, tr("Solid"));
    addStyle(1, tr("Short Dash"), { 2, 2 });
    addStyle(2, tr("Dash"), { 4, 2 });
    addStyle(3, tr("Long Dash"), { 8, 3 });
    addStyle(4, tr("Dot"), { 1, 1 });
    addStyle(5, tr("Wide Dot"), { 1, 3 });
    addStyle(6, tr("Dash Dot"), { 4, 2, 1, 2 });
    addStyle(7, tr("Dash Dot Dot"), { 4, 2, 1, 2, 1, 2 });
    addStyle(8, tr("Long Dash Dot"), { 8, 3, 1, 3 });
    addStyle(9, tr("Long Dash Dot Dot"), { 8, 3, 1, 3, 1, 3 });
    addAlias(100, 0);
}

StandardPenStyleProvider::~StandardPenStyleProvider() = default;

bool StandardPenStyleProvider::addStyle(short id, const QString &name, const QVector<qreal> &dashes)
{
    if (id == NoStyle || name.isEmpty() || mEntries.count(id) || mAliases.count(id))
        return false;
    if (std::any_of(dashes.begin(), dashes.end(),
            [](qreal d) { return !std::isfinite(d) || d <= 0 || d > 1000; }))
        return false;
    mEntries[id] = Entry { name, dashes };
    mOrder.push_back(id);
    return true;
}

bool StandardPenStyleProvider::addAlias(short alias, short id)
{
    if (alias == NoStyle || mEntries.count(alias) || mAliases.count(alias) || !mEntries.count(id))
        return false;
    mAliases[alias] = id;
    return true;
}

void StandardPenStyleProvider::clear()
{
    mEntries.clear();
    mOrder.clear();
    mAliases.clear();
}

QString StandardPenStyleProvider::name(short id) const
{
    const short canonical = canonicalStyle(id);
    return canonical == NoStyle ? QString() : mEntries.at(canonical).name;
}

short StandardPenStyleProvider::canonicalStyle(short id) const
{
    const auto alias = mAliases.find(id);
    if (alias != mAliases.end())
        return alias->second;
    return mEntries.count(id) ? id : NoStyle;
}

std::list<short> StandardPenStyleProvider::styleList() const
{
    return std::list<short>(mOrder.begin(), mOrder.end());
}

QVector<qreal> StandardPenStyleProvider::dashPattern(short id) const
{
    const short canonical = canonicalStyle(id);
    return canonical == NoStyle ? QVector<qreal>() : mEntries.at(canonical).dashes;
}

QPixmap StandardPenStyleProvider::preview(short id, const QSize &size) const
{
    if (canonicalStyle(id) == NoStyle || size.width() <= 0 || size.height() <= 0
        || size.width() > 16384 || size.height() > 16384)
        return QPixmap();
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    // A line of about a sixth of the height, whole pixels so the dashes stay crisp.
    const qreal width = std::max(1.0, std::round(size.height() / 6.0));
    painter.setPen(qPen(id, Qt::black, width));
    const qreal y
        = int(width) % 2 ? std::floor(size.height() / 2.0) + 0.5 : std::round(size.height() / 2.0);
    const qreal margin = std::min<qreal>(width, size.width() / 4.0);
    painter.drawLine(QPointF(margin, y), QPointF(size.width() - margin, y));
    painter.end(); // a pixmap still painted on would be copied on return
    return pixmap;
}

} // namespace TavoLib
