#include "app/ui/main_window.h"
#include "bench_support.h"
#include "core/session.h"
#include "flash/mp3_compile.h"
#include "flash/ui/flash_window.h"
#include "sound/playback.h"
#include "sound/sdl_sound.h"
#include "store/text_files.h"
#include "widgets/list_box.h"

#include "quorvane/testing.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>

using namespace quorvane;

namespace {

const QString kSample = QStringLiteral(QUORVANE_DEMO_DIR);
constexpr int kWords = 1000;
constexpr int kRepeats = 5;
constexpr int kWordsPerFile = 100;

QStringList sampleRecordings(const QString& language)
{
    QStringList paths;
    QDirIterator it(kSample + "/languages/" + language, {"*.mp3"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        paths.append(it.next());
    paths.sort();
    return paths;
}

void copyInto(const QString& source, const QString& target)
{
    QDir().mkpath(target.left(target.lastIndexOf('/')));
    if (!QFile::copy(source, target))
        qFatal("cannot copy %s", qPrintable(source));
}

QString spanishNumber(int i)
{
    return QString::number(10000 + i);
}

QString englishNumber(int i)
{
    return QString::number(20000 + i);
}

// A program folder with a list of 1000 Spanish words paired with English, every recording a copy
// of one of the sample course's, and the main window started on it with the list shown.
class ThousandWords
{
public:
    ThousandWords()
    {
        const QString root = m_folder.path();
        const QStringList spanish = sampleRecordings("spanish");
        const QStringList english = sampleRecordings("english");
        QByteArray list;
        QByteArray pairs;
        for (int i = 0; i < kWords; ++i) {
            list +=
                ("palabra" + QString::number(i) + "|word " + QString::number(i) + "|" + spanishNumber(i)).toLatin1() +
                "\r\n";
            pairs += (spanishNumber(i) + "|" + englishNumber(i)).toLatin1() + "\r\n";
            copyInto(spanish[i % spanish.size()], root + "/languages/spanish/10/" + spanishNumber(i) + ".mp3");
            copyInto(english[i % english.size()], root + "/languages/english/20/" + englishNumber(i) + ".mp3");
        }
        write(root + "/languages/spanish/thousand.txt", list);
        write(root + "/languages/spanish/trans_spanish.dat", "english\r\n");
        write(root + "/languages/spanish/trans_index_spanish_english.dat", pairs);
        copyInto(kSample + "/silence.mp3", root + "/silence.mp3");
        copyInto(kSample + "/beep.mp3", root + "/beep.mp3");

        m_window.reset(start(root, &prompts, &sound, &clock));
        auto* main = static_cast<MainWindow*>(m_window.get());
        select_row(main->lang_list, main->lang_list->row(main->lang_list->findItems("spanish", Qt::MatchExactly)[0]));
        select_row(main->lists_list, 0);
        cards = new FlashWindow(sessionOf(main), main);
    }

    QString path(const QString& relative) const { return m_folder.path() + "/" + relative; }

    // The pieces of output file number (from 0), in order, as auto_mp3 appends them at 0.2 s of
    // silence between words.
    QStringList pieces(int file) const
    {
        QStringList paths;
        for (int i = file * kWordsPerFile; i < (file + 1) * kWordsPerFile; ++i) {
            for (int r = 0; r < kRepeats; ++r) {
                paths << "languages/english/20/" + englishNumber(i) + ".mp3"
                      << "languages/spanish/10/" + spanishNumber(i) + ".mp3"
                      << "silence.mp3";
            }
            paths << "beep.mp3";
        }
        return paths;
    }

    static void write(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write %s", qPrintable(path));
        file.write(bytes);
    }

    ScriptedPrompts prompts{{QString("kestrin")}};
    FakeSound sound;
    FakeClock clock;
    FlashWindow* cards = nullptr;

private:
    QTemporaryDir m_folder;
    std::unique_ptr<QWidget> m_window;
};

ThousandWords& thousandWords()
{
    static ThousandWords* course = [] {
        auto* made = new ThousandWords;
        quorvane::bench::atEnd([made] { delete made; });
        return made;
    }();
    return *course;
}

// The whole button: ten files of 100 words, 5 repeats, 0.2 s of silence, on virtual time (its
// waits every tenth word cost nothing here).
void BM_AutoMp3ThousandWords(benchmark::State& state)
{
    ThousandWords& course = thousandWords();
    qint64 bytes = 0;
    for (auto _ : state) {
        for (const QVariant& answer : QVariantList{true, QString::number(kRepeats), QString("0.2")})
            course.prompts.push(answer);
        course.cards->auto_mp3_click();
        bytes = 0;
        for (int file = 1; file <= kWords / kWordsPerFile; ++file)
            bytes += QFileInfo(course.path("100words" + QString::number(file) + ".mp3")).size();
    }
    state.counters["MB_written"] = double(bytes) / 1e6;
}

QByteArray mp3Audio(const QByteArray& file)
{
    qsizetype size = 0;
    for (int i = 6; i < 10 && file.startsWith("ID3"); ++i)
        size = size << 7 | (file.at(i) & 0x7f);
    return file.mid(file.startsWith("ID3") ? 10 + size : 0);
}

// The same bytes by cat: every piece followed by a file holding CR LF, one cat per output file.
void BM_CatSameBytes(benchmark::State& state)
{
    ThousandWords& course = thousandWords();
    ThousandWords::write(course.path("crlf.bin"), "\r\n");
    for (auto _ : state) {
        for (int file = 0; file < kWords / kWordsPerFile; ++file) {
            QStringList arguments;
            for (const QString& piece : course.pieces(file))
                arguments << piece << "crlf.bin";
            QProcess cat;
            cat.setWorkingDirectory(course.path(""));
            cat.setStandardOutputFile(course.path("cat" + QString::number(file + 1) + ".mp3"));
            cat.start("cat", arguments);
            cat.waitForFinished(-1);
        }
    }
    // The two ways must agree byte for byte, or the comparison means nothing.
    for (int file = 1; file <= kWords / kWordsPerFile; ++file) {
        QFile ours(course.path("100words" + QString::number(file) + ".mp3"));
        QFile theirs(course.path("cat" + QString::number(file) + ".mp3"));
        // Ours begins with its ID3 tag (its size: the header's last four bytes, seven bits each).
        if (ours.exists() && (!ours.open(QIODevice::ReadOnly) || !theirs.open(QIODevice::ReadOnly) ||
                              mp3Audio(ours.readAll()) != theirs.readAll()))
            state.SkipWithError("cat wrote other bytes than auto_mp3");
    }
}

// Each output file's audio as auto_mp3 puts it together, in memory.
QList<QByteArray> concatenations(const ThousandWords& course)
{
    QList<QByteArray> files;
    for (int file = 0; file < kWords / kWordsPerFile; ++file) {
        QByteArray bytes;
        for (const QString& piece : course.pieces(file)) {
            QFile in(course.path(piece));
            if (in.open(QIODevice::ReadOnly))
                bytes += in.readAll() + "\r\n";
        }
        files.append(bytes);
    }
    return files;
}

// The floor: each output file's bytes, already in memory, written with one write.
void BM_OneWriteOfTheConcatenation(benchmark::State& state)
{
    ThousandWords& course = thousandWords();
    const QList<QByteArray> files = concatenations(course);
    for (auto _ : state) {
        for (int file = 0; file < files.size(); ++file)
            ThousandWords::write(course.path("one" + QString::number(file + 1) + ".mp3"), files[file]);
    }
}

// The same bytes written as every file of the program is: beside its name, synced to the disk and
// renamed into place. What auto_mp3 adds to this is its own work.
void BM_OneSyncedWriteOfTheConcatenation(benchmark::State& state)
{
    ThousandWords& course = thousandWords();
    const QList<QByteArray> files = concatenations(course);
    for (auto _ : state) {
        for (int file = 0; file < files.size(); ++file) {
            if (!writeBytes(course.path("synced" + QString::number(file + 1) + ".mp3"), files[file]))
                state.SkipWithError("a file was not written");
        }
    }
}

double residentMegabytes()
{
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly))
        return 0.0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024.0;
    }
    return 0.0;
}

// The resident memory of the real engine on SDL's silent driver after 100 and after 3000 words
// said, cycling through the sample course's recordings. Time is virtual, so the mixer's channels
// fill up and later plays are refused; every recording is still loaded.
void BM_SdlSoundResidentMemory(benchmark::State& state)
{
    for (auto _ : state) {
        ScriptedPrompts prompts;
        SdlSound sound;
        FakeClock clock(36000.0, 0.1);
        if (!sound.available() || !sound.init(22050, 64, 0)) {
            state.SkipWithError("SDL audio did not start");
            return;
        }
        Session session(prompts, sound, clock);
        session.languages_folder = kSample + "/languages/";
        session.speed = 0.2f;
        QStringList numbers;
        for (const QString& path : sampleRecordings("spanish"))
            numbers.append(QFileInfo(path).completeBaseName());
        const double before = residentMegabytes();
        double after100 = 0.0;
        for (int i = 1; i <= 3000; ++i) {
            say_word(session, numbers[i % numbers.size()], "spanish");
            if (i == 100)
                after100 = residentMegabytes();
        }
        const double after3000 = residentMegabytes();
        sound.close();
        state.counters["recordings"] = double(numbers.size());
        state.counters["RSS_MB_start"] = before;
        state.counters["RSS_MB_100"] = after100;
        state.counters["RSS_MB_3000"] = after3000;
        state.counters["growth_MB"] = after3000 - after100;
        state.counters["plays_refused"] = double(prompts.shown.size());
    }
}

} // namespace

BENCHMARK(BM_AutoMp3ThousandWords)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_CatSameBytes)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_OneWriteOfTheConcatenation)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_OneSyncedWriteOfTheConcatenation)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_SdlSoundResidentMemory)->Unit(benchmark::kSecond)->Iterations(1);
