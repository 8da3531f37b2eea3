// The memory a very large pairing file takes to load: a 61 MB file of 4.7 million lines, loaded in
// a child process so that its peak resident size is the load's own.

#include "core/session.h"
#include "store/text_files.h"
#include "store/word_files.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace quorvane;

namespace {

constexpr int kPairingLines = 4'700'000;
constexpr int kLinesPerSlice = 50'000;

void BM_LoadPairingFile61MB(benchmark::State& state)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("trans_index_spanish_english.dat"));
    // Written a slice at a time: the resident size the child starts from must not hold the file.
    for (int first = 0; first < kPairingLines; first += kLinesPerSlice) {
        QStringList lines;
        for (int i = first; i < first + kLinesPerSlice && i < kPairingLines; ++i)
            lines.append(QStringLiteral("%1|%2")
                             .arg(i % kSoundNumberSlots, 5, 10, QLatin1Char('0'))
                             .arg((i * 7) % kSoundNumberSlots, 5, 10, QLatin1Char('0')));
        if (!appendTextLines(path, lines)) {
            state.SkipWithError("the pairing file could not be written");
            return;
        }
    }
    long grownKb = 0;
    for (auto _ : state) {
        int pipe[2];
        if (::pipe(pipe) != 0) {
            state.SkipWithError("no pipe");
            return;
        }
        const pid_t child = fork();
        if (child == 0) {
            QStringList table(kSoundNumberSlots);
            rusage before{};
            getrusage(RUSAGE_SELF, &before);
            load_trans_index(path, table);
            rusage after{};
            getrusage(RUSAGE_SELF, &after);
            const long grown = after.ru_maxrss - before.ru_maxrss;
            _exit(::write(pipe[1], &grown, sizeof grown) == sizeof grown ? 0 : 1);
        }
        ::close(pipe[1]);
        if (::read(pipe[0], &grownKb, sizeof grownKb) != sizeof grownKb)
            state.SkipWithError("the loading process gave no figure");
        ::close(pipe[0]);
        waitpid(child, nullptr, 0);
    }
    state.counters["file_MB"] = static_cast<double>(kPairingLines) * 13 / 1e6;
    state.counters["peak_growth_MB"] = static_cast<double>(grownKb) / 1024;
}

} // namespace

BENCHMARK(BM_LoadPairingFile61MB)->Iterations(1)->Unit(benchmark::kMillisecond);
