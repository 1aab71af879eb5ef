// The soft shadow of an outline: its reach, its strength, its falloff, and odd input.
#include "widgets/DesignShadow.h"
#include "TestRegistry.h"

#include <QPainter>
#include <QTest>
#include <cmath>
#include <limits>

namespace {

// A 40 x 40 black square in the middle of an image with room for a shadow of the radius.
QImage squareMask(double radius)
{
    const int room = int(std::ceil(radius));
    QImage image(40 + 2 * room, 40 + 2 * room, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.fillRect(QRect(room, room, 40, 40), Qt::black);
    return image;
}

} // namespace

class DesignShadowTest : public QObject
{
    Q_OBJECT
private slots:
    void reachAndStrength()
    {
        const DesignShadow shadow(DesignShadowSettings(12.0, 50));
        QCOMPARE(shadow.GetSize(), 24.0);
        QImage image = squareMask(12.0);
        shadow.ConvertToShadow(image, QColor(0, 0, 0, 255));
        QCOMPARE(image.format(), QImage::Format_ARGB32_Premultiplied);
        const int mid = image.height() / 2;
        // Full strength inside, half of the colour's alpha at strength 50.
        QVERIFY(qAbs(image.pixelColor(image.width() / 2, mid).alpha() - 127) <= 2);
        // Soft: a run of values between the core and nothing, falling towards the edge.
        int previous = 256;
        int steps = 0;
        for (int x = 12 + 8; x >= 0; --x) {
            const int a = image.pixelColor(x, mid).alpha();
            QVERIFY2(a <= previous, qPrintable(QStringLiteral("rises at %1").arg(x)));
            if (a > 0 && a < 127)
                ++steps;
            previous = a;
        }
        QVERIFY(steps >= 8);
        QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
        // The colour is taken over.
        QImage red = squareMask(12.0);
        shadow.ConvertToShadow(red, QColor(255, 0, 0, 255));
        QCOMPARE(red.pixelColor(red.width() / 2, mid).red(), 255);
        QCOMPARE(red.pixelColor(red.width() / 2, mid).green(), 0);
    }

    void oddInput()
    {
        QImage null;
        DesignShadow(DesignShadowSettings(5.0, 50)).ConvertToShadow(null, Qt::black);
        QVERIFY(null.isNull());

        QImage image = squareMask(4.0);
        DesignShadow(DesignShadowSettings(std::numeric_limits<double>::quiet_NaN(), 500))
            .ConvertToShadow(image, Qt::black);
        // No blur, strength clamped to 100.
        QCOMPARE(image.pixelColor(image.width() / 2, image.height() / 2).alpha(), 255);
        QCOMPARE(DesignShadow(DesignShadowSettings(-3.0, 50)).GetSize(), 0.0);

        QImage faint = squareMask(4.0);
        DesignShadow(DesignShadowSettings(4.0, -20)).ConvertToShadow(faint, QColor());
        QCOMPARE(faint.pixelColor(faint.width() / 2, faint.height() / 2).alpha(), 0);

        // A radius far larger than the image fades it out without reading outside it.
        QImage small = squareMask(1.0);
        DesignShadow(DesignShadowSettings(1e9, 100)).ConvertToShadow(small, Qt::black);
        QVERIFY(small.pixelColor(small.width() / 2, small.height() / 2).alpha() < 255);
    }
};

TAVO_TEST(DesignShadowTest)
#include "DesignShadowTest.moc"
