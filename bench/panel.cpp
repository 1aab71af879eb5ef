// Property panels: load and show a PropertyEditorWidget for 10, 100, 1,000 and 3,000 mixed
// properties (the sample schema's kinds, flat or in groups of five), take new values of all
// of them through changeValues, and destroy it; in the same run the floor, the same labels
// with plain Qt editors in a QFormLayout. Teardown of 3,000 rows is timed on its own, and
// the resident memory per row is printed ("kB/row", peak resident set over an empty panel).
#include "WidgetBenchMain.h"
#include "browser/PropertyEditorWidget.h"
#include "core/FontProperty.h"
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"
#include "core/StringProperty.h"
#include "core/UnitValueProperty.h"
#include "sample/SampleSchema.h"

#include <QApplication>
#include <QFile>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QDoubleSpinBox>
#include <QSpinBox>
#include <benchmark/benchmark.h>

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
        if (!qEnvironmentVariableIsSet("NOFONT") || !TAutoPtr<FontProperty>{ p })
            leaves.push_back(p);
    };
    for (const QString &type : Sample::SampleSchema::objectTypes())
        for (const auto &p : Sample::SampleSchema::objectSchema(type, stylesheets))
            visit(p);
    for (const AttributeKey &key : Sample::SampleSchema::allAttributeKeys())
        for (const auto &p : Sample::SampleSchema::attributeSchema(key))
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

long residentKb()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').value(0).toLong();
    return 0;
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
    long perRow = 0;
    double widgets = 0;
    for (auto _ : state) {
        const long before = residentKb();
        auto *panel = new PropertyEditorWidget(true, true, false);
        panel->loadValues(TAutoPtr<const PropertyableObject>(object), environment());
        panel->show();
        QApplication::processEvents();
        perRow = (residentKb() - before) * 1024 / qMax(1, n);
        widgets = double(QApplication::allWidgets().size()) / n;
        panel->changeValues(TAutoPtr<PropertyableObject>(changed));
        delete panel;
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    state.counters["props"] = n;
    state.counters["grouped"] = grouped;
    state.counters["B/row"] = double(perRow);
    state.counters["widgets/row"] = widgets;
}

void BM_PlainForm(benchmark::State &state)
{
    const int n = int(state.range(0));
    const std::vector<Property::Ptr> leaves = pool();
    for (auto _ : state) {
        auto *form = new QWidget;
        auto *layout = new QFormLayout(form);
        for (int i = 0; i < n; ++i) {
            const Property::Ptr &p = leaves[size_t(i) % leaves.size()];
            QWidget *editor = nullptr;
            if (TAutoPtr<IntegerProperty>{ p })
                editor = new QSpinBox;
            else if (TAutoPtr<UnitValueProperty>{ p })
                editor = new QDoubleSpinBox;
            else
                editor = new QLineEdit(p->toString());
            layout->addRow(new QLabel(p->visibleName() + QLatin1Char(':')), editor);
        }
        form->show();
        QApplication::processEvents();
        delete form;
    }
    state.counters["props"] = n;
}

void BM_PanelTeardown3000(benchmark::State &state)
{
    TAutoPtr<BenchObject> object(new BenchObject(values(3000, false, 0)));
    for (auto _ : state) {
        state.PauseTiming();
        auto *panel = new PropertyEditorWidget(true, true, false);
        panel->loadValues(TAutoPtr<const PropertyableObject>(object), environment());
        panel->show();
        QApplication::processEvents();
        state.ResumeTiming();
        delete panel;
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

} // namespace

BENCHMARK(BM_Panel)->Args({ 10, 0 })->Args({ 100, 0 })->Args({ 1000, 0 })->Args({ 3000, 0 })
    ->Args({ 100, 1 })->Args({ 1000, 1 })->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainForm)->Arg(10)->Arg(100)->Arg(1000)->Arg(3000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PanelTeardown3000)->Unit(benchmark::kMillisecond)->Iterations(3);

TAVO_WIDGET_BENCHMARK_MAIN()
