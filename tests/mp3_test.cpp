#include "flash/flash_window.h"
#include "flash/mp3_compile.h"
#include "flash_course.h"

#include <QDirIterator>
#include <QLabel>
#include <QProcess>

#include <gtest/gtest.h>

#include <cmath>

using namespace quorvane;
using quorvane::test::CourseOptions;
using quorvane::test::FlashCourse;
using quorvane::test::ProgramFolder;

namespace {

const QString kConfirm = "This will create MP3 files for the current word list in blocks of 100 words.  The mp3 files "
                         "will be stored in the quorvane folder and named 100words1.mp3, 100words2.mp3 etc.  If these "
                         "files already exit from a previous session, they will be deleted.";
const QString kRepeats =
    "How many times should each word be repeated?  I recommend 5.  Type only a number. It may take 5 minutes for this "
    "operation to complete if you select 5 repeats and there are 1000 words on this word list.  With a setting of 5, "
    "each mp3 file is 4 MB and 15 minuutes long (for word lists, not phrases).  There will a message to let you know "
    "when it's complete.  You may click cancel to stop this operation.";
const QString kSilence = "How many seconds of silence should there be between words?  Enter zero \"0\" for no pause "
                         "between words (it's fast) or 0.5 for a little bit of a pause.";

QByteArray line(const QByteArray& piece)
{
    return piece + "\r\n";
}

// What auto_mp3 writes for word i of the course: repeats times translation, word and silences,
// then the beep.
QByteArray compiledWord(int i, int repeats, int silences, bool translation = true)
{
    QByteArray bytes;
    for (int r = 0; r < repeats; ++r) {
        if (translation)
            bytes += line("T" + QByteArray::number(i));
        bytes += line("W" + QByteArray::number(i));
        for (int p = 0; p < silences; ++p)
            bytes += line("S");
    }
    return bytes + line("B");
}

FlashWindow* openCards(FlashCourse& course)
{
    course.folder.write("silence.mp3", "S");
    course.folder.write("beep.mp3", "B");
    return new FlashWindow(course.session(), course.main());
}

} // namespace

TEST(Mp3, CreateMp3CapturesTheCardsThatFollowItsBeeps)
{
    FlashCourse course;
    Session& s = course.session();
    FlashWindow* cards = openCards(course);
    s.say_mode = "no";
    s.repeat_count = 2;
    s.speed = 0.4f;
    course.folder.write("out_file.mp3", "from last time");
    course.prompts.shown.clear();
    course.prompts.push(QString("2"));
    cards->create_mp3_click();
    EXPECT_FALSE(course.folder.exists("out_file.mp3"));
    EXPECT_EQ(s.mp3_words_left, 2);
    ASSERT_EQ(course.prompts.shown.size(), 2);
    EXPECT_TRUE(course.prompts.shown[0].text.startsWith(
        "This will create an mp3 file for your portable mp3 player. It is not useful unless you have the sound files "
        "for both languages.  The mp3 file this creates"));
    EXPECT_TRUE(course.prompts.shown[0].text.endsWith("click OK.  I recommend 50."));
    EXPECT_EQ(course.prompts.shown[1].text,
              "When the recording is completed, the flash cards will resume normal mode and begin playing aloud.  When "
              "this finishes, rename out_file.mp3 if you don't want it deleted the next time you use this function.");

    // Two words asked: two beeps, the first card captured, the second heard.
    course.pauseAtSound(1);
    cards->playwords();
    const int captured = s.previous_index;
    EXPECT_EQ(course.folder.read("out_file.mp3"), line("B") + compiledWord(captured, 2, 2, false));
    EXPECT_EQ(course.sound.played, QStringList({course.played(FlashCourse::spanishPath(s.current_index))}));
    EXPECT_EQ(s.mp3_words_left, 0);
    EXPECT_EQ(cards->mp3_label->text(), "1 words added");

    // One word asked: one beep and nothing captured.
    course.prompts.push(QString("1"));
    cards->create_mp3_click();
    course.pauseAtSound(2);
    cards->playwords();
    EXPECT_EQ(course.folder.read("out_file.mp3"), line("B"));
    EXPECT_EQ(cards->mp3_label->text(), " words added");
}

TEST(Mp3, AutoMp3WritesEveryWordWithTranslationSilenceAndBeep)
{
    FlashCourse course;
    Session& s = course.session();
    FlashWindow* cards = openCards(course);
    QFile::remove(course.folder.file(FlashCourse::englishPath(1)));
    course.folder.write("100words1.mp3", "an old file");
    course.prompts.shown.clear();
    for (const QVariant& answer : QVariantList{true, QString("2"), QString("0.5")})
        course.prompts.push(answer);
    cards->auto_mp3_click();
    EXPECT_EQ(course.prompts.texts(), QStringList({kConfirm, kRepeats, kSilence, "1 files have been completed."}));
    EXPECT_EQ(s.silence_count, 2);
    EXPECT_EQ(course.folder.read("100words1.mp3"),
              compiledWord(0, 2, 2) + compiledWord(1, 2, 2, false) + compiledWord(2, 2, 2));
    EXPECT_FALSE(course.folder.exists("100words2.mp3"));
    EXPECT_EQ(cards->mp3_label->text(), "0 words completed");

    // 0.3 s is one piece of silence (cut, not rounded), 0 none.
    for (const auto& [entry, pieces] : {std::pair<const char*, int>{"0.3", 1}, {"0", 0}}) {
        for (const QVariant& answer : QVariantList{true, QString("1"), QString(entry)})
            course.prompts.push(answer);
        cards->auto_mp3_click();
        EXPECT_EQ(course.folder.read("100words1.mp3"),
                  compiledWord(0, 1, pieces) + compiledWord(1, 1, pieces, false) + compiledWord(2, 1, pieces))
            << entry;
    }
}

TEST(Mp3, AutoMp3CancelledAtAnyBoxWritesNothing)
{
    FlashCourse course;
    FlashWindow* cards = openCards(course);
    const QList<QVariantList> answers = {{false}, {true, QString()}, {true, QString("3"), QString()}};
    for (const QVariantList& script : answers) {
        course.prompts.shown.clear();
        for (const QVariant& answer : script)
            course.prompts.push(answer);
        cards->auto_mp3_click();
        EXPECT_EQ(course.prompts.texts().size(), script.size() + 1);
        EXPECT_EQ(course.prompts.texts().last(), "Action has been cancelled");
    }
    EXPECT_FALSE(course.folder.exists("100words1.mp3"));
}

TEST(Mp3, AHundredWordsMakeOneFileCountedAsTwo)
{
    CourseOptions hundred;
    hundred.words = 100;
    FlashCourse course(hundred);
    FlashWindow* cards = openCards(course);
    course.prompts.shown.clear();
    for (const QVariant& answer : QVariantList{true, QString("1"), QString("0")})
        course.prompts.push(answer);
    cards->auto_mp3_click();
    EXPECT_EQ(course.prompts.texts().last().toStdString(), "2 files have been completed.");
    QByteArray expected;
    for (int i = 0; i < 100; ++i)
        expected += compiledWord(i, 1, 0);
    EXPECT_EQ(course.folder.read("100words1.mp3"), expected);
    EXPECT_FALSE(course.folder.exists("100words2.mp3"));
    EXPECT_EQ(cards->mp3_label->text(), "90 words completed");
}

namespace {

void copyFolder(const QString& from, const QString& to)
{
    QDirIterator it(from, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString source = it.next();
        const QString target = to + source.mid(from.size());
        QDir().mkpath(QFileInfo(target).absolutePath());
        ASSERT_TRUE(QFile::copy(source, target)) << source.toStdString();
    }
}

// Runs a tool to its end: its exit code, its output and its complaints.
int runTool(const QString& program, const QStringList& arguments, QString* output, QString* errors)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60000)) << program.toStdString();
    *output = QString::fromUtf8(process.readAllStandardOutput());
    *errors = QString::fromUtf8(process.readAllStandardError());
    return process.exitCode();
}

double probedSeconds(const QString& path)
{
    QString output;
    QString errors;
    EXPECT_EQ(runTool("ffprobe", {"-v", "error", "-show_entries", "format=duration", "-of", "csv=p=0", path}, &output,
                      &errors),
              0)
        << errors.toStdString();
    return output.trimmed().toDouble();
}

} // namespace

TEST(Mp3, TheSampleCourseCompilesIntoFilesThatDecodeWhole)
{
    ProgramFolder folder;
    copyFolder(QStringLiteral(QUORVANE_DEMO_DIR), folder.path());
    ScriptedPrompts prompts({QString("kestrin")});
    FakeSound sound;
    FakeClock clock;
    std::unique_ptr<QWidget> window(start(folder.path(), &prompts, &sound, &clock));
    auto* main = static_cast<MainWindow*>(window.get());
    Session& s = sessionOf(window.get());
    select_row(main->lang_list, main->lang_list->row(main->lang_list->findItems("spanish", Qt::MatchExactly)[0]));
    select_row(main->lists_list, main->lists_list->row(main->lists_list->findItems("colours", Qt::MatchExactly)[0]));
    ASSERT_GT(s.wordCount(), 10);

    auto* cards = new FlashWindow(s, main);
    for (const QVariant& answer : QVariantList{true, QString("2"), QString("0.2")})
        prompts.push(answer);
    cards->auto_mp3_click();
    ASSERT_EQ(prompts.texts().last(), "1 files have been completed.");

    // The sum of what went in, each piece measured on its own.
    QHash<QString, double> seconds;
    auto piece = [&](const QString& path) {
        if (!QFileInfo::exists(path))
            return 0.0;
        if (!seconds.contains(path))
            seconds.insert(path, probedSeconds(path));
        return seconds.value(path);
    };
    double expected = 0.0;
    int pieces = 0;
    for (int i = 0; i < s.wordCount(); ++i) {
        const QString word = recording_path(s, s.sound_numbers[i], "spanish");
        const QString translation =
            recording_path(s, s.target_sound_numbers[s.sound_numbers[i].toInt()], s.target_language);
        ASSERT_TRUE(QFileInfo::exists(word)) << word.toStdString();
        ASSERT_TRUE(QFileInfo::exists(translation)) << translation.toStdString();
        expected +=
            2 * (piece(translation) + piece(word) + piece(folder.file("silence.mp3"))) + piece(folder.file("beep.mp3"));
        pieces += 7;
    }

    const QString compiled = folder.file("100words1.mp3");
    QString output;
    QString errors;
    EXPECT_EQ(runTool("ffmpeg", {"-v", "error", "-i", compiled, "-f", "null", "-"}, &output, &errors), 0);
    // The only complaints are about the line ends between the pieces, at most one per piece.
    const QStringList complaints = errors.split('\n', Qt::SkipEmptyParts);
    EXPECT_LE(complaints.filter("Header missing").size(), pieces);
    for (const QString& complaint : complaints)
        EXPECT_TRUE(complaint.contains("Header missing") || complaint.contains("Invalid data found") ||
                    complaint.contains("Last message repeated"))
            << complaint.toStdString();
    // The length a player shows.
    const double measured = probedSeconds(compiled);
    EXPECT_NEAR(measured, expected, expected * 0.05);

    // What ffmpeg decodes: its decoder drops the one frame that follows each CR LF (576 samples at
    // 22050 Hz), and nothing else.
    QProcess decoder;
    decoder.start("ffmpeg", {"-v", "quiet", "-i", compiled, "-f", "s16le", "-ac", "1", "-ar", "22050", "-"});
    ASSERT_TRUE(decoder.waitForFinished(60000));
    const double decoded = static_cast<double>(decoder.readAllStandardOutput().size()) / (2 * 22050);
    const double frame = 576.0 / 22050;
    EXPECT_LE(decoded, expected * 1.01);
    EXPECT_GE(decoded, expected - pieces * frame - expected * 0.01);
}
