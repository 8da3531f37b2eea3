#include "app/session.h"
#include "sound/word_moves.h"
#include "store/word_files.h"
#include "test_support.h"

#include "quorvane/testing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>
#include <stdexcept>

using namespace quorvane;
using quorvane::test::ProgramFolder;

namespace {

const QString kRepeatPrompt = "How many times should words be repeated before going to the next word? Recommended "
                              "ranges are from 3 to 30.";
const QString kRepeatReset = "That was too few or too many. It is now set to 3.";

const QByteArray kThreeWords = "comer|to eat|01436\r\nagua|water|01002\r\ncasa|house|01003\r\n";

// A session whose unknown and known files are those of the list food of kestrin in spanish,
// with the unknown file loaded into the word arrays.
struct MoveFixture
{
    ProgramFolder folder;
    ScriptedPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    Session session{prompts, sound, clock};
    int displayed = 0;

    explicit MoveFixture(const QByteArray& unknown, const QByteArray& known = QByteArray())
    {
        folder.write("users/kestrin/spanish/food-u.txt", unknown);
        if (!known.isEmpty())
            folder.write("users/kestrin/spanish/food-k.txt", known);
        session.unknown_file = folder.file("users/kestrin/spanish/food-u.txt");
        session.known_file = folder.file("users/kestrin/spanish/food-k.txt");
        session.displayWords = [this] { ++displayed; };
        create_array_of_words(session, session.unknown_file);
    }
    QByteArray unknown() const { return folder.read("users/kestrin/spanish/food-u.txt"); }
    QByteArray known() const { return folder.read("users/kestrin/spanish/food-k.txt"); }
};

} // namespace

TEST(WordMoves, RepeatCountKeepsOneToSixtyAndOtherwiseSetsThreeWithAMessage)
{
    struct Case
    {
        QVariant answer;
        qint16 expected;
        bool reset;
    };
    const Case cases[] = {
        {QString("1"), 1, false},     {QString("60"), 60, false},  {QString(" 12 "), 12, false},
        {QString("60.5"), 60, false}, {QString("0"), 3, true},     {QString("61"), 3, true},
        {QString("-5"), 3, true},     {QString("0.5"), 3, true},   {QString("lots"), 3, true},
        {QString(""), 3, true},       {QString("40000"), 3, true},
    };
    for (const Case& c : cases) {
        ScriptedPrompts prompts({c.answer});
        FakeSound sound;
        FakeClock clock;
        Session session(prompts, sound, clock);
        session.repeat_count = 17;
        ask_repeat_count(session);
        const std::string label = c.answer.toString().toStdString();
        EXPECT_EQ(session.repeat_count, c.expected) << label;
        ASSERT_GE(prompts.shown.size(), 1) << label;
        EXPECT_EQ(prompts.shown[0].kind, "input");
        EXPECT_EQ(prompts.shown[0].text, kRepeatPrompt);
        EXPECT_EQ(prompts.shown[0].title, "");
        if (c.reset) {
            ASSERT_EQ(prompts.shown.size(), 2) << label;
            EXPECT_EQ(prompts.shown[1].kind, "message");
            EXPECT_EQ(prompts.shown[1].text, kRepeatReset);
            EXPECT_EQ(prompts.shown[1].title, "");
        } else {
            EXPECT_EQ(prompts.shown.size(), 1) << label;
        }
    }
}

TEST(WordMoves, RandomIndexStaysInItsRangeAndRepeatsWithinOneTick)
{
    ScriptedPrompts prompts;
    FakeSound sound;
    FakeClock clock(0.0, 0.01);
    Session session(prompts, sound, clock);

    std::set<double> seen;
    for (int tick = 0; tick < 300; ++tick) {
        clock.now = 36000.0 + tick * 0.01;
        EXPECT_EQ(random_index(session, 0, 0), 0.0);
        const double drawn = random_index(session, 5, 7);
        EXPECT_TRUE(drawn == 5.0 || drawn == 6.0 || drawn == 7.0) << drawn;
        // The generator is seeded from the timer at every call: the same tick gives the same number.
        EXPECT_EQ(random_index(session, 5, 7), drawn);
        seen.insert(drawn);
        const double wide = random_index(session, -1000, 1000);
        EXPECT_GE(wide, -1000.0);
        EXPECT_LE(wide, 1000.0);
        EXPECT_EQ(wide, std::floor(wide));
    }
    EXPECT_EQ(seen, std::set<double>({5.0, 6.0, 7.0}));
    // Different ticks do not all give the same number.
    std::set<double> spread;
    for (int tick = 0; tick < 50; ++tick) {
        clock.now = 50000.0 + tick * 0.01;
        spread.insert(random_index(session, 0, 29999));
    }
    EXPECT_GT(spread.size(), 40u);
    EXPECT_THROW(random_index(session, 0, std::numeric_limits<qint32>::max()), std::overflow_error);
}

TEST(WordMoves, MovingTheFirstOfThreeRewritesTheSourceFromTheArraysAndAppendsToTheTarget)
{
    MoveFixture f(kThreeWords, "uno|one|00001\r\n");
    move_to_known(f.session, 0);
    EXPECT_EQ(f.unknown(), QByteArray("agua|water|01002\r\ncasa|house|01003\r\n||\r\n"));
    EXPECT_EQ(f.known(), QByteArray("uno|one|00001\r\ncomer|to eat|01436\r\n"));
    // The arrays now hold the source again, its closing "||" line read as an entry without a
    // sound number.
    EXPECT_EQ(f.session.words, QStringList({"agua", "casa", "", ""}));
    EXPECT_EQ(f.session.sound_numbers, QStringList({"01002", "01003", "", ""}));
    EXPECT_EQ(f.displayed, 1);
    EXPECT_TRUE(f.prompts.shown.isEmpty());

    // Back again: the known file is the source now and is written from the arrays of the shown
    // file, which must be that file.
    create_array_of_words(f.session, f.session.known_file);
    move_to_unknown(f.session, 1);
    EXPECT_EQ(f.known(), QByteArray("uno|one|00001\r\n||\r\n"));
    EXPECT_EQ(f.unknown(), QByteArray("agua|water|01002\r\ncasa|house|01003\r\n||\r\ncomer|to eat|01436\r\n"));
}

TEST(WordMoves, AnIndexOutsideTheArraysMovesNothing)
{
    MoveFixture f(kThreeWords);
    for (int index : {-1, 4, 30000}) {
        move_to_known(f.session, index);
        EXPECT_EQ(f.unknown(), kThreeWords) << index;
        EXPECT_FALSE(f.folder.exists("users/kestrin/spanish/food-k.txt")) << index;
    }
    EXPECT_EQ(f.displayed, 0);
    EXPECT_EQ(f.session.wordCount(), 3);
}

TEST(WordMoves, AFailedWriteNeverLosesTheWord)
{
    // The source cannot be replaced (a folder stands at its path): the word is already in the
    // target, and the failure is said.
    {
        MoveFixture f(kThreeWords);
        const QString blocked = f.folder.file("users/kestrin/spanish/blocked-u.txt");
        f.folder.mkdir("users/kestrin/spanish/blocked-u.txt");
        move_word(f.session, f.session.known_file, blocked, 2);
        EXPECT_EQ(f.known(), QByteArray("casa|house|01003\r\n"));
        EXPECT_TRUE(QFileInfo(blocked).isDir());
        ASSERT_EQ(f.prompts.shown.size(), 1);
        EXPECT_EQ(f.prompts.shown[0].kind, "message");
        EXPECT_TRUE(f.prompts.shown[0].text.contains("blocked-u.txt")) << f.prompts.shown[0].text.toStdString();
        EXPECT_EQ(f.displayed, 0);
        EXPECT_EQ(f.session.wordCount(), 3);
    }
    // The target cannot be written (its parent is a file): the source keeps every word.
    {
        MoveFixture f(kThreeWords);
        f.folder.write("users/kestrin/spanish/plain", "a file, not a folder");
        move_word(f.session, f.folder.file("users/kestrin/spanish/plain/food-k.txt"), f.session.unknown_file, 0);
        EXPECT_EQ(f.unknown(), kThreeWords);
        ASSERT_EQ(f.prompts.shown.size(), 1);
        EXPECT_TRUE(f.prompts.shown[0].text.contains("food-k.txt")) << f.prompts.shown[0].text.toStdString();
        EXPECT_EQ(f.displayed, 0);
    }
}
