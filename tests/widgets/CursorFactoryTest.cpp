// The cursor factory: each named cursor comes from its artwork at the density's size and the
// asked ratio, sharp (drawn at device size), with its hot spot on the picture; cached.
#include "widgets/CursorFactory.h"
#include "style/Device.h"
#include "TestRegistry.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QTest>

using TavoLib::CursorFactory;
using TavoLib::Device;

class CursorFactoryTest : public QObject
{
    Q_OBJECT
private slots:
    void cursorsFromTheArtwork()
    {
        const CursorFactory::CursorType types[] = { CursorFactory::PipetteCursor,
            CursorFactory::ZoomInCursor, CursorFactory::ZoomOutCursor, CursorFactory::RotateCursor,
            CursorFactory::CropCursor };
        for (CursorFactory::CursorType type : types) {
            for (qreal ratio : { 1.0, 2.0 }) {
                for (const QSize &size : { QSize(32, 32), QSize(48, 48) }) {
                    const QCursor cursor = CursorFactory::createCursor(type, size, ratio);
                    QCOMPARE(cursor.shape(), Qt::BitmapCursor);
                    const QPixmap pixmap = cursor.pixmap();
                    QCOMPARE(pixmap.size(), size * ratio);
                    QCOMPARE(pixmap.devicePixelRatio(), ratio);
                    const QPoint spot = cursor.hotSpot();
                    QCOMPARE(spot, CursorFactory::hotSpot(type) * size.width() / 32);
                    // The hot spot lies on the drawing, not on a transparent pixel beside it.
                    const QImage image = pixmap.toImage();
                    QVERIFY2(qAlpha(image.pixel(spot * ratio)) > 0,
                        qPrintable(CursorFactory::resourceName(type)));
                }
            }
        }
        // The cached cursor has the screen's size and ratio (run at ratio 1 and 2), its hot spot
        // in logical pixels, and is made once.
        const QCursor zoom = CursorFactory::cursor(CursorFactory::ZoomInCursor);
        const QSize size = Device::size(Device::SizeType8);
        QCOMPARE(Device::pixelRatio(), qApp->devicePixelRatio());
        QCOMPARE(zoom.pixmap().devicePixelRatio(), Device::pixelRatio());
        QCOMPARE(zoom.pixmap().size(), size * Device::pixelRatio());
        QCOMPARE(zoom.hotSpot(), CursorFactory::hotSpot(CursorFactory::ZoomInCursor) * size.width() / 32);
        QCOMPARE(CursorFactory::cursor(CursorFactory::ZoomInCursor).pixmap().cacheKey(),
            zoom.pixmap().cacheKey());
        QCOMPARE(CursorFactory::cursor(CursorFactory::CursorType(99)).shape(), Qt::ArrowCursor);
        QVERIFY(CursorFactory::resourceName(CursorFactory::CursorType(-1)).isEmpty());
    }
};

TAVO_TEST(CursorFactoryTest)
#include "CursorFactoryTest.moc"
