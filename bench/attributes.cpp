// Merging a selection: an attributes page loads 10, 100 and 1,000 selected objects of 20
// properties each (four attributes of five), half of the values shared by all, half
// different in each. And the property text of a dictionary of 200 properties.
#include "WidgetBenchMain.h"
#include "attributes/AttributesWidget.h"
#include "attributes/PropertyInfoGenerator.h"
#include "core/GroupProperty.h"
#include "core/IntegerProperty.h"
#include "core/StringProperty.h"

#include <benchmark/benchmark.h>

using namespace TavoLib;

namespace {

class FiveValues : public Attribute
{
public:
    FiveValues(const AttributeKey &key, int object) : mKey(key)
    {
        for (int i = 0; i < 5; ++i) {
            // Even values are shared by every object, odd ones are the object's own.
            const int value = i % 2 == 0 ? i : object * 10 + i;
            if (i < 3)
                mValues.insertProperty(new IntegerProperty(QStringLiteral("i%1").arg(i), QStringLiteral("Integer %1").arg(i), value, -1000000000, 1000000000));
            else
                mValues.insertProperty(new StringProperty(QStringLiteral("s%1").arg(i), QStringLiteral("Text %1").arg(i), QString::number(value)));
        }
    }
    AttributeKey key() const override { return mKey; }
    TAutoPtr<PropertyableObject> clone() const override
    {
        auto *copy = new FiveValues(mKey, 0);
        copy->mValues = mValues.cloneProperties();
        return copy;
    }
    void applyProperties(const PropertyDictionary &) override { }
    void fillProperties(PropertyDictionary &values) const override { values = mValues.cloneProperties(); }

private:
    AttributeKey mKey;
    PropertyDictionary mValues;
};

const QList<AttributeKey> &keys()
{
    static const QList<AttributeKey> all{ AttributeKey(QStringLiteral("A")), AttributeKey(QStringLiteral("B")),
        AttributeKey(QStringLiteral("C")), AttributeKey(QStringLiteral("D")) };
    return all;
}

class SelectionPage : public AttributesWidget
{
public:
    explicit SelectionPage(const std::vector<AttributeMap> &objects)
        : AttributesWidget(nullptr, QString()), mObjects(objects)
    {
        setAttributes(keys());
    }
    void loadAttributes() override
    {
        for (const AttributeMap &object : mObjects)
            intersectAttributes(object);
    }

private:
    const std::vector<AttributeMap> &mObjects;
};

void BM_MergeSelection(benchmark::State &state)
{
    std::vector<AttributeMap> objects(size_t(state.range(0)));
    for (size_t i = 0; i < objects.size(); ++i)
        for (const AttributeKey &key : keys())
            objects[i].insert(new FiveValues(key, int(i)));
    SelectionPage page(objects);
    page.setEnvironment(new Environment);
    for (auto _ : state)
        page.loadValues();
    state.counters["objects"] = double(objects.size());
}

void BM_PropertyText200(benchmark::State &state)
{
    PropertyDictionary dictionary;
    for (int g = 0; g < 40; ++g) {
        PropertyDictionary group;
        for (int i = 0; i < 4; ++i)
            group.insertProperty(new IntegerProperty(QStringLiteral("v%1").arg(i), QStringLiteral("Value %1").arg(i), g * 4 + i, 0, 1000));
        dictionary.insertProperty(new GroupProperty(QStringLiteral("g%1").arg(g), QStringLiteral("Group %1").arg(g), group));
    }
    PropertyInfoGenerator generator(new Environment, new Translator);
    int length = 0;
    for (auto _ : state)
        length = generator.generateText(dictionary, QString()).size();
    state.counters["properties"] = 200;
    state.counters["chars"] = length;
}

} // namespace

BENCHMARK(BM_MergeSelection)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PropertyText200)->Unit(benchmark::kMicrosecond);

TAVO_WIDGET_BENCHMARK_MAIN()
