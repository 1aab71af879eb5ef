// Rulers painted into images: where the numbered and the short ticks fall at several zooms,
// units and directions, where numbering restarts, and that bad settings paint nothing.
#include "TestRegistry.h"

#include "controls/RulerDivision.h"
#include "controls/RulerWidget.h"
#include "core/units/CUnit.h"

#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QTest>
#include <functional>

using TavoLib::Point;

namespace {

// A ruler over `end` millimetres, in pages of `page` (one page by default), scaled by `pixels`
// per millimetre.
class TestRuler : public RulerBase
{
public:
    TestRuler(Orientation o, double pixels, double end, double page = 0)
        : RulerBase(o), mEnd(end), mPage(page > 0 ? page : end)
    {
        setMatrix(QTransform::fromScale(pixels, pixels));
        setHorizontalUnit(CUnit::MM);
        setVerticalUnit(CUnit::MM);
    }
    Point GetStartPosition() override { return Point(0, 0); }
    Point GetEndPosition() override { return Point(mEnd, mEnd); }
    Point GetSkipSize() override { return Point(mPage, mPage); }
    Point GetDrawSize() override { return orientation() == Horizontal ? Point(400, 20) : Point(20, 400); }
    Point WorldToLocal(const Point &world) override { return Point(matrix().map(world)); }

    QImage paint()
    {
        QImage image(GetDrawWidth(), GetDrawHeight(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        Paint(painter);
        return image;
    }

private:
    double mEnd;
    double mPage;
};

// How many pixels of column x, between rows y0 and y1, carry ink.
int inkInColumn(const QImage &image, int x, int y0, int y1)
{
    int ink = 0;
    for (int y = y0; y <= y1; ++y)
        ink += qAlpha(image.pixel(x, y)) > 0 ? 1 : 0;
    return ink;
}

int inkInRect(const QImage &image, const QRect &rect)
{
    int ink = 0;
    for (int x = rect.left(); x <= rect.right(); ++x)
        ink += inkInColumn(image, x, rect.top(), rect.bottom());
    return ink;
}

// Counts the paint events of a widget.
struct PaintCounter : QObject
{
    int count = 0;
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++count;
        return false;
    }
};

} // namespace

class RulerTest : public QObject
{
    Q_OBJECT
private slots:
    void stepFollowsTheZoomByListFactors()
    {
        // 40 pixels a millimetre lies in the 36 to 56 pixel band: the step stays 1 unit.
        const struct
        {
            unsigned int unit;
            double pixels;
            double step;
        } cases[] = { { CUnit::MM, 40, 1 }, { CUnit::MM, 20, 2 }, { CUnit::MM, 10, 10 }, { CUnit::MM, 1, 40 },
                      { CUnit::MM, 200, 0.5 }, { CUnit::PT, 10, 12 }, { CUnit::PT, 5, 24 },
                      { CUnit::PT, 1, 120 }, { CUnit::Inch, 1, 2 } };
        for (const auto &c : cases) {
            TestRuler ruler(RulerBase::Horizontal, c.pixels, 10);
            ruler.setHorizontalUnit(c.unit);
            ruler.paint();
            QCOMPARE(ruler.majorStep().x(), c.step);
        }
    }

    void ticksAtEveryStepAndSubdivided()
    {
        const QImage image = TestRuler(RulerBase::Horizontal, 40, 5).paint();
        // Numbered ticks through the full height every 40 pixels, beside the base line.
        for (int x : { 0, 40, 80, 120, 160 })
            QCOMPARE(inkInColumn(image, x, 0, 18), 19);
        QCOMPARE(inkInColumn(image, 200, 0, 18), 0); // the stretch ends at 5 mm
        // Halves of 4 pixels, fifths of those of 2, nothing finer than 3 pixels apart.
        QCOMPARE(inkInColumn(image, 20, 0, 18), 4);
        QCOMPARE(inkInColumn(image, 4, 10, 18), 2);
        QCOMPARE(inkInColumn(image, 2, 10, 18), 0);
        QCOMPARE(inkInColumn(image, 30, 0, 19), 1); // only the base line
    }

    void labelsRestartPerPageAndStopAtItsEnd()
    {
        // Pages of 3 mm: the label at 120 pixels reads "0" again, as at 0; "1" differs.
        const QImage pages = TestRuler(RulerBase::Horizontal, 40, 9, 3).paint();
        const auto label = [&](int x) { return pages.copy(x + 1, 0, 12, 12); };
        QCOMPARE(label(120), label(0));
        QVERIFY(label(40) != label(0));

        // A label that would cross the page's end is dropped; its tick stays.
        const QImage short_ = TestRuler(RulerBase::Horizontal, 40, 2.1).paint();
        QCOMPARE(inkInColumn(short_, 80, 0, 18), 19);
        QCOMPARE(inkInRect(short_, QRect(81, 0, 20, 12)), 0);
        QVERIFY(inkInRect(short_, QRect(41, 0, 20, 12)) > 0);
    }

    void mirroredAndVertical()
    {
        TestRuler mirrored(RulerBase::Horizontal, 40, 5);
        mirrored.setDirection(RulerBase::Mirrored);
        const QImage image = mirrored.paint();
        // Positions count from the right edge and labels stand left of their ticks.
        QCOMPARE(inkInColumn(image, 400 - 40, 0, 18), 19);
        QVERIFY(inkInRect(image, QRect(400 - 40 - 12, 0, 10, 12)) > 0);
        QCOMPARE(inkInRect(image, QRect(400 - 40 + 1, 0, 10, 12)), 0);

        TestRuler vertical(RulerBase::Vertical, 40, 5);
        const QImage down = vertical.paint();
        for (int y : { 40, 80 })
            QCOMPARE(inkInRect(down, QRect(0, y, 19, 1)), 19);
        QVERIFY(inkInRect(down, QRect(0, 41, 10, 12)) > 0); // the label below its tick
    }

    void badSettingsPaintNothingAndEnd()
    {
        TestRuler unknown(RulerBase::Horizontal, 40, 5);
        unknown.setHorizontalUnit(CUnit::Percent);
        QCOMPARE(inkInRect(unknown.paint(), QRect(0, 0, 400, 20)), 0);
        QVERIFY(!RulerDivision::Find(0x12345678u));

        for (double pixels : { 0.0, qQNaN(), qInf() })
            QCOMPARE(inkInRect(TestRuler(RulerBase::Horizontal, pixels, 5).paint(), QRect(0, 0, 400, 20)), 0);
        // Billions of units, and of pages, end at once.
        const QImage huge = TestRuler(RulerBase::Horizontal, 40, 1e12, 1e-3).paint();
        QVERIFY(inkInRect(huge, QRect(0, 0, 400, 20)) > 0);
        QVERIFY(inkInRect(TestRuler(RulerBase::Horizontal, 1e-9, 1e15).paint(), QRect(0, 0, 400, 20)) > 0);
    }

    void widgetPaintsAtItsZoomAndOrigin()
    {
        RulerWidget ruler(RulerBase::Horizontal);
        ruler.resize(400, 20);
        ruler.setUnit(CUnit::MM);
        ruler.setZoom(40.0 / ruler.pixelsPerMillimetre()); // 40 pixels a millimetre
        ruler.setPages(100, 1);
        ruler.setOrigin(1.5); // 1.5 mm scrolled off the start
        QImage image(ruler.size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        ruler.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        QCOMPARE(inkInColumn(image, 20, 0, 18), 19); // 2 mm
        QCOMPARE(inkInColumn(image, 60, 0, 18), 19); // 3 mm
        QCOMPARE(inkInColumn(image, 40, 0, 18), 4);  // 2.5 mm
    }

    // Every setter of the widget repaints it, the orientation also re-lays it out, and its
    // matrix stays the one of its zoom.
    void widgetSettersRepaint()
    {
        RulerWidget ruler(RulerBase::Horizontal);
        ruler.resize(300, 20);
        ruler.show();
        QVERIFY(QTest::qWaitForWindowExposed(&ruler));
        PaintCounter paints;
        ruler.installEventFilter(&paints);
        const auto repaints = [&](const std::function<void()> &set) {
            QCoreApplication::processEvents();
            const int before = paints.count;
            set();
            return QTest::qWaitFor([&] { return paints.count > before; }, 1000);
        };
        QVERIFY(repaints([&] { ruler.setColor(Qt::red); }));
        QVERIFY(repaints([&] { ruler.setDirection(RulerBase::Mirrored); }));
        QVERIFY(repaints([&] { ruler.setHorizontalUnit(CUnit::PT); }));
        QVERIFY(repaints([&] { ruler.setVerticalUnit(CUnit::Inch); }));
        QVERIFY(repaints([&] { ruler.setOrientation(RulerBase::Vertical); }));
        QCOMPARE(ruler.sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(ruler.sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);

        const QTransform own = ruler.matrix();
        ruler.setMatrix(QTransform::fromScale(7, 7)); // refused: the zoom makes the matrix
        QCOMPARE(ruler.matrix(), own);
        ruler.setZoom(2.0);
        QCOMPARE(ruler.matrix().m11(), own.m11() * 2.0);
    }

    // Run at 96, 144 and 192 dpi without Qt's own scaling: every numbered label ends before
    // the next numbered tick, whatever the density.
    void labelsClearOfTheNextTick()
    {
        RulerWidget ruler(RulerBase::Horizontal);
        const double density = ruler.logicalDpiX() / 96.0;
        ruler.resize(qRound(900 * density), ruler.sizeHint().height());
        ruler.setUnit(CUnit::MM);
        // Numbered steps of 37 pixels at 96 dpi, labels of four digits: at 192 dpi, a ruler in
        // device pixels would keep its steps and double its labels.
        ruler.setZoom(1.85 * 25.4 / 96.0);
        ruler.setPages(3000, 1);
        ruler.setOrigin(990);
        QCOMPARE(ruler.pixelsPerMillimetre(), 1.85 * density);
        QImage image(ruler.size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        ruler.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);

        const int rows = qRound(image.height() * 0.6);
        QList<int> ticks; // the first column of every numbered tick
        for (int x = 0; x < image.width(); ++x) {
            if (inkInColumn(image, x, 0, rows) == rows + 1
                && (ticks.isEmpty() || inkInColumn(image, x - 1, 0, rows) <= rows))
                ticks << x;
        }
        QVERIFY(ticks.size() > 20);
        for (int i = 1; i < ticks.size(); ++i) {
            const int gap = ticks[i] - ticks[i - 1];
            QVERIFY(inkInRect(image, QRect(ticks[i - 1] + 1, 0, gap / 2, rows)) > 0); // a label
            QVERIFY2(inkInRect(image, QRect(ticks[i] - 2, 0, 2, rows)) == 0,
                qPrintable(QString::number(ticks[i])));
        }
    }
};

TAVO_TEST(RulerTest)
#include "RulerTest.moc"
