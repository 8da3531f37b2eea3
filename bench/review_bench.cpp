#include "core/session.h"
#include "review/review_log.h"
#include "store/word_files.h"

#include "quorvane/testing.h"

#include "bench_support.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace quorvane;

namespace {

// lines review lines over words words, a few a day from the first of January on.
QByteArray generatedLog(int lines, int words)
{
    QByteArray bytes;
    bytes.reserve(lines * 48);
    const QDate first(2025, 1, 1);
    for (int i = 0; i < lines; ++i) {
        const int word = (i * 7919) % words;
        bytes += first.addDays(i / 300).toString("yyyy-MM-dd").toLatin1() + "T10:00:00\tbig\tpalabra" +
                 QByteArray::number(word) + "\t" + QByteArray::number(word % 100000).rightJustified(5, '0') + "\t" +
                 QByteArray::number(1 + i % 4) + "\ttest\r\n";
    }
    return bytes;
}

// Replaying the whole review log, as the first read of a language does.
void BM_ReplayReviewLog(benchmark::State& state)
{
    QTemporaryDir folder;
    const QString path = folder.path() + "/reviews.txt";
    bench::writeFile(path, generatedLog(static_cast<int>(state.range(0)), 30000));
    for (auto _ : state) {
        review::ReviewBook book;
        book.update(path);
        benchmark::DoNotOptimize(book.lines());
    }
    state.counters["lines"] = static_cast<double>(state.range(0));
}
BENCHMARK(BM_ReplayReviewLog)->Arg(100000)->Unit(benchmark::kMillisecond);

// What the due label costs after a move (the move's line, appended untimed): the new line
// replayed and the due words of a 30,000-word unknown list counted.
void BM_DueCountAfterAMove(benchmark::State& state)
{
    QTemporaryDir folder;
    ScriptedPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    Session session(prompts, sound, clock);
    session.user_folder = folder.path() + "/users/kestrin/";
    session.current_language = "spanish";
    session.current_list = "big";
    const int words = static_cast<int>(state.range(0));
    for (int i = 0; i < words; ++i) {
        session.words.insert(i, "palabra" + QString::number(i));
        session.translations.insert(i, "word " + QString::number(i));
        session.sound_numbers.insert(i, QString::number(i % 100000).rightJustified(5, '0'));
    }
    session.unknown_file = session.shown_file = folder.path() + "/big-u.txt";
    session.known_file = folder.path() + "/big-k.txt";
    bench::writeFile(review::review_log_path(session), generatedLog(100000, words));
    review::review_book(session);
    int index = 0;
    int due = 0;
    for (auto _ : state) {
        state.PauseTiming();
        review::MoveRecord(session, index++ % words, session.known_file).keep();
        state.ResumeTiming();
        due = review::due_count(review::review_book(session), review::unknown_entries(session, true),
                                review::day_of(clock.dateTime()), session.desired_retention);
    }
    state.counters["due"] = due;
}
BENCHMARK(BM_DueCountAfterAMove)->Arg(30000)->Unit(benchmark::kMillisecond);

} // namespace
