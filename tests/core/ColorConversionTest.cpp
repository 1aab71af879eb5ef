#include "TestRegistry.h"

#include "core/ColorFunctions.h"
#include "core/ColorMatcher.h"

#include <QTest>
#include <cmath>
#include <limits>

using namespace TavoLib;

namespace {
bool near(const QColor &a, const QColor &b, int tolerance)
{
    return std::abs(a.red() - b.red()) <= tolerance && std::abs(a.green() - b.green()) <= tolerance
        && std::abs(a.blue() - b.blue()) <= tolerance;
}
} // namespace

// The colour model functions and the reference Lab matcher, against published values.
class ColorConversionTest : public QObject
{
    Q_OBJECT
private slots:
    void hsvKnownValuesAndAgreementWithQColor()
    {
        const QList<QPair<QList<int>, QColor>> known{ { { 0, 255, 255 }, Qt::red },
            { { 120, 255, 255 }, Qt::green }, { { 300, 255, 255 }, Qt::magenta },
            { { 0, 0, 128 }, QColor(128, 128, 128) } };
        int r, g, b, h, s, v;
        for (const auto &k : known) {
            hsv2rgb(k.first[0], k.first[1], k.first[2], r, g, b);
            QCOMPARE(QColor(r, g, b), k.second);
            rgb2hsv(r, g, b, h, s, v);
            QCOMPARE(QList<int>({ h, s, v }), k.first);
        }
        for (int r0 = 0; r0 < 256; r0 += 15)
            for (int g0 = 0; g0 < 256; g0 += 17)
                for (int b0 = 0; b0 < 256; b0 += 51) {
                    const QColor q(r0, g0, b0);
                    rgb2hsv(r0, g0, b0, h, s, v);
                    QVERIFY2(std::abs(s - q.hsvSaturation()) <= 1 && v == q.value(), qPrintable(q.name()));
                    if (s > 0)
                        QVERIFY2(std::abs(h - q.hsvHue()) <= 1 || std::abs(h - q.hsvHue()) >= 359,
                                 qPrintable(q.name()));
                    // The hue has only 360 steps: a round trip stays within a few units.
                    hsv2rgb(h, s, v, r, g, b);
                    QVERIFY(near(q, QColor(r, g, b), 3));
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
        QCOMPARE(QList<int>({ h, s, v }), QList<int>({ 120, 255, 255 }));
        int c, m, y, k;
        rgb2cmyk(999, -999, 0, c, m, y, k);
        QCOMPARE(QList<int>({ c, m, y, k }), QList<int>({ 0, 255, 255, 0 }));
        cmyk2rgb(-1, 256, 0, 1000, r, g, b);
        QCOMPARE(QColor(r, g, b), QColor(0, 0, 0));
    }

    void cmykKnownValuesAndRoundTrip()
    {
        int c, m, y, k;
        rgb2cmyk(0, 0, 0, c, m, y, k);
        QCOMPARE(QList<int>({ c, m, y, k }), QList<int>({ 0, 0, 0, 255 }));
        rgb2cmyk(0, 255, 255, c, m, y, k);
        QCOMPARE(QList<int>({ c, m, y, k }), QList<int>({ 255, 0, 0, 0 }));
        rgb2cmyk(128, 64, 0, c, m, y, k); // black takes the common part
        QCOMPARE(QList<int>({ c, m, y, k }), QList<int>({ 0, 128, 255, 127 }));
        for (int r = 0; r < 256; r += 5)
            for (int g = 0; g < 256; g += 17)
                for (int b = 0; b < 256; b += 51) {
                    int r2, g2, b2;
                    rgb2cmyk(r, g, b, c, m, y, k);
                    cmyk2rgb(c, m, y, k, r2, g2, b2);
                    QVERIFY2(near(QColor(r, g, b), QColor(r2, g2, b2), 1), qPrintable(QColor(r, g, b).name()));
                }
    }

    void labReferenceValuesAndRoundTrip()
    {
        const QList<QPair<QColor, QList<double>>> known{ { Qt::white, { 100.0, 0.0, 0.0 } },
            { Qt::black, { 0.0, 0.0, 0.0 } }, { Qt::red, { 53.24, 80.09, 67.20 } },
            { Qt::blue, { 32.30, 79.19, -107.86 } }, { QColor(119, 119, 119), { 50.03, 0.0, 0.0 } } };
        TAutoPtr<ColorMatcher> matcher(new ColorMatcher);
        double l, a, bb;
        int r, g, b;
        for (const auto &k : known) {
            matcher->rgbToLab(k.first.red(), k.first.green(), k.first.blue(), l, a, bb);
            QVERIFY2(std::abs(l - k.second[0]) < 0.02 && std::abs(a - k.second[1]) < 0.02
                         && std::abs(bb - k.second[2]) < 0.02,
                     qPrintable(k.first.name()));
        }
        for (int r0 = 0; r0 < 256; r0 += 15)
            for (int g0 = 0; g0 < 256; g0 += 15)
                for (int b0 = 0; b0 < 256; b0 += 15) {
                    matcher->rgbToLab(r0, g0, b0, l, a, bb);
                    QVERIFY(l >= -0.001 && l <= 100.001);
                    matcher->labToRgb(l, a, bb, r, g, b);
                    QVERIFY2(near(QColor(r0, g0, b0), QColor(r, g, b), 1), qPrintable(QColor(r0, g0, b0).name()));
                }
        // CMYK goes through RGB.
        int c, m, y, k;
        matcher->labToCmyk(53.24, 80.09, 67.20, c, m, y, k);
        QCOMPARE(QList<int>({ c, m, y, k }), QList<int>({ 0, 255, 255, 0 }));
        matcher->cmykToLab(0, 0, 0, 0, l, a, bb);
        QVERIFY(std::abs(l - 100) < 0.01 && std::abs(a) < 0.01 && std::abs(bb) < 0.01);
    }

    void labOutOfGamutAndGarbageAreClamped()
    {
        ColorMatcher matcher;
        const double inf = std::numeric_limits<double>::infinity();
        int r = -1, g = -1, b = -1;
        matcher.labToRgb(std::numeric_limits<double>::quiet_NaN(), inf, -inf, r, g, b);
        QVERIFY(r >= 0 && r <= 255 && g >= 0 && g <= 255 && b >= 0 && b <= 255);
        matcher.labToRgb(150, 500, -500, r, g, b);
        QVERIFY(r >= 0 && r <= 255 && g >= 0 && g <= 255 && b >= 0 && b <= 255);
        double l, a, bb, l2, a2, bb2;
        matcher.rgbToLab(-50, 1000, 128, l, a, bb);
        matcher.rgbToLab(0, 255, 128, l2, a2, bb2);
        QCOMPARE(QList<double>({ l, a, bb }), QList<double>({ l2, a2, bb2 }));
    }
};

TAVO_TEST(ColorConversionTest)
#include "ColorConversionTest.moc"
