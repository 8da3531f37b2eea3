// Two copies of the program in one program folder, as two students at one computer: each appends
// test results to the shared test_results.txt and moves words between its student's files, one of
// them on a disk that fails now and then, until both are killed. Counts the results lines a copy
// was told were written that the file lost, the word entries lost, and what was left beside a file
// after the next start's sweep.

#include "core/session.h"
#include "quiz/results_file.h"
#include "store/file_faults.h"
#include "store/text_files.h"
#include "store/word_files.h"
#include "store/word_moves.h"

#include "quorvane/testing.h"

#include <QDir>
#include <QDirIterator>
#include <QSet>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cerrno>
#include <csignal>
#include <ctime>
#include <random>

#include <sys/wait.h>
#include <unistd.h>

using namespace quorvane;

namespace {

constexpr int kEntries = 100;

QString resultLine(long round, int copy, int number)
{
    return QStringLiteral("round %1 copy %2 result %3").arg(round).arg(copy).arg(number);
}

// One copy: appends results and moves words until killed; after each append the program was told
// succeeded, its number goes down the pipe. A copy with a failing disk has every third write fail.
[[noreturn]] void runCopy(const QString& folder, long round, int copy, bool failingDisk, int acknowledged,
                          unsigned seed)
{
    try {
        QDir::setCurrent(folder);
        ScriptedPrompts prompts;
        FakeSound sound;
        FakeClock clock;
        Session session(prompts, sound, clock);
        session.unknown_file = folder + QStringLiteral("/users/s%1/words-u.txt").arg(copy);
        session.known_file = folder + QStringLiteral("/users/s%1/words-k.txt").arg(copy);
        std::mt19937 random(seed);
        for (int number = 1;; ++number) {
            if (failingDisk && number % 3 == 0)
                file_faults::failAt(file_faults::Step::write, 1, ENOSPC);
            if (append_test_result(resultLine(round, copy, number), nullptr)) {
                const int sent = number;
                if (::write(acknowledged, &sent, sizeof sent) != sizeof sent)
                    break;
            }
            file_faults::reset();
            const bool fromKnown = random() % 3 == 0;
            session.shown_file = fromKnown ? session.known_file : session.unknown_file;
            create_array_of_words(session, session.shown_file);
            if (session.wordCount() == 0)
                continue;
            const int index = static_cast<int>(random() % session.wordCount());
            fromKnown ? move_to_unknown(session, index) : move_to_known(session, index);
        }
    } catch (...) {
    }
    _exit(1);
}

void BM_TwoCopiesAppendResultsAndMoveWords(benchmark::State& state)
{
    QTemporaryDir folder;
    QStringList entries;
    for (int i = 0; i < kEntries; ++i)
        entries.append(QStringLiteral("palabra%1|word %1|%2").arg(i).arg(i, 5, 10, QLatin1Char('0')));
    for (int copy = 0; copy < 2; ++copy) {
        QDir().mkpath(folder.filePath(QStringLiteral("users/s%1").arg(copy)));
        writeTextLines(folder.filePath(QStringLiteral("users/s%1/words-u.txt").arg(copy)), entries);
    }
    std::mt19937 random(20261125);
    QSet<QString> told;
    long entriesLost = 0;
    long leftBeside = 0;
    long rounds = 0;
    for (auto _ : state) {
        ++rounds;
        int pipes[2][2];
        pid_t children[2];
        for (int copy = 0; copy < 2; ++copy) {
            if (::pipe(pipes[copy]) != 0) {
                state.SkipWithError("no pipe");
                return;
            }
            const unsigned seed = static_cast<unsigned>(random());
            children[copy] = fork();
            if (children[copy] == 0) {
                ::close(pipes[copy][0]);
                runCopy(folder.path(), rounds, copy, copy == 1, pipes[copy][1], seed);
            }
            ::close(pipes[copy][1]);
        }
        const timespec pause{0, 20'000'000L + static_cast<long>(random() % 60'000'000L)};
        nanosleep(&pause, nullptr);
        for (int copy = 0; copy < 2; ++copy) {
            kill(children[copy], SIGKILL);
            waitpid(children[copy], nullptr, 0);
            int number = 0;
            while (::read(pipes[copy][0], &number, sizeof number) == sizeof number)
                told.insert(resultLine(rounds, copy, number));
            ::close(pipes[copy][0]);
        }

        // The next start: a sweep of what was left beside, then every file as it is found.
        for (QDirIterator it(folder.path(), QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
             it.hasNext();)
            removeStrayRewrites(it.next());
        removeStrayRewrites(folder.path());
        for (QDirIterator it(folder.path(), {QStringLiteral("*.tmp")}, QDir::Files | QDir::Hidden,
                             QDirIterator::Subdirectories);
             it.hasNext(); it.next())
            ++leftBeside;
        for (int copy = 0; copy < 2; ++copy) {
            QSet<QString> found;
            for (const QString& file : {QStringLiteral("words-u.txt"), QStringLiteral("words-k.txt")}) {
                const QString path = folder.filePath(QStringLiteral("users/s%1/").arg(copy) + file);
                for (const QString& line : readTextLines(path).value_or(QStringList()))
                    found.insert(line);
            }
            for (const QString& line : entries)
                entriesLost += found.contains(line) ? 0 : 1;
        }
    }
    const QStringList results =
        readTextLines(folder.filePath(QStringLiteral("test_results.txt"))).value_or(QStringList());
    const QSet<QString> written(results.begin(), results.end());
    long resultsLost = 0;
    for (const QString& line : told)
        resultsLost += written.contains(line) ? 0 : 1;
    state.counters["results_told"] = static_cast<double>(told.size());
    state.counters["results_lost"] = static_cast<double>(resultsLost);
    state.counters["entries_lost"] = static_cast<double>(entriesLost);
    state.counters["left_beside"] = static_cast<double>(leftBeside);
    if (resultsLost > 0 || entriesLost > 0 || leftBeside > 0)
        state.SkipWithError("two copies lost a result or a word, or left a file beside");
}

} // namespace

BENCHMARK(BM_TwoCopiesAppendResultsAndMoveWords)->Iterations(100)->Unit(benchmark::kMillisecond);
