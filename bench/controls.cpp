// Measure, colour and progress controls:
// - one paint of a 2,000-pixel ruler in millimetres at five zooms, from a quarter of real size
//   to 64 times, into an image the size of the ruler (the tick loops walk only what is drawn);
// - one repaint of a 300-pixel colour strip after its colour changed (the strip is drawn anew);
// - Progress::setValue between two pumps, the cost a job pays for reporting often.
#include "WidgetBenchMain.h"
#include "controls/RulerBase.h"
#include "controls/Ta_ColorComponentSelector.h"
#include "core/units/CUnit.h"
#include "dialogs/ProgressDialog.h"

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

void BM_ColorStripRepaint300(benchmark::State &state)
{
    Ta_ColorComponentSelector strip;
    strip.setColorMatcher(new TavoLib::ColorMatcher);
    strip.setColorComponentType(Ta_ColorComponentSelector::ColorComponentType(state.range(0)));
    strip.resize(300, 22);
    QImage image(300, 22, QImage::Format_ARGB32_Premultiplied);
    int shade = 0;
    for (auto _ : state) {
        strip.SetRgb(shade, 128, 255 - shade); // clears the cached strip
        shade = (shade + 1) % 256;
        strip.render(&image);
    }
    state.counters["component"] = double(state.range(0));
}

void BM_ProgressSetValueWithoutPump(benchmark::State &state)
{
    ProgressDialog dialog;
    TAutoPtr<Progress> progress = dialog.newProgress(ProgressDialog::MainText);
    progress->setRange(0, 1 << 30);
    int value = 0;
    for (auto _ : state)
        progress->setValue(++value);
}

} // namespace

BENCHMARK(BM_ColorStripRepaint300)->Arg(0)->Arg(3)->Arg(10)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ProgressSetValueWithoutPump)->Unit(benchmark::kNanosecond);
BENCHMARK(BM_RulerPaint2000)->Arg(25)->Arg(100)->Arg(400)->Arg(1600)->Arg(6400)->Unit(benchmark::kMicrosecond);

TAVO_WIDGET_BENCHMARK_MAIN()
