#include "core/StandardBrushProvider.h"

#include "core/ColorBrush.h"
#include "core/GradientBrush.h"

#include <QCoreApplication>
#include <QPainter>

namespace TavoLib {

namespace {
QString tr(const char *text)
{
    return QCoreApplication::translate("TavoLib::StandardBrushProvider", text);
}
} // namespace

StandardBrushProvider::StandardBrushProvider(Contents contents)
{
    if (contents == Empty)
        return;
    addColor(1, QStringLiteral("Black"), QColor(0, 0, 0), tr("Black"));
    addColor(2, QStringLiteral("White"), QColor(255, 255, 255), tr("White"));
    addColor(3, QStringLiteral("Cyan"), QColor(0, 174, 239), tr("Cyan"));
    addColor(4, QStringLiteral("Magenta"), QColor(236, 0, 140), tr("Magenta"));
    addColor(5, QStringLiteral("Yellow"), QColor(255, 242, 0), tr("Yellow"));
    addColor(6, QStringLiteral("Red"), QColor(255, 0, 0), tr("Red"));
    addColor(7, QStringLiteral("Green"), QColor(0, 255, 0), tr("Green"));
    addColor(8, QStringLiteral("Blue"), QColor(0, 0, 255), tr("Blue"));
    for (int percent = 10; percent <= 90; percent += 10) {
        const int level = qRound(255.0 * (100 - percent) / 100.0);
        addColor(short(10 + percent / 10), QStringLiteral("Grey %1%").arg(percent),
            QColor(level, level, level), tr("Grey %1%").arg(percent));
    }
    addBrush(
        20, QStringLiteral("Registration"), new ColorBrush(Qt::black, true), tr("Registration"));

    addBrush(30, QStringLiteral("Linear Black-White"),
        new GradientBrush(GradientBrush::Linear, { { 0.0, Qt::black }, { 1.0, Qt::white } }),
        tr("Linear Black to White"));
    addBrush(31, QStringLiteral("Linear Sky"),
        new GradientBrush(GradientBrush::Linear,
            { { 0.0, QColor(255, 255, 255) }, { 1.0, QColor(0, 120, 215) } }, 90),
        tr("Linear Sky"));
    addBrush(32, QStringLiteral("Linear Rainbow"),
        new GradientBrush(GradientBrush::Linear,
            { { 0.0, Qt::red }, { 0.2, Qt::yellow }, { 0.4, Qt::green }, { 0.6, Qt::cyan },
                { 0.8, Qt::blue }, { 1.0, Qt::magenta } }),
        tr("Linear Rainbow"));
    addBrush(33, QStringLiteral("Radial White-Black"),
        new GradientBrush(GradientBrush::Radial, { { 0.0, Qt::white }, { 1.0, Qt::black } }),
        tr("Radial White to Black"));
    addBrush(34, QStringLiteral("Radial Sunset"),
        new GradientBrush(GradientBrush::Radial,
            { { 0.0, QColor(255, 242, 0) }, { 0.5, QColor(255, 120, 0) },
                { 1.0, QColor(150, 0, 60) } }),
        tr("Radial Sunset"));

    addAlias(100, 1); // "Process Black" of older documents
}

StandardBrushProvider::~StandardBrushProvider() = default;

bool StandardBrushProvider::addBrush(
    short id, const QString &key, TAutoPtr<Brush> brush, const QString &displayName)
{
    if (id == NoBrush || key.isEmpty() || !brush || mEntries.count(id) || mAliases.count(id)
        || mKeys.contains(key))
        return false;
    mEntries[id] = Entry { key, displayName.isEmpty() ? key : displayName, brush };
    mOrder.push_back(id);
    mKeys.insert(key, id);
    return true;
}

bool StandardBrushProvider::addColor(
    short id, const QString &key, const QColor &color, const QString &displayName)
{
    return addBrush(id, key, new ColorBrush(color), displayName);
}

bool StandardBrushProvider::addAlias(short alias, short id)
{
    if (alias == NoBrush || mEntries.count(alias) || mAliases.count(alias) || !mEntries.count(id))
        return false;
    mAliases[alias] = id;
    return true;
}

void StandardBrushProvider::clear()
{
    mEntries.clear();
    mOrder.clear();
    mAliases.clear();
    mKeys.clear();
}

const StandardBrushProvider::Entry *StandardBrushProvider::entry(short id) const
{
    const auto alias = mAliases.find(id);
    if (alias != mAliases.end())
        id = alias->second;
    const auto it = mEntries.find(id);
    return it == mEntries.end() ? nullptr : &it->second;
}

QString StandardBrushProvider::brushName(short id) const
{
    const Entry *e = entry(id);
    return e ? e->key : QString();
}

QString StandardBrushProvider::displayName(short id) const
{
    const Entry *e = entry(id);
    return e ? e->displayName : QString();
}

short StandardBrushProvider::brushIdentifier(const QString &name) const
{
    return mKeys.value(name, NoBrush);
}

std::list<short> StandardBrushProvider::brushList() const
{
    return std::list<short>(mOrder.begin(), mOrder.end());
}

TAutoPtr<Brush> StandardBrushProvider::brush(short id) const
{
    const Entry *e = entry(id);
    return e ? e->brush : TAutoPtr<Brush>();
}

QPixmap StandardBrushProvider::preview(short id, const QSize &size) const
{
    const Entry *e = entry(id);
    if (!e || size.width() <= 0 || size.height() <= 0 || size.width() > 16384
        || size.height() > 16384)
        return QPixmap();
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const QRectF area(QPointF(0, 0), QSizeF(size));
    painter.fillRect(area, e->brush->qBrush(area));
    painter.end(); // a pixmap still painted on would be copied on return
    return pixmap;
}

} // namespace TavoLib
