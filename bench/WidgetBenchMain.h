#pragma once

// The main of a benchmark of widgets: widgets need an application, which runs on the
// offscreen platform unless another is asked for, so no window reaches the screen.
#include <QApplication>
#include <benchmark/benchmark.h>

#define TAVO_WIDGET_BENCHMARK_MAIN()                                                       \
    int main(int argc, char **argv)                                                        \
    {                                                                                      \
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))                                \
            qputenv("QT_QPA_PLATFORM", "offscreen");                                       \
        QApplication app(argc, argv);                                                      \
        benchmark::Initialize(&argc, argv);                                                \
        benchmark::RunSpecifiedBenchmarks();                                               \
        return 0;                                                                          \
    }
