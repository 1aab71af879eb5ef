#pragma once

// The main of a benchmark of widgets: widgets need an application, which runs on the
// offscreen platform unless another is asked for, so no window reaches the screen. Qt's log
// is kept quiet below warnings, and the platform plugin's own complaints ("This plugin does
// not support propagateSizeHints()" and the like) are dropped, so that each program prints
// its table alone.
#include <QApplication>
#include <QString>
#include <benchmark/benchmark.h>

namespace TavoBench {

inline QtMessageHandler &previousHandler()
{
    static QtMessageHandler handler = nullptr;
    return handler;
}

inline void quietHandler(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    if (type == QtWarningMsg && text.startsWith(QLatin1String("This plugin does not support")))
        return;
    if (previousHandler())
        previousHandler()(type, context, text);
}

} // namespace TavoBench

// A main that runs the benchmarks, then calls after() (to print a summary).
#define TAVO_WIDGET_BENCHMARK_MAIN_THEN(after)                                             \
    int main(int argc, char **argv)                                                        \
    {                                                                                      \
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))                                \
            qputenv("QT_QPA_PLATFORM", "offscreen");                                       \
        TavoBench::previousHandler() = qInstallMessageHandler(TavoBench::quietHandler);    \
        QApplication app(argc, argv);                                                      \
        benchmark::Initialize(&argc, argv);                                                \
        benchmark::RunSpecifiedBenchmarks();                                               \
        after();                                                                           \
        return 0;                                                                          \
    }

#define TAVO_WIDGET_BENCHMARK_MAIN() TAVO_WIDGET_BENCHMARK_MAIN_THEN([] {})
