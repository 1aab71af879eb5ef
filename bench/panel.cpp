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

using namespace TavoLib;

namespace {

// An object whose values are a fixed dictionary.
class BenchObject : public PropertyableObject
{
public:
    explicit BenchObject(const PropertyDictionary &values) : mValues(values) { }
    TAutoPtr<PropertyableObject> clone() const override { return new BenchObject(mValues); }
    void applyProperties(const PropertyDictionary &values) override { mValues = values; }
    // A host with thousands of values hands over a copy rather than inserting one by one.
    void fillProperties(PropertyDictionary &values) const override { values = mValues.cloneProperties(); }
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

BENCHMARK(BM_Panel)->Args({ 10, 0 })->Args({ 100, 0 })->Args({ 1000, 0 })->Args({ 3000, 0 })
    ->Args({ 100, 1 })->Args({ 1000, 1 })->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainForm)->Arg(10)->Arg(100)->Arg(1000)->Arg(3000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PanelTeardown3000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_PlainFormTeardown3000)->Unit(benchmark::kMillisecond)->Iterations(3);

TAVO_WIDGET_BENCHMARK_MAIN()
