#include "bench_support.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <benchmark/benchmark.h>

#include <vector>

namespace quorvane::bench {

namespace {
std::vector<std::function<void()>>& endActions()
{
    static std::vector<std::function<void()>> actions;
    return actions;
}
} // namespace

void writeFile(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(path.left(path.lastIndexOf('/')));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

void atEnd(std::function<void()> action)
{
    endActions().push_back(std::move(action));
}

} // namespace quorvane::bench

// Prints figures only: benchmarks assert nothing about time.
int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("SDL_AUDIODRIVER"))
        qputenv("SDL_AUDIODRIVER", "dummy");
    if (argc == 3 && QString::fromLocal8Bit(argv[1]) == quorvane::bench::kDrawMainWindow)
        return quorvane::bench::drawMainWindow(argc, argv);
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    for (const auto& action : quorvane::bench::endActions())
        action();
    return 0;
}
