// The soft shadow of an outline: its reach, its strength, its falloff, and odd input.
#include "widgets/DesignShadow.h"
#include "TestRegistry.h"

#include <QPainter>
#include <QTest>
#include <cmath>
#include <limits>

class DesignShadowTest : public QObject
{
    Q_OBJECT
    // A 40 x 40 black square in the middle of an image with room for a shadow of the radius,
    // turned into a shadow of the given radius, strength and colour.
    static QImage shadowOfSquare(double room, double radius, int strength, const QColor &colour)
    {
        const int r = int(std::ceil(room));
        QImage image(40 + 2 * r, 40 + 2 * r, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter(&image).fillRect(QRect(r, r, 40, 40), Qt::black);
        DesignShadow(DesignShadowSettings(radius, strength)).ConvertToShadow(image, colour);
        return image;
    }
    static int alphaAt(const QImage &image, int x)
    {
        return image.pixelColor(x, image.height() / 2).alpha();
    }

private slots:
    void reachStrengthAndFalloff()
    {
        QCOMPARE(DesignShadow(DesignShadowSettings(12.0, 50)).GetSize(), 24.0);
        const QImage image = shadowOfSquare(12.0, 12.0, 50, QColor(255, 0, 0));
        // Half of the colour's alpha inside at strength 50, in the colour given.
        QVERIFY(qAbs(alphaAt(image, 32) - 127) <= 2);
        QCOMPARE(image.pixelColor(32, 32).red(), 255);
        QCOMPARE(image.pixelColor(32, 32).green(), 0);
        // Soft: a run of values between the core and nothing, falling towards the edge.
        int steps = 0;
        for (int x = 20; x > 0; --x) {
            QVERIFY2(alphaAt(image, x - 1) <= alphaAt(image, x), qPrintable(QString::number(x)));
            steps += alphaAt(image, x) > 0 && alphaAt(image, x) < 127;
        }
        QVERIFY(steps >= 8);
        QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
    }

    void oddInput()
    {
        QImage null;
        DesignShadow(DesignShadowSettings(5.0, 50)).ConvertToShadow(null, Qt::black);
        QVERIFY(null.isNull());
        QCOMPARE(DesignShadow(DesignShadowSettings(-3.0, 50)).GetSize(), 0.0);
        // Not a number: no blur, strength clamped to 100; a negative strength: nothing.
        const double nan = std::numeric_limits<double>::quiet_NaN();
        QCOMPARE(alphaAt(shadowOfSquare(4.0, nan, 500, Qt::black), 24), 255);
        QCOMPARE(alphaAt(shadowOfSquare(4.0, 4.0, -20, QColor()), 24), 0);
        // A radius far larger than the image fades it out without reading outside it.
        QVERIFY(alphaAt(shadowOfSquare(1.0, 1e9, 100, Qt::black), 21) < 255);
    }
};

TAVO_TEST(DesignShadowTest)
#include "DesignShadowTest.moc"
