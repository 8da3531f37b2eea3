#include "flash/card_loop.h"
#include "flash/flash_window.h"
#include "flash_course.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPointer>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace quorvane;
using quorvane::test::CourseOptions;
using quorvane::test::FlashCourse;

namespace {

FlashWindow* largeCards()
{
    return qobject_cast<FlashWindow*>(window("qvplay"));
}

// The sounds of one card of the course, T for the translation and W for the word.
QStringList cardSounds(const FlashCourse& course, int index, const QString& pattern)
{
    QStringList paths;
    for (const QChar sound : pattern)
        paths.append(course.played(sound == 'T' ? FlashCourse::englishPath(index) : FlashCourse::spanishPath(index)));
    return paths;
}

} // namespace

TEST(FlashCards, EachSpeechModePlaysItsPatternOnEveryCard)
{
    struct Case
    {
        const char* sayMode;
        qint16 interlace;
        qint16 repeats;
        const char* pattern;
    };
    const Case cases[] = {
        {"no", 0, 3, "WWW"},
        {"yes", 0, 3, "TWWW"},
        {"interlace", 2, 6, "TWWTWWTWW"},
        {"interlace", 1, 6, "WTWTWTWTWTW"},
        {"interlace", 0, 3, "WWW"},
        {"interlace", 3, 3, "TWWW"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.pattern);
        FlashCourse course;
        Session& s = course.session();
        s.say_mode = c.sayMode;
        s.interlace_count = c.interlace;
        s.repeat_count = c.repeats;
        const QString pattern = c.pattern;
        // One whole card, then the first sound of the next.
        course.pauseAtSound(pattern.size() + 1);
        course.main()->flash_cards_click();
        ASSERT_EQ(course.sound.played.size(), pattern.size() + 1);
        EXPECT_EQ(course.sound.played.mid(0, pattern.size()), cardSounds(course, s.previous_index, pattern));
        EXPECT_EQ(course.sound.played.last(), cardSounds(course, s.current_index, pattern.left(1)).first());
    }
}

TEST(FlashCards, TextsShowAfterTheirDelaysAtTheStartOfEachPlay)
{
    FlashCourse course;
    Session& s = course.session();
    s.repeat_count = 4;
    s.delay_top = 2;
    s.delay_bottom = 1;
    QList<std::pair<bool, bool>> shown;
    course.sound.onPlay = [&](const QString&) {
        shown.append({largeCards()->word_lbl->isVisible(), largeCards()->word_lbl2->isVisible()});
        if (shown.size() == 4)
            FlashCourse::press("qvplay", "pause");
    };
    course.main()->flash_cards_click();
    const QList<std::pair<bool, bool>> delayed = {{false, false}, {false, true}, {true, true}, {true, true}};
    EXPECT_EQ(shown, delayed);

    // Delays outside 1..99 count as none from the next start on.
    s.delay_top = 100;
    s.delay_bottom = -1;
    shown.clear();
    course.main()->flash_cards_click();
    EXPECT_EQ(s.delay_top, 0);
    EXPECT_EQ(s.delay_bottom, 0);
    const QList<std::pair<bool, bool>> always(4, {true, true});
    EXPECT_EQ(shown, always);
}

TEST(FlashCards, StartSetsDefaultsAndTheControlsTellTheCard)
{
    FlashCourse course;
    Session& s = course.session();
    course.pauseAtSound(4);
    course.main()->flash_cards_click();
    EXPECT_EQ(s.repeat_count, 4);
    EXPECT_FLOAT_EQ(s.speed, 0.8f);
    EXPECT_EQ(s.silence_count, 4);
    EXPECT_EQ(s.say_mode, "no");
    EXPECT_EQ(course.sound.played, cardSounds(course, s.current_index, "WWWW"));
    FlashWindow* cards = largeCards();
    EXPECT_EQ(cards->windowTitle(), "Random Word Play");
    EXPECT_EQ(quorvane::test::captions(cards, {"change_repeat", "change_speed", "delay_top", "delay_bottom",
                                               "interlace", "say_bottom", "speak_both", "i_know_this_word", "next_word",
                                               "pause", "resume", "create_mp3", "auto_mp3", "exit_btn"}),
              QStringList({"# Repeats", "Speed", "Delay Showing Top", "Delay Showing Bottom", "Interlace",
                           "Say Top Only", "Say Both", "Mark Word As Known", "Skip", "Pause", "Resume",
                           "Create MP3 File Based on Current Settings", "Create MP3 files for all words on this list",
                           "Exit"}));
    EXPECT_EQ(cards->word_lbl->text(), "palabra" + QString::number(s.current_index));
    EXPECT_EQ(cards->word_lbl->font().family(), "Arial");
    EXPECT_EQ(cards->word_lbl->font().pointSize(), 48);
    EXPECT_EQ(cards->num_lbl->text(), "3 words remain on this list");
    EXPECT_EQ(cards->repeat_lbl->text(), "4 of 4");
    EXPECT_EQ(cards->speed_lbl->text(), "0.8 sec");
    EXPECT_EQ(course.main()->Label8->text(), "3 Words");
    // Paused: the cards stay open, the main window stays hidden.
    EXPECT_TRUE(cards->isVisible());
    EXPECT_FALSE(course.main()->isVisible());
}

TEST(FlashCards, FontsFitTheLongerText)
{
    EXPECT_EQ(card_points(QString(19, 'a'), QString(19, 'b')), 48);
    EXPECT_EQ(card_points(QString(20, 'a'), "cat"), 24);
    EXPECT_EQ(card_points("gato", QString(75, 'b')), 24);
    EXPECT_EQ(card_points(QString(76, 'a'), "cat"), 12);
    EXPECT_EQ(card_points("gato", QString(200, 'b')), 12);
}

TEST(FlashCards, ElevenWordsNeverFollowThemselvesFewerMay)
{
    ScriptedPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    Session s(prompts, sound, clock);
    auto repeatsIn = [&](int count) {
        int repeats = 0;
        QSet<int> seen;
        for (int draw = 0; draw < 500; ++draw) {
            // A card takes its time: the timer the generator follows moves on between draws.
            clock.now += 1.37;
            draw_card(s, count);
            EXPECT_TRUE(s.current_index >= 0 && s.current_index < count);
            seen.insert(s.current_index);
            repeats += s.current_index == s.previous_index ? 1 : 0;
        }
        EXPECT_EQ(seen.size(), count);
        return repeats;
    };
    EXPECT_EQ(repeatsIn(11), 0);
    EXPECT_EQ(repeatsIn(40), 0);
    EXPECT_GT(repeatsIn(2), 0);
    EXPECT_GT(repeatsIn(10), 0);
}

TEST(FlashCards, AOneWordOrEmptyListPlaysNothing)
{
    CourseOptions one;
    one.words = 1;
    FlashCourse course(one);
    course.session().missing_sound_count = 5;
    course.main()->flash_cards_click();
    EXPECT_NE(largeCards(), nullptr);
    EXPECT_EQ(course.session().missing_sound_count, 0);

    course.session().words = {QString()};
    course.session().sound_numbers = {QString()};
    course.main()->flash_cards_click();
    EXPECT_TRUE(course.sound.played.isEmpty());
}

TEST(FlashCards, TranslationSoundNumbersComeFromThePairingTable)
{
    ScriptedPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    Session s(prompts, sound, clock);
    s.target_sound_numbers[1436] = "00436";
    EXPECT_EQ(translation_sound_number(s, "01436"), "00436");
    EXPECT_EQ(translation_sound_number(s, "01437"), "");
    EXPECT_EQ(translation_sound_number(s, ""), "");
    EXPECT_THROW(translation_sound_number(s, "100000"), std::out_of_range);
    EXPECT_THROW(translation_sound_number(s, "x1436"), std::out_of_range);
}

TEST(FlashCards, SpeedBoxTakesUpToElevenAndRefusesTheRest)
{
    FlashCourse course;
    Session& s = course.session();
    auto* cards = new FlashWindow(s, course.main());
    struct Case
    {
        const char* entry;
        float speed;
        qint16 silence;
        bool refused;
    };
    // The message says 10 but 10.5 passes; a refused entry still sets the silence count.
    const Case cases[] = {{"10.5", 10.5f, 52, false}, {"12", 0.2f, 60, true},  {"0.005", 0.2f, 0, true},
                          {"0.4", 0.4f, 2, false},    {"abc", 0.4f, 2, false}, {"", 0.4f, 2, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.entry);
        course.prompts.shown.clear();
        course.prompts.push(QString(c.entry));
        cards->change_speed_click();
        EXPECT_FLOAT_EQ(s.speed, c.speed);
        EXPECT_EQ(s.silence_count, c.silence);
        ASSERT_EQ(course.prompts.shown.size(), c.refused ? 2 : 1);
        EXPECT_EQ(course.prompts.shown[0].title, "Speed Bump");
        EXPECT_EQ(course.prompts.shown[0].text,
                  "How long should the pause between words be (in seconds)?  Use 0.1 for a quick speed and 2 for "
                  "slow. For phrases, it needs to be 1 or higher.");
        if (c.refused)
            EXPECT_EQ(course.prompts.shown[1].text,
                      "That was less than 0.01 or more than 10. It's been set to .2 second.");
    }
}

TEST(FlashCards, SettingButtonsKeepValuesOnBadEntries)
{
    FlashCourse course;
    Session& s = course.session();
    auto* cards = new FlashWindow(s, course.main());
    course.prompts.shown.clear();
    for (const char* answer : {"3", "x", "2", "y", "4", "6", "0"})
        course.prompts.push(QString(answer));
    cards->delay_top_click();
    cards->delay_top_click();
    EXPECT_EQ(s.delay_top, 3);
    cards->delay_bottom_click();
    EXPECT_EQ(s.delay_bottom, 2);
    cards->interlace_click();
    EXPECT_EQ(s.interlace_count, 0);
    EXPECT_EQ(s.say_mode, "interlace");
    cards->interlace_click();
    EXPECT_EQ(s.interlace_count, 4);
    cards->change_repeat_click();
    EXPECT_EQ(s.repeat_count, 6);
    EXPECT_EQ(s.skip_flag, "yes");
    cards->change_repeat_click();
    EXPECT_EQ(s.repeat_count, 3);
    cards->say_bottom_click();
    EXPECT_EQ(s.say_mode, "no");
    cards->speak_both_click();
    EXPECT_EQ(s.say_mode, "yes");
    EXPECT_EQ(course.prompts.texts().mid(3, 1),
              QStringList("How many times should the foreign word be played before the translation is played?  This "
                          "works only if both languages are installed."));
    EXPECT_EQ(course.prompts.texts().mid(8),
              QStringList({"This plays just the top word.",
                           "If both language's sound files are installed, this plays both the top and bottom words."}));
}

TEST(FlashCards, MarkWordAsKnownMovesTheWordAndGoesToTheNextCard)
{
    FlashCourse course;
    Session& s = course.session();
    int known = -1;
    course.sound.onPlay = [&](const QString&) {
        if (course.sound.played.size() == 1) {
            known = s.current_index;
            FlashCourse::press("qvplay", "i_know_this_word");
        } else {
            FlashCourse::press("qvplay", "pause");
        }
    };
    course.main()->flash_cards_click();
    ASSERT_GE(known, 0);
    auto entry = [](int i) {
        return QStringLiteral("palabra%1|word%1|%2\r\n").arg(i).arg(quorvane::test::spanishNumber(i)).toLatin1();
    };
    EXPECT_EQ(course.folder.read("users/kestrin/spanish/words-k.txt"), entry(known));
    // The unknown file is written from the arrays, their empty last slot included, which comes
    // back as an empty entry: the count of words stays, the word is gone.
    QByteArray rest;
    QStringList restWords;
    for (int i = 0; i < 3; ++i) {
        if (i != known) {
            rest += entry(i);
            restWords.append("palabra" + QString::number(i));
        }
    }
    EXPECT_EQ(course.folder.read("users/kestrin/spanish/words-u.txt"), rest + "||\r\n");
    EXPECT_EQ(s.words, restWords + QStringList({"", ""}));
    EXPECT_EQ(largeCards()->num_lbl->text(), "3 words remain on this list");
    EXPECT_EQ(course.main()->known_lists->count(), 1);
    // The next card began at once with another word.
    EXPECT_NE(course.sound.played[1], course.sound.played[0]);
}

TEST(FlashCards, SkipEndsTheCardPauseStopsResumeDrawsReplayDoesNot)
{
    CourseOptions twelve;
    twelve.words = 12;
    FlashCourse course(twelve);
    Session& s = course.session();
    s.repeat_count = 5;
    course.sound.onPlay = [&](const QString&) {
        FlashCourse::press("qvplay", course.sound.played.size() == 1 ? "next_word" : "pause");
    };
    course.main()->flash_cards_click();
    const QStringList& played = course.sound.played;
    ASSERT_EQ(played.size(), 2);
    EXPECT_NE(played[0], played[1]);
    EXPECT_EQ(s.stop_flag, "yes");
    EXPECT_EQ(largeCards()->repeat_lbl->text(), "1 of 5");

    // Resume while paused: a new card is drawn and played.
    const int before = s.current_index;
    course.pauseAtSound(3);
    largeCards()->resume_click();
    ASSERT_EQ(played.size(), 3);
    EXPECT_NE(s.current_index, before);
    EXPECT_EQ(played[2], course.played(FlashCourse::spanishPath(s.current_index)));

    // Resume when the cards are not paused does nothing.
    s.stop_flag = "no";
    largeCards()->resume_click();
    EXPECT_EQ(played.size(), 3);

    // The replay plays the previous card again without drawing.
    const int previous = s.previous_index;
    course.pauseAtSound(4);
    largeCards()->replay();
    EXPECT_EQ(s.current_index, previous);
    EXPECT_EQ(played[3], course.played(FlashCourse::spanishPath(previous)));
}

TEST(FlashCards, ClosingWhileTheCardsPlayEndsThemAndShowsTheMainWindow)
{
    FlashCourse course;
    course.sound.onPlay = [&](const QString&) {
        if (course.sound.played.size() == 2)
            FlashCourse::press("qvplay", "exit_btn");
    };
    course.main()->flash_cards_click();
    EXPECT_EQ(course.sound.played.size(), 2);
    EXPECT_EQ(course.session().stop_flag, "yes");
    EXPECT_EQ(window("qvplay"), nullptr);
    EXPECT_TRUE(course.main()->isVisible());

    // Closed by its frame and deleted while the loop is still waiting inside it.
    course.sound.onPlay = nullptr;
    QPointer<FlashWindow> closed;
    course.clock.at(3.0, [&] {
        closed = largeCards();
        closed->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
    course.main()->flash_cards_click();
    EXPECT_TRUE(closed.isNull());
    EXPECT_TRUE(course.main()->isVisible());
}

TEST(FlashCards, ATenMinuteDrillRunsOnVirtualTime)
{
    CourseOptions twelve;
    twelve.words = 12;
    FlashCourse course(twelve);
    course.session().say_mode = "yes";
    course.clock.at(600.0, [] { FlashCourse::press("qvplay", "pause"); });
    course.main()->flash_cards_click();
    // A card of a translation and four plays lasts under 7 seconds.
    EXPECT_GT(course.sound.played.size(), 350);
}

TEST(FlashCards, MainWindowButtonsNeedAShownList)
{
    FlashCourse course;
    MainWindow* main = course.main();
    bool mainShownDuringCards = true;
    course.sound.onPlay = [&](const QString&) {
        mainShownDuringCards = main->isVisible();
        FlashCourse::press("qvplay", "pause");
    };
    main->flash_cards_click();
    EXPECT_FALSE(mainShownDuringCards);
    largeCards()->close();

    // A language click leaves no list shown.
    select_row(main->lang_list, main->lang_list->currentRow());
    course.prompts.shown.clear();
    main->flash_cards_click();
    main->small_flash_click();
    EXPECT_EQ(course.prompts.texts(), QStringList(2, "You must first select a list to start the flash cards."));
    EXPECT_TRUE(main->isVisible());
    EXPECT_EQ(window("qvplay"), nullptr);
    EXPECT_EQ(window("qvplay2"), nullptr);
}

TEST(FlashCards, DoubleClickOnAKnownListPlaysItBesideTheMainWindowThenCloses)
{
    FlashCourse course;
    MainWindow* main = course.main();
    course.folder.write("users/kestrin/spanish/words-k.txt", "gato|cat|01000\r\nperro|dog|01001\r\n");
    main->refresh_known_list();
    main->known_lists->setRowQuietly(0);
    bool mainShownDuringCards = false;
    course.sound.onPlay = [&](const QString&) {
        mainShownDuringCards = main->isVisible();
        FlashCourse::press("qvplay", "pause");
    };
    main->known_lists_dblclick();
    EXPECT_EQ(course.session().shown_file, course.session().known_file);
    EXPECT_EQ(course.session().words.mid(0, 2), QStringList({"gato", "perro"}));
    EXPECT_TRUE(mainShownDuringCards);
    EXPECT_EQ(course.sound.played.size(), 1);
    // Paused, and so closed.
    EXPECT_EQ(window("qvplay"), nullptr);
    EXPECT_TRUE(main->isVisible());
}
