// Word edits, packing and new languages against failing disks and kills: every file whole, nothing
// left beside, and the user told what failed.

#include "record/edit_journal.h"
#include "record/editing.h"
#include "record/packing.h"
#include "record/unfinished_work.h"
#include "store/file_faults.h"
#include "store/new_language.h"
#include "test_support.h"

#include <QDirIterator>
#include <QMap>

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <random>

#include <sys/wait.h>
#include <unistd.h>

using namespace quorvane;
using Step = file_faults::Step;

namespace {

const char* const kList = "languages/spanish/food.txt";
const char* const kMaster = "languages/spanish/master_spanish.txt";
const char* const kUnknown = "users/kestrin/spanish/food-u.txt";
const char* const kKnown = "users/kestrin/spanish/food-k.txt";
const char* const kLog = "languages/spanish/changes_spanish.dat";
const char* const kHigh = "languages/spanish/highest_num.dat";

struct Safety : quorvane::test::CoreTest
{
    Safety()
    {
        session.current_language = "spanish";
        session.list_file = folder.file(kList);
        session.master_file = folder.file(kMaster);
        session.unknown_file = folder.file(kUnknown);
        session.known_file = folder.file(kKnown);
    }
    void words()
    {
        folder.write(kList, "casa|house|01234\r\nsol|sun|01300\r\n");
        folder.write(kMaster, "agua|water|01002\r\ncasa|house|01234\r\nsol|sun|01300"); // no last line end
        folder.write(kUnknown, "casa|house|01234\r\n");
        folder.write(kKnown, "sol|sun|01300\r\n");
        folder.write(kLog, "old|line|00001->old|one|00001\r\n");
        folder.write(kHigh, " 70005\r\n");
    }
    // Every file and folder below the program folder with its bytes; the language locks aside.
    QMap<QString, QByteArray> snapshot() const
    {
        QMap<QString, QByteArray> files;
        for (QDirIterator it(folder.path(), QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden,
                             QDirIterator::Subdirectories);
             it.hasNext();) {
            const QString relative = it.next().mid(folder.path().size() + 1);
            if (!relative.endsWith("/.lock"))
                files.insert(relative, it.fileInfo().isDir() ? QByteArray("<folder>") : folder.read(relative));
        }
        return files;
    }
    // Runs operate with each write, flush and rename failing in turn on a full disk: afterwards the
    // files are as before (with error naming a file and the cause) or as a run without a fault
    // leaves them, and nothing else is there.
    void failEachStep(const std::function<void()>& prepare, const std::function<bool(QString* error)>& operate)
    {
        prepare();
        const auto before = snapshot();
        file_faults::reset();
        QString error;
        ASSERT_TRUE(operate(&error)) << error.toStdString();
        const std::array<int, 3> counts = {file_faults::count(Step::write), file_faults::count(Step::flush),
                                           file_faults::count(Step::rename)};
        const auto done = snapshot();
        ASSERT_NE(done, before);
        for (const Step step : {Step::write, Step::flush, Step::rename}) {
            for (int nth = 1; nth <= counts[size_t(step)]; ++nth) {
                SCOPED_TRACE(QString("step %1, number %2").arg(int(step)).arg(nth).toStdString());
                prepare();
                file_faults::reset();
                file_faults::failAt(step, nth, ENOSPC);
                error.clear();
                const bool made = operate(&error);
                file_faults::reset();
                const auto after = snapshot();
                EXPECT_EQ(after, made ? done : before);
                if (!made) {
                    EXPECT_TRUE(error.contains(folder.path()) && error.contains("the disk is full"))
                        << error.toStdString();
                }
            }
        }
    }
};

} // namespace

TEST_F(Safety, AnEditWithAnyStepFailingChangesEveryFileOrNoneAndARetryAddsOnce)
{
    const auto prepare = [this] {
        for (const char* part : {"languages", "users"})
            QDir(folder.file(part)).removeRecursively();
        words();
    };
    failEachStep(prepare, [this](QString* error) { return add_word(session, {"gato", "cat", ""}, error).has_value(); });
    failEachStep(prepare, [this](QString* error) {
        return save_text(session, {"casa", "home", "01234"}, 0, "no", error).has_value();
    });
    failEachStep(prepare, [this](QString* error) {
        return delete_word(session, {"sol", "sun", "01300"}, 1, error).has_value();
    });

    // A failed addition changed nothing, so trying again adds the word once.
    prepare();
    file_faults::failAt(Step::write, 3, ENOSPC);
    QString error;
    EXPECT_EQ(add_word(session, {"gato", "cat", ""}, &error), std::nullopt);
    file_faults::reset();
    EXPECT_EQ(add_word(session, {"gato", "cat", ""}), QString("70005"));
    EXPECT_EQ(folder.read(kList), "casa|house|01234\r\nsol|sun|01300\r\ngato|cat|70005\r\n");
    EXPECT_EQ(folder.read(kMaster), "agua|water|01002\r\ncasa|house|01234\r\nsol|sun|01300\r\ngato|cat|70005\r\n");
    EXPECT_EQ(folder.read(kHigh), " 70006\r\n");

    // A correction with the student's known file missing corrects the others; one that cannot be
    // read stops it all.
    prepare();
    QFile::remove(folder.file(kKnown));
    EXPECT_EQ(save_text(session, {"casa", "home", "01234"}, 3), 4);
    EXPECT_EQ(folder.read(kUnknown), "casa|home|01234\r\n");
    EXPECT_FALSE(folder.exists(kKnown));
    EXPECT_EQ(folder.read(kLog), "old|line|00001->old|one|00001\r\ncasa|house|01234->casa|home|01234\r\n");
    folder.mkdir(kKnown);
    EXPECT_EQ(save_text(session, {"casa", "hogar", "01234"}, 3, "no", &error), std::nullopt);
    EXPECT_TRUE(error.contains(folder.file(kKnown))) << error.toStdString();
    EXPECT_EQ(folder.read(kUnknown), "casa|home|01234\r\n");
}

TEST_F(Safety, AKilledEditIsCompletedOrUndoneAtTheNextStartAndNumbersAreNeverGivenTwice)
{
    // Additions and deletions killed at random moments: after the next start every number taken is in
    // the list, master and unknown file alike, or in none, and highest_num is past every one of them.
    words();
    std::mt19937 random(17);
    for (int kill = 0; kill < 60; ++kill) {
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        for (int n = 0; child == 0; ++n) {
            const auto number = add_word(session, {"w", "t", ""});
            if (n % 3 == 2 && number)
                delete_word(session, {"w", "t", *number}, 0);
            if (n == 0 && write(ready[1], "r", 1) != 1)
                _exit(1);
        }
        char signal = 0;
        ASSERT_EQ(read(ready[0], &signal, 1), 1);
        close(ready[0]);
        close(ready[1]);
        usleep(std::uniform_int_distribution<useconds_t>(0, 3000)(random));
        ::kill(child, SIGKILL);
        waitpid(child, nullptr, 0);

        finish_unfinished_work(session.languages_folder);
        const auto numbers = [this](const char* file) {
            QStringList found;
            for (const QString& line : QString::fromLatin1(folder.read(file)).split("\r\n", Qt::SkipEmptyParts))
                if (line.startsWith("w|t|"))
                    found.append(line.mid(4));
            return found;
        };
        QStringList inMaster = numbers(kMaster);
        ASSERT_EQ(numbers(kList), inMaster) << "kill " << kill;
        ASSERT_EQ(numbers(kUnknown), inMaster) << "kill " << kill;
        ASSERT_EQ(inMaster.removeDuplicates(), 0);
        for (const QString& number : inMaster)
            ASSERT_LT(number.toInt(), folder.read(kHigh).trimmed().toInt());
        const QStringList left = QDir(folder.file("languages/spanish")).entryList({"*.tmp", "*.journal"});
        ASSERT_TRUE(left.isEmpty()) << left.join(' ').toStdString();
    }
}

TEST_F(Safety, PackingPacksOnlyWordFilesSweepsWhatAKilledRunLeftAndNamesEveryArchiveThatFailed)
{
    folder.write("languages/spanish/new_str/70/70000.str", "seventy");
    folder.write("languages/spanish/new_str/71/71000.str", "seventy-one");
    folder.write(kList, "casa|house|01234\r\n");
    // What killed runs left: the archiver's temporaries, a rewrite's, a journal not committed.
    for (const char* left : {"languages/spanish/spanish.zip.Ab12Cd", "languages/spanish/new_str/70/70.zip.xY3z9Q",
                             "languages/spanish/food.txt.rewrite.tmp", "languages/spanish/food.txt.edit.tmp"})
        folder.write(left, "left behind");
    folder.write("languages/spanish/edits.journal", "rename\t" +
                                                        folder.file("languages/spanish/food.txt.edit.tmp").toUtf8() +
                                                        "\t" + folder.file(kList).toUtf8() + "\n");
    prompts.push(true);
    EXPECT_TRUE(pack_recordings(session));
    QByteArray listing;
    quorvane::test::runTool("unzip", {"-Z1", folder.file("recordings/text_spanish.zip")}, &listing);
    EXPECT_EQ(listing, "food.txt\n");

    finish_unfinished_work(session.languages_folder);
    QStringList remaining;
    for (QDirIterator it(folder.file("languages"), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
         it.hasNext();)
        remaining.append(it.next().mid(folder.path().size() + 1));
    remaining.removeAll("languages/spanish/.lock");
    remaining.sort();
    EXPECT_EQ(remaining, QStringList({kList, "languages/spanish/new_str/70/70.zip",
                                      "languages/spanish/new_str/70/70000.str", "languages/spanish/new_str/71/71.zip",
                                      "languages/spanish/new_str/71/71000.str", "languages/spanish/spanish.zip"}));

    // The second copy of the 71 archive cannot be written: named with its cause, the rest written.
    QDir(folder.file("recordings")).removeRecursively();
    prompts.shown.clear();
    prompts.push(true);
    file_faults::failAt(Step::write, 4, ENOSPC);
    EXPECT_FALSE(pack_recordings(session));
    file_faults::reset();
    const QString said = prompts.shown.last().text;
    EXPECT_FALSE(said.startsWith("This action is finished.")) << said.toStdString();
    EXPECT_TRUE(said.contains(folder.file("recordings/str/spanish_str_71.zip") + " (the disk is full)"))
        << said.toStdString();
    EXPECT_TRUE(said.contains(folder.file("recordings/text_spanish.zip"))) << said.toStdString();
    EXPECT_TRUE(QDir(folder.file("recordings/str")).entryList(QDir::Files) == QStringList({"spanish_str_70.zip"}));
}

TEST_F(Safety, ANewLanguageAppearsWholeOrNotAtAllAndAKilledBuildIsSweptOrFinished)
{
    folder.write("languages/english/master_english.txt", "eat|comer|00217\r\n");
    folder.write("languages/english/eat_words.txt", "eat|comer|00217\r\n");
    const auto prepare = [this] {
        QDir(folder.file("languages/swahili")).removeRecursively();
        QDir(folder.file("languages/xhosa")).removeRecursively();
    };
    const auto make = [this](const char* name, const char* target) {
        return [this, name, target](QString* error) {
            prompts.shown.clear();
            prompts.push(QString(name));
            prompts.push(QString(target));
            const bool made = new_language(session);
            *error = prompts.shown.last().text;
            return made;
        };
    };
    failEachStep(prepare, make("swahili", "english"));
    failEachStep(prepare, make("swahili", "xhosa"));

    // A build killed before it was complete is removed at the next start, and the name is free; one
    // killed while moving into place is finished.
    prepare();
    folder.write("new_language.999999.tmp/swahili/trans_swahili.dat", "english\r\n");
    folder.write("new_language.999998.tmp/hausa/trans_hausa.dat", "yoruba\r\n");
    folder.write("new_language.999998.tmp/yoruba/trans_yoruba.dat", "hausa\r\n");
    folder.write("new_language.999998.tmp/complete", "hausa\r\n");
    finish_unfinished_work(session.languages_folder);
    EXPECT_EQ(QDir(folder.path()).entryList({"new_language.*"}, QDir::Dirs | QDir::Hidden), QStringList());
    EXPECT_FALSE(folder.exists("languages/swahili"));
    EXPECT_EQ(folder.read("languages/hausa/trans_hausa.dat"), "yoruba\r\n");
    EXPECT_EQ(folder.read("languages/yoruba/trans_yoruba.dat"), "hausa\r\n");
    QString error;
    EXPECT_TRUE(make("swahili", "english")(&error));
}
