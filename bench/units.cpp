// Parse-and-evaluate of a measure field's text, once per call as a field does on every
// keystroke, side by side with muparser on the same expressions without their units.
// Prints the ratio of CPU time per expression at the end (ours / muparser; below 1 is
// faster); CPU time, because the machine is shared and wall time swings with its load.
#include "core/units/CParser.h"

#include <benchmark/benchmark.h>

#ifdef TAVO_HAVE_MUPARSER
#include <muParser.h>
#endif

#include <cstdio>
#include <map>
#include <string>
#include <unistd.h>

namespace {

struct Case
{
    const char *name;
    const char *withUnits; // what our field parses
    const char *plain; // the same expression for muparser
};

const Case kCases[] = {
    { "number", "12.5", "12.5" },
    { "number_unit", "12.5mm", "12.5" },
    { "mixed_units", "10mm+2pt*3", "10+2*3" },
    { "parentheses", "(1/3+2/3)*5cm", "(1/3+2/3)*5" },
};

void BM_CParser(benchmark::State &state)
{
    const std::string text = kCases[state.range(0)].withUnits;
    const CUnit unit(CUnit::MM);
    for (auto _ : state) {
        CParser parser(text);
        TAutoPtr<AOperand> result = parser.Calc(unit);
        double value = result ? result->Value() : -1.0;
        benchmark::DoNotOptimize(value);
    }
    state.SetLabel(kCases[state.range(0)].name);
}

#ifdef TAVO_HAVE_MUPARSER
// One parser object, as a field would keep; each call sets the text and evaluates it once,
// which makes muparser parse it afresh.
void BM_muparser(benchmark::State &state)
{
    const std::string text = kCases[state.range(0)].plain;
    mu::Parser parser;
    for (auto _ : state) {
        parser.SetExpr(text);
        double value = parser.Eval();
        benchmark::DoNotOptimize(value);
    }
    state.SetLabel(kCases[state.range(0)].name);
}
#endif

void addCases(benchmark::internal::Benchmark *b)
{
    for (int i = 0; i < int(sizeof(kCases) / sizeof(kCases[0])); ++i)
        b->Arg(i);
}

BENCHMARK(BM_CParser)->Apply(addCases);
#ifdef TAVO_HAVE_MUPARSER
BENCHMARK(BM_muparser)->Apply(addCases);
#endif

// Keeps the time per iteration of every run, for the ratio table.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    // Colours only on a terminal, so that a log or a pipe gets plain text.
    RatioReporter() : ConsoleReporter(isatty(fileno(stdout)) ? OO_ColorTabular : OO_Tabular) { }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred)
                times[run.benchmark_name()] = run.GetAdjustedCPUTime();
        }
    }
    std::map<std::string, double> times;
};

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
#ifdef TAVO_HAVE_MUPARSER
    std::printf("\n%-14s %-16s %12s %12s %8s\n", "expression", "text", "CParser cpu ns",
        "muparser cpu ns", "ratio");
    for (int i = 0; i < int(sizeof(kCases) / sizeof(kCases[0])); ++i) {
        const std::string arg = "/" + std::to_string(i);
        const auto ours = reporter.times.find("BM_CParser" + arg);
        const auto theirs = reporter.times.find("BM_muparser" + arg);
        if (ours == reporter.times.end() || theirs == reporter.times.end())
            continue;
        std::printf("%-14s %-16s %12.1f %12.1f %7.3fx\n", kCases[i].name, kCases[i].withUnits,
            ours->second, theirs->second, ours->second / theirs->second);
    }
#else
    std::printf("\nmuparser not found: no ratios\n");
#endif
    benchmark::Shutdown();
    return 0;
}
