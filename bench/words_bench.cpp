#include "app/ui/main_window.h"
#include "core/session.h"
#include "store/word_files.h"
#include "widgets/list_box.h"

#include "quorvane/testing.h"

#include "bench_support.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>

using namespace quorvane;

namespace {

QByteArray generatedList(int entries)
{
    QByteArray bytes;
    bytes.reserve(entries * 40);
    for (int i = 0; i < entries; ++i) {
        bytes += "palabra" + QByteArray::number(i) + "|word number " + QByteArray::number(i) + ", a translation|" +
                 QByteArray::number(i % 100000).rightJustified(5, '0') + "\r\n";
    }
    return bytes;
}

// A main window on a program folder whose one spanish list holds the given bytes.
struct BenchWindow
{
    QTemporaryDir folder;
    ScriptedPrompts prompts{{QString("kestrin")}};
    FakeSound sound;
    FakeClock clock;
    std::unique_ptr<QWidget> window;

    explicit BenchWindow(const QByteArray& list)
    {
        bench::writeFile(folder.path() + "/languages/spanish/big.txt", list);
        window.reset(start(folder.path(), &prompts, &sound, &clock));
    }
    MainWindow* main() const { return static_cast<MainWindow*>(window.get()); }
    QString unknownFile() const { return folder.path() + "/users/kestrin/spanish/big-u.txt"; }
    QString knownFile() const { return folder.path() + "/users/kestrin/spanish/big-k.txt"; }
};

// From the click on a list to both word boxes filled: the unknown file already exists, so this is
// reading 30,000 entries and showing them.
void BM_ListClickFillsBothBoxes(benchmark::State& state)
{
    const int entries = static_cast<int>(state.range(0));
    BenchWindow bench(generatedList(entries));
    select_row(bench.main()->lists_list, 0);
    for (auto _ : state) {
        select_row(bench.main()->lists_list, 0);
        benchmark::DoNotOptimize(bench.main()->words_liste->count());
    }
    if (bench.main()->words_list->count() != entries || bench.main()->words_liste->count() != entries)
        state.SkipWithError("the boxes were not filled");
    state.counters["rows"] = bench.main()->words_list->count();
}
BENCHMARK(BM_ListClickFillsBothBoxes)->Arg(30000)->Unit(benchmark::kMillisecond);

// The same from a click on another list of as many entries, none of them shown before: the two
// lists are clicked in turn.
void BM_ListClickSwitchingLists(benchmark::State& state)
{
    const int entries = static_cast<int>(state.range(0));
    BenchWindow bench(generatedList(entries));
    bench::writeFile(bench.folder.path() + "/languages/spanish/other.txt",
                     generatedList(entries).replace("palabra", "vocablo").replace("word", "term"));
    MainWindow* main = bench.main();
    select_row(main->lang_list, main->lang_list->row(main->lang_list->findItems("spanish", Qt::MatchExactly).value(0)));
    select_row(main->lists_list, 0);
    select_row(main->lists_list, 1);
    int row = 0;
    for (auto _ : state) {
        select_row(main->lists_list, row);
        row = 1 - row;
    }
    if (main->words_list->count() != entries || main->words_liste->count() != entries)
        state.SkipWithError("the boxes were not filled");
}
BENCHMARK(BM_ListClickSwitchingLists)->Arg(30000)->Unit(benchmark::kMillisecond);

// The first opening of a list: the unknown file is copied from the list, then shown.
void BM_FirstOpeningOfAList(benchmark::State& state)
{
    BenchWindow bench(generatedList(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        state.PauseTiming();
        QFile::remove(bench.unknownFile());
        state.ResumeTiming();
        select_row(bench.main()->lists_list, 0);
    }
}
BENCHMARK(BM_FirstOpeningOfAList)->Arg(30000)->Unit(benchmark::kMillisecond);

// One double-click in a 20,000-line unknown file: the entry appended to the known file, the
// unknown file replaced, both reloaded, the boxes refilled and the row selected again.
void BM_DoubleClickMove(benchmark::State& state)
{
    const QByteArray list = generatedList(static_cast<int>(state.range(0)));
    BenchWindow bench(list);
    MainWindow* main = bench.main();
    const int row = static_cast<int>(state.range(0)) / 2;
    for (auto _ : state) {
        state.PauseTiming();
        bench::writeFile(bench.unknownFile(), list);
        QFile::remove(bench.knownFile());
        select_row(main->lists_list, 0);
        main->words_list->setRowQuietly(row);
        state.ResumeTiming();
        main->words_list_dblclick();
    }
    if (main->words_list->currentRow() != row)
        state.SkipWithError("the row was not selected again");
}
BENCHMARK(BM_DoubleClickMove)->Arg(20000)->Unit(benchmark::kMillisecond);

} // namespace

namespace {

// The two halves of a list click, apart: reading the file into the arrays, and filling the boxes.
void BM_CreateArrayOfWords(benchmark::State& state)
{
    BenchWindow bench(generatedList(static_cast<int>(state.range(0))));
    select_row(bench.main()->lists_list, 0);
    Session& session = bench.main()->session();
    for (auto _ : state)
        create_array_of_words(session, bench.unknownFile());
}
BENCHMARK(BM_CreateArrayOfWords)->Arg(30000)->Unit(benchmark::kMillisecond);

void BM_DisplayWordsIntoEmptyBoxes(benchmark::State& state)
{
    BenchWindow bench(generatedList(static_cast<int>(state.range(0))));
    MainWindow* main = bench.main();
    select_row(main->lists_list, 0);
    for (auto _ : state) {
        state.PauseTiming();
        main->words_list->clear();
        main->words_liste->clear();
        state.ResumeTiming();
        main->display_words();
    }
}
BENCHMARK(BM_DisplayWordsIntoEmptyBoxes)->Arg(30000)->Unit(benchmark::kMillisecond);

// The boxes show the arrays but one row: the refill after a move.
void BM_DisplayWordsAfterAMove(benchmark::State& state)
{
    BenchWindow bench(generatedList(static_cast<int>(state.range(0))));
    MainWindow* main = bench.main();
    select_row(main->lists_list, 0);
    Session& session = main->session();
    const int row = static_cast<int>(state.range(0)) / 2;
    for (auto _ : state) {
        state.PauseTiming();
        session.words.insert(row, QStringLiteral("moved"));
        session.translations.insert(row, QStringLiteral("moved"));
        session.sound_numbers.insert(row, QStringLiteral("00001"));
        main->display_words();
        session.words.remove(row);
        session.translations.remove(row);
        session.sound_numbers.remove(row);
        state.ResumeTiming();
        main->display_words();
    }
}
BENCHMARK(BM_DisplayWordsAfterAMove)->Arg(30000)->Unit(benchmark::kMillisecond);

} // namespace
