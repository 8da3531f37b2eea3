#include "flash/mp3_compile.h"
#include "flash/ui/flash_window.h"
#include "test_support.h"

#include <QLabel>

#include <gtest/gtest.h>
#include <taglib/id3v2tag.h>
#include <taglib/mpegfile.h>

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

// Title, album, artist and track of a file's tag, read back by TagLib.
QStringList tagsOf(const QString& path)
{
    TagLib::MPEG::File file(QFile::encodeName(path).constData());
    const TagLib::ID3v2::Tag* tag = file.ID3v2Tag();
    if (!tag)
        return {};
    auto text = [](const TagLib::String& s) { return QString::fromStdString(s.to8Bit(true)); };
    return {text(tag->title()), text(tag->album()), text(tag->artist()), QString::number(tag->track())};
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
    p.prompts.answers = {QString("2")};
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
    EXPECT_EQ(audioOf(p.folder.read("out_file.mp3")), "B\r\n" + compiledWord(s.previous_index, 2, 2, false));
    EXPECT_EQ(tagsOf(p.folder.file("out_file.mp3")),
              QStringList({"words flash cards", "spanish - words", "Quorvane", "1"}));
    EXPECT_EQ(p.sound.played, QStringList({p.played(spanishPath(s.current_index))}));
    EXPECT_EQ(s.mp3_words_left, 0);
    EXPECT_EQ(cards->mp3_label->text(), "1 words added");

    // One word asked: one beep and nothing captured.
    p.prompts.answers = {QString("1")};
    cards->create_mp3_click();
    p.pauseAtSound(2);
    cards->playwords();
    EXPECT_EQ(audioOf(p.folder.read("out_file.mp3")), QByteArray("B\r\n"));
    EXPECT_EQ(cards->mp3_label->text(), " words added");
}

TEST(Mp3, AutoMp3WritesEveryWordWithTranslationSilenceAndBeepInFilesOfAHundred)
{
    Program p;
    FlashWindow* cards = openCards(p, 100);
    QFile::remove(p.folder.file("languages/" + englishPath(1)));
    p.folder.write("100words1.mp3", "an old file");
    QString firstProgress;
    p.clock.at(0.0, [&] { firstProgress = cards->mp3_label->text(); });
    // 0.5 s is two pieces of silence, 0.3 s one (cut, not rounded), 0 none.
    for (const auto& [entry, pieces] : {std::pair<const char*, int>{"0.5", 2}, {"0.3", 1}, {"0", 0}}) {
        p.prompts.shown.clear();
        p.prompts.answers = {true, QString("2"), QString(entry)};
        cards->auto_mp3_click();
        // A hundred words make one file, counted as two.
        EXPECT_EQ(p.prompts.texts(), QStringList({kConfirm, kRepeats, kSilence, "2 files have been completed."}));
        EXPECT_EQ(p.session().silence_count, pieces);
        QByteArray expected;
        for (int i = 0; i < 100; ++i)
            expected += compiledWord(i, 2, pieces, i != 1);
        EXPECT_EQ(audioOf(p.folder.read("100words1.mp3")), expected) << entry;
    }
    EXPECT_FALSE(p.folder.exists("100words2.mp3"));
    EXPECT_EQ(QStringList({firstProgress, cards->mp3_label->text()}),
              QStringList({"0 words completed", "90 words completed"}));

    // Cancelled at any of its boxes, it writes nothing.
    QFile::remove(p.folder.file("100words1.mp3"));
    for (const QVariantList& script :
         QList<QVariantList>{{false}, {true, QString()}, {true, QString("3"), QString()}}) {
        p.prompts.shown.clear();
        p.prompts.answers = script;
        cards->auto_mp3_click();
        EXPECT_EQ(p.prompts.texts().size(), script.size() + 1);
        EXPECT_EQ(p.prompts.texts().last(), "Action has been cancelled");
    }
    EXPECT_FALSE(p.folder.exists("100words1.mp3"));
}

TEST(Mp3, CompiledFilesCarryTitlesAndTrackNumbersAndAPlaylistInOrder)
{
    Program p;
    FlashWindow* cards = openCards(p, 205);
    p.prompts.answers = {true, QString("1"), QString("0")};
    cards->auto_mp3_click();
    QByteArray playlist = "#EXTM3U\n";
    for (const auto& [file, title] : {std::pair{1, "words 1-100"}, {2, "words 101-200"}, {3, "words 201-205"}}) {
        const QString name = QString("100words%1.mp3").arg(file);
        EXPECT_EQ(tagsOf(p.folder.file(name)),
                  QStringList({title, "spanish - words", "Quorvane", QString::number(file)}));
        playlist += "#EXTINF:-1," + QByteArray(title) + "\n" + name.toUtf8() + "\n";
    }
    EXPECT_EQ(p.folder.read("100words.m3u8"), playlist);

    // A bad sound number ends the cards and the compilation, said before the compilation asks anything.
    p.folder.write("languages/spanish/words.txt", "uno|one|x1436\r\ndos|two|x1436\r\n");
    QFile::remove(p.folder.file("users/kestrin/spanish/words-u.txt"));
    select_row(p.main()->lists_list, 0);
    p.session().say_mode = "yes";
    p.prompts.shown.clear();
    p.main()->flash_cards_click();
    Program::press("qvplay", "auto_mp3");
    const QString told = "The sound number \"x1436\" names no recording: sound numbers run from 0 to 99999.";
    EXPECT_EQ(p.prompts.texts(), QStringList({told, told}));
}
