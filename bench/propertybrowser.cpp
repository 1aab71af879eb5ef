// Cost of keeping a browser's items in step with its property trees: a tree of n properties
// added to a browser and removed again, and a flat group whose children come and go while it
// is shown. Both should grow linearly with n.
#include "WidgetBenchMain.h"
#include "propertybrowser/QtAbstractPropertyBrowser.h"
#include "propertybrowser/QtAbstractPropertyManager.h"
#include "propertybrowser/QtBrowserItem.h"
#include "propertybrowser/QtProperty.h"

#include <QApplication>
#include <benchmark/benchmark.h>
#include <vector>

namespace {

class PlainManager : public QtAbstractPropertyManager
{
protected:
    void initializeProperty(QtProperty *) override { }
};

// Records what a real browser would be told, without widgets: a count per kind of call and
// the depth of each inserted item, so the calls are not optimised away.
class RecordingBrowser : public QtAbstractPropertyBrowser
{
public:
    long long mInserted = 0;
    long long mRemoved = 0;
    long long mDepthSum = 0;

protected:
    void itemInserted(QtBrowserItem *item, QtBrowserItem *) override
    {
        ++mInserted;
        for (QtBrowserItem *up = item->parent(); up; up = up->parent())
            ++mDepthSum;
    }
    void itemRemoved(QtBrowserItem *) override { ++mRemoved; }
    void itemChanged(QtBrowserItem *) override { }
};

// n properties as top-level groups of 100: one group, 9 sections, 90 leaves.
std::vector<QtProperty *> makeForest(PlainManager &manager, int count)
{
    std::vector<QtProperty *> tops;
    for (int made = 0; made < count;) {
        QtProperty *group = manager.addProperty(QStringLiteral("group"));
        ++made;
        for (int s = 0; s < 9 && made < count; ++s) {
            QtProperty *section = manager.addProperty(QStringLiteral("section"));
            group->addSubProperty(section);
            ++made;
            for (int l = 0; l < 10 && made < count; ++l, ++made)
                section->addSubProperty(manager.addProperty(QStringLiteral("leaf")));
        }
        tops.push_back(group);
    }
    return tops;
}

void BM_InsertAndRemoveTree(benchmark::State &state)
{
    const int count = int(state.range(0));
    PlainManager manager;
    const std::vector<QtProperty *> tops = makeForest(manager, count);
    RecordingBrowser browser;
    for (auto _ : state) {
        for (QtProperty *top : tops)
            browser.addProperty(top);
        for (QtProperty *top : tops)
            browser.removeProperty(top);
    }
    benchmark::DoNotOptimize(browser.mDepthSum);
    state.SetComplexityN(count);
    state.counters["items"] = double(browser.mInserted) / double(state.iterations());
}
BENCHMARK(BM_InsertAndRemoveTree)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

// Children added to and taken from a group that is already shown, one at a time.
void BM_ChildrenOfShownGroup(benchmark::State &state)
{
    const int count = int(state.range(0));
    PlainManager manager;
    QtProperty *group = manager.addProperty(QStringLiteral("group"));
    std::vector<QtProperty *> children;
    for (int i = 0; i < count; ++i)
        children.push_back(manager.addProperty(QStringLiteral("child")));
    RecordingBrowser browser;
    browser.addProperty(group);
    for (auto _ : state) {
        for (QtProperty *child : children)
            group->addSubProperty(child);
        for (QtProperty *child : children)
            group->removeSubProperty(child);
    }
    state.SetComplexityN(count);
}
BENCHMARK(BM_ChildrenOfShownGroup)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

} // namespace

TAVO_WIDGET_BENCHMARK_MAIN()
