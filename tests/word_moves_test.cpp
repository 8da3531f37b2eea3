#include "core/random_index.h"
#include "flash/card_settings.h"
#include "store/word_files.h"
#include "store/word_moves.h"
#include "test_support.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>
#include <stdexcept>

using namespace quorvane;
using quorvane::test::boxes;
using quorvane::test::ProgramFolder;

namespace {

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
    quorvane::test::RecordingMainView view;

    MoveFixture()
    {
        folder.write("users/kestrin/spanish/food-u.txt", kThreeWords);
        session.unknown_file = folder.file("users/kestrin/spanish/food-u.txt");
        session.known_file = folder.file("users/kestrin/spanish/food-k.txt");
        session.attachMainView(&view);
        session.shown_file = session.unknown_file;
        create_array_of_words(session, session.unknown_file);
    }
    QByteArray unknown() const { return folder.read("users/kestrin/spanish/food-u.txt"); }
    QByteArray known() const { return folder.read("users/kestrin/spanish/food-k.txt"); }
};

} // namespace

TEST(WordMoves, RepeatCountKeepsOneToSixtyAndOtherwiseSetsThreeWithAMessage)
{
    const QString prompt = "How many times should words be repeated before going to the next word? Recommended "
                           "ranges are from 3 to 30.";
    const QString reset = "That was too few or too many. It is now set to 3.";
    const struct
    {
        const char* answer;
        qint16 expected;
    } cases[] = {{"1", 1},  {"60", 60}, {" 12 ", 12}, {"60.5", 60}, {"0", 3},    {"61", 3},
                 {"-5", 3}, {"0.5", 3}, {"lots", 3},  {"", 3},      {"40000", 3}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.answer);
        ScriptedPrompts prompts({QString(c.answer)});
        FakeSound sound;
        FakeClock clock;
        Session session(prompts, sound, clock);
        session.repeat_count = 17;
        ask_repeat_count(session);
        EXPECT_EQ(session.repeat_count, c.expected);
        QStringList expected = {"input||" + prompt};
        if (c.expected == 3)
            expected.append("message||" + reset);
        EXPECT_EQ(boxes(prompts), expected);
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

// The moves themselves, and their bytes, are checked through the main window's double-click.
TEST(WordMoves, AnIndexOutsideTheArraysOrAFailedWriteNeverLosesTheWord)
{
    {
        MoveFixture f;
        for (int index : {-1, 4, 30000})
            move_to_known(f.session, index);
        EXPECT_EQ(f.unknown(), kThreeWords);
        EXPECT_FALSE(f.folder.exists("users/kestrin/spanish/food-k.txt"));
        EXPECT_EQ(f.view.displayed, 0);
    }
    // The source cannot be replaced (a folder stands at its path): the word added to the target
    // is taken back, and the failure is said.
    {
        MoveFixture f;
        const QString blocked = f.folder.file("users/kestrin/spanish/blocked-u.txt");
        f.folder.mkdir("users/kestrin/spanish/blocked-u.txt");
        f.session.shown_file = blocked;
        move_word(f.session, f.session.known_file, blocked, 2);
        EXPECT_FALSE(f.folder.exists("users/kestrin/spanish/food-k.txt"));
        EXPECT_TRUE(QFileInfo(blocked).isDir());
        ASSERT_EQ(f.prompts.shown.size(), 1);
        EXPECT_EQ(f.prompts.shown[0].kind, "message");
        EXPECT_TRUE(f.prompts.shown[0].text.contains("blocked-u.txt")) << f.prompts.shown[0].text.toStdString();
        EXPECT_EQ(f.view.displayed, 0);
        EXPECT_EQ(f.session.wordCount(), 3);
    }
    // The target cannot be written (its parent is a file): the source keeps every word.
    {
        MoveFixture f;
        f.folder.write("users/kestrin/spanish/plain", "a file, not a folder");
        move_word(f.session, f.folder.file("users/kestrin/spanish/plain/food-k.txt"), f.session.unknown_file, 0);
        EXPECT_EQ(f.unknown(), kThreeWords);
        ASSERT_EQ(f.prompts.shown.size(), 1);
        EXPECT_TRUE(f.prompts.shown[0].text.contains("food-k.txt")) << f.prompts.shown[0].text.toStdString();
        EXPECT_EQ(f.view.displayed, 0);
    }
}
