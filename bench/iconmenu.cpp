// Time from making an icon menu popup to its first paint, for menus and combo boxes of 30, 300
// and 1,000 rows. Every row is as wide as the widest text of the model; the delegate measures
// those widths once per model, where measuring them for every row would cost n squared text
// measurements. The last benchmark does that n squared measuring alone, for comparison.
#include "WidgetBenchMain.h"
#include "menus/IconMenu.h"
#include "menus/IconMenuConfiguration.h"
#include "menus/MyComboBox.h"

#include <QAction>
#include <QApplication>
#include <QFontMetrics>
#include <QMenu>
#include <QPixmap>
#include <benchmark/benchmark.h>
#include <memory>

namespace {

std::unique_ptr<QMenu> makeMenu(int rows)
{
    auto menu = std::make_unique<QMenu>();
    for (int i = 0; i < rows; ++i) {
        if (i % 10 == 9)
            menu->addSeparator();
        else
            menu->addAction(QStringLiteral("Menu entry number %1").arg(i))
                ->setShortcut(QKeySequence(Qt::CTRL | (Qt::Key_A + i % 26)));
    }
    return menu;
}

void BM_MenuPopupFirstPaint(benchmark::State &state)
{
    const int rows = int(state.range(0));
    auto menu = makeMenu(rows);
    QWidget anchor;
    anchor.show();
    for (auto _ : state) {
        auto *popup
            = new IconMenu(IconMenuConfiguration(), menu.get(), QPoint(100, 100), &anchor, &anchor);
        popup->makePopupWindow();
        popup->show();
        QPixmap painted = popup->grab();
        benchmark::DoNotOptimize(painted);
        state.PauseTiming();
        delete popup;
        state.ResumeTiming();
    }
}

void BM_ComboPopupFirstPaint(benchmark::State &state)
{
    const int rows = int(state.range(0));
    QWidget window;
    window.setGeometry(100, 100, 300, 100);
    auto *combo = new MyComboBox(&window);
    combo->setGeometry(10, 10, 200, 22);
    for (int i = 0; i < rows; ++i)
        combo->addItem(QStringLiteral("Combo entry %1").arg(i));
    combo->setCurrentIndex(rows / 2);
    window.show();
    for (auto _ : state) {
        auto *popup = new IconMenu(IconMenuConfiguration::light(), combo, &window);
        popup->makePopupWindow();
        popup->show();
        QPixmap painted = popup->grab();
        benchmark::DoNotOptimize(painted);
        state.PauseTiming();
        delete popup;
        state.ResumeTiming();
    }
}

// What sizing would cost if every row measured all rows.
void BM_RowByRowMeasuring(benchmark::State &state)
{
    const int rows = int(state.range(0));
    QStringList texts;
    for (int i = 0; i < rows; ++i)
        texts << QStringLiteral("Menu entry number %1").arg(i);
    QFont font;
    font.setPointSize(9);
    font.setBold(true);
    for (auto _ : state) {
        const QFontMetrics metrics(font);
        int widest = 0;
        for (int row = 0; row < rows; ++row)
            for (const QString &t : texts)
                widest = std::max(widest, metrics.boundingRect(t).width());
        benchmark::DoNotOptimize(widest);
    }
}

} // namespace

BENCHMARK(BM_MenuPopupFirstPaint)->Arg(30)->Arg(300)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ComboPopupFirstPaint)->Arg(30)->Arg(300)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RowByRowMeasuring)->Arg(30)->Arg(300)->Arg(1000)->Unit(benchmark::kMillisecond);

TAVO_WIDGET_BENCHMARK_MAIN()
