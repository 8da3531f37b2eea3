// Kills a process again and again while it records takes, edits words, packs recordings or makes
// new languages, then starts over as the next run would and counts what was lost: operations the
// process had reported done whose result is not whole on disk, and files left beside after the
// next start. Both are to be 0.

#include "core/session.h"
#include "record/editing.h"
#include "record/packing.h"
#include "record/unfinished_work.h"
#include "sound/cipher.h"
#include "sound/recording.h"
#include "store/new_language.h"
#include "store/text_files.h"

#include "bench_support.h"
#include "quorvane/testing.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <zip.h>

#include <csignal>
#include <cstdio>
#include <ctime>
#include <functional>
#include <random>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace quorvane;

namespace {

// A program folder in memory where the system offers one: a kill is tried, not a disk.
QString scratchRoot()
{
    return QFileInfo(QStringLiteral("/dev/shm")).isWritable() ? QStringLiteral("/dev/shm") : QDir::tempPath();
}

// The session of a child: the test doubles, in the program folder (the current directory).
struct Child
{
    ScriptedPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    Session session{prompts, sound, clock};
    explicit Child(const QString& folder)
    {
        session.languages_folder = folder + QStringLiteral("/languages/");
        session.current_language = QStringLiteral("spanish");
        session.list_file = folder + QStringLiteral("/languages/spanish/food.txt");
        session.master_file = folder + QStringLiteral("/languages/spanish/master_spanish.txt");
        session.unknown_file = folder + QStringLiteral("/users/kestrin/spanish/food-u.txt");
        session.known_file = folder + QStringLiteral("/users/kestrin/spanish/food-k.txt");
    }
};

// Runs work in a child that reports each operation done by writing its number to a pipe; kills it
// at a random moment once it has started; gives the numbers it reported.
QList<int> runAndKill(std::mt19937& random, const std::function<void(const std::function<void(int)>& done)>& work)
{
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0)
        return {};
    const pid_t child = fork();
    if (child == 0) {
        close(pipeEnds[0]);
        try {
            work([fd = pipeEnds[1]](int number) {
                if (write(fd, &number, sizeof number) != sizeof number)
                    _exit(1);
            });
        } catch (...) {
        }
        _exit(0);
    }
    close(pipeEnds[1]);
    QList<int> done;
    int number = 0;
    // Started: the first operation is done (a child that never gets that far is given up on).
    pollfd started{pipeEnds[0], POLLIN, 0};
    if (poll(&started, 1, 20000) == 1 && read(pipeEnds[0], &number, sizeof number) == sizeof number)
        done.append(number);
    const timespec pause{0, static_cast<long>(random() % 8'000'000L)};
    nanosleep(&pause, nullptr);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    while (read(pipeEnds[0], &number, sizeof number) == sizeof number)
        done.append(number);
    close(pipeEnds[0]);
    return done;
}

// Files below folder whose names say they were left by a write or a build that did not finish.
int filesLeftBeside(const QString& folder)
{
    int left = 0;
    for (QDirIterator it(folder, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDirIterator::Subdirectories);
         it.hasNext();) {
        const QString name = it.next().mid(folder.size() + 1);
        if (name.endsWith(QStringLiteral(".tmp")) || name.endsWith(QStringLiteral(".journal")) ||
            name.contains(QStringLiteral(".zip.")) || name.startsWith(QStringLiteral("new_language."))) {
            ++left;
            std::fprintf(stderr, "left beside: %s\n", qPrintable(name));
        }
    }
    return left;
}

void report(benchmark::State& state, long rounds, long acknowledged, long lost, long left)
{
    state.counters["kills"] = static_cast<double>(rounds);
    state.counters["acknowledged"] = static_cast<double>(acknowledged);
    state.counters["acknowledged_lost"] = static_cast<double>(lost);
    state.counters["left_beside"] = static_cast<double>(left);
    if (lost > 0 || left > 0)
        state.SkipWithError("a kill lost an acknowledged operation or left a file behind");
}

// One loud sample that says n (so no silence is cut from a take of it), and n read back.
QByteArray sampleSaying(int n)
{
    return QByteArray(1, static_cast<char>(6 + n % 250)) + QByteArray(1, static_cast<char>(2 + n / 250 % 120));
}
int numberOf(const QByteArray& sample)
{
    return static_cast<unsigned char>(sample.at(0)) - 6 + 250 * (static_cast<unsigned char>(sample.at(1)) - 2);
}

void BM_KillDuringRecording(benchmark::State& state)
{
    QTemporaryDir folder(scratchRoot() + QStringLiteral("/quorvane-XXXXXX"));
    const QString path = folder.filePath(QStringLiteral("languages/spanish/new_str/01/01436.str"));
    QDir().mkpath(QFileInfo(path).path());
    std::mt19937 random(5);
    long rounds = 0, acknowledged = 0, lost = 0, left = 0;
    int next = 1;
    for (auto _ : state) {
        const QList<int> done = runAndKill(random, [&](const std::function<void(int)>& ack) {
            Child child(folder.path());
            for (int n = next;; ++n) {
                child.sound.microphone = sampleSaying(n).repeated(22050);
                if (record_word(child.session, path, 22050, 0.2f, 1, 2))
                    ack(n);
            }
        });
        ++rounds;
        acknowledged += done.size();
        finish_unfinished_work(folder.filePath(QStringLiteral("languages/")));
        // The stored take deciphers whole, and is the last one reported or a later one.
        QFile file(path);
        const auto plain = file.open(QIODevice::ReadOnly)
                               ? blowfishCbc(file.readAll(), QByteArray::fromHex("5c1e07a9d3b46f28e90d1a7c3b5f2e84"),
                                             QByteArray::fromHex("a4d90e3b7c1f6285"), CipherDirection::Decipher)
                               : std::nullopt;
        const bool whole = plain && plain->size() >= 2 && *plain == plain->left(2).repeated(plain->size() / 2);
        const int last = done.isEmpty() ? 0 : done.last();
        if (!done.isEmpty() && (!whole || numberOf(*plain) < last))
            ++lost;
        next = last + 2;
        left += filesLeftBeside(folder.path());
    }
    report(state, rounds, acknowledged, lost, left);
}

void BM_KillDuringWordEdits(benchmark::State& state)
{
    QTemporaryDir folder(scratchRoot() + QStringLiteral("/quorvane-XXXXXX"));
    bench::writeFile(folder.filePath(QStringLiteral("languages/spanish/food.txt")), "casa|house|01234\r\n");
    bench::writeFile(folder.filePath(QStringLiteral("languages/spanish/master_spanish.txt")), "casa|house|01234\r\n");
    bench::writeFile(folder.filePath(QStringLiteral("users/kestrin/spanish/food-u.txt")), "casa|house|01234\r\n");
    std::mt19937 random(7);
    long rounds = 0, acknowledged = 0, lost = 0, left = 0;
    QSet<QString> kept; // numbers of words added and never deleted, as acknowledged
    for (auto _ : state) {
        // Adds words; deletes every third one it added, reporting additions as n and deletions as -n.
        const QList<int> done = runAndKill(random, [&](const std::function<void(int)>& ack) {
            Child child(folder.path());
            for (int n = 0;; ++n) {
                const auto number = add_word(child.session, {QStringLiteral("w"), QStringLiteral("t"), QString()});
                if (!number)
                    continue;
                ack(number->toInt());
                if (n % 3 == 2 && delete_word(child.session, {QStringLiteral("w"), QStringLiteral("t"), *number}, 0))
                    ack(-number->toInt());
            }
        });
        ++rounds;
        acknowledged += done.size();
        for (const int number : done) {
            if (number > 0)
                kept.insert(QString::number(number));
            else
                kept.remove(QString::number(-number));
        }
        finish_unfinished_work(folder.filePath(QStringLiteral("languages/")));
        const auto numbers = [&folder](const char* file) {
            QSet<QString> found;
            for (const QString& line :
                 readTextLines(folder.filePath(QString::fromLatin1(file))).value_or(QStringList()))
                if (line.startsWith(QStringLiteral("w|t|")))
                    found.insert(line.mid(4));
            return found;
        };
        const QSet<QString> master = numbers("languages/spanish/master_spanish.txt");
        // The last word reported added may have been deleted before the deletion could be reported.
        if (!done.isEmpty() && done.last() > 0 && !master.contains(QString::number(done.last())))
            kept.remove(QString::number(done.last()));
        // Every acknowledged word is there, and every file holds the same words.
        for (const QString& number : kept)
            lost += master.contains(number) ? 0 : 1;
        if (numbers("languages/spanish/food.txt") != master || numbers("users/kestrin/spanish/food-u.txt") != master)
            ++lost;
        left += filesLeftBeside(folder.path());
    }
    report(state, rounds, acknowledged, lost, left);
}

// Every member of a zip archive reads back whole.
bool wholeArchive(const QString& path)
{
    int code = 0;
    zip_t* archive = zip_open(QFile::encodeName(path).constData(), ZIP_CHECKCONS | ZIP_RDONLY, &code);
    if (!archive)
        return false;
    bool whole = zip_get_num_entries(archive, 0) > 0;
    for (zip_int64_t i = 0; whole && i < zip_get_num_entries(archive, 0); ++i) {
        zip_file_t* member = zip_fopen_index(archive, static_cast<zip_uint64_t>(i), 0);
        char buffer[4096];
        zip_int64_t read = 0;
        while (member && (read = zip_fread(member, buffer, sizeof buffer)) > 0) {
        }
        whole = member && read == 0;
        if (member)
            zip_fclose(member);
    }
    zip_discard(archive);
    return whole;
}

void BM_KillDuringPacking(benchmark::State& state)
{
    QTemporaryDir folder(scratchRoot() + QStringLiteral("/quorvane-XXXXXX"));
    const QString previous = QDir::currentPath();
    QDir::setCurrent(folder.path());
    for (int i = 0; i < 20; ++i)
        bench::writeFile(
            folder.filePath(QStringLiteral("languages/spanish/new_str/%1/%100.str").arg(70 + i % 3).arg(i)),
            QByteArray(60000, static_cast<char>(i)));
    bench::writeFile(folder.filePath(QStringLiteral("languages/spanish/food.txt")), "casa|house|01234\r\n");
    std::mt19937 random(11);
    long rounds = 0, acknowledged = 0, lost = 0, left = 0;
    for (auto _ : state) {
        const QList<int> done = runAndKill(random, [&](const std::function<void(int)>& ack) {
            Child child(folder.path());
            for (int n = 1;; ++n) {
                child.prompts.push(true);
                if (pack_recordings(child.session))
                    ack(n);
            }
        });
        ++rounds;
        acknowledged += done.size();
        finish_unfinished_work(folder.filePath(QStringLiteral("languages/")));
        // Once a packing was reported done, every archive it writes stays whole.
        if (!done.isEmpty()) {
            for (const QString& archive :
                 {QStringLiteral("recordings/text_spanish.zip"), QStringLiteral("recordings/str/spanish_str_70.zip"),
                  QStringLiteral("recordings/str/spanish_str_72.zip"), QStringLiteral("languages/spanish/spanish.zip")})
                lost += wholeArchive(folder.filePath(archive)) ? 0 : 1;
        }
        left += filesLeftBeside(folder.path());
    }
    QDir::setCurrent(previous);
    report(state, rounds, acknowledged, lost, left);
}

void BM_KillDuringNewLanguage(benchmark::State& state)
{
    QTemporaryDir folder(scratchRoot() + QStringLiteral("/quorvane-XXXXXX"));
    QStringList master;
    for (int i = 0; i < 3000; ++i)
        master.append(QStringLiteral("word%1|palabra%1|%2").arg(i).arg(i, 5, 10, QLatin1Char('0')));
    bench::writeFile(folder.filePath(QStringLiteral("languages/english/master_english.txt")), encodeLines(master));
    bench::writeFile(folder.filePath(QStringLiteral("languages/english/eat_words.txt")),
                     encodeLines(master.mid(0, 300)));
    QByteArray whole;
    for (int i = 0; i < 300; ++i)
        whole += QStringLiteral("word%1||%2\r\n").arg(i).arg(i, 5, 10, QLatin1Char('0')).toLatin1();
    std::mt19937 random(13);
    long rounds = 0, acknowledged = 0, lost = 0, left = 0;
    int next = 0;
    for (auto _ : state) {
        const QList<int> done = runAndKill(random, [&](const std::function<void(int)>& ack) {
            Child child(folder.path());
            for (int n = next;; ++n) {
                child.prompts.push(QStringLiteral("lang%1").arg(n));
                child.prompts.push(QStringLiteral("english"));
                if (QString error; new_language(child.session, &error))
                    ack(n);
            }
        });
        ++rounds;
        acknowledged += done.size();
        finish_unfinished_work(folder.filePath(QStringLiteral("languages/")));
        // Every language there is whole, and every one reported made is there.
        const int last = done.isEmpty() ? next - 1 : done.last();
        for (int n = next; n <= last + 1; ++n) {
            const QString language = folder.filePath(QStringLiteral("languages/lang%1/").arg(n));
            if (!QFileInfo::exists(language)) {
                lost += n <= last ? 1 : 0;
                continue;
            }
            QFile list(language + QStringLiteral("eat_words.txt"));
            QFile trans(language + QStringLiteral("trans_lang%1.dat").arg(n));
            if (!list.open(QIODevice::ReadOnly) || list.readAll() != whole || !trans.open(QIODevice::ReadOnly) ||
                trans.readAll() != "english\r\n")
                ++lost;
            QDir(language).removeRecursively();
        }
        next = last + 2;
        left += filesLeftBeside(folder.path());
    }
    report(state, rounds, acknowledged, lost, left);
}

// Two real processes add words to one language at once, each with a student of its own: every
// word added is in the list and master, and no sound number is given twice.
void BM_TwoCopiesAddWords(benchmark::State& state)
{
    QTemporaryDir folder(scratchRoot() + QStringLiteral("/quorvane-XXXXXX"));
    bench::writeFile(folder.filePath(QStringLiteral("languages/spanish/food.txt")), "casa|house|01234\r\n");
    bench::writeFile(folder.filePath(QStringLiteral("languages/spanish/master_spanish.txt")), "casa|house|01234\r\n");
    for (const char* student : {"s0", "s1"})
        QDir().mkpath(folder.filePath(QStringLiteral("users/%1/spanish").arg(QString::fromLatin1(student))));
    constexpr int kEach = 100;
    long acknowledged = 0, lost = 0, twice = 0;
    for (auto _ : state) {
        pid_t children[2];
        for (int copy = 0; copy < 2; ++copy) {
            children[copy] = fork();
            if (children[copy] == 0) {
                Child child(folder.path());
                child.session.unknown_file = folder.filePath(QStringLiteral("users/s%1/spanish/food-u.txt").arg(copy));
                int added = 0;
                for (int n = 0; n < kEach; ++n)
                    added += add_word(child.session, {QStringLiteral("c%1").arg(copy), QStringLiteral("t"), QString()})
                                 ? 1
                                 : 0;
                _exit(added == kEach ? 0 : 1);
            }
        }
        for (const pid_t child : children) {
            int status = 0;
            waitpid(child, &status, 0);
            acknowledged += WIFEXITED(status) && WEXITSTATUS(status) == 0 ? kEach : 0;
        }
        QStringList numbers;
        for (const QString& line :
             readTextLines(folder.filePath(QStringLiteral("languages/spanish/master_spanish.txt")))
                 .value_or(QStringList()))
            if (line.startsWith(u'c'))
                numbers.append(line.section(u'|', 2));
        lost += acknowledged - numbers.size() > 0 ? acknowledged - numbers.size() : 0;
        twice += numbers.removeDuplicates();
    }
    state.counters["acknowledged"] = static_cast<double>(acknowledged);
    state.counters["acknowledged_lost"] = static_cast<double>(lost);
    state.counters["numbers_given_twice"] = static_cast<double>(twice);
    if (lost > 0 || twice > 0 || acknowledged == 0)
        state.SkipWithError("two copies adding words lost a word or gave a number twice");
}

} // namespace

BENCHMARK(BM_TwoCopiesAddWords)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_KillDuringRecording)->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_KillDuringWordEdits)->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_KillDuringPacking)->Iterations(100)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_KillDuringNewLanguage)->Iterations(100)->Unit(benchmark::kMillisecond);
