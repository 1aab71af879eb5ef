// Copy-and-drop of TAutoPtr against std::shared_ptr, on one thread and on two threads sharing
// one object. The ratio counter is TAutoPtr's time over shared_ptr's for the same work.
#include "core/MAutoObj.h"
#include "core/TAutoPtr.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <memory>
#include <thread>
#include <vector>

namespace {

class Node : public MAutoObj
{
public:
    int payload = 1;
};

struct PlainNode
{
    int payload = 1;
};

// Copies and drops `rounds` times on each of `threads` threads; returns seconds.
template<class Ptr>
double copyAndDrop(const Ptr &shared, int threads, long rounds)
{
    std::atomic<bool> go{ false };
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([&] {
            while (!go.load(std::memory_order_acquire)) {
            }
            for (long i = 0; i < rounds; ++i) {
                Ptr copy = shared;
                benchmark::DoNotOptimize(copy);
            }
        });
    }
    const auto start = std::chrono::steady_clock::now();
    go.store(true, std::memory_order_release);
    for (auto &w : workers)
        w.join();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

template<class Ptr>
void BM_CopyAndDrop(benchmark::State &state, Ptr shared)
{
    const int threads = int(state.range(0));
    const long rounds = 1000000;
    for (auto _ : state)
        state.SetIterationTime(copyAndDrop(shared, threads, rounds));
    state.SetItemsProcessed(state.iterations() * threads * rounds);
}

void BM_TAutoPtr(benchmark::State &state)
{
    BM_CopyAndDrop(state, TAutoPtr<Node>(new Node));
}

void BM_SharedPtr(benchmark::State &state)
{
    BM_CopyAndDrop(state, std::make_shared<PlainNode>());
}

// The ratio, measured side by side in one run.
void BM_Ratio(benchmark::State &state)
{
    const int threads = int(state.range(0));
    const TAutoPtr<Node> autoPtr(new Node);
    const auto sharedPtr = std::make_shared<PlainNode>();
    double autoTime = 0, sharedTime = 0;
    for (auto _ : state) {
        autoTime += copyAndDrop(autoPtr, threads, 1000000);
        sharedTime += copyAndDrop(sharedPtr, threads, 1000000);
        state.SetIterationTime(autoTime + sharedTime);
    }
    state.counters["ratio"] = autoTime / sharedTime;
    state.counters["sizeof_TAutoPtr"] = double(sizeof(TAutoPtr<Node>));
    state.counters["sizeof_shared_ptr"] = double(sizeof(std::shared_ptr<PlainNode>));
}

} // namespace

BENCHMARK(BM_TAutoPtr)->Arg(1)->Arg(2)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SharedPtr)->Arg(1)->Arg(2)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Ratio)->Arg(1)->Arg(2)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
