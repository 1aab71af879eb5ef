#include "widgets/CursorFactory.h"
#include "core/QtCompat_p.h"
#include "style/Device.h"

#include <QHash>
#include <QIcon>
#include <QPixmap>

namespace TavoLib {

namespace {

// The artwork is drawn on this grid; hot spots are given on it.
constexpr int kGrid = 32;

struct Artwork
{
    const char *name;
    QPoint hotSpot;
};

const Artwork *artwork(CursorFactory::CursorType type)
{
    static const Artwork table[] = {
        { ":/TavoLib/Cursors/pipette", QPoint(2, 29) },
        { ":/TavoLib/Cursors/zoom-in", QPoint(12, 12) },
        { ":/TavoLib/Cursors/zoom-out", QPoint(12, 12) },
        { ":/TavoLib/Cursors/rotate", QPoint(16, 16) },
        { ":/TavoLib/Cursors/crop", QPoint(8, 8) },
    };
    const int index = int(type);
    return index >= 0 && index < int(sizeof table / sizeof *table) ? &table[index] : nullptr;
}

} // namespace

QString CursorFactory::resourceName(CursorType type)
{
    const Artwork *art = artwork(type);
    return art ? QString::fromLatin1(art->name) : QString();
}

QPoint CursorFactory::hotSpot(CursorType type)
{
    const Artwork *art = artwork(type);
    return art ? art->hotSpot : QPoint(-1, -1);
}

QCursor CursorFactory::createCursor(CursorType type, const QSize &size, qreal ratio)
{
    const Artwork *art = artwork(type);
    if (!art)
        return QCursor(Qt::ArrowCursor);
    // Rendered at the device size itself: the SVG engine draws exactly the size asked for.
    const QSize device(qRound(size.width() * ratio), qRound(size.height() * ratio));
    QPixmap pixmap
        = QtCompat::iconPixmapInDevicePixels(QIcon(QString::fromLatin1(art->name)), device);
    if (pixmap.isNull() || pixmap.size() != device)
        return QCursor(Qt::CrossCursor);
    pixmap.setDevicePixelRatio(ratio);
    // QCursor takes the hot spot in logical pixels of a pixmap that has a ratio.
    const int x = qMin(size.width() - 1, int(art->hotSpot.x() * size.width() / double(kGrid) + 0.5));
    const int y = qMin(size.height() - 1, int(art->hotSpot.y() * size.height() / double(kGrid) + 0.5));
    return QCursor(pixmap, x, y);
}

QCursor CursorFactory::cursor(CursorType type)
{
    static QHash<int, QCursor> cache;
    const auto found = cache.constFind(int(type));
    if (found != cache.constEnd())
        return *found;
    // Device::size() reads the screen first, so the ratio asked next is the screen's.
    const QSize size = Device::size(Device::SizeType8);
    const QCursor made = createCursor(type, size, Device::pixelRatio());
    cache.insert(int(type), made);
    return made;
}

} // namespace TavoLib
