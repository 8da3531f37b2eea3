#include <QApplication>

#include <benchmark/benchmark.h>

// Prints figures only: benchmarks assert nothing about time.
int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("SDL_AUDIODRIVER"))
        qputenv("SDL_AUDIODRIVER", "dummy");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
