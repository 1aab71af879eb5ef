// Cost of the font family picker over a large font collection: 3,000 fonts in 1,000
// families. Filling the combo box, with and without a sample column, and the first showing
// of its pop-up list. The list measures each row (separators are thinner than fonts); the
// pop-up is also measured with uniform row heights, to show what that measuring costs.
#include "WidgetBenchMain.h"
#include "core/FontProviderQt.h"
#include "pickers/FontControllerQt.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFontDatabase>
#include <QHash>
#include <QTreeView>
#include <benchmark/benchmark.h>
#include <vector>

namespace {

// A deterministic in-memory collection: family i has styles Regular, Italic and Bold,
// families cycle through a few writing systems, every 50th family is a symbol family and
// every 100th font is missing.
class BenchFontProvider : public TavoLib::FontProviderQt
{
public:
    BenchFontProvider(int families, int stylesPerFamily)
    {
        static const char *const styles[] = { "Regular", "Italic", "Bold", "Bold Italic" };
        static const int systems[] = { QFontDatabase::Latin, QFontDatabase::Greek,
            QFontDatabase::Cyrillic, QFontDatabase::Arabic, QFontDatabase::Japanese };
        for (int f = 0; f < families; ++f) {
            const QString family = QStringLiteral("Bench Family %1").arg(f, 4, 10, QChar('0'));
            for (int s = 0; s < stylesPerFamily; ++s) {
                Font font;
                font.family = family;
                font.style = QString::fromLatin1(styles[s % 4]);
                font.missing = (mFonts.size() % 100) == 99;
                font.writingSystem = systems[f % 5];
                font.symbol = f % 50 == 49;
                const short id = short(mFonts.size() + 1);
                mFonts.push_back(font);
                if (!font.missing)
                    mFamilies[family].push_back(id);
            }
        }
    }

    QString fontName(short id) const override
    {
        const Font *f = font(id);
        return f ? f->family + QLatin1Char(' ') + f->style : QString();
    }
    QString familyName(short id) const override
    {
        const Font *f = font(id);
        return f ? f->family : QString();
    }
    QString styleName(short id) const override
    {
        const Font *f = font(id);
        return f ? f->style : QString();
    }
    bool isMissing(short id) const override
    {
        const Font *f = font(id);
        return f && f->missing;
    }
    short defaultFont() const override { return mFonts.empty() ? -1 : 1; }
    int hash() const override { return int(mFonts.size()); }
    QString exampleText(short id) const override
    {
        const Font *f = font(id);
        return f && !f->missing ? sampleText(f->writingSystem) : QString();
    }
    bool isEmphasized(short id) const override { return id % 7 == 0; }
    QFont qFont(short id, double pixelSize) const override
    {
        QFont result;
        if (const Font *f = font(id)) {
            result.setFamily(f->family);
            result.setItalic(f->style.contains(QLatin1String("Italic")));
            result.setBold(f->style.startsWith(QLatin1String("Bold")));
        }
        if (pixelSize > 0)
            result.setPixelSize(qRound(pixelSize));
        return result;
    }
    std::list<short> fontsOfFamily(const QString &family) const override
    {
        return mFamilies.value(family);
    }
    bool isSymbolFamily(const QString &family) const override
    {
        const auto it = mFamilies.constFind(family);
        return it != mFamilies.constEnd() && !it->empty() && font(it->front())->symbol;
    }
    int fontType(short id) const override
    {
        const Font *f = font(id);
        return f && !f->missing ? id % 3 : -1;
    }
    std::list<short> fontList(bool availableOnly) const override
    {
        std::list<short> result;
        for (size_t i = 0; i < mFonts.size(); ++i) {
            if (!availableOnly || !mFonts[i].missing)
                result.push_back(short(i + 1));
        }
        return result;
    }

protected:
    QList<BaseWritingSystem> writingSystems(short id) const override
    {
        const Font *f = font(id);
        return f && !f->symbol ? QList<BaseWritingSystem> { f->writingSystem }
                               : QList<BaseWritingSystem>();
    }

private:
    struct Font
    {
        QString family;
        QString style;
        int writingSystem = QFontDatabase::Latin;
        bool missing = false;
        bool symbol = false;
    };
    const Font *font(short id) const
    {
        if (id == 0)
            id = defaultFont();
        return id >= 1 && size_t(id) <= mFonts.size() ? &mFonts[size_t(id - 1)] : nullptr;
    }
    std::vector<Font> mFonts;
    QHash<QString, std::list<short>> mFamilies;
};

TAutoPtr<const TavoLib::FontProviderQt> benchProvider()
{
    static TAutoPtr<const TavoLib::FontProviderQt> provider(new BenchFontProvider(1000, 3));
    return provider;
}

void BM_PopulateFamilies(benchmark::State &state)
{
    TavoLib::FontControllerQt controller(benchProvider());
    controller.setShowExamples(state.range(0) != 0);
    for (auto _ : state) {
        QComboBox combo;
        controller.populateFamilies(&combo, 1500, false);
        benchmark::DoNotOptimize(combo.count());
    }
    state.SetLabel(state.range(0) ? "with examples" : "without examples");
}
BENCHMARK(BM_PopulateFamilies)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// First show of the pop-up: layout of the list, sizing, and painting its visible rows.
void showPopup(benchmark::State &state, bool forceUniformRows)
{
    TavoLib::FontControllerQt controller(benchProvider());
    controller.setShowExamples(state.range(0) != 0);
    for (auto _ : state) {
        state.PauseTiming();
        auto *combo = new QComboBox;
        controller.populateFamilies(combo, 1500, false);
        if (forceUniformRows)
            static_cast<QTreeView *>(combo->view())->setUniformRowHeights(true);
        combo->show();
        QApplication::processEvents();
        state.ResumeTiming();

        combo->showPopup();
        combo->view()->viewport()->repaint();
        QApplication::processEvents();

        state.PauseTiming();
        combo->hidePopup();
        delete combo;
        QApplication::processEvents();
        state.ResumeTiming();
    }
    state.SetLabel(state.range(0) ? "with examples" : "without examples");
}

void BM_ShowFamilyPopup(benchmark::State &state)
{
    showPopup(state, false);
}
BENCHMARK(BM_ShowFamilyPopup)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void BM_ShowFamilyPopupUniformRows(benchmark::State &state)
{
    showPopup(state, true);
}
BENCHMARK(BM_ShowFamilyPopupUniformRows)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace

TAVO_WIDGET_BENCHMARK_MAIN()
