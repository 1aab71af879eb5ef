#include "TestRegistry.h"

#include "core/ColorBrush.h"
#include "core/GradientBrush.h"
#include "core/StandardBrushProvider.h"
#include "core/StandardLineHeadStyleProvider.h"
#include "core/StandardPenStyleProvider.h"

#include <QTest>

using namespace TavoLib;

// The standard brush, pen and line-head providers: names and ids round-trip, aliases resolve,
// unknown ids and bad sizes are harmless, and previews really show the resource.
class StyleProvidersTest : public QObject
{
    Q_OBJECT
private slots:
    void brushNamesRoundTrip()
    {
        TAutoPtr<const BrushProviderQt> provider(new StandardBrushProvider);
        const std::list<short> ids = provider->brushList();
        QVERIFY(ids.size() >= 20);
        int colours = 0, linear = 0, radial = 0;
        for (short id : ids) {
            QCOMPARE(provider->brushIdentifier(provider->brushName(id)), id);
            const TAutoPtr<Brush> brush = provider->brush(id);
            QVERIFY(brush);
            colours += TAutoPtr<ColorBrush>(brush) ? 1 : 0;
            const TAutoPtr<GradientBrush> gradient(brush);
            if (gradient)
                (gradient->type() == GradientBrush::Linear ? linear : radial)++;
        }
        QVERIFY(colours >= 15);
        QVERIFY(linear >= 2);
        QVERIFY(radial >= 2);
    }

    void aliasGivesTheCanonicalId()
    {
        StandardBrushProvider provider;
        const short black = provider.brushIdentifier("Black");
        QCOMPARE(provider.brushName(100), QString("Black"));
        QCOMPARE(provider.brushIdentifier(provider.brushName(100)), black);
        QCOMPARE(provider.brush(100), provider.brush(black));
        const std::list<short> listed = provider.brushList();
        QVERIFY(std::find(listed.begin(), listed.end(), 100) == listed.end());
        // An alias must point at a listed brush and may not take a used id.
        QVERIFY(!provider.addAlias(200, 999));
        QVERIFY(!provider.addAlias(black, black));
        QVERIFY(!provider.addColor(300, "Black", Qt::black));
        QVERIFY(!provider.addColor(BrushProvider::NoBrush, "Nothing", Qt::black));
        QVERIFY(!provider.addBrush(301, "Null", TAutoPtr<Brush>()));
    }

    void unknownBrushesAndBadSizes()
    {
        StandardBrushProvider provider;
        for (short id : { short(-100), short(-1), short(32767) }) {
            QVERIFY(provider.brushName(id).isEmpty() && !provider.brush(id));
            QVERIFY(provider.preview(id, QSize(10, 10)).isNull());
            QCOMPARE(provider.qBrush(id, QRectF(0, 0, 5, 5)).style(), Qt::NoBrush);
        }
        QCOMPARE(provider.brushIdentifier("No Such Brush"), BrushProvider::NoBrush);
        QVERIFY(provider.preview(1, QSize(0, 10)).isNull());
        QVERIFY(provider.preview(1, QSize(10, -3)).isNull());
    }

    void brushPreviewsShowTheBrush()
    {
        StandardBrushProvider provider;
        const QImage red
            = provider.preview(provider.brushIdentifier("Red"), QSize(31, 17)).toImage();
        QCOMPARE(red.pixel(0, 0), qRgb(255, 0, 0));
        QCOMPARE(red.pixel(30, 16), qRgb(255, 0, 0));
        // A left-to-right black-to-white gradient darkens leftwards across the device size.
        const QImage ramp
            = provider.preview(provider.brushIdentifier("Linear Black-White"), QSize(100, 10))
                  .toImage();
        QVERIFY(qGray(ramp.pixel(2, 5)) < 20);
        QVERIFY(qGray(ramp.pixel(97, 5)) > 235);
        QVERIFY(qGray(ramp.pixel(30, 5)) < qGray(ramp.pixel(70, 5)));
        const QImage radial
            = provider.preview(provider.brushIdentifier("Radial White-Black"), QSize(40, 40))
                  .toImage();
        QVERIFY(qGray(radial.pixel(20, 20)) > qGray(radial.pixel(1, 1)));
    }

    void penStyles()
    {
        TAutoPtr<const PenStyleProviderQt> provider(new StandardPenStyleProvider);
        const std::list<short> ids = provider->styleList();
        QStringList names;
        for (short id : ids) {
            QCOMPARE(provider->canonicalStyle(id), id);
            names << provider->name(id);
        }
        QCOMPARE(names.removeDuplicates(), 0);
        QCOMPARE(provider->canonicalStyle(100), short(0));
        QCOMPARE(provider->name(100), provider->name(0));
        QCOMPARE(provider->canonicalStyle(-100), PenStyleProvider::NoStyle);
        QVERIFY(provider->name(555).isEmpty());
        QVERIFY(provider->preview(555, QSize(10, 10)).isNull());
        QVERIFY(provider->preview(0, QSize(-1, 5)).isNull());
        // An odd dash pattern repeats, since Qt wants pairs.
        StandardPenStyleProvider own(StandardPenStyleProvider::Empty);
        QVERIFY(own.addStyle(1, "Odd", { 3 }));
        QCOMPARE(own.qPen(1, Qt::red, 2).dashPattern(), QVector<qreal>({ 3, 3 }));
        QVERIFY(!own.addStyle(2, "Bad", { 2, 0 }));
        QVERIFY(!own.addStyle(3, "Nan", { qQNaN(), 1 }));
    }

    void dashedPreviewHasGapsSolidHasNone()
    {
        StandardPenStyleProvider provider;
        auto inkAlongLine = [&](short id) {
            const QImage image = provider.preview(id, QSize(100, 12)).toImage();
            int ink = 0;
            for (int x = 0; x < 100; ++x)
                ink += qAlpha(image.pixel(x, 6)) > 128 ? 1 : 0;
            return ink;
        };
        const int solid = inkAlongLine(0);
        QVERIFY(solid > 90);
        const int dash = inkAlongLine(2);
        QVERIFY(dash > 30 && dash < solid - 10);
        const int dot = inkAlongLine(5);
        QVERIFY(dot > 5 && dot < dash);
    }

    void headPreviewSitsAtTheRequestedEnd()
    {
        StandardLineHeadStyleProvider provider;
        // Ink above the line's centre shows where the (wide) head is.
        auto headInk = [&](short id, bool start, int x0, int x1) {
            const QImage image = provider.preview(id, start, QSize(60, 20)).toImage();
            int ink = 0;
            for (int x = x0; x < x1; ++x)
                for (int y = 0; y < 7; ++y)
                    ink += qAlpha(image.pixel(x, y)) > 100 ? 1 : 0;
            return ink;
        };
        QVERIFY(headInk(2, false, 40, 60) > 10);
        QCOMPARE(headInk(2, false, 0, 20), 0);
        QVERIFY(headInk(2, true, 0, 20) > 10);
        QCOMPARE(headInk(2, true, 40, 60), 0);
        // No head: only the line itself.
        QCOMPARE(headInk(0, false, 0, 60), 0);
        const QImage none = provider.preview(0, false, QSize(60, 20)).toImage();
        QVERIFY(qAlpha(none.pixel(30, 10)) > 100);
    }
};

TAVO_TEST(StyleProvidersTest)
#include "StyleProvidersTest.moc"
