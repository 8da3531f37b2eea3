#include "flash/flash_window.h"
#include "flash/mp3_compile.h"
#include "test_support.h"

#include <QDirIterator>
#include <QLabel>

#include <gtest/gtest.h>

using namespace quorvane;
using namespace quorvane::test;

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

// What auto_mp3 writes for word i of the course: repeats times translation, word and silences,
// then the beep, every piece followed by CR LF.
QByteArray compiledWord(int i, int repeats, int silences, bool translation = true)
{
    QByteArray bytes;
    for (int r = 0; r < repeats; ++r) {
        if (translation)
            bytes += "T" + QByteArray::number(i) + "\r\n";
        bytes += "W" + QByteArray::number(i) + "\r\n" + repeatedLines("S", silences);
    }
    return bytes + "B\r\n";
}

// The course of words words, with the silence and beep pieces, and its large flash-card window.
FlashWindow* openCards(Program& p, int words = 3)
{
    openCourse(p, words);
    p.folder.write("silence.mp3", "S");
    p.folder.write("beep.mp3", "B");
    p.prompts.shown.clear();
    return new FlashWindow(p.session(), p.main());
}

void answer(Program& p, const QVariantList& answers)
{
    for (const QVariant& answer : answers)
        p.prompts.push(answer);
}

} // namespace

TEST(Mp3, CreateMp3CapturesTheCardsThatFollowItsBeeps)
{
    Program p;
    FlashWindow* cards = openCards(p);
    Session& s = p.session();
    s.say_mode = "no";
    s.repeat_count = 2;
    s.speed = 0.4f;
    p.folder.write("out_file.mp3", "from last time");
    answer(p, {QString("2")});
    cards->create_mp3_click();
    EXPECT_FALSE(p.folder.exists("out_file.mp3"));
    EXPECT_EQ(s.mp3_words_left, 2);
    ASSERT_EQ(p.prompts.shown.size(), 2);
    EXPECT_TRUE(p.prompts.shown[0].text.startsWith(
        "This will create an mp3 file for your portable mp3 player. It is not useful unless you have the sound files "
        "for both languages.  The mp3 file this creates"));
    EXPECT_TRUE(p.prompts.shown[0].text.endsWith("click OK.  I recommend 50."));
    EXPECT_EQ(p.prompts.shown[1].text,
              "When the recording is completed, the flash cards will resume normal mode and begin playing aloud.  When "
              "this finishes, rename out_file.mp3 if you don't want it deleted the next time you use this function.");

    // Two words asked: two beeps, the first card captured, the second heard.
    p.pauseAtSound(1);
    cards->playwords();
    EXPECT_EQ(p.folder.read("out_file.mp3"), "B\r\n" + compiledWord(s.previous_index, 2, 2, false));
    EXPECT_EQ(p.sound.played, QStringList({p.played(spanishPath(s.current_index))}));
    EXPECT_EQ(s.mp3_words_left, 0);
    EXPECT_EQ(cards->mp3_label->text(), "1 words added");

    // One word asked: one beep and nothing captured.
    answer(p, {QString("1")});
    cards->create_mp3_click();
    p.pauseAtSound(2);
    cards->playwords();
    EXPECT_EQ(p.folder.read("out_file.mp3"), QByteArray("B\r\n"));
    EXPECT_EQ(cards->mp3_label->text(), " words added");
}

TEST(Mp3, AutoMp3WritesEveryWordWithTranslationSilenceAndBeep)
{
    Program p;
    FlashWindow* cards = openCards(p);
    QFile::remove(p.folder.file("languages/" + englishPath(1)));
    p.folder.write("100words1.mp3", "an old file");
    answer(p, {true, QString("2"), QString("0.5")});
    cards->auto_mp3_click();
    EXPECT_EQ(p.prompts.texts(), QStringList({kConfirm, kRepeats, kSilence, "1 files have been completed."}));
    EXPECT_EQ(p.session().silence_count, 2);
    EXPECT_EQ(p.folder.read("100words1.mp3"),
              compiledWord(0, 2, 2) + compiledWord(1, 2, 2, false) + compiledWord(2, 2, 2));
    EXPECT_FALSE(p.folder.exists("100words2.mp3"));
    EXPECT_EQ(cards->mp3_label->text(), "0 words completed");

    // 0.3 s is one piece of silence (cut, not rounded), 0 none.
    for (const auto& [entry, pieces] : {std::pair<const char*, int>{"0.3", 1}, {"0", 0}}) {
        answer(p, {true, QString("1"), QString(entry)});
        cards->auto_mp3_click();
        EXPECT_EQ(p.folder.read("100words1.mp3"),
                  compiledWord(0, 1, pieces) + compiledWord(1, 1, pieces, false) + compiledWord(2, 1, pieces))
            << entry;
    }

    // Cancelled at any of its boxes, it writes nothing.
    QFile::remove(p.folder.file("100words1.mp3"));
    for (const QVariantList& script :
         QList<QVariantList>{{false}, {true, QString()}, {true, QString("3"), QString()}}) {
        p.prompts.shown.clear();
        answer(p, script);
        cards->auto_mp3_click();
        EXPECT_EQ(p.prompts.texts().size(), script.size() + 1);
        EXPECT_EQ(p.prompts.texts().last(), "Action has been cancelled");
    }
    EXPECT_FALSE(p.folder.exists("100words1.mp3"));
}

TEST(Mp3, AHundredWordsMakeOneFileCountedAsTwo)
{
    Program p;
    FlashWindow* cards = openCards(p, 100);
    answer(p, {true, QString("1"), QString("0")});
    cards->auto_mp3_click();
    EXPECT_EQ(p.prompts.texts().last(), "2 files have been completed.");
    QByteArray expected;
    for (int i = 0; i < 100; ++i)
        expected += compiledWord(i, 1, 0);
    EXPECT_EQ(p.folder.read("100words1.mp3"), expected);
    EXPECT_FALSE(p.folder.exists("100words2.mp3"));
    EXPECT_EQ(cards->mp3_label->text(), "90 words completed");
}

TEST(Mp3, TheSampleCourseCompilesIntoFilesThatDecodeWhole)
{
    Program p;
    const QString sample = QStringLiteral(QUORVANE_DEMO_DIR);
    for (QDirIterator it(sample, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QString source = it.next();
        p.folder.mkdir(QFileInfo(source.mid(sample.size() + 1)).path());
        ASSERT_TRUE(QFile::copy(source, p.folder.file(source.mid(sample.size() + 1)))) << source.toStdString();
    }
    p.start("spanish");
    Program::choose(p.main()->lists_list, "colours");
    Session& s = p.session();
    ASSERT_GT(s.wordCount(), 10);
    auto* cards = new FlashWindow(s, p.main());
    answer(p, {true, QString("2"), QString("0.2")});
    cards->auto_mp3_click();
    ASSERT_EQ(p.prompts.texts().last(), "1 files have been completed.");

    // The length a player shows, as ffprobe reads it.
    auto probedSeconds = [](const QString& path) {
        QByteArray output;
        runTool("ffprobe", {"-v", "error", "-show_entries", "format=duration", "-of", "csv=p=0", path}, &output);
        return output.trimmed().toDouble();
    };
    // The sum of what went in, each piece measured on its own.
    QHash<QString, double> seconds;
    auto piece = [&](const QString& path) {
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
        expected += 2 * (piece(translation) + piece(word) + piece(p.folder.file("silence.mp3"))) +
                    piece(p.folder.file("beep.mp3"));
        pieces += 7;
    }

    const QString compiled = p.folder.file("100words1.mp3");
    QString errors;
    EXPECT_EQ(runTool("ffmpeg", {"-v", "error", "-i", compiled, "-f", "null", "-"}, nullptr, &errors), 0);
    // The only complaints are about the line ends between the pieces, at most one per piece.
    const QStringList complaints = errors.split('\n', Qt::SkipEmptyParts);
    EXPECT_LE(complaints.filter("Header missing").size(), pieces);
    for (const QString& complaint : complaints)
        EXPECT_TRUE(complaint.contains("Header missing") || complaint.contains("Invalid data found") ||
                    complaint.contains("Last message repeated"))
            << complaint.toStdString();
    EXPECT_NEAR(probedSeconds(compiled), expected, expected * 0.05);

    // What ffmpeg decodes: its decoder drops the one frame that follows each CR LF (576 samples at
    // 22050 Hz), and nothing else.
    QByteArray samples;
    runTool("ffmpeg", {"-v", "quiet", "-i", compiled, "-f", "s16le", "-ac", "1", "-ar", "22050", "-"}, &samples);
    const double decoded = static_cast<double>(samples.size()) / (2 * 22050);
    EXPECT_LE(decoded, expected * 1.01);
    EXPECT_GE(decoded, expected - pieces * 576.0 / 22050 - expected * 0.01);
}
