#include "app/ui/program_folder.h"
#include "widgets/qt_prompts.h"

#include "bench_support.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QEvent>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <sys/resource.h>

#include <cstdio>

using namespace quorvane;

namespace {

const QString kSample = QStringLiteral(QUORVANE_DEMO_DIR);
const QByteArray kDrawnLine = QByteArrayLiteral("drawn\n");

// Says on the standard output, once, that the window it watches has been painted, and ends the
// program.
class DrawnWatch : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !m_seen) {
            m_seen = true;
            // Queued: the paint under way finishes first.
            QTimer::singleShot(0, [] {
                std::fwrite(kDrawnLine.constData(), 1, size_t(kDrawnLine.size()), stdout);
                std::fflush(stdout);
                QApplication::quit();
            });
        }
        return QObject::eventFilter(watched, event);
    }

private:
    bool m_seen = false;
};

double childCpuMs()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1e3 +
           double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e3;
}

// From the start of a process to the main window drawn on the sample course, as the program
// starts (real prompts, sound on SDL's silent driver, the real clock), on the offscreen platform.
// The folder is a copy of the sample course; the first run makes the student's folder, the runs
// after it find it made.
void BM_ProcessStartToMainWindowDrawn(benchmark::State& state)
{
    QTemporaryDir folder;
    QDirIterator files(kSample, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        QFile source(path);
        if (!source.open(QIODevice::ReadOnly))
            qFatal("cannot read %s", qPrintable(path));
        bench::writeFile(folder.path() + path.mid(kSample.size()), source.readAll());
    }
    double cpu = 0.0;
    for (auto _ : state) {
        const double cpuBefore = childCpuMs();
        QProcess program;
        QElapsedTimer wall;
        wall.start();
        program.start(QCoreApplication::applicationFilePath(), {bench::kDrawMainWindow, folder.path()});
        QByteArray said;
        while (!said.contains(kDrawnLine) && wall.elapsed() < 20000 && program.waitForReadyRead(20000))
            said += program.readAllStandardOutput();
        state.SetIterationTime(double(wall.nsecsElapsed()) / 1e9);
        program.waitForFinished(20000);
        if (!said.contains(kDrawnLine)) {
            state.SkipWithError("the main window was not drawn");
            return;
        }
        cpu += childCpuMs() - cpuBefore;
    }
    state.counters["process_cpu_ms"] = benchmark::Counter(cpu, benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_ProcessStartToMainWindowDrawn)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);

} // namespace

namespace quorvane::bench {

int drawMainWindow(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QtPrompts prompts;
    Launcher launcher(prompts);
    const QString folder = QString::fromLocal8Bit(argv[2]);
    const int code = launcher.run({QStringLiteral("quorvane"), QStringLiteral("--folder"), folder,
                                   QStringLiteral("--student"), QStringLiteral("kestrin")},
                                  QApplication::applicationDirPath(), folder + QStringLiteral("/home"));
    if (code >= 0 || !launcher.window())
        return code >= 0 ? code : 1;
    DrawnWatch watch;
    launcher.window()->installEventFilter(&watch);
    return QApplication::exec();
}

} // namespace quorvane::bench
