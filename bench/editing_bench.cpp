#include "core/session.h"
#include "record/editing.h"
#include "record/packing.h"

#include "quorvane/testing.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace quorvane;

namespace {

void writeBytesTo(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(path.left(path.lastIndexOf('/')));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(path));
    file.write(bytes);
}

// A session on the spanish list big of kestrin below a fresh folder.
struct EditingFolder
{
    QTemporaryDir folder;
    ScriptedPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    Session session{prompts, sound, clock};

    EditingFolder()
    {
        session.languages_folder = folder.path() + "/languages/";
        session.current_language = "spanish";
        session.list_file = folder.path() + "/languages/spanish/big.txt";
        session.master_file = folder.path() + "/languages/spanish/master_spanish.txt";
        session.unknown_file = folder.path() + "/users/kestrin/spanish/big-u.txt";
        session.known_file = folder.path() + "/users/kestrin/spanish/big-k.txt";
    }
};

// One correction with the list, master, unknown and known files each of 30,000 entries: four
// files read, rewritten atomically, and one line logged.
void BM_SaveTextOn30000Entries(benchmark::State& state)
{
    EditingFolder f;
    QByteArray entries;
    for (int i = 0; i < 30000; ++i)
        entries += "palabra" + QByteArray::number(i) + "|word number " + QByteArray::number(i) + ", a translation|" +
                   QByteArray::number(i).rightJustified(5, '0') + "\r\n";
    for (const QString& path :
         {f.session.list_file, f.session.master_file, f.session.unknown_file, f.session.known_file})
        writeBytesTo(path, entries);
    int n = 0;
    for (auto _ : state) {
        const auto next = save_text(f.session, {"palabra15000", "word " + QString::number(n++), "15000"}, 0);
        benchmark::DoNotOptimize(next);
    }
}
BENCHMARK(BM_SaveTextOn30000Entries)->Unit(benchmark::kMillisecond);

// The Email Files procedure on 2,000 recordings of 30 kB (60 MB) in two folders, with the
// contributor's boxes answered at once.
void BM_Pack2000Recordings(benchmark::State& state)
{
    EditingFolder f;
    const QString previous = QDir::currentPath();
    QDir::setCurrent(f.folder.path());
    QByteArray recording(30000, '\0');
    for (int i = 0; i < recording.size(); ++i)
        recording[i] = static_cast<char>((i * 7919 + (i >> 3) * 31) & 0xFF);
    for (int i = 0; i < 2000; ++i) {
        const QString number = QString::number(70000 + i);
        recording[0] = static_cast<char>(i);
        writeBytesTo(f.session.languages_folder + "spanish/new_str/" + number.left(2) + "/" + number + ".str",
                     recording);
    }
    writeBytesTo(f.session.list_file, "casa|house|01234\r\n");
    writeBytesTo(f.session.master_file, "casa|house|01234\r\n");
    for (auto _ : state) {
        f.prompts.push(true);
        benchmark::DoNotOptimize(pack_recordings(f.session));
    }
    QDir::setCurrent(previous);
}
BENCHMARK(BM_Pack2000Recordings)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
