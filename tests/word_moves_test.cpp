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
using quorvane::test::CoreTest;
using WordMoves = CoreTest;

namespace {

const QByteArray kThreeWords = "comer|to eat|01436\r\nagua|water|01002\r\ncasa|house|01003\r\n";

} // namespace

TEST_F(WordMoves, TheRepeatCountKeepsOneToSixtyAndOtherwiseSetsThreeWithAMessage)
{
    const std::pair<const char*, int> answers[] = {{"1", 1},    {"60", 60}, {" 12 ", 12}, {"60.5", 60},
                                                   {"0", 3},    {"61", 3},  {"-5", 3},    {"0.5", 3},
                                                   {"lots", 3}, {"", 3},    {"40000", 3}};
    const QString ask = "input||How many times should words be repeated before going to the next word? "
                        "Recommended ranges are from 3 to 30.";
    const QString reset = "message||That was too few or too many. It is now set to 3.";
    for (const auto& [answer, expected] : answers) {
        prompts.shown.clear();
        prompts.push(QString(answer));
        session.repeat_count = 17;
        ask_repeat_count(session);
        EXPECT_EQ(session.repeat_count, expected) << answer;
        EXPECT_EQ(prompts.boxes(), expected == 3 ? QStringList({ask, reset}) : QStringList({ask})) << answer;
    }
}

TEST_F(WordMoves, RandomIndexStaysInItsRangeAndRepeatsWithinOneTick)
{
    std::set<double> seen, spread;
    for (int tick = 0; tick < 300; ++tick) {
        clock.now = 36000.0 + tick * 0.01;
        EXPECT_EQ(random_index(session, 0, 0), 0.0);
        const double drawn = random_index(session, 5, 7);
        // The generator is seeded from the timer at every call: the same tick gives the same number.
        EXPECT_EQ(random_index(session, 5, 7), drawn);
        seen.insert(drawn);
        const double wide = random_index(session, -1000, 29999);
        EXPECT_TRUE(wide >= -1000.0 && wide <= 29999.0 && wide == std::floor(wide)) << wide;
        spread.insert(wide);
    }
    EXPECT_EQ(seen, std::set<double>({5.0, 6.0, 7.0}));
    EXPECT_GT(spread.size(), 280u);
    EXPECT_THROW(random_index(session, 0, std::numeric_limits<qint32>::max()), std::overflow_error);
}

// The moves themselves, and their bytes, are checked through the main window's double-click.
TEST_F(WordMoves, AWordMoveToARowOutsideTheArraysOrAFailedWriteNeverLosesTheWord)
{
    folder.write("users/kestrin/spanish/food-u.txt", kThreeWords);
    session.unknown_file = folder.file("users/kestrin/spanish/food-u.txt");
    session.known_file = folder.file("users/kestrin/spanish/food-k.txt");
    session.shown_file = session.unknown_file;
    create_array_of_words(session, session.unknown_file);
    for (int index : {-1, 4, 30000})
        move_to_known(session, index);
    EXPECT_FALSE(folder.exists("users/kestrin/spanish/food-k.txt"));

    // The target cannot be written (its parent is a file): the source keeps every word.
    folder.write("users/kestrin/spanish/plain", "a file, not a folder");
    QString error;
    move_word(session, folder.file("users/kestrin/spanish/plain/food-k.txt"), session.unknown_file, 0, &error);
    EXPECT_TRUE(error.contains("food-k.txt")) << error.toStdString();
    EXPECT_EQ(folder.read("users/kestrin/spanish/food-u.txt"), kThreeWords);
    // The source cannot be replaced (a folder stands at its path): the word added to the target is
    // taken back.
    const QString blocked = folder.file("users/kestrin/spanish/blocked-u.txt");
    folder.mkdir("users/kestrin/spanish/blocked-u.txt");
    session.shown_file = blocked;
    move_word(session, session.known_file, blocked, 2, &error);
    EXPECT_TRUE(error.contains("blocked-u.txt")) << error.toStdString();
    EXPECT_FALSE(folder.exists("users/kestrin/spanish/food-k.txt"));
    EXPECT_TRUE(QFileInfo(blocked).isDir());
    EXPECT_EQ(prompts.boxes(), QStringList());
    EXPECT_EQ(view.displayed, 0);
    EXPECT_EQ(session.wordCount(), 3);
}
