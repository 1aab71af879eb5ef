// Property panels: load and show a PropertyEditorWidget for 10, 100, 1,000 and 3,000 mixed
// properties (the sample schema's kinds, flat or in groups of five), take new values of all
// of them through changeValues, and destroy it; in the same run the floor, the same labels
// with plain Qt editors in a QFormLayout. Teardown of 3,000 rows is timed on its own, and
// the memory per row is printed ("kB/row": heap in use by the loaded panel over the same panel
// shown empty).
#include "WidgetBenchMain.h"
#include "browser/PropertyEditorWidget.h"
#include "core/BoolProperty.h"
#include "core/BrushProperty.h"
#include "core/CustomColorProperty.h"
#include "core/FontProperty.h"
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"
#include "core/LineHeadStyleProperty.h"
#include "core/ListProperty.h"
#include "core/PenStyleProperty.h"
#include "core/SelectorProperty.h"
#include "core/StringProperty.h"
#include "core/StylesheetProperty.h"
#include "core/UnitValueProperty.h"
#include "core/UnitValueSelectorProperty.h"
#include "sample/SampleSchema.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QToolButton>
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <chrono>
#include <cstdio>
#include <map>

using namespace TavoLib;

namespace {

// An object whose values are a fixed dictionary.
class BenchObject : public PropertyableObject
{
public:
    explicit BenchObject(const PropertyDictionary &values) : mValues(values) { }
    TAutoPtr<PropertyableObject> clone() const override { return new BenchObject(mValues); }
    void applyProperties(const PropertyDictionary &values) override { mValues = values; }
    // As a host does: one insert per value.
    void fillProperties(PropertyDictionary &values) const override
    {
        for (const Property::Ptr &value : mValues)
            values.insertProperty(value->clone());
    }
    PropertyDictionary mValues;
};

// Leaves of the sample schema that a form shows as one row each.
std::vector<Property::Ptr> pool()
{
    static std::vector<Property::Ptr> leaves;
    if (!leaves.empty())
        return leaves;
    TAutoPtr<StylesheetManager> stylesheets = Sample::SampleSchema::makeStylesheets();
    std::function<void(const Property::Ptr &)> visit = [&](const Property::Ptr &p) {
        if (TAutoPtr<GroupProperty> group{ p }) {
            for (const auto &child : *group)
                visit(child);
            return;
        }
        leaves.push_back(p);
    };
    for (const auto &p : Sample::SampleSchema::allSchemas(stylesheets))
        visit(p);
    return leaves;
}

PropertyDictionary values(int n, bool grouped, int round)
{
    const std::vector<Property::Ptr> leaves = pool();
    PropertyDictionary result;
    PropertyDictionary group;
    for (int i = 0; i < n; ++i) {
        Property::Ptr p = leaves[size_t(i) % leaves.size()]->clone();
        p->setUniqueName(QStringLiteral("p%1").arg(i));
        if (TAutoPtr<IntegerProperty> integer{ p })
            integer->setValue(integer->minimum() + round);
        if (TAutoPtr<StringProperty> string{ p })
            string->setValue(QStringLiteral("value %1").arg(round));
        if (!grouped) {
            result.insertProperty(p);
            continue;
        }
        group.insertProperty(p);
        if (group.size() == 5 || i == n - 1) {
            result.insertProperty(new GroupProperty(QStringLiteral("g%1").arg(i), QStringLiteral("Group %1").arg(i / 5), group));
            group = PropertyDictionary();
        }
    }
    return result;
}

// Lets a shown window come to rest as under a running event loop: showing activates it, and
// activation queues more work (every line edit answers it a turn later).
void settle()
{
    QApplication::processEvents();
    QApplication::processEvents();
}

// Bytes the heap has handed out and not got back, mapped blocks included. The resident set
// of the process only grows and keeps what earlier runs freed, so it cannot tell one panel
// from the next; this count can.
size_t heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

TAutoPtr<Environment> environment()
{
    static TAutoPtr<Environment> env(new Environment);
    return env;
}

void BM_Panel(benchmark::State &state)
{
    const int n = int(state.range(0));
    const bool grouped = state.range(1) == 1;
    TAutoPtr<BenchObject> object(new BenchObject(values(n, grouped, 0)));
    TAutoPtr<BenchObject> changed(new BenchObject(values(n, grouped, 1)));
    // What a panel shown without rows holds, taken off the figure per row.
    size_t emptyPanel = heapInUse();
    {
        PropertyEditorWidget empty(true, true, false);
        empty.show();
        settle();
        emptyPanel = heapInUse() - emptyPanel;
    }
    double perRow = 0;
    double widgets = 0;
    for (auto _ : state) {
        const size_t before = heapInUse();
        auto *panel = new PropertyEditorWidget(true, true, false);
        panel->loadValues(TAutoPtr<const PropertyableObject>(object), environment());
        panel->show();
        settle();
        perRow = (double(heapInUse()) - double(before) - double(emptyPanel)) / 1024.0 / n;
        widgets = double(QApplication::allWidgets().size()) / n;
        panel->changeValues(TAutoPtr<PropertyableObject>(changed));
        delete panel;
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    state.counters["props"] = n;
    state.counters["grouped"] = grouped;
    state.counters["kB/row"] = perRow;
    state.counters["widgets/row"] = widgets;
}

// An icon such as a plain Qt form would draw for an entry of a brush or style list.
QIcon swatch(int i)
{
    QPixmap pixmap(QSize(32, 16));
    pixmap.fill(QColor::fromHsv((i * 37) % 360, 160, 200));
    return QIcon(pixmap);
}

QComboBox *comboOf(int count, bool icons)
{
    auto *combo = new QComboBox;
    for (int i = 0; i < count; ++i) {
        if (icons)
            combo->addItem(swatch(i), QStringLiteral("Entry %1").arg(i));
        else
            combo->addItem(QStringLiteral("Entry %1").arg(i));
    }
    return combo;
}

// The plain Qt editor of each kind, with as many entries as the library's editor lists:
// the floor a host would reach building the same form by hand.
QWidget *plainEditor(const Property::Ptr &p)
{
    static TAutoPtr<Environment> env(new Environment);
    if (TAutoPtr<IntegerProperty>{ p })
        return new QSpinBox;
    if (TAutoPtr<BoolProperty>{ p })
        return new QCheckBox;
    if (TAutoPtr<UnitValueProperty>{ p })
        return new QDoubleSpinBox;
    if (TAutoPtr<SelectorProperty> selector{ p })
        return comboOf(selector->itemCount(), false);
    if (TAutoPtr<UnitValueSelectorProperty> selector{ p }) {
        auto *combo = comboOf(int(std::distance(selector->begin(), selector->end())), false);
        combo->setEditable(true);
        return combo;
    }
    if (TAutoPtr<StylesheetProperty> sheet{ p })
        return comboOf(
            int(env->stylesheetManager()->stylesheetsWithType(sheet->stylesheetType()).size()) + 1,
            false);
    if (TAutoPtr<BrushProperty>{ p })
        return comboOf(int(env->brushProvider()->brushList().size()), true);
    if (TAutoPtr<PenStyleProperty>{ p })
        return comboOf(int(env->penStyleProvider()->styleList().size()), true);
    if (TAutoPtr<LineHeadStyleProperty>{ p })
        return comboOf(int(env->lineHeadStyleProvider()->styleList().size()), true);
    if (TAutoPtr<CustomColorProperty>{ p }) {
        auto *button = new QToolButton;
        button->setIcon(swatch(0));
        return button;
    }
    if (TAutoPtr<FontProperty>{ p }) {
        auto *pair = new QWidget;
        auto *row = new QHBoxLayout(pair);
        row->setContentsMargins(0, 0, 0, 0);
        row->addWidget(new QFontComboBox);
        row->addWidget(comboOf(4, false));
        return pair;
    }
    if (TAutoPtr<ListProperty> list{ p }) {
        auto *box = new QWidget;
        auto *column = new QVBoxLayout(box);
        column->setContentsMargins(0, 0, 0, 0);
        for (int i = 0; i < list->size(); ++i)
            column->addWidget(new QLineEdit);
        column->addWidget(new QToolButton);
        return box;
    }
    return new QLineEdit(p->toString());
}

void BM_PlainForm(benchmark::State &state)
{
    const int n = int(state.range(0));
    const std::vector<Property::Ptr> leaves = pool();
    double widgets = 0;
    double perRow = 0;
    for (auto _ : state) {
        const size_t before = heapInUse();
        auto *form = new QWidget;
        auto *layout = new QFormLayout(form);
        for (int i = 0; i < n; ++i) {
            const Property::Ptr &p = leaves[size_t(i) % leaves.size()];
            layout->addRow(new QLabel(p->visibleName() + QLatin1Char(':')), plainEditor(p));
        }
        form->show();
        settle();
        perRow = (double(heapInUse()) - double(before)) / 1024.0 / n;
        widgets = double(QApplication::allWidgets().size()) / n;
        delete form;
    }
    state.counters["props"] = n;
    state.counters["kB/row"] = perRow;
    state.counters["widgets/row"] = widgets;
}

void BM_PanelTeardown3000(benchmark::State &state)
{
    TAutoPtr<BenchObject> object(new BenchObject(values(3000, false, 0)));
    for (auto _ : state) {
        state.PauseTiming();
        auto *panel = new PropertyEditorWidget(true, true, false);
        panel->loadValues(TAutoPtr<const PropertyableObject>(object), environment());
        panel->show();
        settle();
        state.ResumeTiming();
        delete panel;
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

// The floor's teardown of the same 3,000 rows.
void BM_PlainFormTeardown3000(benchmark::State &state)
{
    const std::vector<Property::Ptr> leaves = pool();
    for (auto _ : state) {
        state.PauseTiming();
        auto *form = new QWidget;
        auto *layout = new QFormLayout(form);
        for (int i = 0; i < 3000; ++i) {
            const Property::Ptr &p = leaves[size_t(i) % leaves.size()];
            layout->addRow(new QLabel(p->visibleName() + QLatin1Char(':')), plainEditor(p));
        }
        form->show();
        settle();
        state.ResumeTiming();
        delete form;
    }
}

} // namespace

// Figures of the same run for the closing table: load+show and taking new values, ours and
// the floor's, per size (the best of the repetitions).
struct Phases
{
    double load = 0;
    double change = 0;
};
std::map<std::pair<int, bool>, Phases> &panelPhases()
{
    static std::map<std::pair<int, bool>, Phases> phases;
    return phases;
}
std::map<int, Phases> &floorPhases()
{
    static std::map<int, Phases> phases;
    return phases;
}

double millisecondsSince(const std::chrono::steady_clock::time_point &start)
{
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

void keepBest(double &slot, double value)
{
    if (slot == 0 || value < slot)
        slot = value;
}

// Load and show, then every value taken anew through changeValues; the second is timed.
void BM_PanelChangeValues(benchmark::State &state)
{
    const int n = int(state.range(0));
    const bool grouped = state.range(1) == 1;
    const PropertyDictionary first = values(n, grouped, 0);
    const PropertyDictionary second = values(n, grouped, 1);
    Phases &best = panelPhases()[{ n, grouped }];
    for (auto _ : state) {
        TAutoPtr<BenchObject> object(new BenchObject(first));
        auto start = std::chrono::steady_clock::now();
        auto *panel = new PropertyEditorWidget(true, true, false);
        panel->loadValues(TAutoPtr<const PropertyableObject>(object), environment());
        panel->show();
        settle();
        keepBest(best.load, millisecondsSince(start));
        // The loaded object changes outside the panel, which takes all its new values.
        object->mValues = second.cloneProperties();
        start = std::chrono::steady_clock::now();
        panel->changeValues(TAutoPtr<PropertyableObject>(object));
        const double change = millisecondsSince(start);
        keepBest(best.change, change);
        state.SetIterationTime(change / 1000.0);
        delete panel;
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    state.counters["props"] = n;
    state.counters["grouped"] = grouped;
}

// Gives a plain editor another value, as a host setting every field by hand would.
void setOtherValue(QWidget *editor, int i)
{
    if (auto *spin = qobject_cast<QSpinBox *>(editor))
        spin->setValue(spin->value() + 1);
    else if (auto *box = qobject_cast<QCheckBox *>(editor))
        box->setChecked(!box->isChecked());
    else if (auto *number = qobject_cast<QDoubleSpinBox *>(editor))
        number->setValue(number->value() + 1.5);
    else if (auto *combo = qobject_cast<QComboBox *>(editor))
        combo->setCurrentIndex(combo->count() > 0 ? (combo->currentIndex() + 1) % combo->count() : -1);
    else if (auto *line = qobject_cast<QLineEdit *>(editor))
        line->setText(QStringLiteral("Value %1").arg(i));
    else if (auto *button = qobject_cast<QToolButton *>(editor))
        button->setIcon(swatch(i + 1));
    else
        for (QWidget *part : editor->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
            setOtherValue(part, i);
}

// The floor of taking new values: the plain form of BM_PlainForm, every field set anew.
void BM_PlainFormSetValues(benchmark::State &state)
{
    const int n = int(state.range(0));
    const std::vector<Property::Ptr> leaves = pool();
    Phases &best = floorPhases()[n];
    for (auto _ : state) {
        auto start = std::chrono::steady_clock::now();
        auto *form = new QWidget;
        auto *layout = new QFormLayout(form);
        std::vector<QWidget *> editors;
        editors.reserve(size_t(n));
        for (int i = 0; i < n; ++i) {
            const Property::Ptr &p = leaves[size_t(i) % leaves.size()];
            editors.push_back(plainEditor(p));
            layout->addRow(new QLabel(p->visibleName() + QLatin1Char(':')), editors.back());
        }
        form->show();
        settle();
        keepBest(best.load, millisecondsSince(start));
        start = std::chrono::steady_clock::now();
        for (int i = 0; i < n; ++i)
            setOtherValue(editors[size_t(i)], i);
        const double change = millisecondsSince(start);
        keepBest(best.change, change);
        state.SetIterationTime(change / 1000.0);
        delete form;
    }
    state.counters["props"] = n;
}

void printChangeTable()
{
    if (panelPhases().empty())
        return;
    std::printf("\n%-7s %-8s %12s %12s %7s %12s %12s %7s\n", "rows", "layout", "load+show",
        "floor", "ratio", "changeValues", "floor set", "ratio");
    for (const auto &entry : panelPhases()) {
        const int n = entry.first.first;
        const Phases &ours = entry.second;
        const Phases floor = floorPhases()[n];
        auto ratio = [](double a, double b) { return b > 0 ? a / b : 0.0; };
        std::printf("%-7d %-8s %9.1f ms %9.1f ms %6.2fx %9.1f ms %9.1f ms %6.2fx\n", n,
            entry.first.second ? "grouped" : "flat", ours.load, floor.load,
            ratio(ours.load, floor.load), ours.change, floor.change,
            ratio(ours.change, floor.change));
    }
    // Growth of taking new values: linear means about 10x from 100 to 1,000 rows and 3x from
    // 1,000 to 3,000.
    const auto &p = panelPhases();
    auto at = [&](int n) {
        auto found = p.find({ n, false });
        return found == p.end() ? 0.0 : found->second.change;
    };
    if (at(100) > 0 && at(1000) > 0 && at(3000) > 0)
        std::printf("changeValues growth (flat): 100->1,000 %.1fx, 1,000->3,000 %.1fx\n",
            at(1000) / at(100), at(3000) / at(1000));
}

BENCHMARK(BM_PanelChangeValues)->Args({ 100, 0 })->Args({ 1000, 0 })->Args({ 3000, 0 })
    ->Args({ 1000, 1 })->Args({ 3000, 1 })->UseManualTime()->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK(BM_PlainFormSetValues)->Arg(100)->Arg(1000)->Arg(3000)->UseManualTime()
    ->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_Panel)->Args({ 10, 0 })->Args({ 100, 0 })->Args({ 1000, 0 })->Args({ 3000, 0 })
    ->Args({ 100, 1 })->Args({ 1000, 1 })->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainForm)->Arg(10)->Arg(100)->Arg(1000)->Arg(3000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PanelTeardown3000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_PlainFormTeardown3000)->Unit(benchmark::kMillisecond)->Iterations(3);

TAVO_WIDGET_BENCHMARK_MAIN_THEN(printChangeTable)
