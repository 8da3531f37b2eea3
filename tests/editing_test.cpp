#include "core/session.h"
#include "record/editing.h"
#include "record/packing.h"
#include "test_support.h"

#include <QDirIterator>

#include <gtest/gtest.h>

#include <csignal>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

using namespace quorvane;
using quorvane::test::boxes;
using quorvane::test::patternBytes;
using quorvane::test::ProgramFolder;

namespace {

// A session on the list food of kestrin in spanish, its four files below a fresh program folder.
struct EditFixture
{
    ProgramFolder folder;
    ScriptedPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    Session session{prompts, sound, clock};

    EditFixture()
    {
        session.languages_folder = folder.path() + "/languages/";
        session.current_language = "spanish";
        session.list_file = folder.file(kList);
        session.master_file = folder.file(kMaster);
        session.unknown_file = folder.file(kUnknown);
        session.known_file = folder.file(kKnown);
    }
    static constexpr const char* kList = "languages/spanish/food.txt";
    static constexpr const char* kMaster = "languages/spanish/master_spanish.txt";
    static constexpr const char* kUnknown = "users/kestrin/spanish/food-u.txt";
    static constexpr const char* kKnown = "users/kestrin/spanish/food-k.txt";
    static constexpr const char* kLog = "languages/spanish/changes_spanish.dat";
    static constexpr const char* kHigh = "languages/spanish/highest_num.dat";
};

} // namespace

TEST(Editing, AdditionsTakeNumbersFrom70000AndLandAtTheEndOfListMasterAndUnknown)
{
    EditFixture f;
    f.folder.write(f.kList, "casa|house|01234\r\n");
    f.folder.write(f.kMaster, "casa|house|01234\r\nperro|dog|01300"); // its last line has no line end
    f.folder.mkdir("users/kestrin/spanish");
    QStringList numbers;
    for (const auto& [word, translation] : {std::pair{"gato", "cat"}, {"sol", "sun"}, {"", ""}})
        numbers.append(add_word(f.session, {word, translation, "01234"}).value_or("failed"));

    EXPECT_EQ(numbers, QStringList({"70000", "70001", "70002"}));
    EXPECT_EQ(f.folder.read(f.kHigh), " 70003\r\n");
    const QByteArray added = "gato|cat|70000\r\nsol|sun|70001\r\n||70002\r\n";
    EXPECT_EQ(f.folder.read(f.kList), "casa|house|01234\r\n" + added);
    EXPECT_EQ(f.folder.read(f.kMaster), "casa|house|01234\r\nperro|dog|01300\r\n" + added);
    EXPECT_EQ(f.folder.read(f.kUnknown), added);
    EXPECT_FALSE(f.folder.exists(f.kLog)); // additions are not logged

    // Adding to the master list itself writes the entry there once; the counter goes on from
    // whatever number the file holds, blank or not.
    f.session.list_file = f.session.master_file;
    f.folder.write(f.kHigh, "71234\r\n");
    f.folder.write(f.kMaster, "");
    EXPECT_EQ(add_word(f.session, {"luna", "moon", ""}), QString("71234"));
    EXPECT_EQ(f.folder.read(f.kMaster), "luna|moon|71234\r\n");
    EXPECT_EQ(f.folder.read(f.kHigh), " 71235\r\n");
}

TEST(Editing, CorrectionRewritesEveryEntryOfTheNumberInEachFileAndLogsTheMasterOnly)
{
    EditFixture f;
    f.folder.write(f.kList, "casa|house|01234\r\nni\xF1o|child|01500\r\ncasita|little house|01234\r\n");
    f.folder.write(f.kMaster, "agua|water|01002\r\ncasa|house|01234\r\n");
    f.folder.write(f.kUnknown, "casa|house|01234\r\n");
    f.folder.write(f.kKnown, "agua|water|01002\r\n");
    f.folder.write(f.kLog, "earlier|line|00001->earlier|one|00001\r\n");

    EXPECT_EQ(save_text(f.session, {"casa", "home", "01234"}, 4), 5);
    EXPECT_EQ(f.folder.read(f.kList), "casa|home|01234\r\nni\xF1o|child|01500\r\ncasa|home|01234\r\n");
    EXPECT_EQ(f.folder.read(f.kMaster), "agua|water|01002\r\ncasa|home|01234\r\n");
    EXPECT_EQ(f.folder.read(f.kUnknown), "casa|home|01234\r\n");
    EXPECT_EQ(f.folder.read(f.kKnown), "agua|water|01002\r\n");
    EXPECT_EQ(f.folder.read(f.kLog), "earlier|line|00001->earlier|one|00001\r\ncasa|house|01234->casa|home|01234\r\n");

    // The master list as the current list: rewritten once, so logged once.
    f.session.list_file = f.session.master_file;
    f.folder.write(f.kLog, "");
    EXPECT_EQ(save_text(f.session, {"casa", "hogar", "01234"}, 0), 1);
    EXPECT_EQ(f.folder.read(f.kMaster), "agua|water|01002\r\ncasa|hogar|01234\r\n");
    EXPECT_EQ(f.folder.read(f.kLog), "casa|home|01234->casa|hogar|01234\r\n");
}

TEST(Editing, DeletionRemovesTheEntryEverywhereAndLogsItOnce)
{
    EditFixture f;
    const QByteArray other = "agua|water|01002\r\n";
    for (const char* file : {f.kList, f.kMaster, f.kUnknown, f.kKnown})
        f.folder.write(file, "casa|house|01234\r\n" + other);

    EXPECT_EQ(delete_word(f.session, {"casa", "home", "01234"}, 0), 1);
    for (const char* file : {f.kList, f.kMaster, f.kUnknown, f.kKnown})
        EXPECT_EQ(f.folder.read(file), other) << file;
    EXPECT_EQ(f.folder.read(f.kLog), "word_deleted->casa|home|01234\r\n");
}

TEST(Editing, AnErrorEndsTheSaveAndNoClickedEntryChangesNothing)
{
    EditFixture f;
    const QByteArray entries = "casa|house|01234\r\n\r\nabc\r\n";
    for (const char* file : {f.kList, f.kMaster, f.kKnown})
        f.folder.write(file, entries);

    // No entry clicked: no line is taken for the empty number, not even an empty one.
    EXPECT_EQ(save_text(f.session, {"x", "y", ""}, 2), std::nullopt); // the unknown file is missing
    for (const char* file : {f.kList, f.kMaster, f.kKnown})
        EXPECT_EQ(f.folder.read(file), entries) << file;
    EXPECT_FALSE(f.folder.exists(f.kLog));

    // The missing unknown file ends the save after the list and master, before the known file.
    EXPECT_EQ(save_text(f.session, {"casa", "home", "01234"}, 0), std::nullopt);
    EXPECT_EQ(f.folder.read(f.kList), "casa|home|01234\r\n\r\nabc\r\n");
    EXPECT_EQ(f.folder.read(f.kMaster), "casa|home|01234\r\n\r\nabc\r\n");
    EXPECT_EQ(f.folder.read(f.kKnown), entries);
    EXPECT_TRUE(f.prompts.shown.isEmpty());
}

TEST(Editing, KilledAtAnyMomentOfRepeatedCorrectionsEveryFileIsWhole)
{
    // What is tried is a killed process, not a lost disk: the files are kept in memory where the
    // system offers that, so that hundreds of runs take seconds.
    QTemporaryDir folder((QFileInfo("/dev/shm").isWritable() ? "/dev/shm" : QDir::tempPath()) + "/quorvane-XXXXXX");
    ScriptedPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    Session session{prompts, sound, clock};
    session.languages_folder = folder.path() + "/";
    session.current_language = "spanish";
    QDir(folder.path()).mkdir("spanish"); // the change log's folder
    const QStringList files = {
        session.list_file = folder.filePath("food.txt"), session.master_file = folder.filePath("master_spanish.txt"),
        session.unknown_file = folder.filePath("food-u.txt"), session.known_file = folder.filePath("food-k.txt")};

    // Ten entries of the corrected number among a thousand; a whole file is one of these.
    const QStringList variants = {"house", "home", "dwelling, abode", QString::fromLatin1("h\xF6me")};
    QByteArray entries;
    for (int i = 0; i < 1000; ++i)
        entries +=
            i % 100 == 50 ? QByteArray("casa|house|01234\r\n") : "palabra|word|1" + QByteArray::number(i) + "\r\n";
    QSet<QByteArray> wholeFiles;
    for (const QString& variant : variants)
        wholeFiles.insert(QByteArray(entries).replace("|house|", "|" + variant.toLatin1() + "|"));
    const auto contents = [](const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    for (const QString& path : files) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(entries) == entries.size());
    }

    std::mt19937 random(2026);
    const int kills = 200;
    for (int kill = 0; kill < kills; ++kill) {
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            // One whole correction first, so that every kill lands among the rewrites.
            for (int n = 0;; ++n) {
                save_text(session, {"casa", variants[(n + kill) % variants.size()], "01234"}, 0);
                if (n == 0 && write(ready[1], "r", 1) != 1)
                    _exit(1);
            }
        }
        char signal = 0;
        ASSERT_EQ(read(ready[0], &signal, 1), 1);
        close(ready[0]);
        close(ready[1]);
        usleep(std::uniform_int_distribution<useconds_t>(0, 4000)(random));
        ::kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        for (const QString& path : files)
            ASSERT_TRUE(wholeFiles.contains(contents(path))) << path.toStdString() << " torn after kill " << kill;
    }
    // The log holds whole lines of the children's corrections, at least one of each, once the
    // next correction has cut off what a kill in the middle of an append left.
    ASSERT_EQ(save_text(session, {"casa", "home", "01234"}, 0), 1);
    const QStringList log =
        QString::fromLatin1(contents(folder.filePath("spanish/changes_spanish.dat"))).split("\r\n", Qt::SkipEmptyParts);
    EXPECT_GE(log.size(), kills);
    for (const QString& line : log)
        EXPECT_TRUE(line.startsWith("casa|") && line.endsWith("|01234") && line.count("->") == 1) << line.toStdString();
}

namespace {

// Packing works in the program folder, the current directory: the fixture's folder for its life.
struct PackFixture : EditFixture
{
    QString previous = QDir::currentPath();
    PackFixture() { QDir::setCurrent(folder.path()); }
    ~PackFixture() { QDir::setCurrent(previous); }

    // Every file below the program folder.
    QStringList everything() const
    {
        QStringList files;
        for (QDirIterator it(folder.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); it.hasNext();)
            files.append(it.next());
        return files;
    }
    // The member names of an archive, as Debian's unzip lists them.
    QStringList members(const char* archive) const
    {
        QByteArray output;
        quorvane::test::runTool("unzip", {"-Z1", folder.file(archive)}, &output);
        QStringList names = QString::fromUtf8(output).split('\n', Qt::SkipEmptyParts);
        names.sort();
        return names;
    }
    QByteArray member(const char* archive, const char* name) const
    {
        QByteArray output;
        quorvane::test::runTool("unzip", {"-p", folder.file(archive), name}, &output);
        return output;
    }
};

struct ProgressLines : PackingView
{
    void show_packing_progress(const QString& text) override { lines.append(text); }
    QStringList lines;
};

const QString kQuestionStart = "Use this function AFTER you have finished recording ALL the words and phrases for the "
                               "spanish language.  Clicking 'OK' below will place the recordings in the folder called ";
const QString kQuestionEnd = "\n\nClick 'OK' to run this function or 'Cancel' to go back.";

} // namespace

TEST(Packing, CancelShowsTheMessageAndChangesNothingOnDisk)
{
    PackFixture f;
    f.folder.write("languages/spanish/food.txt", "casa|house|01234\r\n");
    f.folder.write("languages/spanish/new_str/70/70000.str", "S0");
    const auto before = f.everything();
    f.prompts.push(false);

    EXPECT_FALSE(pack_recordings(f.session));
    ASSERT_EQ(f.prompts.shown.size(), 2);
    EXPECT_EQ(f.prompts.shown[0].kind, "okCancel");
    EXPECT_TRUE(f.prompts.shown[0].text.startsWith(kQuestionStart + f.folder.path() + "/recordings.  "));
    EXPECT_TRUE(f.prompts.shown[0].text.endsWith(kQuestionEnd));
    EXPECT_EQ(boxes(f.prompts)[1], "message||The action has been cancelled.");
    EXPECT_EQ(f.everything(), before);
    EXPECT_FALSE(f.folder.exists("recordings"));
}

TEST(Packing, OneArchivePerRecordingFolderAndOneOfTheLanguageFilesEachCopiedForSending)
{
    PackFixture f;
    for (const char* name : {"70/70000.str", "70/70001.STR", "70/notes.txt", "71/71005.str", "72/72000.str"})
        f.folder.write(QString("languages/spanish/new_str/") + name, QByteArray(name) + patternBytes(3000));
    f.folder.write("languages/spanish/new_str/stray.str", "not a folder of recordings");
    f.folder.write("languages/spanish/food.txt", "casa|house|01234\r\n");
    f.folder.write("languages/spanish/master_spanish.txt", "casa|house|01234\r\n");
    f.folder.write("languages/spanish/highest_num.dat", " 70003\r\n");
    f.folder.write("languages/spanish/spanish.zip", "an earlier archive");
    f.folder.write("languages/spanish/food.txt.rewrite.tmp", "casa|ho"); // left by a killed rewrite
    f.folder.write("languages/spanish/01/01234.mp3", "installed");
    ProgressLines progress;
    f.prompts.push(true);

    ASSERT_TRUE(pack_recordings(f.session, &progress));
    QStringList expected = {"okCancel||"};
    for (const char* d : {"70", "71", "72"})
        expected.append(QString("message||Currently the program is working on spanish_str_%1.zip.  Please wait about "
                                "5 seconds before clicking 'OK' below.")
                            .arg(d));
    expected.append("message||The program is busy.  Please wait 3 seconds before clicking 'OK' below.  This message "
                    "will appear about 10 times before it is finished.");
    QStringList shown = boxes(f.prompts);
    shown[0] = shown[0].left(10);
    ASSERT_EQ(shown.size(), 6);
    EXPECT_TRUE(shown[5].startsWith("message||This action is finished.\n")) << shown[5].toStdString();
    EXPECT_TRUE(shown[5].contains(f.folder.path() + "/recordings"));
    shown.removeLast();
    EXPECT_EQ(shown, expected);

    EXPECT_EQ(f.members("recordings/str/spanish_str_70.zip"), QStringList({"70000.str", "70001.STR"}));
    EXPECT_EQ(f.members("recordings/str/spanish_str_71.zip"), QStringList({"71005.str"}));
    EXPECT_EQ(f.members("languages/spanish/new_str/72/72.zip"), QStringList({"72000.str"}));
    EXPECT_EQ(f.member("recordings/str/spanish_str_70.zip", "70000.str"), "70/70000.str" + patternBytes(3000));
    EXPECT_EQ(f.members("recordings/text_spanish.zip"),
              QStringList({"food.txt", "highest_num.dat", "master_spanish.txt"}));
    EXPECT_EQ(f.member("recordings/text_spanish.zip", "highest_num.dat"), " 70003\r\n");
    EXPECT_TRUE(progress.lines.contains("Packing spanish_str_71.zip: 100%"));
    EXPECT_TRUE(progress.lines.contains("Packing spanish.zip: 100%"));

    // A second run finds its folders and replaces the copies.
    f.folder.write("languages/spanish/new_str/71/71005.str", "again");
    f.prompts.push(true);
    ASSERT_TRUE(pack_recordings(f.session));
    EXPECT_EQ(f.member("recordings/str/spanish_str_71.zip", "71005.str"), "again");
    EXPECT_EQ(f.members("recordings/text_spanish.zip"),
              QStringList({"food.txt", "highest_num.dat", "master_spanish.txt"}));
}
