#include "flash/card_loop.h"
#include "flash/ui/flash_window.h"
#include "flash/ui/small_flash_window.h"
#include "test_support.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPointer>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <ranges>
#include <stdexcept>

using namespace quorvane;
using namespace quorvane::test;

namespace {

FlashWindow* largeCards()
{
    return qobject_cast<FlashWindow*>(window("qvplay"));
}

SmallFlashWindow* smallCard()
{
    return qobject_cast<SmallFlashWindow*>(window("qvplay2"));
}

// The sounds of one card of the course, T for the translation and W for the word.
QStringList cardSounds(const Program& p, int index, const QString& pattern)
{
    QStringList paths;
    for (const QChar sound : pattern)
        paths.append(p.played(sound == 'T' ? englishPath(index) : spanishPath(index)));
    return paths;
}

} // namespace

TEST(FlashCards, EveryCardPlaysThePatternOfItsSpeechMode)
{
    // say_mode, interlace_count, repeat_count and the sounds of one card.
    for (const auto& [sayMode, interlace, repeats, pattern] :
         {std::tuple("no", 0, 3, "WWW"), std::tuple("yes", 0, 3, "TWWW"), std::tuple("interlace", 2, 6, "TWWTWWTWW"),
          std::tuple("interlace", 1, 6, "WTWTWTWTWTW"), std::tuple("interlace", 0, 3, "WWW"),
          std::tuple("interlace", 3, 3, "TWWW")}) {
        SCOPED_TRACE(pattern);
        Program p;
        openCourse(p);
        Session& s = p.session();
        s.say_mode = sayMode;
        s.interlace_count = qint16(interlace);
        s.repeat_count = qint16(repeats);
        // One whole card, then the first sound of the next.
        p.pauseAtSound(QString(pattern).size() + 1);
        p.main()->flash_cards_click();
        EXPECT_EQ(p.sound.played,
                  cardSounds(p, s.previous_index, pattern) + cardSounds(p, s.current_index, QString(pattern).left(1)));
    }
}

TEST(FlashCards, StartSetsDefaultsDelaysTheTextsTellsTheCardAndMarkingGoesOnToTheLastWord)
{
    Program p;
    openCourse(p);
    Session& s = p.session();
    s.delay_top = 2;
    s.delay_bottom = 1;
    QList<std::pair<bool, bool>> shown; // the top and bottom texts as each play starts
    p.sound.onPlay = [&](const QString&) {
        shown.append({largeCards()->word_lbl->isVisible(), largeCards()->word_lbl2->isVisible()});
        if (shown.size() == 4)
            Program::press("qvplay", "pause");
    };
    p.main()->flash_cards_click();
    EXPECT_EQ(std::tuple(s.repeat_count, s.speed, s.silence_count, s.say_mode), std::tuple(4, 0.8f, 4, "no"));
    EXPECT_EQ(p.sound.played, cardSounds(p, s.current_index, "WWWW"));
    EXPECT_EQ(shown, (QList<std::pair<bool, bool>>{{false, false}, {false, true}, {true, true}, {true, true}}));
    FlashWindow* cards = largeCards();
    EXPECT_EQ(QStringList({cards->windowTitle(), cards->word_lbl->text(), cards->num_lbl->text(),
                           cards->repeat_lbl->text(), cards->speed_lbl->text(), p.main()->Label8->text()}),
              QStringList({"Random Word Play", "palabra" + QString::number(s.current_index),
                           "3 words remain on this list", "4 of 4", "0.8 sec", "3 Words"}));
    EXPECT_EQ(std::tuple(cards->word_lbl->font().family(), cards->word_lbl->font().pointSize()),
              std::tuple("Arial", 48));
    // Paused: the cards stay open, the main window stays hidden.
    EXPECT_EQ(std::tuple(cards->isVisible(), p.main()->isVisible()), std::tuple(true, false));

    // Delays outside 1..99 count as none from the next start on.
    s.delay_top = 100;
    s.delay_bottom = -1;
    shown.clear();
    p.main()->flash_cards_click();
    EXPECT_EQ(std::tuple(s.delay_top, s.delay_bottom), std::tuple(0, 0));
    EXPECT_EQ(shown, (QList<std::pair<bool, bool>>(4, {true, true})));

    // "Mark Word As Known" moves the word and goes on until one word is left.
    p.sound.played.clear();
    QList<int> known; // the course numbers of the words marked, as they were heard
    QString remaining;
    p.sound.onPlay = [&](const QString&) {
        if (known.size() == 1)
            remaining = largeCards()->num_lbl->text();
        known.append(s.words.value(s.current_index).mid(7).toInt());
        Program::press("qvplay", "i_know_this_word");
    };
    // Blank cards say nothing: without this a list of them would never end.
    p.clock.at(600.0, [] { Program::press("qvplay", "pause"); });
    p.main()->flash_cards_click();
    // Each mark began the next card at once with another word; the cards end when one word is left.
    ASSERT_EQ(known.size(), 2);
    EXPECT_NE(p.sound.played[1], p.sound.played[0]);
    const int left = 3 - known[0] - known[1];
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/words-k.txt"), courseEntry(known[0]) + courseEntry(known[1]));
    // The unknown file is written from the arrays, their empty last slot included as "||", which
    // is no entry: the words are gone, the count falls by one each time.
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/words-u.txt"), courseEntry(left) + "||\r\n");
    EXPECT_EQ(s.words, QStringList({"palabra" + QString::number(left), ""}));
    EXPECT_EQ(std::tuple(remaining, p.main()->known_lists->count()), std::tuple("2 words remain on this list", 1));
}

TEST(FlashCards, FontSizesTranslationNumbersAndDraws)
{
    for (const auto& [word, translation, points] :
         {std::tuple(19, 19, 48), std::tuple(20, 3, 24), std::tuple(4, 75, 24), std::tuple(76, 3, 12),
          std::tuple(4, 200, 12)})
        EXPECT_EQ(card_points(QString(word, 'a'), QString(translation, 'b')), points) << word << " " << translation;

    quorvane::test::CoreSession core;
    Session& s = core.session;
    s.target_sound_numbers[1436] = "00436";
    QString error;
    EXPECT_EQ(QList({card_translation(s, "01436", &error), card_translation(s, "01437", &error),
                     card_translation(s, "", &error)}),
              QList<std::optional<QString>>({"00436", "", ""}));
    EXPECT_EQ(card_translation(s, "100000", &error), std::nullopt);
    EXPECT_EQ(card_translation(s, "x1436", &error), std::nullopt);

    // From eleven words up a card never follows itself; with fewer it may.
    auto repeatsIn = [&](int count) {
        int repeats = 0;
        QSet<int> seen;
        for (int draw = 0; draw < 500; ++draw) {
            // A card takes its time: the timer the generator follows moves on between draws.
            core.clock.now += 1.37;
            draw_card(s, count);
            seen.insert(s.current_index);
            repeats += s.current_index == s.previous_index ? 1 : 0;
        }
        EXPECT_EQ(seen, QSet<int>(std::views::iota(0, count).begin(), std::views::iota(0, count).end()));
        return repeats;
    };
    EXPECT_EQ(repeatsIn(11) + repeatsIn(40), 0);
    EXPECT_GT(repeatsIn(2), 0);
    EXPECT_GT(repeatsIn(10), 0);
}

TEST(FlashCards, TheSettingBoxesOfBothWindowsKeepTheirBoundsAndValuesOnBadEntries)
{
    Program p;
    openCourse(p);
    Session& s = p.session();
    auto* cards = new FlashWindow(s, p.main());
    auto* card = new SmallFlashWindow(s, p.main());
    // The large cards ask with two blanks after the question mark, fall back to .2 and set the silence
    // count even from a refused entry; the small card asks with one, falls back to .1 and leaves the
    // silence alone. The message says 10 but 10.5 passes.
    const QString question = "How long should the pause between words be (in seconds)?%1Use 0.1 for a quick speed "
                             "and 2 for slow. For phrases, it needs to be 1 or higher.";
    const QString refusal = "message||That was less than 0.01 or more than 10. It's been set to %1 second.";
    for (const auto& [entry, large, silence, small, refused] :
         {std::tuple("10.5", 10.5f, 52, 10.5f, false), std::tuple("12", 0.2f, 60, 0.1f, true),
          std::tuple("0.005", 0.2f, 0, 0.1f, true), std::tuple("0.4", 0.4f, 2, 0.4f, false),
          std::tuple("abc", 0.4f, 9, 0.4f, false), std::tuple("", 0.4f, 9, 0.4f, false)}) {
        SCOPED_TRACE(entry);
        p.prompts.shown.clear();
        p.prompts.push(QString(entry));
        p.prompts.push(QString(entry));
        cards->change_speed_click();
        EXPECT_EQ(std::tuple(s.speed, s.silence_count), std::tuple(large, qint16(silence)));
        s.silence_count = 9;
        card->change_speed_click();
        EXPECT_EQ(std::tuple(s.speed, s.silence_count), std::tuple(small, qint16(9)));
        const QStringList largeBoxes = {"input|Speed Bump|" + question.arg("  "), refusal.arg(".2")};
        const QStringList smallBoxes = {"input|Speed Bump|" + question.arg(" "), refusal.arg(".1")};
        EXPECT_EQ(p.prompts.boxes(), largeBoxes.mid(0, refused ? 2 : 1) + smallBoxes.mid(0, refused ? 2 : 1));
    }

    p.prompts.shown.clear();
    for (const char* answer : {"3", "x", "2", "y", "4", "6", "0", "2"})
        p.prompts.push(QString(answer));
    cards->delay_top_click();
    cards->delay_top_click();
    cards->delay_bottom_click();
    EXPECT_EQ(std::tuple(s.delay_top, s.delay_bottom), std::tuple(3, 2));
    cards->interlace_click();
    EXPECT_EQ(std::tuple(s.interlace_count, s.say_mode), std::tuple(0, "interlace"));
    cards->interlace_click();
    cards->change_repeat_click();
    EXPECT_EQ(std::tuple(s.interlace_count, s.repeat_count, s.skip_flag), std::tuple(4, 6, "yes"));
    cards->change_repeat_click();
    cards->say_bottom_click();
    EXPECT_EQ(std::tuple(s.repeat_count, s.say_mode), std::tuple(3, "no"));
    cards->speak_both_click();
    EXPECT_EQ(s.say_mode, "yes");
    card->interlace_click();
    EXPECT_EQ(std::tuple(s.interlace_count, s.say_mode), std::tuple(2, "interlace"));
    card->say_bottom_click();
    EXPECT_EQ(s.say_mode, "no");
    // The voice buttons each say what they do, in words of their own.
    const QStringList said = p.prompts.texts();
    ASSERT_EQ(said.size(), 12);
    EXPECT_FALSE(said.mid(0, 8).contains(said[8]) || said.mid(0, 9).contains(said[9]));
    EXPECT_EQ(said.mid(10), QStringList({"How many times should the top word be played before the bottom word is "
                                         "played?   This works only if both languages are installed.",
                                         "This plays just the top word."}));
}

TEST(FlashCards, SkipEndsTheCardPauseStopsResumeDrawsReplayDoesNotAndADrillRunsOnVirtualTime)
{
    Program p;
    openCourse(p, 12);
    Session& s = p.session();
    s.repeat_count = 5;
    p.sound.onPlay = [&](const QString&) {
        Program::press("qvplay", p.sound.played.size() == 1 ? "next_word" : "pause");
    };
    p.main()->flash_cards_click();
    const QStringList& played = p.sound.played;
    ASSERT_EQ(played.size(), 2);
    EXPECT_NE(played[0], played[1]);
    EXPECT_EQ(std::tuple(s.stop_flag, largeCards()->repeat_lbl->text()), std::tuple("yes", "1 of 5"));

    // Resume while paused: a new card is drawn and played.
    const int before = s.current_index;
    p.pauseAtSound(3);
    largeCards()->resume_click();
    EXPECT_NE(s.current_index, before);
    EXPECT_EQ(played.mid(2), QStringList({p.played(spanishPath(s.current_index))}));

    // Resume when the cards are not paused does nothing.
    s.stop_flag = "no";
    largeCards()->resume_click();
    EXPECT_EQ(played.size(), 3);

    // The replay plays the previous card again without drawing.
    const int previous = s.previous_index;
    p.pauseAtSound(4);
    largeCards()->replay();
    EXPECT_EQ(std::tuple(s.current_index, played[3]), std::tuple(previous, p.played(spanishPath(previous))));

    // A ten-minute drill runs on virtual time: a card of a translation and four plays lasts under 7 seconds.
    p.sound.onPlay = nullptr;
    p.sound.played.clear();
    s.say_mode = "yes";
    s.repeat_count = 4;
    p.clock.at(600.0, [] { Program::press("qvplay", "pause"); });
    p.main()->flash_cards_click();
    EXPECT_GT(played.size(), 350);
}

TEST(FlashCards, TheMainWindowHidesForItsListUntilTheCardsEndButNotForAKnownListAndNeedsAList)
{
    Program p;
    openCourse(p);
    MainWindow* main = p.main();
    const auto ended = [main] { return window("qvplay") == nullptr && main->isVisible(); };
    bool mainShownDuringCards = true;
    p.sound.onPlay = [&](const QString&) {
        mainShownDuringCards = main->isVisible();
        if (p.sound.played.size() == 2)
            Program::press("qvplay", "exit_btn");
    };
    main->flash_cards_click();
    // Exit while the cards play ends them and shows the main window again.
    EXPECT_EQ(std::tuple(mainShownDuringCards, p.sound.played.size(), p.session().stop_flag),
              std::tuple(false, 2, "yes"));
    EXPECT_TRUE(ended());

    // So does closing them by the frame, deleted while the loop is still waiting inside them.
    p.sound.onPlay = nullptr;
    QPointer<FlashWindow> closed;
    p.clock.at(3.0, [&] {
        closed = largeCards();
        closed->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
    main->flash_cards_click();
    EXPECT_TRUE(closed.isNull() && ended());

    // A double-click on a known list plays it beside the main window; "Mark Word As Known" there leaves
    // both files alone and goes on, and a pause closes the cards.
    const QByteArray known = "gato|cat|01000\r\nperro|dog|01001\r\n";
    p.folder.write("users/kestrin/spanish/words-k.txt", known);
    main->refresh_known_list();
    main->known_lists->setRowQuietly(0);
    p.sound.onPlay = [&](const QString&) {
        mainShownDuringCards = main->isVisible();
        Program::press("qvplay", p.sound.played.size() == 1 ? "i_know_this_word" : "pause");
    };
    p.sound.played.clear();
    main->known_lists_dblclick();
    EXPECT_EQ(p.session().shown_file, p.session().known_file);
    EXPECT_EQ(p.session().words.mid(0, 2), QStringList({"gato", "perro"}));
    EXPECT_EQ(std::tuple(mainShownDuringCards, p.sound.played.size()), std::tuple(true, 2));
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/words-k.txt"), known);
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/words-u.txt"), courseEntry(0) + courseEntry(1) + courseEntry(2));
    EXPECT_EQ(p.prompts.shown.size(), 1); // the name only
    EXPECT_TRUE(ended());

    // A language click leaves no list shown.
    p.folder.write("languages/spanish/one.txt", courseEntry(0));
    select_row(main->lang_list, main->lang_list->currentRow());
    p.prompts.shown.clear();
    main->flash_cards_click();
    main->small_flash_click();
    EXPECT_EQ(p.prompts.texts(), QStringList(2, "You must first select a list to start the flash cards."));
    EXPECT_TRUE(ended() && window("qvplay2") == nullptr);

    // A one-word list opens the cards but plays nothing, nor does an empty one.
    Program::choose(main->lists_list, "one");
    p.sound.played.clear();
    p.session().missing_sound_count = 5;
    main->flash_cards_click();
    EXPECT_TRUE(largeCards() != nullptr && p.session().missing_sound_count == 0);
    p.session().words = {QString()};
    p.session().sound_numbers = {QString()};
    main->flash_cards_click();
    EXPECT_TRUE(p.sound.played.isEmpty());
}

TEST(SmallFlashCard, StaysOnTopSaysBothByDefaultAndLeavesTheLargeSettings)
{
    Program p;
    openCourse(p);
    Session& s = p.session();
    s.delay_top = 100;
    s.delay_bottom = -4;
    s.silence_count = 7;
    p.pauseAtSound(5, "qvplay2");
    p.main()->small_flash_click();

    SmallFlashWindow* card = smallCard();
    ASSERT_NE(card, nullptr);
    EXPECT_EQ(std::tuple(card->windowFlags().testFlag(Qt::WindowStaysOnTopHint), p.main()->isVisible()),
              std::tuple(true, false));
    EXPECT_EQ(std::tuple(s.repeat_count, s.speed, s.say_mode, s.delay_top, s.delay_bottom, s.silence_count),
              std::tuple(3, 0.2f, "yes", 100, -4, 7));
    EXPECT_EQ(p.sound.played, cardSounds(p, s.previous_index, "TWWW") << p.played(englishPath(s.current_index)));

    // Texts always shown at one size; the counters as on the large cards.
    EXPECT_EQ(std::tuple(card->word_lbl->isVisible(), card->word_lbl2->isVisible(), card->word_lbl->font().pointSize()),
              std::tuple(true, true, 16));
    // The next card's first play was announced when the pause took effect. Nothing of the large
    // window's: no word count on the main window, no MP3, no exit.
    EXPECT_EQ(QStringList({card->word_lbl->text(), card->num_lbl->text(), card->repeat_lbl->text(),
                           card->speed_lbl->text(), p.main()->Label8->text()}),
              QStringList({"palabra" + QString::number(s.current_index), "3 words remain on this list", "1 of 3",
                           "0.2 sec", "3 Unknown Words"}));
    for (const char* name : {"delay_top", "delay_bottom", "create_mp3", "auto_mp3", "exit_btn"})
        EXPECT_EQ(card->findChild<QWidget*>(name), nullptr) << name;

    // Closed by its frame: the main window comes back.
    card->close();
    EXPECT_EQ(std::tuple(p.main()->isVisible(), s.stop_flag), std::tuple(true, "yes"));
}

TEST(SmallFlashCard, EightMissingRecordingsInARowStopIt)
{
    Program p;
    openCourse(p, 3, false);
    Session& s = p.session();
    s.say_mode = "no";
    s.repeat_count = 1;
    p.main()->small_flash_click();
    EXPECT_EQ(std::tuple(p.prompts.texts().last(), s.missing_sound_count),
              std::tuple("Not enough files had sound files", 0));

    // Seven misses still let a card play; the eighth stops the next draw.
    s.missing_sound_count = 8;
    smallCard()->num_lbl->clear();
    smallCard()->playwords();
    EXPECT_EQ(smallCard()->num_lbl->text(), "");
    s.missing_sound_count = 7;
    smallCard()->playwords();
    EXPECT_EQ(smallCard()->num_lbl->text(), "3 words remain on this list");
    EXPECT_EQ(p.prompts.texts().count("Not enough files had sound files"), 3);
    smallCard()->close();

    // The large cards never give up on missing recordings: unpaused, they run until the clock's limit
    // fails the test and breaks them off, which is the only box.
    p.prompts.shown.clear();
    p.clock.limit = 700.0;
    EXPECT_NONFATAL_FAILURE(p.main()->flash_cards_click(), "limit of 700 virtual seconds");
    EXPECT_TRUE(p.prompts.texts().size() == 1 && p.prompts.texts()[0].contains("limit of 700 virtual seconds"));
}
