// One paint of a 2,000-pixel ruler in millimetres at five zooms, from a quarter of real size to
// sixteen times, into an image the size of the ruler. The tick loops walk only what is drawn,
// so the time follows the number of ticks on screen, not the length of the ruler's range.
#include "controls/RulerBase.h"
#include "core/units/CUnit.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

namespace {

class BenchRuler : public RulerBase
{
public:
    explicit BenchRuler(double pixelsPerMillimetre) : RulerBase(Horizontal)
    {
        setMatrix(QTransform::fromScale(pixelsPerMillimetre, pixelsPerMillimetre));
        setHorizontalUnit(CUnit::MM);
    }
    TavoLib::Point GetStartPosition() override { return TavoLib::Point(0, 0); }
    TavoLib::Point GetEndPosition() override { return TavoLib::Point(1e6, 1e6); }
    TavoLib::Point GetSkipSize() override { return TavoLib::Point(210, 210); }
    TavoLib::Point GetDrawSize() override { return TavoLib::Point(2000, 20); }
    TavoLib::Point WorldToLocal(const TavoLib::Point &world) override
    {
        return TavoLib::Point(matrix().map(world));
    }
};

void BM_RulerPaint2000(benchmark::State &state)
{
    const double zoom = double(state.range(0)) / 100.0;
    BenchRuler ruler(zoom * 96.0 / 25.4);
    QImage image(2000, 20, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        image.fill(Qt::white);
        QPainter painter(&image);
        ruler.Paint(painter);
    }
    state.counters["zoom%"] = double(state.range(0));
}

} // namespace

BENCHMARK(BM_RulerPaint2000)->Arg(25)->Arg(100)->Arg(400)->Arg(1600)->Arg(6400)->Unit(benchmark::kMicrosecond);

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
