#include "record/editing.h"
#include "record/packing.h"
#include "record/unfinished_work.h"
#include "store/file_faults.h"
#include "store/new_language.h"
#include "test_support.h"

#include <QMap>

#include <gtest/gtest.h>

#include <cerrno>

using namespace quorvane;
using quorvane::test::patternBytes;
using Step = file_faults::Step;

namespace {

const char* const kList = "languages/spanish/food.txt";
const char* const kMaster = "languages/spanish/master_spanish.txt";
const char* const kUnknown = "users/kestrin/spanish/food-u.txt";
const char* const kKnown = "users/kestrin/spanish/food-k.txt";
const char* const kLog = "languages/spanish/changes_spanish.dat";
const char* const kHigh = "languages/spanish/highest_num.dat";

// A session on the list food of kestrin in spanish, its four files below the program folder.
struct Editing : quorvane::test::CoreTest
{
    Editing()
    {
        session.current_language = "spanish";
        session.list_file = folder.file(kList);
        session.master_file = folder.file(kMaster);
        session.unknown_file = folder.file(kUnknown);
        session.known_file = folder.file(kKnown);
    }
    // The list, the master list, the unknown and known files and the change log.
    QByteArrayList files() const
    {
        return {folder.read(kList), folder.read(kMaster), folder.read(kUnknown), folder.read(kKnown),
                folder.read(kLog)};
    }
    void write(const QByteArrayList& contents)
    {
        const char* const names[] = {kList, kMaster, kUnknown, kKnown, kLog};
        for (int i = 0; i < contents.size(); ++i)
            folder.write(names[i], contents[i]);
    }
};

// Packing works in the program folder, the current directory.
struct Packing : Editing
{
    QByteArray unzip(const QStringList& arguments) const
    {
        QByteArray output;
        quorvane::test::runTool("unzip", arguments, &output);
        return output;
    }
    // The member names of an archive, as Debian's unzip lists them.
    QStringList members(const char* archive) const
    {
        QStringList names = QString::fromUtf8(unzip({"-Z1", folder.file(archive)})).split('\n', Qt::SkipEmptyParts);
        names.sort();
        return names;
    }
    QByteArray member(const char* archive, const char* name) const { return unzip({"-p", folder.file(archive), name}); }
};

struct ProgressLines : PackingView
{
    void show_packing_progress(const QString& text) override { lines.append(text); }
    QStringList lines;
};

// Word edits, packing and new languages against failing disks and kills: every file whole, nothing
// left beside, and the user told what failed.
struct Safety : Editing
{
    void words()
    {
        // The master's last line has no line end.
        write({"casa|house|01234\r\nsol|sun|01300\r\n", "agua|water|01002\r\ncasa|house|01234\r\nsol|sun|01300",
               "casa|house|01234\r\n", "sol|sun|01300\r\n", "old|line|00001->old|one|00001\r\n"});
        folder.write(kHigh, " 70005\r\n");
    }
    // Runs operate with each write, flush and rename failing in turn on a full disk: afterwards the
    // files are as before (with error naming a file and the cause) or as a run without a fault
    // leaves them, and nothing else is there.
    void failEachStep(const std::function<void()>& prepare, const std::function<bool(QString* error)>& operate)
    {
        prepare();
        const auto before = folder.snapshot();
        file_faults::reset();
        QString error;
        ASSERT_TRUE(operate(&error)) << error.toStdString();
        const std::array<int, 3> counts = {file_faults::count(Step::write), file_faults::count(Step::flush),
                                           file_faults::count(Step::rename)};
        const auto done = folder.snapshot();
        ASSERT_NE(done, before);
        for (const Step step : {Step::write, Step::flush, Step::rename}) {
            for (int nth = 1; nth <= counts[size_t(step)]; ++nth) {
                SCOPED_TRACE(QString("step %1, number %2").arg(int(step)).arg(nth).toStdString());
                prepare();
                file_faults::failAt(step, nth, ENOSPC);
                error.clear();
                const bool made = operate(&error);
                file_faults::reset();
                EXPECT_EQ(folder.snapshot(), made ? done : before);
                EXPECT_TRUE(made || (error.contains(folder.path()) && error.contains("the disk is full")))
                    << error.toStdString();
            }
        }
    }
};

} // namespace

TEST_F(Editing, AdditionsTakeNumbersFrom70000AtTheEndOfTheFilesCorrectionsAndDeletionsReachEveryEntry)
{
    write({"casa|house|01234\r\n", "casa|house|01234\r\nperro|dog|01300"}); // the master's last line has no end
    folder.mkdir("users/kestrin/spanish");
    QStringList numbers;
    for (const auto& [word, translation] : {std::pair{"gato", "cat"}, {"sol", "sun"}, {"", ""}})
        numbers.append(add_word(session, {word, translation, "01234"}).value_or("failed"));

    EXPECT_EQ(numbers, QStringList({"70000", "70001", "70002"}));
    EXPECT_EQ(folder.read(kHigh), " 70003\r\n");
    // Additions are not logged.
    const QByteArray added = "gato|cat|70000\r\nsol|sun|70001\r\n||70002\r\n";
    EXPECT_EQ(files(), QByteArrayList({"casa|house|01234\r\n" + added,
                                       "casa|house|01234\r\nperro|dog|01300\r\n" + added, added, "", ""}));

    // Adding to the master list itself writes the entry there once; the counter goes on from
    // whatever number the file holds, blank or not.
    session.list_file = session.master_file;
    folder.write(kHigh, "71234\r\n");
    folder.write(kMaster, "");
    EXPECT_EQ(add_word(session, {"luna", "moon", ""}), QString("71234"));
    EXPECT_EQ(std::tuple(folder.read(kMaster), folder.read(kHigh)), std::tuple("luna|moon|71234\r\n", " 71235\r\n"));

    // A correction or a deletion rewrites every entry of the number in each file, and logs the master once.
    session.list_file = folder.file(kList);
    const QByteArray earlier = "earlier|line|00001->earlier|one|00001\r\n";
    write({"casa|house|01234\r\nni\xF1o|child|01500\r\ncasita|little house|01234\r\n",
           "agua|water|01002\r\ncasa|house|01234\r\n", "casa|house|01234\r\n", "agua|water|01002\r\n\r\nabc\r\n",
           earlier});
    // No entry clicked: no line is taken for the empty number, not even a blank one.
    const auto untouched = folder.snapshot();
    EXPECT_EQ(save_text(session, {"x", "y", ""}, 2), 3);
    EXPECT_EQ(folder.snapshot(), untouched);

    EXPECT_EQ(save_text(session, {"casa", "home", "01234"}, 4), 5);
    EXPECT_EQ(files(),
              QByteArrayList({"casa|home|01234\r\nni\xF1o|child|01500\r\ncasa|home|01234\r\n",
                              "agua|water|01002\r\ncasa|home|01234\r\n", "casa|home|01234\r\n",
                              "agua|water|01002\r\n\r\nabc\r\n", earlier + "casa|house|01234->casa|home|01234\r\n"}));

    // The master list as the current list: rewritten once, so logged once.
    session.list_file = session.master_file;
    folder.write(kLog, "");
    EXPECT_EQ(save_text(session, {"casa", "hogar", "01234"}, 0), 1);
    EXPECT_EQ(folder.read(kMaster), "agua|water|01002\r\ncasa|hogar|01234\r\n");
    EXPECT_EQ(folder.read(kLog), "casa|home|01234->casa|hogar|01234\r\n");

    // A deletion takes the entry out of every file.
    session.list_file = folder.file(kList);
    folder.write(kKnown, "casa|hogar|01234\r\nagua|water|01002\r\n");
    folder.write(kLog, "");
    EXPECT_EQ(delete_word(session, {"casa", "hogar", "01234"}, 0), 1);
    EXPECT_EQ(files(), QByteArrayList({"ni\xF1o|child|01500\r\n", "agua|water|01002\r\n", "", "agua|water|01002\r\n",
                                       "word_deleted->casa|hogar|01234\r\n"}));
}

TEST_F(Packing, CancelChangesNothingAndOKPacksOneArchivePerRecordingFolderAndTheWordFilesEachCopiedForSending)
{
    for (const char* name : {"70/70000.str", "70/70001.STR", "70/notes.txt", "71/71005.str", "72/72000.str"})
        folder.write(QString("languages/spanish/new_str/") + name, QByteArray(name) + patternBytes(3000));
    folder.write("languages/spanish/new_str/stray.str", "not a folder of recordings");
    write({"casa|house|01234\r\n", "casa|house|01234\r\n"});
    folder.write(kHigh, " 70003\r\n");
    folder.write("languages/spanish/spanish.zip", "an earlier archive");
    folder.write("languages/spanish/01/01234.mp3", "installed");
    // What killed runs left: the archiver's temporaries, a rewrite's, an edit's journal not committed.
    const QStringList lefts = {"languages/spanish/spanish.zip.Ab12Cd", "languages/spanish/new_str/70/70.zip.xY3z9Q",
                               "languages/spanish/food.txt.rewrite.tmp", "languages/spanish/food.txt.edit.tmp",
                               "languages/spanish/edits.journal"};
    for (const QString& left : lefts)
        folder.write(left, "left behind");
    folder.write(lefts.last(), "rename\t" + folder.file(lefts[3]).toUtf8() + "\t" + folder.file(kList).toUtf8() + "\n");
    const auto before = folder.snapshot();
    prompts.push(false);
    EXPECT_FALSE(pack_recordings(session));
    ASSERT_EQ(prompts.shown.size(), 2);
    EXPECT_TRUE(prompts.shown[0].text.startsWith(
        "Use this function AFTER you have finished recording ALL the words and phrases for the spanish language.  "
        "Clicking 'OK' below will place the recordings in the folder called " +
        folder.path() + "/recordings.  "));
    EXPECT_TRUE(prompts.shown[0].text.endsWith("\n\nClick 'OK' to run this function or 'Cancel' to go back."));
    EXPECT_EQ(prompts.boxes()[1], "message||The action has been cancelled.");
    EXPECT_EQ(folder.snapshot(), before);

    prompts.shown.clear();
    ProgressLines progress;
    prompts.push(true);
    ASSERT_TRUE(pack_recordings(session, &progress));
    const QStringList shown = prompts.boxes();
    ASSERT_EQ(shown.size(), 6);
    EXPECT_TRUE(shown[0].startsWith("okCancel||Use this function"));
    const QString working = "message||Currently the program is working on spanish_str_7%1.zip.  Please wait about "
                            "5 seconds before clicking 'OK' below.";
    EXPECT_EQ(shown.mid(1, 4), QStringList({working.arg(0), working.arg(1), working.arg(2),
                                            "message||The program is busy.  Please wait 3 seconds before clicking 'OK' "
                                            "below.  This message will appear about 10 times before it is finished."}));
    EXPECT_TRUE(shown[5].startsWith("message||This action is finished.\n")) << shown[5].toStdString();
    EXPECT_TRUE(shown[5].contains(folder.path() + "/recordings"));

    EXPECT_EQ(members("recordings/str/spanish_str_70.zip") + members("recordings/str/spanish_str_71.zip") +
                  members("languages/spanish/new_str/72/72.zip"),
              QStringList({"70000.str", "70001.STR", "71005.str", "72000.str"}));
    EXPECT_EQ(member("recordings/str/spanish_str_70.zip", "70000.str"), "70/70000.str" + patternBytes(3000));
    const QStringList textFiles = {"food.txt", "highest_num.dat", "master_spanish.txt"};
    EXPECT_EQ(members("recordings/text_spanish.zip"), textFiles);
    EXPECT_EQ(member("recordings/text_spanish.zip", "highest_num.dat"), " 70003\r\n");
    EXPECT_TRUE(progress.lines.contains("Packing spanish_str_71.zip: 100%") &&
                progress.lines.contains("Packing spanish.zip: 100%"));

    // The next start sweeps what the killed runs left, and nothing else.
    auto swept = folder.snapshot();
    for (const QString& left : lefts)
        swept.remove(left);
    finish_unfinished_work(session.languages_folder);
    EXPECT_EQ(folder.snapshot(), swept);

    // A second run finds its folders and replaces the copies; the one that cannot be written is named
    // with its cause and keeps its bytes, the rest are written and named.
    folder.write("languages/spanish/new_str/70/70000.str", "again");
    folder.write("languages/spanish/new_str/71/71005.str", "again");
    prompts.shown.clear();
    prompts.push(true);
    file_faults::failAt(Step::write, 4, ENOSPC);
    EXPECT_FALSE(pack_recordings(session));
    file_faults::reset();
    const QString said = prompts.shown.last().text;
    EXPECT_TRUE(!said.startsWith("This action is finished.") &&
                said.contains(folder.file("recordings/str/spanish_str_71.zip") + " (the disk is full)") &&
                said.contains(folder.file("recordings/str/spanish_str_72.zip")) &&
                said.contains(folder.file("recordings/text_spanish.zip")))
        << said.toStdString();
    EXPECT_EQ(member("recordings/str/spanish_str_70.zip", "70000.str"), "again");
    EXPECT_EQ(member("recordings/str/spanish_str_71.zip", "71005.str"), "71/71005.str" + patternBytes(3000));
    EXPECT_EQ(QDir(folder.file("recordings/str")).entryList(QDir::Files | QDir::Hidden),
              QStringList({"spanish_str_70.zip", "spanish_str_71.zip", "spanish_str_72.zip"}));
    EXPECT_EQ(members("recordings/text_spanish.zip"), textFiles);
}

TEST_F(Safety, AnEditWithAnyStepFailingChangesEveryFileOrNoneAndSaysWhy)
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

    // A correction with the student's known file missing corrects the others; one that cannot be
    // read stops it all.
    prepare();
    QString error;
    QFile::remove(folder.file(kKnown));
    EXPECT_EQ(save_text(session, {"casa", "home", "01234"}, 3), 4);
    EXPECT_EQ(std::tuple(folder.read(kUnknown), folder.exists(kKnown)), std::tuple("casa|home|01234\r\n", false));
    EXPECT_EQ(folder.read(kLog), "old|line|00001->old|one|00001\r\ncasa|house|01234->casa|home|01234\r\n");
    folder.mkdir(kKnown);
    EXPECT_EQ(save_text(session, {"casa", "hogar", "01234"}, 3, "no", &error), std::nullopt);
    EXPECT_TRUE(error.contains(folder.file(kKnown))) << error.toStdString();
    EXPECT_EQ(folder.read(kUnknown), "casa|home|01234\r\n");
}

TEST_F(Safety, AKilledEditThatWasCommittedIsCompletedBeforeTheNextAndNothingTwice)
{
    // Killed after the list was renamed into place, half-way through appending to the log.
    words();
    folder.write(kList, "casa|home|01234\r\nsol|sun|01300\r\n");
    folder.write(kMaster + QString(".edit.tmp"), "agua|water|01002\r\ncasa|home|01234\r\nsol|sun|01300\r\n");
    const QByteArray logLine = "casa|house|01234->casa|home|01234\r\n";
    const QByteArray oldLog = folder.read(kLog);
    folder.write(kLog, oldLog + logLine.left(9));
    folder.write("languages/spanish/edits.journal",
                 "rename\t" + folder.file(kList + QString(".edit.tmp")).toUtf8() + "\t" + folder.file(kList).toUtf8() +
                     "\nrename\t" + folder.file(kMaster + QString(".edit.tmp")).toUtf8() + "\t" +
                     folder.file(kMaster).toUtf8() + "\nappend\t" + folder.file(kLog).toUtf8() + "\t" +
                     QByteArray::number(oldLog.size()) + "\t" + logLine.toHex() + "\ncommit\n");
    // The next correction finishes it first.
    EXPECT_EQ(save_text(session, {"casa", "hogar", "01234"}, 0), 1);
    EXPECT_EQ(files(),
              QByteArrayList({"casa|hogar|01234\r\nsol|sun|01300\r\n",
                              "agua|water|01002\r\ncasa|hogar|01234\r\nsol|sun|01300\r\n", "casa|hogar|01234\r\n",
                              "sol|sun|01300\r\n", oldLog + logLine + "casa|home|01234->casa|hogar|01234\r\n"}));
    EXPECT_EQ(QDir(folder.file("languages/spanish")).entryList({"*.tmp", "*.journal"}), QStringList());
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
            return new_language(session, error);
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
    EXPECT_EQ(folder.read("languages/hausa/trans_hausa.dat") + folder.read("languages/yoruba/trans_yoruba.dat"),
              "yoruba\r\nhausa\r\n");
    QString error;
    EXPECT_TRUE(make("swahili", "english")(&error));
}
