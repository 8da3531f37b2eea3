#include "flash/flash_window.h"
#include "flash/small_flash_window.h"
#include "flash_course.h"

#include <QLabel>

#include <gtest/gtest.h>

using namespace quorvane;
using quorvane::test::CourseOptions;
using quorvane::test::FlashCourse;

namespace {

SmallFlashWindow* smallCard()
{
    return qobject_cast<SmallFlashWindow*>(window("qvplay2"));
}

} // namespace

TEST(SmallFlashCard, StaysOnTopSaysBothByDefaultAndLeavesTheLargeSettings)
{
    FlashCourse course;
    Session& s = course.session();
    s.delay_top = 100;
    s.delay_bottom = -4;
    s.silence_count = 7;
    course.pauseAtSound(5, "qvplay2");
    course.main()->small_flash_click();

    SmallFlashWindow* card = smallCard();
    ASSERT_NE(card, nullptr);
    EXPECT_TRUE(card->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_FALSE(course.main()->isVisible());
    EXPECT_EQ(s.repeat_count, 3);
    EXPECT_FLOAT_EQ(s.speed, 0.2f);
    EXPECT_EQ(s.say_mode, "yes");
    EXPECT_EQ(s.delay_top, 100);
    EXPECT_EQ(s.delay_bottom, -4);
    EXPECT_EQ(s.silence_count, 7);

    const QStringList& played = course.sound.played;
    ASSERT_EQ(played.size(), 5);
    const int first = s.previous_index;
    const QString word = course.played(FlashCourse::spanishPath(first));
    EXPECT_EQ(played.mid(0, 4), QStringList({course.played(FlashCourse::englishPath(first)), word, word, word}));
    EXPECT_EQ(played[4], course.played(FlashCourse::englishPath(s.current_index)));

    // Texts always shown at one size; the counters as on the large cards.
    EXPECT_TRUE(card->word_lbl->isVisible());
    EXPECT_TRUE(card->word_lbl2->isVisible());
    EXPECT_EQ(card->word_lbl->font().pointSize(), 16);
    EXPECT_EQ(card->word_lbl->text(), "palabra" + QString::number(s.current_index));
    EXPECT_EQ(card->num_lbl->text(), "3 words remain on this list");
    // The next card's first play was announced when the pause took effect.
    EXPECT_EQ(card->repeat_lbl->text(), "1 of 3");
    EXPECT_EQ(card->speed_lbl->text(), "0.2 sec");
    // Nothing of the large window's: no word count on the main window, no MP3, no exit.
    EXPECT_EQ(course.main()->Label8->text(), "3 Unknown Words");
    for (const char* name : {"delay_top", "delay_bottom", "create_mp3", "auto_mp3", "exit_btn"})
        EXPECT_EQ(card->findChild<QWidget*>(name), nullptr) << name;
    EXPECT_EQ(quorvane::test::captions(card, {"next_word", "say_bottom", "speak_both", "change_speed", "resume"}),
              QStringList({"Next", "Top Only", "Say Both", "Speed", "Resume"}));

    // Closed by its frame: the main window comes back.
    card->close();
    EXPECT_TRUE(course.main()->isVisible());
    EXPECT_EQ(s.stop_flag, "yes");
}

TEST(SmallFlashCard, EightMissingRecordingsInARowStopIt)
{
    CourseOptions silent;
    silent.recordings = false;
    FlashCourse course(silent);
    Session& s = course.session();
    s.say_mode = "no";
    s.repeat_count = 1;
    course.main()->small_flash_click();
    EXPECT_EQ(course.prompts.texts().last(), "Not enough files had sound files");
    EXPECT_EQ(s.missing_sound_count, 0);

    // Seven misses still let a card play; the eighth stops the next draw.
    s.missing_sound_count = 8;
    smallCard()->num_lbl->clear();
    smallCard()->playwords();
    EXPECT_EQ(smallCard()->num_lbl->text(), "");
    s.missing_sound_count = 7;
    smallCard()->playwords();
    EXPECT_EQ(smallCard()->num_lbl->text(), "3 words remain on this list");
    EXPECT_EQ(course.prompts.texts().count("Not enough files had sound files"), 3);
    smallCard()->close();

    // The large cards never give up on missing recordings.
    course.prompts.shown.clear();
    const double started = course.clock.now;
    course.clock.at(60.0, [] { FlashCourse::press("qvplay", "pause"); });
    course.main()->flash_cards_click();
    EXPECT_TRUE(course.prompts.texts().isEmpty());
    EXPECT_GE(course.clock.now - started, 60.0);
}

TEST(SmallFlashCard, ItsBoxesHaveTheirOwnWordsAndLimits)
{
    FlashCourse course;
    Session& s = course.session();
    auto* card = new SmallFlashWindow(s, course.main());
    s.silence_count = 9;
    course.prompts.shown.clear();
    for (const char* answer : {"20", "0.5", "abc", "2"})
        course.prompts.push(QString(answer));

    card->change_speed_click();
    EXPECT_FLOAT_EQ(s.speed, 0.1f);
    card->change_speed_click();
    EXPECT_FLOAT_EQ(s.speed, 0.5f);
    card->change_speed_click();
    EXPECT_FLOAT_EQ(s.speed, 0.5f);
    EXPECT_EQ(s.silence_count, 9);
    card->interlace_click();
    EXPECT_EQ(s.interlace_count, 2);
    EXPECT_EQ(s.say_mode, "interlace");
    card->say_bottom_click();
    EXPECT_EQ(s.say_mode, "no");

    const QString speed = "How long should the pause between words be (in seconds)? Use 0.1 for a quick speed and 2 "
                          "for slow. For phrases, it needs to be 1 or higher.";
    EXPECT_EQ(course.prompts.texts(),
              QStringList({speed, "That was less than 0.01 or more than 10. It's been set to .1 second.", speed, speed,
                           "How many times should the top word be played before the bottom word is played?   This "
                           "works only if both languages are installed.",
                           "This plays just the top word."}));
    EXPECT_EQ(course.prompts.shown[0].title, "Speed Bump");

    // The same entry in the large window gives 0.2.
    auto* large = new FlashWindow(s, course.main());
    course.prompts.push(QString("20"));
    large->change_speed_click();
    EXPECT_FLOAT_EQ(s.speed, 0.2f);
}
