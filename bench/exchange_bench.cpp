#include "core/session.h"
#include "exchange/word_import.h"

#include "../tests/anki_package_writer.h"
#include "quorvane/testing.h"

#include "bench_support.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>

using namespace quorvane;

namespace {

constexpr int kCsvRows = 30000;
constexpr int kNotes = 5000;

QByteArray mp3Bytes(int i)
{
    QByteArray bytes("ID3\x03\x00", 5);
    bytes += QByteArray(2000, static_cast<char>(i & 0x7F));
    return bytes;
}

// A fresh program folder whose spanish language has a small master list.
struct Target
{
    QTemporaryDir folder;
    ScriptedPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    Session session{prompts, sound, clock};
    Target()
    {
        session.languages_folder = folder.path() + "/languages/";
        session.current_language = "spanish";
        bench::writeFile(session.languages_folder + "spanish/master_spanish.txt", "casa|house|01000\r\n");
    }
};

// Imports path into a fresh program folder each time, timing the import alone.
void importInto(benchmark::State& state, const QString& path)
{
    std::unique_ptr<Target> target;
    for (auto _ : state) {
        state.PauseTiming();
        target = std::make_unique<Target>();
        state.ResumeTiming();
        if (!import_word_list(target->session, path, nullptr))
            state.SkipWithError("the import failed");
    }
}

void BM_ImportCsv30000Rows(benchmark::State& state)
{
    QTemporaryDir input;
    QByteArray csv = "word,translation\r\n";
    for (int i = 0; i < kCsvRows; ++i)
        csv += "palabra " + QByteArray::number(i) + ",\"word " + QByteArray::number(i) + ", a translation\"\r\n";
    bench::writeFile(input.filePath("words.csv"), csv);
    importInto(state, input.filePath("words.csv"));
}
BENCHMARK(BM_ImportCsv30000Rows)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_ImportAnki5000NotesWithAudio(benchmark::State& state)
{
    QTemporaryDir input;
    QList<QStringList> notes;
    QList<test::AnkiMedia> media;
    for (int i = 0; i < kNotes; ++i) {
        const QString name = QStringLiteral("w%1.mp3").arg(i);
        notes.append(
            {QStringLiteral("<b>palabra %1</b>[sound:%2]").arg(i).arg(name), QStringLiteral("word %1").arg(i)});
        media.append({name, mp3Bytes(i)});
    }
    if (!test::writeAnkiPackage(input.filePath("deck.apkg"), notes, media))
        state.SkipWithError("the package could not be made");
    importInto(state, input.filePath("deck.apkg"));
}
BENCHMARK(BM_ImportAnki5000NotesWithAudio)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
