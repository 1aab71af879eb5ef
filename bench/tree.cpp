// The tree browser beside two peers on one workload, and the attributes palette.
// Each peer takes 10, 100, 1,000 and 3,000 rows of integers, texts, choices of five names,
// switches, decimals (a measure in our tree) and colours, flat or in groups of five, and is
// timed in three figures (processor time of the thread, so that other programs on a shared
// machine count less): load, show and paint; every value changed once, then painted
// again; teardown. The heap each row holds is counted as well. The peers: a QTreeWidget
// with the same two columns of text and icons (the floor, which edits nothing) and, when
// the build found it, KProperty's editor view over a property set. A table of the ratios
// ends the run. Removal of 3,000 rows is timed on its own. The palette, with 1,000 rows of
// 200 attributes, is handed an equal selection, and a selection in which one attribute
// differs.
#include "WidgetBenchMain.h"
#include "sample/EmptyObject.h"
#include "attributes/AttributesTreeWidget.h"
#include "browser/TreePropertyBrowser.h"
#include "browser/ViewEditorFactory.h"
#include "browser/ViewProperty.h"
#include "propertybrowser/QtBrowserItem.h"
#include "core/BoolProperty.h"
#include "core/CustomColorProperty.h"
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"
#include "core/SelectorProperty.h"
#include "core/StringProperty.h"
#include "core/UnitValueProperty.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTreeWidget>
#include <benchmark/benchmark.h>
#include <ctime>
#include <malloc.h>
#include <cstdio>
#include <map>
#include <tuple>

#ifdef TAVO_HAVE_KPROPERTY
#include <KPropertySet.h>
#include <KPropertyEditorView.h>
#include <KPropertyListData.h>
#endif

using namespace TavoLib;

namespace {

const QStringList kNames{ QStringLiteral("North"), QStringLiteral("East"), QStringLiteral("South"),
    QStringLiteral("West"), QStringLiteral("Centre") };

// The six kinds of the workload, in turn.
enum Kind { Integer, Text, Choice, Switch, Decimal, Colour };
Kind kindOf(int i) { return Kind(i % 6); }

QString nameOf(int i) { return QStringLiteral("p%1").arg(i); }
QString labelOf(int i) { return QStringLiteral("Property %1").arg(i); }
QString groupLabel(int group) { return QStringLiteral("Group %1").arg(group); }

// Bytes the heap has handed out and not got back, mapped blocks included.
size_t heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void settle()
{
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// The figures of one peer at one size, in milliseconds and kB per row.
struct Figures
{
    double load = 0, change = 0, teardown = 0, kbPerRow = 0;
};
enum Peer { Ours, Peer_KProperty, Floor };
std::map<std::tuple<int, int, int>, Figures> gFigures; // (peer, rows, grouped)

// One peer's rows: made, shown, changed, gone; each phase timed by the caller.
struct Subject
{
    virtual ~Subject() = default;
    // The host's data, made before the clock runs: our properties, KProperty's properties.
    virtual void prepare(int, bool) { }
    virtual void load(int n, bool grouped) = 0;
    virtual void change() = 0;
    virtual QWidget *widget() = 0;
};

// The thread's processor time in milliseconds: other programs on the machine do not count.
double cpuMs()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

struct PhaseTimer
{
    double last = cpuMs();
    double next()
    {
        const double now = cpuMs();
        const double ms = now - last;
        last = now;
        return ms;
    }
};

template <class Make> void measure(benchmark::State &state, Peer peer, Make make)
{
    const int n = int(state.range(0));
    const bool grouped = state.range(1) == 1;
    // What the widget holds without rows, taken off the figure per row.
    size_t empty = heapInUse();
    {
        std::unique_ptr<Subject> subject(make());
        subject->widget()->show();
        settle();
        empty = heapInUse() - empty;
    }
    settle();
    Figures sum;
    int rounds = 0;
    for (auto _ : state) {
        std::unique_ptr<Subject> subject(make());
        subject->prepare(n, grouped);
        const size_t before = heapInUse();
        PhaseTimer timer;
        subject->load(n, grouped);
        subject->widget()->show();
        QApplication::processEvents();
        subject->widget()->grab();
        const double load = timer.next();
        sum.kbPerRow += (double(heapInUse()) - double(before) - double(empty)) / 1024.0 / n;
        subject->change();
        subject->widget()->grab();
        const double change = timer.next();
        subject.reset();
        settle();
        const double teardown = timer.next();
        sum.load += load;
        sum.change += change;
        sum.teardown += teardown;
        state.SetIterationTime(1e-3 * (load + change + teardown));
        ++rounds;
    }
    Figures mean{ sum.load / rounds, sum.change / rounds, sum.teardown / rounds, sum.kbPerRow / rounds };
    gFigures[std::make_tuple(int(peer), n, int(grouped))] = mean;
    state.counters["load_ms"] = mean.load;
    state.counters["change_ms"] = mean.change;
    state.counters["teardown_ms"] = mean.teardown;
    state.counters["kB/row"] = mean.kbPerRow;
}

// ---- our tree ----

TAutoPtr<Environment> environment()
{
    static TAutoPtr<Environment> env(new Environment);
    return env;
}

Property::Ptr leaf(int i)
{
    switch (kindOf(i)) {
    case Integer:
        return new IntegerProperty(nameOf(i), labelOf(i), i, -1000000, 1000000);
    case Text:
        return new StringProperty(nameOf(i), labelOf(i), QStringLiteral("value %1").arg(i));
    case Choice: {
        SelectorProperty::Ptr choice(new SelectorProperty(nameOf(i), labelOf(i)));
        for (int k = 0; k < kNames.size(); ++k)
            choice->addItem(k, kNames[k]);
        choice->setValue(i % kNames.size());
        return choice;
    }
    case Switch:
        return new BoolProperty(nameOf(i), labelOf(i), i % 2 == 0);
    case Decimal:
        return new UnitValueProperty(nameOf(i), labelOf(i), UnitValue(i * 0.5, CUnit::PT), CUnit::PT, -1e6, 1e6, 2);
    case Colour:
        return new CustomColorProperty(nameOf(i), labelOf(i), 0.2, 0.4, (i % 10) / 10.0);
    }
    return nullptr;
}

PropertyDictionary rows(int n, bool grouped)
{
    PropertyDictionary result;
    PropertyDictionary group;
    for (int i = 0; i < n; ++i) {
        if (!grouped) {
            result.insertProperty(leaf(i));
            continue;
        }
        group.insertProperty(leaf(i));
        if (group.size() == 5 || i == n - 1) {
            result.insertProperty(new GroupProperty(QStringLiteral("g%1").arg(i), groupLabel(i / 5), group));
            group = PropertyDictionary();
        }
    }
    return result;
}

// A new value in a row's property, as an edit or a reload brings it.
void changeValue(const TAutoPtr<Property> &data)
{
    if (TAutoPtr<IntegerProperty> integer{ data })
        integer->setValue(integer->value() + 1);
    else if (TAutoPtr<StringProperty> string{ data })
        string->setValue(string->value() + QLatin1Char('!'));
    else if (TAutoPtr<SelectorProperty> choice{ data })
        choice->setValue((choice->value() + 1) % kNames.size());
    else if (TAutoPtr<BoolProperty> on{ data })
        on->setOn(!on->on());
    else if (TAutoPtr<UnitValueProperty> measure{ data })
        measure->setValue(UnitValue(measure->value().value() + 1, measure->value().unit()));
    else if (TAutoPtr<CustomColorProperty> colour{ data })
        colour->setRgb(colour->blue(), colour->red(), colour->green());
}

struct OurTree : Subject
{
    TreePropertyBrowser browser;
    ViewPropertyManager *manager = new ViewPropertyManager(&browser, &browser);
    ViewEditorFactory *factory = new ViewEditorFactory(&browser);
    OurTree()
    {
        browser.addFactory(manager, factory);
        factory->addPropertyManager(manager);
        browser.resize(400, 600);
    }
    PropertyDictionary values;
    ~OurTree() override { manager->clear(); }
    void prepare(int n, bool grouped) override { values = rows(n, grouped); }
    void load(int, bool) override { manager->addProperties(values, new Sample::EmptyObject); }
    void change() override
    {
        QList<QtBrowserItem *> items = browser.topLevelItems();
        while (!items.isEmpty()) {
            QtBrowserItem *item = items.takeFirst();
            items += item->children();
            QtProperty *row = item->property();
            const TAutoPtr<Property> data = manager->toViewProperty(row)->data();
            if (!data || TAutoPtr<GroupProperty>{ data })
                continue;
            changeValue(data);
            manager->propertyValueChanged(row);
        }
    }
    QWidget *widget() override { return &browser; }
};

void BM_TreeBrowser(benchmark::State &state)
{
    measure(state, Ours, [] { return new OurTree; });
}

// ---- the floor: a QTreeWidget of text and icons ----

struct PlainTree : Subject
{
    QTreeWidget tree;
    QList<QTreeWidgetItem *> items;
    QIcon swatch;
    PlainTree()
    {
        QPixmap pixmap(QSize(29, 18));
        pixmap.fill(Qt::darkCyan);
        swatch = QIcon(pixmap);
        tree.setColumnCount(2);
        tree.resize(400, 600);
    }
    void load(int n, bool grouped) override
    {
        QTreeWidgetItem *group = nullptr;
        for (int i = 0; i < n; ++i) {
            if (grouped && i % 5 == 0) {
                group = new QTreeWidgetItem(&tree, { groupLabel(i / 5) });
                group->setExpanded(true);
            }
            auto *item = group ? new QTreeWidgetItem(group) : new QTreeWidgetItem(&tree);
            item->setText(0, labelOf(i));
            item->setText(1, QStringLiteral("value %1").arg(i));
            if (kindOf(i) == Colour)
                item->setIcon(1, swatch);
            items << item;
        }
    }
    void change() override
    {
        for (QTreeWidgetItem *item : items)
            item->setText(1, item->text(1) + QLatin1Char('!'));
    }
    QWidget *widget() override { return &tree; }
};

void BM_PlainTree(benchmark::State &state)
{
    measure(state, Floor, [] { return new PlainTree; });
}

// ---- KProperty's editor view ----

#ifdef TAVO_HAVE_KPROPERTY
struct KPropertyTree : Subject
{
    KPropertySet *set = new KPropertySet;
    KPropertyEditorView view;
    QList<KProperty *> properties;
    KPropertyTree() { view.resize(400, 600); }
    ~KPropertyTree() override
    {
        view.changeSet(nullptr);
        delete set;
    }
    QList<QByteArray> groups;
    void prepare(int n, bool grouped) override
    {
        for (int i = 0; i < n; ++i) {
            const QByteArray name = nameOf(i).toLatin1();
            KProperty *property = nullptr;
            switch (kindOf(i)) {
            case Integer:
                property = new KProperty(name, i, labelOf(i));
                break;
            case Text:
                property = new KProperty(name, QStringLiteral("value %1").arg(i), labelOf(i));
                break;
            case Choice:
                property = new KProperty(name, new KPropertyListData(QVariantList{ 0, 1, 2, 3, 4 }, kNames),
                    i % kNames.size(), labelOf(i));
                break;
            case Switch:
                property = new KProperty(name, i % 2 == 0, labelOf(i));
                break;
            case Decimal:
                property = new KProperty(name, i * 0.5, labelOf(i));
                break;
            case Colour:
                property = new KProperty(name, QColor::fromRgbF(0.2, 0.4, (i % 10) / 10.0), labelOf(i));
                break;
            }
            properties << property;
            groups << (grouped ? QByteArray("g") + QByteArray::number(i / 5) : QByteArray("common"));
        }
    }
    void load(int, bool grouped) override
    {
        view.setGroupsVisible(grouped);
        for (int i = 0; i < properties.size(); ++i) {
            set->addProperty(properties[i], groups[i]);
            if (grouped && i % 5 == 0)
                set->setGroupCaption(groups[i], groupLabel(i / 5));
        }
        view.changeSet(set);
        // Groups open, as in the other two trees.
        view.expandAll();
    }
    void change() override
    {
        for (KProperty *property : properties) {
            const QVariant value = property->value();
            switch (value.type()) {
            case QVariant::Int:
                property->setValue(value.toInt() + (property->listData() ? 0 : 1));
                if (property->listData())
                    property->setValue((value.toInt() + 1) % kNames.size());
                break;
            case QVariant::String:
                property->setValue(value.toString() + QLatin1Char('!'));
                break;
            case QVariant::Bool:
                property->setValue(!value.toBool());
                break;
            case QVariant::Double:
                property->setValue(value.toDouble() + 1);
                break;
            case QVariant::Color: {
                const QColor c = value.value<QColor>();
                property->setValue(QColor::fromRgbF(c.blueF(), c.redF(), c.greenF()));
                break;
            }
            default:
                break;
            }
        }
    }
    QWidget *widget() override { return &view; }
};

void BM_KPropertyTree(benchmark::State &state)
{
    measure(state, Peer_KProperty, [] { return new KPropertyTree; });
}
#endif

void BM_TreeRemove3000(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        PropertyDictionary values = rows(3000, false);
        auto *b = new OurTree;
        b->manager->addProperties(values, new Sample::EmptyObject);
        b->browser.show();
        QApplication::processEvents();
        state.ResumeTiming();
        b->manager->clear();
        state.PauseTiming();
        delete b;
        state.ResumeTiming();
    }
}

// An attribute of five integers, under one of 200 keys.
class BenchAttribute : public Attribute
{
public:
    BenchAttribute(const AttributeKey &key, int base) : mKey(key)
    {
        for (int i = 0; i < 5; ++i)
            mValues.insertProperty(new IntegerProperty(QStringLiteral("v%1").arg(i), QStringLiteral("Value %1").arg(i), base + i, -1000000, 1000000));
    }
    AttributeKey key() const override { return mKey; }
    TAutoPtr<PropertyableObject> clone() const override
    {
        auto *copy = new BenchAttribute(mKey, 0);
        copy->mValues = mValues.cloneProperties();
        return copy;
    }
    void applyProperties(const PropertyDictionary &values) override
    {
        for (const Property::Ptr &value : values)
            if (Property::Ptr mine = mValues.property(value->uniqueName()))
                mine->copyValueFrom(*value);
    }
    void fillProperties(PropertyDictionary &values) const override
    {
        for (const Property::Ptr &value : mValues)
            values.insertProperty(value->clone());
    }

private:
    AttributeKey mKey;
    PropertyDictionary mValues;
};

AttributeKey keyOf(int i)
{
    return AttributeKey(QStringLiteral("A%1").arg(i, 3, 10, QLatin1Char('0')));
}

class BenchPalette : public AttributesTreeWidget
{
public:
    BenchPalette() : AttributesTreeWidget(nullptr, TAutoPtr<Translator>(new Translator))
    {
        addTab(QStringLiteral("All"));
        TAutoPtr<Environment> env(new Environment);
        for (int i = 0; i < 200; ++i)
            env->setDefaultAttribute(new BenchAttribute(keyOf(i), 0));
        setEnvironment(env);
    }
    using AttributesTreeWidget::setAttributes;
    void selectionChanged() override { }

protected:
    void createAttributes() override
    {
        for (int i = 0; i < 200; ++i)
            createAttribute(keyOf(i), 0);
    }
    void attributeChanged(TAutoPtr<const Attribute>) override { }
};

AttributeMap selection(int firstBase)
{
    AttributeMap map;
    for (int i = 0; i < 200; ++i)
        map.insert(new BenchAttribute(keyOf(i), i == 0 ? firstBase : 10));
    return map;
}

void BM_PaletteEqualSelection(benchmark::State &state)
{
    BenchPalette palette;
    palette.show();
    palette.setAttributes(selection(10));
    QApplication::processEvents();
    const AttributeMap same = selection(10);
    for (auto _ : state)
        palette.setAttributes(same);
    state.counters["rows"] = 1000;
}

void BM_PaletteOneAttributeChanges(benchmark::State &state)
{
    BenchPalette palette;
    palette.show();
    const AttributeMap first = selection(10);
    const AttributeMap second = selection(20);
    palette.setAttributes(first);
    QApplication::processEvents();
    bool flip = false;
    for (auto _ : state) {
        palette.setAttributes(flip ? first : second);
        flip = !flip;
    }
    state.counters["rows"] = 1000;
}

// The ratios of our figures to the peers', per size; from 100 rows the aim is at most 1.0
// against KProperty and at most 3.0 against the floor for load, show and paint.
void printRatios()
{
    std::printf("\nTree browser against its peers (ours / peer; below 1 is faster or smaller)\n");
    std::printf("%6s %7s | %-27s | %s\n", "rows", "layout", "against KProperty", "against the floor");
    std::printf("%6s %7s | %6s %6s %6s %6s | %6s\n", "", "", "load", "change", "tear", "kB/row", "load");
    for (const auto &entry : gFigures) {
        if (std::get<0>(entry.first) != Ours)
            continue;
        const int n = std::get<1>(entry.first);
        const int grouped = std::get<2>(entry.first);
        const Figures &ours = entry.second;
        const auto peer = gFigures.find(std::make_tuple(int(Peer_KProperty), n, grouped));
        const auto floor = gFigures.find(std::make_tuple(int(Floor), n, grouped));
        char k[4][16] = { "-", "-", "-", "-" };
        if (peer != gFigures.end()) {
            std::snprintf(k[0], 16, "%.2fx", ours.load / peer->second.load);
            std::snprintf(k[1], 16, "%.2fx", ours.change / peer->second.change);
            std::snprintf(k[2], 16, "%.2fx", ours.teardown / peer->second.teardown);
            // Below 100 rows the heap per row drowns in what the widget allocates by the way.
            if (n >= 100 && ours.kbPerRow > 0 && peer->second.kbPerRow > 0)
                std::snprintf(k[3], 16, "%.2fx", ours.kbPerRow / peer->second.kbPerRow);
        }
        char f[16] = "-";
        if (floor != gFigures.end())
            std::snprintf(f, 16, "%.2fx", ours.load / floor->second.load);
        std::printf("%6d %7s | %6s %6s %6s %6s | %6s\n", n, grouped ? "groups" : "flat", k[0], k[1], k[2],
            k[3], f);
    }
#ifndef TAVO_HAVE_KPROPERTY
    std::printf("(KProperty was not found at build time: no peer column)\n");
#endif
}

} // namespace

#define TAVO_TREE_SIZES(b) \
    b->Args({ 10, 0 })->Args({ 100, 0 })->Args({ 1000, 0 })->Args({ 3000, 0 })->Args({ 10, 1 }) \
        ->Args({ 100, 1 })->Args({ 1000, 1 })->Args({ 3000, 1 })->UseManualTime()->Unit(benchmark::kMillisecond)
TAVO_TREE_SIZES(BENCHMARK(BM_TreeBrowser));
#ifdef TAVO_HAVE_KPROPERTY
TAVO_TREE_SIZES(BENCHMARK(BM_KPropertyTree));
#endif
TAVO_TREE_SIZES(BENCHMARK(BM_PlainTree));
BENCHMARK(BM_TreeRemove3000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_PaletteEqualSelection)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PaletteOneAttributeChanges)->Unit(benchmark::kMillisecond);

TAVO_WIDGET_BENCHMARK_MAIN_THEN(printRatios)
