#include "TestRegistry.h"

#include "core/ImageFunctions.h"

#include <QPainter>
#include <QTest>

// Recolouring keeps the shape and replaces the colour; the mono conversion honours its
// threshold on alpha images and on opaque ones.
class ImageFunctionsTest : public QObject
{
    Q_OBJECT
private:
    static QImage iconImage()
    {
        QImage image(8, 4, QImage::Format_ARGB32);
        for (int x = 0; x < 8; ++x)
            for (int y = 0; y < 4; ++y)
                image.setPixel(x, y, qRgba(x * 30, 200 - y * 40, 17, x * 32 + y));
        return image;
    }

private slots:
    void colorizeKeepsAlphaAndReplacesColour()
    {
        QImage source = iconImage();
        source.setDevicePixelRatio(2.0);
        const QImage result = ColorizeImage(source, QColor(10, 20, 30));
        QCOMPARE(result.size(), source.size());
        QCOMPARE(result.devicePixelRatio(), 2.0);
        const QImage plain = result.convertToFormat(QImage::Format_ARGB32);
        for (int x = 0; x < 8; ++x)
            for (int y = 0; y < 4; ++y) {
                const QRgb pixel = plain.pixel(x, y);
                QCOMPARE(qAlpha(pixel), x * 32 + y);
                if (qAlpha(pixel) >= 128) // premultiplication blurs faint pixels
                    QVERIFY(std::abs(qRed(pixel) - 10) <= 2 && std::abs(qGreen(pixel) - 20) <= 2
                            && std::abs(qBlue(pixel) - 30) <= 2);
            }
        // The source is untouched.
        QCOMPARE(source.pixel(3, 1), qRgba(90, 160, 17, 97));

        // The colour's own alpha scales the result's.
        QImage opaque(2, 2, QImage::Format_RGB32);
        opaque.fill(Qt::red);
        const QImage half = ColorizeImage(opaque, QColor(255, 255, 255, 128)).convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(qAlpha(half.pixel(1, 1)), 128);
    }

    void nullInputGivesNullImage()
    {
        QVERIFY(ColorizeImage(QImage(), Qt::red).isNull());
        QImage empty;
        QVERIFY(ConvertImageToIndexedMono(empty, Qt::red, 128).isNull());
        // An invalid colour falls back to black rather than garbage.
        const QImage black
            = ColorizeImage(iconImage(), QColor()).convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(qRed(black.pixel(7, 0)), 0);
    }

    void monoUsesAlphaThreshold()
    {
        QImage source = iconImage();
        const QImage mono = ConvertImageToIndexedMono(source, QColor(0, 0, 255), 100);
        QCOMPARE(mono.format(), QImage::Format_Indexed8);
        QCOMPARE(mono.colorCount(), 2);
        QCOMPARE(qAlpha(mono.color(0)), 0);
        QCOMPARE(mono.color(1), qRgb(0, 0, 255));
        for (int x = 0; x < 8; ++x)
            for (int y = 0; y < 4; ++y)
                QCOMPARE(mono.pixelIndex(x, y), (x * 32 + y) > 100 ? 1 : 0);
        // Out-of-range thresholds are clamped: 255 sets nothing, -5 sets every visible pixel.
        const QImage none = ConvertImageToIndexedMono(source, Qt::blue, 1000);
        const QImage all = ConvertImageToIndexedMono(source, Qt::blue, -5);
        for (int x = 0; x < 8; ++x) {
            QCOMPARE(none.pixelIndex(x, 3), 0);
            QCOMPARE(all.pixelIndex(x, 3), 1);
        }
    }

    void monoUsesDarknessOnOpaqueImages()
    {
        QImage page(10, 1, QImage::Format_RGB32);
        page.fill(Qt::white);
        page.setPixel(2, 0, qRgb(0, 0, 0));
        page.setPixel(5, 0, qRgb(100, 100, 100));
        const QImage mono = ConvertImageToIndexedMono(page, Qt::black, 128);
        QCOMPARE(mono.pixelIndex(0, 0), 0);
        QCOMPARE(mono.pixelIndex(2, 0), 1);
        QCOMPARE(mono.pixelIndex(5, 0), 1);
        const QImage strict = ConvertImageToIndexedMono(page, Qt::black, 200);
        QCOMPARE(strict.pixelIndex(5, 0), 0);
    }
};

TAVO_TEST(ImageFunctionsTest)
#include "ImageFunctionsTest.moc"
