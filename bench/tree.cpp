// The tree browser and the attributes palette. A tree browser takes 10, 100, 1,000 and
// 3,000 rows of text and icons (flat, or in groups of five), is shown and painted, takes a
// new value in every row and lets them go; in the same run a QTreeWidget with the same two
// columns of text and icons does the same, the floor. Removal of 3,000 rows is timed on its
// own. The palette, with 1,000 rows of 200 attributes, is handed an equal selection, and a
// selection in which one attribute differs.
#include "WidgetBenchMain.h"
#include "sample/EmptyObject.h"
#include "attributes/AttributesTreeWidget.h"
#include "browser/TreePropertyBrowser.h"
#include "browser/ViewEditorFactory.h"
#include "browser/ViewProperty.h"
#include "core/BoolProperty.h"
#include "core/BrushProperty.h"
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"
#include "core/StringProperty.h"

#include <QApplication>
#include <QTreeWidget>
#include <benchmark/benchmark.h>

using namespace TavoLib;

namespace {

TAutoPtr<Environment> environment()
{
    static TAutoPtr<Environment> env(new Environment);
    return env;
}

// Integers, texts, switches and brushes (a row with an icon) in turn.
Property::Ptr leaf(int i, int round)
{
    const QString name = QStringLiteral("p%1").arg(i);
    const QString label = QStringLiteral("Property %1").arg(i);
    switch (i % 4) {
    case 0:
        return new IntegerProperty(name, label, i + round, -1000000, 1000000);
    case 1:
        return new StringProperty(name, label, QStringLiteral("value %1 %2").arg(i).arg(round));
    case 2:
        return new BoolProperty(name, label, (i + round) % 2 == 0);
    default:
        return new BrushProperty(name, label, short((i + round) % 8));
    }
}

PropertyDictionary rows(int n, bool grouped)
{
    PropertyDictionary result;
    PropertyDictionary group;
    for (int i = 0; i < n; ++i) {
        if (!grouped) {
            result.insertProperty(leaf(i, 0));
            continue;
        }
        group.insertProperty(leaf(i, 0));
        if (group.size() == 5 || i == n - 1) {
            result.insertProperty(new GroupProperty(QStringLiteral("g%1").arg(i), QStringLiteral("Group %1").arg(i / 5), group));
            group = PropertyDictionary();
        }
    }
    return result;
}

struct Browser
{
    TreePropertyBrowser browser;
    ViewPropertyManager *manager = new ViewPropertyManager(&browser, &browser);
    ViewEditorFactory *factory = new ViewEditorFactory(&browser);
    Browser()
    {
        browser.addFactory(manager, factory);
        factory->addPropertyManager(manager);
        manager->setBrushProvider(TAutoPtr<const BrushProviderQt>(environment()->brushProvider()));
        browser.resize(400, 600);
    }
};

void BM_TreeBrowser(benchmark::State &state)
{
    const int n = int(state.range(0));
    const bool grouped = state.range(1) == 1;
    for (auto _ : state) {
        state.PauseTiming();
        PropertyDictionary values = rows(n, grouped);
        state.ResumeTiming();
        auto *b = new Browser;
        b->manager->addProperties(values, new Sample::EmptyObject);
        b->browser.show();
        QApplication::processEvents();
        b->browser.grab();
        // A new value in every row, as an edit or a reload brings it.
        for (QtProperty *row : b->manager->properties()) {
            const TAutoPtr<Property> data = b->manager->toViewProperty(row)->data();
            if (TAutoPtr<IntegerProperty> integer{ data })
                integer->setValue(integer->value() + 1);
            else if (TAutoPtr<StringProperty> string{ data })
                string->setValue(string->value() + QLatin1Char('!'));
            b->manager->propertyValueChanged(row);
        }
        b->browser.grab();
        b->manager->clear();
        delete b;
    }
    state.counters["rows"] = n;
    state.counters["grouped"] = grouped;
}

void BM_PlainTree(benchmark::State &state)
{
    const int n = int(state.range(0));
    const bool grouped = state.range(1) == 1;
    QPixmap swatch(QSize(29, 18));
    swatch.fill(Qt::darkCyan);
    const QIcon icon(swatch);
    for (auto _ : state) {
        auto *tree = new QTreeWidget;
        tree->setColumnCount(2);
        tree->resize(400, 600);
        QList<QTreeWidgetItem *> items;
        QTreeWidgetItem *group = nullptr;
        for (int i = 0; i < n; ++i) {
            if (grouped && i % 5 == 0) {
                group = new QTreeWidgetItem(tree, { QStringLiteral("Group %1").arg(i / 5) });
                group->setExpanded(true);
            }
            auto *item = group ? new QTreeWidgetItem(group) : new QTreeWidgetItem(tree);
            item->setText(0, QStringLiteral("Property %1").arg(i));
            item->setText(1, QStringLiteral("value %1").arg(i));
            if (i % 4 == 3)
                item->setIcon(1, icon);
            items << item;
        }
        tree->show();
        QApplication::processEvents();
        tree->grab();
        for (QTreeWidgetItem *item : items)
            item->setText(1, item->text(1) + QLatin1Char('!'));
        tree->grab();
        tree->clear();
        delete tree;
    }
    state.counters["rows"] = n;
    state.counters["grouped"] = grouped;
}

void BM_TreeRemove3000(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        PropertyDictionary values = rows(3000, false);
        auto *b = new Browser;
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

} // namespace

BENCHMARK(BM_TreeBrowser)->Args({ 10, 0 })->Args({ 100, 0 })->Args({ 1000, 0 })->Args({ 3000, 0 })
    ->Args({ 100, 1 })->Args({ 1000, 1 })->Args({ 3000, 1 })->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainTree)->Args({ 10, 0 })->Args({ 100, 0 })->Args({ 1000, 0 })->Args({ 3000, 0 })
    ->Args({ 100, 1 })->Args({ 1000, 1 })->Args({ 3000, 1 })->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TreeRemove3000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_PaletteEqualSelection)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PaletteOneAttributeChanges)->Unit(benchmark::kMillisecond);

TAVO_WIDGET_BENCHMARK_MAIN()
