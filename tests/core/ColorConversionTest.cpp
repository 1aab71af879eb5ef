#include "TestRegistry.h"

#include "core/ColorFunctions.h"
#include "core/ColorMatcher.h"

#include <QTest>
#include <cmath>
#include <limits>

using namespace TavoLib;

// The colour model functions and the reference Lab matcher, against published values.
class ColorConversionTest : public QObject
{
    Q_OBJECT
private slots:
    void hsvKnownValues_data()
    {
        QTest::addColumn<int>("h");
        QTest::addColumn<int>("s");
        QTest::addColumn<int>("v");
        QTest::addColumn<QColor>("rgb");
        QTest::newRow("red") << 0 << 255 << 255 << QColor(255, 0, 0);
        QTest::newRow("yellow") << 60 << 255 << 255 << QColor(255, 255, 0);
        QTest::newRow("green") << 120 << 255 << 255 << QColor(0, 255, 0);
        QTest::newRow("cyan") << 180 << 255 << 255 << QColor(0, 255, 255);
        QTest::newRow("blue") << 240 << 255 << 255 << QColor(0, 0, 255);
        QTest::newRow("magenta") << 300 << 255 << 255 << QColor(255, 0, 255);
        QTest::newRow("grey") << 0 << 0 << 128 << QColor(128, 128, 128);
        QTest::newRow("black") << 0 << 0 << 0 << QColor(0, 0, 0);
    }
    void hsvKnownValues()
    {
        QFETCH(int, h);
        QFETCH(int, s);
        QFETCH(int, v);
        QFETCH(QColor, rgb);
        int r, g, b;
        hsv2rgb(h, s, v, r, g, b);
        QCOMPARE(QColor(r, g, b), rgb);
        int h2, s2, v2;
        rgb2hsv(rgb.red(), rgb.green(), rgb.blue(), h2, s2, v2);
        QCOMPARE(h2, h);
        QCOMPARE(s2, s);
        QCOMPARE(v2, v);
    }

    void hsvAgreesWithQColorEverywhere()
    {
        for (int r = 0; r < 256; r += 15)
            for (int g = 0; g < 256; g += 17)
                for (int b = 0; b < 256; b += 51) {
                    int h, s, v;
                    rgb2hsv(r, g, b, h, s, v);
                    QVERIFY(h >= 0 && h <= 359);
                    const QColor q(r, g, b);
                    QVERIFY2(std::abs(s - q.hsvSaturation()) <= 1, qPrintable(q.name()));
                    QCOMPARE(v, q.value());
                    if (s > 0)
                        QVERIFY2(std::abs(h - q.hsvHue()) <= 1 || std::abs(h - q.hsvHue()) >= 359,
                            qPrintable(q.name()));
                    // The hue has only 360 steps: a round trip stays within a few units.
                    int r2, g2, b2;
                    hsv2rgb(h, s, v, r2, g2, b2);
                    QVERIFY(
                        std::abs(r - r2) <= 3 && std::abs(g - g2) <= 3 && std::abs(b - b2) <= 3);
                }
    }

    void outOfRangeInputIsClampedAndHueWraps()
    {
        int r, g, b;
        hsv2rgb(360 + 120, 999, 999, r, g, b);
        QCOMPARE(QColor(r, g, b), QColor(0, 255, 0));
        hsv2rgb(-120, 255, 255, r, g, b);
        QCOMPARE(QColor(r, g, b), QColor(0, 0, 255));
        hsv2rgb(std::numeric_limits<int>::min(), -5, 300, r, g, b);
        QCOMPARE(QColor(r, g, b), QColor(255, 255, 255));
        int h, s, v;
        rgb2hsv(-10, 300, -1, h, s, v);
        QCOMPARE(h, 120);
        QCOMPARE(s, 255);
        QCOMPARE(v, 255);
        int c, m, y, k;
        rgb2cmyk(999, -999, 0, c, m, y, k);
        QCOMPARE(QList<int>({ c, m, y, k }), QList<int>({ 0, 255, 255, 0 }));
        cmyk2rgb(-1, 256, 0, 1000, r, g, b);
        QCOMPARE(QColor(r, g, b), QColor(0, 0, 0));
    }

    void cmykKnownValuesAndRoundTrip()
    {
        int c, m, y, k;
        rgb2cmyk(255, 255, 255, c, m, y, k);
        QCOMPARE(QList<int>({ c, m, y, k }), QList<int>({ 0, 0, 0, 0 }));
        rgb2cmyk(0, 0, 0, c, m, y, k);
        QCOMPARE(QList<int>({ c, m, y, k }), QList<int>({ 0, 0, 0, 255 }));
        rgb2cmyk(0, 255, 255, c, m, y, k);
        QCOMPARE(QList<int>({ c, m, y, k }), QList<int>({ 255, 0, 0, 0 }));
        rgb2cmyk(128, 64, 0, c, m, y, k); // black takes the common part
        QCOMPARE(k, 127);
        QCOMPARE(c, 0);
        QCOMPARE(m, 128);
        QCOMPARE(y, 255);
        for (int r = 0; r < 256; r += 5)
            for (int g = 0; g < 256; g += 17)
                for (int b = 0; b < 256; b += 51) {
                    int r2, g2, b2;
                    rgb2cmyk(r, g, b, c, m, y, k);
                    cmyk2rgb(c, m, y, k, r2, g2, b2);
                    QVERIFY2(
                        std::abs(r - r2) <= 1 && std::abs(g - g2) <= 1 && std::abs(b - b2) <= 1,
                        qPrintable(QColor(r, g, b).name()));
                }
    }

    void labReferenceValues_data()
    {
        QTest::addColumn<QColor>("rgb");
        QTest::addColumn<double>("l");
        QTest::addColumn<double>("a");
        QTest::addColumn<double>("b");
        QTest::newRow("white") << QColor(255, 255, 255) << 100.0 << 0.0 << 0.0;
        QTest::newRow("black") << QColor(0, 0, 0) << 0.0 << 0.0 << 0.0;
        QTest::newRow("red") << QColor(255, 0, 0) << 53.24 << 80.09 << 67.20;
        QTest::newRow("green") << QColor(0, 255, 0) << 87.73 << -86.18 << 83.18;
        QTest::newRow("blue") << QColor(0, 0, 255) << 32.30 << 79.19 << -107.86;
        QTest::newRow("grey") << QColor(119, 119, 119) << 50.03 << 0.0 << 0.0;
    }
    void labReferenceValues()
    {
        QFETCH(QColor, rgb);
        QFETCH(double, l);
        QFETCH(double, a);
        QFETCH(double, b);
        ColorMatcher matcher;
        double L, A, B;
        matcher.rgbToLab(rgb.red(), rgb.green(), rgb.blue(), L, A, B);
        QVERIFY2(std::abs(L - l) < 0.02, qPrintable(QString::number(L)));
        QVERIFY2(std::abs(A - a) < 0.02, qPrintable(QString::number(A)));
        QVERIFY2(std::abs(B - b) < 0.02, qPrintable(QString::number(B)));
        int r, g, bl;
        matcher.labToRgb(l, a, b, r, g, bl);
        QVERIFY(std::abs(r - rgb.red()) <= 1 && std::abs(g - rgb.green()) <= 1
            && std::abs(bl - rgb.blue()) <= 1);
    }

    void labRoundTripWithinOneUnit()
    {
        TAutoPtr<ColorMatcher> matcher(new ColorMatcher);
        for (int r = 0; r < 256; r += 15)
            for (int g = 0; g < 256; g += 15)
                for (int b = 0; b < 256; b += 15) {
                    double l, a, bb;
                    matcher->rgbToLab(r, g, b, l, a, bb);
                    QVERIFY(l >= -0.001 && l <= 100.001);
                    int r2, g2, b2;
                    matcher->labToRgb(l, a, bb, r2, g2, b2);
                    QVERIFY2(
                        std::abs(r - r2) <= 1 && std::abs(g - g2) <= 1 && std::abs(b - b2) <= 1,
                        qPrintable(QColor(r, g, b).name()));
                }
    }

    void cmykGoesThroughRgb()
    {
        ColorMatcher matcher;
        double l, a, b;
        matcher.cmykToLab(0, 0, 0, 0, l, a, b);
        QVERIFY(std::abs(l - 100) < 0.01 && std::abs(a) < 0.01 && std::abs(b) < 0.01);
        int c, m, y, k;
        matcher.labToCmyk(0, 0, 0, c, m, y, k);
        QCOMPARE(QList<int>({ c, m, y, k }), QList<int>({ 0, 0, 0, 255 }));
        matcher.labToCmyk(53.24, 80.09, 67.20, c, m, y, k);
        QCOMPARE(QList<int>({ c, m, y, k }), QList<int>({ 0, 255, 255, 0 }));
    }

    void labOutOfGamutAndGarbageAreClamped()
    {
        ColorMatcher matcher;
        const double nan = std::numeric_limits<double>::quiet_NaN();
        const double inf = std::numeric_limits<double>::infinity();
        int r = -1, g = -1, b = -1;
        matcher.labToRgb(nan, inf, -inf, r, g, b);
        QVERIFY(r >= 0 && r <= 255 && g >= 0 && g <= 255 && b >= 0 && b <= 255);
        matcher.labToRgb(150, 500, -500, r, g, b);
        QVERIFY(r >= 0 && r <= 255 && g >= 0 && g <= 255 && b >= 0 && b <= 255);
        double l, a, bb;
        matcher.rgbToLab(-50, 1000, 128, l, a, bb);
        double l2, a2, bb2;
        matcher.rgbToLab(0, 255, 128, l2, a2, bb2);
        QCOMPARE(l, l2);
        QCOMPARE(a, a2);
    }
};

TAVO_TEST(ColorConversionTest)
#include "ColorConversionTest.moc"
