// Kills a process in the middle of moving words between a student's two files, again and again,
// and counts what the files lost: every entry must stay in at least one of them, whole.

#include "core/session.h"
#include "store/text_files.h"
#include "store/word_files.h"
#include "store/word_moves.h"

#include "quorvane/testing.h"

#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <csignal>
#include <ctime>
#include <random>

#include <sys/wait.h>
#include <unistd.h>

using namespace quorvane;

namespace {

constexpr int kEntries = 200;

// Moves random words back and forth, as a student double-clicking in both lists would, until the
// process is killed.
[[noreturn]] void moveUntilKilled(const QString& unknown, const QString& known, unsigned seed)
{
    try {
        ScriptedPrompts prompts;
        FakeSound sound;
        FakeClock clock;
        Session session(prompts, sound, clock);
        session.unknown_file = unknown;
        session.known_file = known;
        std::mt19937 random(seed);
        for (;;) {
            const bool fromKnown = random() % 3 == 0;
            session.shown_file = fromKnown ? known : unknown;
            create_array_of_words(session, session.shown_file);
            if (session.wordCount() == 0)
                continue;
            const int index = static_cast<int>(random() % session.wordCount());
            if (fromKnown)
                move_to_unknown(session, index);
            else
                move_to_known(session, index);
        }
    } catch (...) {
    }
    _exit(1);
}

void BM_KillDuringMoves(benchmark::State& state)
{
    QTemporaryDir folder;
    const QString unknown = folder.filePath("words-u.txt");
    const QString known = folder.filePath("words-k.txt");
    QStringList entries;
    for (int i = 0; i < kEntries; ++i)
        entries.append(QStringLiteral("palabra%1|word %1|%2").arg(i).arg(i, 5, 10, QLatin1Char('0')));
    writeTextLines(unknown, entries);
    std::mt19937 random(20261123);
    long lost = 0;
    long torn = 0;
    long rounds = 0;
    for (auto _ : state) {
        const pid_t child = fork();
        if (child == 0)
            moveUntilKilled(unknown, known, static_cast<unsigned>(random()));
        const long delay = 1'000'000L + static_cast<long>(random() % 40'000'000L);
        const timespec pause{0, delay};
        nanosleep(&pause, nullptr);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        ++rounds;

        // What the next opening finds: no rewrite left beside its file, every entry somewhere.
        removeStrayRewrites(folder.path());
        QSet<QString> found;
        for (const QString& path : {unknown, known}) {
            WordEntry entry;
            for (const QString& line : readTextLines(path).value_or(QStringList())) {
                if (line == QStringLiteral("||"))
                    continue;
                if (splitEntry(line, &entry))
                    found.insert(line);
                else
                    ++torn;
            }
        }
        for (const QString& line : entries)
            lost += found.contains(line) ? 0 : 1;
    }
    state.counters["kills"] = static_cast<double>(rounds);
    state.counters["entries_lost"] = static_cast<double>(lost);
    state.counters["lines_torn"] = static_cast<double>(torn);
    // Words in the known file at the end: the moves did happen.
    state.counters["known_at_end"] =
        static_cast<double>(read_word_file(known, nullptr).value_or(WordArrays()).words.size() - 1);
    if (lost > 0 || torn > 0)
        state.SkipWithError("a kill during a move lost or tore an entry");
}

} // namespace

BENCHMARK(BM_KillDuringMoves)->Iterations(300)->Unit(benchmark::kMillisecond);
