#include "core/table_limit.h"
#include "flash/ui/flash_window.h"
#include "quiz/ui/test_window.h"
#include "store/file_faults.h"
#include "store/file_lock.h"
#include "store/text_files.h"
#include "test_support.h"

#include <QDirIterator>
#include <QLineEdit>
#include <QLockFile>
#include <QMap>
#include <QRadioButton>

#include <gtest/gtest.h>

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace quorvane;
using namespace quorvane::test;
using Step = file_faults::Step;

namespace {

// Runs operate once to count its steps, then again in a fresh program for every one of them, that
// step failing on a full disk: every file must be as it was and the last box must name the file
// and the cause. When a file is named afterwards, the last step of each kind writes it, once the
// others are whole: its failure must name it.
void failEachStep(const std::function<void(Program&)>& prepare, const std::function<void(Program&)>& operate,
                  const QString& fileName, const QString& afterwards = QString())
{
    std::array<int, 3> counts{};
    {
        Program p;
        prepare(p);
        file_faults::reset();
        operate(p);
        counts = {file_faults::count(Step::write), file_faults::count(Step::flush), file_faults::count(Step::rename)};
        file_faults::reset();
    }
    EXPECT_GE(counts[2], 1);
    for (const Step step : {Step::write, Step::flush, Step::rename}) {
        for (int nth = 1; nth <= counts[static_cast<size_t>(step)]; ++nth) {
            SCOPED_TRACE(QString("step %1, number %2").arg(int(step)).arg(nth).toStdString());
            Program p;
            prepare(p);
            const auto before = p.folder.snapshot();
            p.prompts.shown.clear();
            file_faults::failAt(step, nth, ENOSPC);
            operate(p);
            file_faults::reset();
            const bool last = !afterwards.isEmpty() && nth == counts[static_cast<size_t>(step)];
            EXPECT_TRUE(last || p.folder.snapshot() == before);
            const QString said = p.prompts.texts().value(p.prompts.shown.size() - 1);
            EXPECT_TRUE(said.contains(last ? afterwards : fileName) && said.contains("the disk is full"))
                << said.toStdString();
        }
    }
}

FlashWindow* compilingCards(Program& p)
{
    openCourse(p, 3);
    p.folder.write("silence.mp3", "S");
    p.folder.write("beep.mp3", "B");
    p.folder.write("100words1.mp3", "an old file");
    for (const QVariant& answer : QVariantList{true, QString("1"), QString("0")})
        p.prompts.push(answer);
    return new FlashWindow(p.session(), p.main());
}

} // namespace

TEST(DataSafety, AFirstOpeningThatCannotMakeTheUnknownFileSaysWhyAndStrayRewritesGo)
{
    const auto prepare = [](Program& p) {
        p.folder.write("users/kestrin/spanish/words-u.txt.rewrite.tmp", "half a rewr");
        p.folder.write("100words1.mp3.rewrite.tmp", "half an mp3");
        p.folder.write("languages/spanish/words.txt.rewrite.tmp", "half a list");
        openCourse(p, 3);
        EXPECT_FALSE(p.folder.snapshot().keys().join(' ').contains(".rewrite.tmp"));
        QFile::remove(p.folder.file("users/kestrin/spanish/words-u.txt"));
    };
    failEachStep(
        prepare, [](Program& p) { select_row(p.main()->lists_list, 0); }, "words-u.txt");
}

TEST(DataSafety, AutoMp3WritesWholeFilesOnlyAndAStopKeepsTheWordsDone)
{
    failEachStep(
        compilingCards, [](Program& p) { p.main()->findChild<FlashWindow*>()->auto_mp3_click(); }, "100words1.mp3",
        "100words.m3u8");

    // Paused as the third word is due: the file holds the first two.
    Program p;
    FlashWindow* cards = compilingCards(p);
    p.clock.step = 1.0; // each wait, and each word, lets one step of events through
    p.clock.at(2.5, [cards] { cards->pause->click(); });
    cards->auto_mp3_click();
    EXPECT_EQ(audioOf(p.folder.read("100words1.mp3")), "T0\r\nW0\r\nB\r\nT1\r\nW1\r\nB\r\n");
    EXPECT_EQ(p.prompts.texts().last(), "Stopped after 2 words. The file 100words1.mp3 holds the last of them.");
    EXPECT_FALSE(p.folder.exists("100words1.mp3.rewrite.tmp"));
}

TEST(DataSafety, ASecondCopyForTheSameStudentIsRefusedAndADeadCopysLockTakenOver)
{
    Program first;
    openCourse(first, 3);
    const auto before = first.folder.snapshot();
    const auto startAgain = [&](ScriptedPrompts& prompts) {
        FakeSound sound;
        FakeClock clock;
        std::unique_ptr<QWidget> second(start(first.folder.path(), &prompts, &sound, &clock));
        return static_cast<MainWindow*>(second.get())->lang_list->count();
    };
    ScriptedPrompts refused({QString("kestrin")});
    EXPECT_EQ(startAgain(refused), 0);
    EXPECT_EQ(refused.texts().last(), "Quorvane is already open for kestrin in another window. Please use that window, "
                                      "or close it and start Quorvane again. Nothing was changed.");
    EXPECT_EQ(first.folder.snapshot(), before);

    // Once the first copy has ended, a lock it left behind (as a killed process does) is taken over.
    first.window.reset();
    const QString lockPath = first.folder.file("users/kestrin/quorvane.lock");
    QProcess ended;
    ended.start("sh", {"-c", "echo $$"});
    ASSERT_TRUE(ended.waitForFinished(10000));
    QLockFile live(lockPath);
    ASSERT_TRUE(live.tryLock(0));
    QByteArray lock = first.folder.read("users/kestrin/quorvane.lock");
    live.unlock();
    lock = ended.readAllStandardOutput().trimmed() + lock.mid(lock.indexOf('\n'));
    first.folder.write("users/kestrin/quorvane.lock", lock);
    ScriptedPrompts taken({QString("kestrin")});
    EXPECT_EQ(startAgain(taken), 2);
    EXPECT_EQ(taken.shown.size(), 1);
}

TEST(DataSafety, ASharedFilesLockIsWaitedForRewritesNeverShareATemporaryFileAndAppendersNeverCutEachOthersLines)
{
    ProgramFolder folder;
    const QString lockPath = folder.file("languages/spanish/.lock");
    folder.mkdir("languages/spanish");
    // Another holder: a lock on a description of its own conflicts as another process's would.
    const int other = ::open(QFile::encodeName(lockPath).constData(), O_RDWR | O_CREAT, 0666);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    QString error;
    FileLock busy(lockPath, 0);
    EXPECT_TRUE(!busy.acquire(&error) && error.contains(lockPath)) << error.toStdString();
    ::close(other);
    {
        FileLock outer(lockPath, 0);
        ASSERT_TRUE(outer.acquire());
        FileLock inner(lockPath, 0); // the same process nests
        EXPECT_TRUE(inner.acquire());
        inner.release();
        const int probe = ::open(QFile::encodeName(lockPath).constData(), O_RDWR);
        EXPECT_NE(::flock(probe, LOCK_EX | LOCK_NB), 0); // still held by the outer one
        ::close(probe);
    }
    EXPECT_TRUE(busy.acquire());
    busy.release();
    // A rewrite leaves nothing beside; what a live writer (process 1) has beside is not swept, a dead
    // one's is.
    folder.write("languages/spanish/a.txt.1-7.rewrite.tmp", "in progress");
    folder.write("languages/spanish/a.txt.999999999-7.rewrite.tmp", "dead");
    ASSERT_TRUE(writeTextLines(folder.file("languages/spanish/a.txt"), {"x"}));
    EXPECT_EQ(folder.read("languages/spanish/a.txt"), "x\r\n");
    removeStrayRewrites(folder.file("languages/spanish"));
    EXPECT_EQ(QDir(folder.file("languages/spanish")).entryList(QDir::Files | QDir::Hidden),
              QStringList({".lock", "a.txt", "a.txt.1-7.rewrite.tmp"}));

    // Appends only append: a last line without its end gets one; a lone CR already ends it, and no
    // blank line follows.
    const QString log = folder.file("changes_spanish.dat");
    for (const auto& [before, after] : {std::pair<QByteArray, QByteArray>("a|b|1", "a|b|1\r\nc|d|2\r\n"),
                                        std::pair<QByteArray, QByteArray>("a|b|1\r", "a|b|1\rc|d|2\r\n"),
                                        std::pair<QByteArray, QByteArray>("a|b|1\n", "a|b|1\nc|d|2\r\n")}) {
        folder.write("changes_spanish.dat", before);
        ASSERT_TRUE(appendTextLines(log, {"c|d|2"}));
        EXPECT_EQ(folder.read("changes_spanish.dat"), after);
    }

    // Another process appends while every third append here fails half-written: its lines all stay,
    // as do those appended here that were told written.
    QFile::remove(log);
    constexpr int kLines = 300;
    const pid_t appender = fork();
    if (appender == 0) {
        for (int i = 0; i < kLines; ++i)
            appendTextLines(log, {QString("other %1").arg(i)});
        _exit(0);
    }
    QStringList expected;
    for (int i = 0; i < kLines; ++i) {
        if (i % 3 == 0)
            file_faults::failAt(Step::write, 1, ENOSPC);
        if (appendTextLines(log, {QString("here %1").arg(i)}))
            expected.append(QString("here %1").arg(i));
        file_faults::reset();
    }
    ASSERT_EQ(waitpid(appender, nullptr, 0), appender);
    for (int i = 0; i < kLines; ++i)
        expected.append(QString("other %1").arg(i));
    QStringList lines = readTextLines(log).value_or(QStringList());
    lines.sort();
    expected.sort();
    EXPECT_EQ(lines, expected);
}

TEST(DataSafety, ADoubleClickMovesTheEntryItsRowShowsFromTheFileItLivesIn)
{
    const QString unknown = "users/kestrin/spanish/words-u.txt";
    const QString known = "users/kestrin/spanish/words-k.txt";
    // A known file cut short by a crash: the next word is not glued onto its last line.
    const QByteArray fragment = "veni|to come|01410";
    const auto searched = [&](Program& p) {
        p.folder.write(known, fragment);
        p.folder.write("languages/spanish/master_spanish.txt",
                       courseEntry(2) + "palabrota|swear word|01900\r\n" + courseEntry(1) + courseEntry(0));
        openCourse(p, 3);
        p.main()->txt_word_search->setText("palabr");
        select_row(p.main()->words_list, 3);
    };
    const auto move = [](Program& p) { p.main()->words_list_dblclick(); };
    const auto files = [&](Program& p) { return QByteArrayList({p.folder.read(unknown), p.folder.read(known)}); };
    Program p;
    searched(p);
    MainWindow* main = p.main();
    const QStringList results({"palabra2", "palabrota", "palabra1", "palabra0"});
    ASSERT_EQ(items(main->words_list), results);
    move(p);
    const QByteArrayList once = {courseEntry(1) + courseEntry(2) + "||\r\n", fragment + "\r\n" + courseEntry(0)};
    EXPECT_EQ(files(p), once);
    // A result the unknown file does not hold, never or no more, is refused and changes nothing.
    for (const int row : {1, 3}) {
        select_row(main->words_list, row);
        move(p);
    }
    EXPECT_EQ(files(p), once);
    ASSERT_EQ(p.prompts.shown.size(), 3);
    EXPECT_TRUE(p.prompts.shown[1].text.contains("palabrota") &&
                p.prompts.shown[2].text.contains(p.folder.file(unknown)))
        << p.prompts.shown[2].text.toStdString();
    EXPECT_EQ(items(main->words_list), results);

    // A test reads the whole list into the arrays; once it is closed, the first row is again the
    // entry it shows.
    Program::choose(main->lists_list, "words");
    main->test_me_click();
    auto* test = qobject_cast<TestWindow*>(window("test"));
    ASSERT_NE(test, nullptr);
    test->multiple_choice->click();
    test->num_qs->setText("1");
    test->num_secs->setText("1");
    p.clock.at(0.5, [test] { test->stop->click(); });
    test->begin_test->click();
    EXPECT_EQ(p.session().wordCount(), 3);
    test->exit->click();
    select_row(main->words_list, 0);
    move(p);
    EXPECT_EQ(files(p),
              QByteArrayList({courseEntry(2) + "||\r\n", fragment + "\r\n" + courseEntry(0) + courseEntry(1)}));
    EXPECT_EQ(items(main->words_list), QStringList({"palabra2"}));

    failEachStep(searched, move, "words-");
}

TEST(DataSafety, AFileThatCannotBeReadIsNamedAndNothingIsMadeFromItNorStarted)
{
    Program p;
    openCourse(p, 3);
    MainWindow* main = p.main();
    p.folder.write("languages/spanish/animals.txt", courseEntry(0));
    p.folder.mkdir("users/kestrin/spanish/animals-k.txt"); // exists, but cannot be read
    p.folder.mkdir("languages/spanish/broken.txt");
    p.folder.write("users/kestrin/spanish/huge-k.txt", repeatedLines("x|y|00001", kMaxWordEntries + 1));
    Program::choose(main->lang_list, "spanish");
    ASSERT_EQ(items(main->known_lists), QStringList({"animals", "huge"}));
    for (const auto& [list, named] : {std::tuple("animals", "users/kestrin/spanish/animals-k.txt"),
                                      std::tuple("broken", "languages/spanish/broken.txt")}) {
        SCOPED_TRACE(list);
        p.prompts.shown.clear();
        Program::choose(main->lists_list, list);
        ASSERT_EQ(p.prompts.shown.size(), 1);
        EXPECT_TRUE(p.prompts.shown[0].text.contains(p.folder.file(named))) << p.prompts.shown[0].text.toStdString();
        EXPECT_EQ(
            std::tuple(p.folder.exists("users/kestrin/spanish/" + QString(list) + "-u.txt"), main->words_list->count()),
            std::tuple(false, 0));
    }
    // A known list refused (unreadable, or over the limit) starts no flash cards.
    for (const int row : {0, 1}) {
        p.prompts.shown.clear();
        main->known_lists->setRowQuietly(row);
        main->known_lists_dblclick();
        EXPECT_EQ(std::tuple(p.prompts.shown.size(), p.sound.played.size(), main->findChild<FlashWindow*>()),
                  std::tuple(1, 0, nullptr));
    }
}
