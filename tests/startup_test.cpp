#include "app/list_box.h"
#include "app/main_window.h"
#include "app/product.h"
#include "app/session.h"
#include "sound/sdl_sound.h"
#include "test_support.h"

#include "quorvane/testing.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>

#include <gtest/gtest.h>

#include <memory>

using namespace quorvane;
using quorvane::test::ProgramFolder;

namespace {

const QString kSoundFailure = "An error occured. Please turn off other programs that may be using sound and start "
                              "this program again. The specific error message is:\r\n";
const QString kNamePrompt =
    "What is your first name?  This is for the program to remember which words you have learned.";

struct Started
{
    std::unique_ptr<QWidget> window;
    MainWindow* main() const { return static_cast<MainWindow*>(window.get()); }
    Session& session() const { return sessionOf(window.get()); }
};

Started startIn(const ProgramFolder& folder, Prompts& prompts, SoundLibrary& sound, Clock& clock)
{
    return {std::unique_ptr<QWidget>(start(folder.path(), &prompts, &sound, &clock))};
}

QStringList items(QListWidget* box)
{
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts.append(box->item(i)->text());
    return texts;
}

} // namespace

TEST(Startup, SoundFailureIsExplainedThenTheNameIsAskedThenLanguagesAreListed)
{
    ProgramFolder folder;
    folder.mkdir("languages/spanish");
    folder.mkdir("languages/English");
    folder.write("languages/readme.txt", "a plain file shows up as a language");
    folder.mkdir("languages/german");
    ScriptedPrompts prompts({QString("kestrin")});
    FakeSound sound;
    sound.initError = 3;
    FakeClock clock;
    const Started started = startIn(folder, prompts, sound, clock);

    ASSERT_EQ(prompts.shown.size(), 2);
    EXPECT_EQ(prompts.shown[0].kind, "message");
    EXPECT_EQ(prompts.shown[0].text, kSoundFailure + "Error initializing output device.");
    EXPECT_EQ(prompts.shown[0].title, "");
    EXPECT_EQ(prompts.shown[1].kind, "input");
    EXPECT_EQ(prompts.shown[1].text, kNamePrompt);
    EXPECT_EQ(prompts.shown[1].title, "Student Name");
    EXPECT_EQ(sound.initArguments, QList<int>({22050, 64, 0}));

    MainWindow* main = started.main();
    EXPECT_EQ(items(main->lang_list), QStringList({"English", "german", "readme.txt", "spanish"}));
    EXPECT_EQ(main->lang_list->currentRow(), 0);
    Session& session = started.session();
    EXPECT_EQ(session.current_language, "English");
    EXPECT_FALSE(session.sound_ok);
    EXPECT_EQ(session.user_name, "kestrin");
    EXPECT_EQ(session.user_folder, QDir::currentPath() + "/users/kestrin/");
    EXPECT_TRUE(folder.exists("users/kestrin"));
    EXPECT_EQ(session.languages_folder, QDir::currentPath() + "/languages/");
    EXPECT_TRUE(main->isVisible());
    EXPECT_EQ(window("qvmain"), main);
}

TEST(Startup, WithoutTheSoundLibraryOnlyItsMessageIsShown)
{
    ProgramFolder folder;
    folder.mkdir("languages/spanish");
    ScriptedPrompts prompts;
    FakeSound sound;
    sound.missing = true;
    FakeClock clock;
    const Started started = startIn(folder, prompts, sound, clock);
    EXPECT_EQ(prompts.texts(),
              QStringList({"Error! The sound library (SDL2) was not found. All the files are not in the right "
                           "folders."}));
    EXPECT_EQ(started.main()->lang_list->count(), 0);
    EXPECT_FALSE(sound.initialised);
    EXPECT_TRUE(started.main()->isVisible());
}

TEST(Startup, WhenSdlAudioCannotStartNoNameIsAsked)
{
    const QByteArray saved = qgetenv("SDL_AUDIODRIVER");
    qputenv("SDL_AUDIODRIVER", "no-such-driver");
    {
        ProgramFolder folder;
        folder.mkdir("languages/spanish");
        ScriptedPrompts prompts;
        SdlSound sound;
        FakeClock clock;
        const Started started = startIn(folder, prompts, sound, clock);
        EXPECT_EQ(prompts.texts(),
                  QStringList({"Error! The sound library (SDL2) was not found. All the files are not in the right "
                               "folders."}));
        EXPECT_FALSE(folder.exists("users"));
    }
    qputenv("SDL_AUDIODRIVER", saved);
}

TEST(Startup, AWorkingSoundLibraryAsksOnlyTheNameAndAnEmptyNameSharesTheUsersFolder)
{
    ProgramFolder folder;
    ScriptedPrompts prompts({QString("")});
    FakeSound sound;
    FakeClock clock;
    const Started started = startIn(folder, prompts, sound, clock);
    EXPECT_EQ(prompts.texts(), QStringList({kNamePrompt}));
    EXPECT_TRUE(started.session().sound_ok);
    EXPECT_TRUE(sound.initialised);
    // No languages folder: nothing listed, nothing said.
    EXPECT_EQ(started.main()->lang_list->count(), 0);
    EXPECT_EQ(started.session().current_language, "");
    EXPECT_EQ(started.session().user_folder, QDir::currentPath() + "/users//");
    EXPECT_TRUE(folder.exists("users"));
}

TEST(Startup, RealSoundOnTheDummyDriverStartsWithoutAMessage)
{
    ProgramFolder folder;
    ScriptedPrompts prompts({QString("ana")});
    SdlSound sound;
    FakeClock clock;
    const Started started = startIn(folder, prompts, sound, clock);
    EXPECT_EQ(prompts.texts(), QStringList({kNamePrompt}));
    EXPECT_TRUE(started.session().sound_ok);
}

TEST(MainWindow, ControlsCarryTheirNamesCaptionsAndFonts)
{
    ProgramFolder folder;
    ScriptedPrompts prompts({QString("kestrin")});
    FakeSound sound;
    FakeClock clock;
    const Started started = startIn(folder, prompts, sound, clock);
    QWidget* main = started.window.get();
    EXPECT_EQ(main->objectName(), "qvmain");
    EXPECT_EQ(main->windowTitle(), QString::fromLatin1(product::kWebAddress));

    struct Control
    {
        const char* name;
        const char* caption;
        const char* font;
    };
    const Control controls[] = {
        {"Label9", "<--- Search", "MS Sans Serif"},
        {"Label1", "Click A Language", "MS Sans Serif"},
        {"Label3", "Click Unknown List", "MS Sans Serif"},
        {"Label2", "Known Lists", "MS Sans Serif"},
        {"Label4", "Double-click a word to move it from your unknown to your known list, or vice versa.",
         "MS Sans Serif"},
        {"flash_cards", "Large Flash Cards and MP3", "MS Sans Serif"},
        {"small_flash", "Small Flash Card (Stays On Top)", "Arial"},
        {"test_me", "Start Student Test", "Arial"},
        {"show_test_results", "Show Test Results", "Arial"},
        {"print_list", "Show Selected Word List", "Arial"},
        {"record_word_word", "Record and Edit Selected Word", "MS Sans Serif"},
        {"record_word_list", "Record and Edit Selected List", "MS Sans Serif"},
        {"new_language", "Add new language", "MS Sans Serif"},
        {"add_list", "Add new word list", "MS Sans Serif"},
        {"toggle_font", "Increase Font", "Arial"},
        {"play_paragraph", "Play a paragraph of words, highlighting each word", "MS Sans Serif"},
        {"paly_syllables", "Play each syllable in selected word, highlighting each letter", "MS Sans Serif"},
        {"exit_program", "Exit Program", "MS Sans Serif"},
    };
    for (const Control& control : controls) {
        auto* widget = main->findChild<QWidget*>(control.name);
        ASSERT_NE(widget, nullptr) << control.name;
        const QString caption = qobject_cast<QLabel*>(widget) ? qobject_cast<QLabel*>(widget)->text()
                                                              : qobject_cast<QPushButton*>(widget)->text();
        EXPECT_EQ(caption, control.caption) << control.name;
        EXPECT_EQ(widget->font().family(), control.font) << control.name;
    }
    for (const char* name : {"lang_list", "lists_list", "known_lists", "words_list", "words_liste"})
        EXPECT_NE(main->findChild<ListBox*>(name), nullptr) << name;
    for (const char* name : {"txt_word_search", "txt_word_search2"})
        EXPECT_NE(main->findChild<QLineEdit*>(name), nullptr) << name;
    for (const char* name : {"Label5", "Label6", "Label8"})
        EXPECT_NE(main->findChild<QLabel*>(name), nullptr) << name;
    EXPECT_TRUE(main->findChild<QLabel*>("Label5")->text().contains(QString::fromLatin1(product::kWebAddress)));

    const QMap<QString, QString> menus = {{"File", "&File"}, {"Instructions1", "&Instructions"}, {"Help1", "&Help"}};
    for (auto it = menus.begin(); it != menus.end(); ++it) {
        auto* menu = main->findChild<QMenu*>(it.key());
        ASSERT_NE(menu, nullptr) << it.key().toStdString();
        EXPECT_EQ(menu->title(), it.value());
    }
    const QMap<QString, QString> actions = {{"Exit", "E&xit"},
                                            {"Instructions2", "Instructions"},
                                            {"Help2", "Hel&p"},
                                            {"Troubleshooting", "&Troubleshooting"},
                                            {"About1", "&About"}};
    for (auto it = actions.begin(); it != actions.end(); ++it) {
        auto* action = main->findChild<QAction*>(it.key());
        ASSERT_NE(action, nullptr) << it.key().toStdString();
        EXPECT_EQ(action->text(), it.value());
    }
}

TEST(MainWindow, FontToggleSwitchesThreeListsBetweenEightAndTenPoints)
{
    ProgramFolder folder;
    ScriptedPrompts prompts({QString("kestrin")});
    FakeSound sound;
    FakeClock clock;
    const Started started = startIn(folder, prompts, sound, clock);
    MainWindow* main = started.main();
    main->toggle_font_click();
    EXPECT_EQ(main->toggle_font->text(), "Decrease Font");
    for (QListWidget* box : {static_cast<QListWidget*>(main->lists_list), static_cast<QListWidget*>(main->words_list),
                             static_cast<QListWidget*>(main->words_liste)})
        EXPECT_EQ(box->font().pointSize(), 10) << box->objectName().toStdString();
    EXPECT_EQ(main->lang_list->font().pointSize(), 8);
    EXPECT_EQ(main->known_lists->font().pointSize(), 8);
    main->toggle_font->click();
    EXPECT_EQ(main->toggle_font->text(), "Increase Font");
    EXPECT_EQ(main->lists_list->font().pointSize(), 8);
    EXPECT_EQ(main->words_list->font().pointSize(), 8);
    EXPECT_EQ(main->words_liste->font().pointSize(), 8);
}

TEST(MainWindow, MenuItemsShowTheirMessagesUnderTheirTitles)
{
    ProgramFolder folder;
    ScriptedPrompts prompts({QString("kestrin")});
    FakeSound sound;
    FakeClock clock;
    const Started started = startIn(folder, prompts, sound, clock);
    MainWindow* main = started.main();
    prompts.shown.clear();
    main->Instructions2->trigger();
    main->Help2->trigger();
    main->Troubleshooting->trigger();
    main->About1->trigger();
    ASSERT_EQ(prompts.shown.size(), 4);

    EXPECT_EQ(prompts.shown[0].title, "Instructions");
    EXPECT_EQ(prompts.shown[0].text,
              "First select a language to learn by clicking on its name at the top left. Lists of words for that "
              "language will then appear.  Click on one of the lists to see the words on that list. Click on a "
              "word to hear it. Click on 'flash cards' to randomnly play words on the selected list.  You can "
              "double-click on a word to move it from the 'unknown' list to the 'known' list. The program remembers "
              "which words you have marked as 'known' for the next time you run the program. You can review the "
              "words you've marked as 'known' and double-click on them to move them back onto the 'unknown' list. ");

    const QString web = QString::fromLatin1(product::kWebAddress);
    EXPECT_EQ(prompts.shown[1].title, "Help");
    EXPECT_TRUE(
        prompts.shown[1].text.startsWith("For general instructions on how to use the program, click on Instructions."));
    EXPECT_TRUE(prompts.shown[1].text.contains(web));
    EXPECT_TRUE(prompts.shown[1].text.contains(QString::fromLatin1(product::kMaintainerEmail)));

    EXPECT_EQ(prompts.shown[2].title, "Troubleshooting");
    const QString troubleshooting = prompts.shown[2].text;
    EXPECT_TRUE(troubleshooting.startsWith(
        "See the Help section if this information does not solve the problem.  The program depends on the sound "
        "files and word lists to be in a certain location relative to the quorvane.exe program.  The following "
        "files have to be in the indicated sub-folders relative to the quorvane.exe program. \r"));
    EXPECT_FALSE(troubleshooting.contains('\n'));
    const QStringList rows = troubleshooting.split('\r', Qt::SkipEmptyParts).mid(1);
    EXPECT_EQ(rows, QStringList({"quorvane.exe\tin 'quorvane' folder", "fmod.dll",
                                 "mp3 and wav sound files\texample: quorvane\\languages\\spanish\\01\\01436.mp3",
                                 "text files of word lists\texample: "
                                 "quorvane\\languages\\spanish\\most_common_words.txt",
                                 "the users known word lists\texample: "
                                 "quorvane\\users\\kestrin\\spanish\\most_common_words-u.txt"}));

    EXPECT_EQ(prompts.shown[3].title, "About " + web + " Vocabulary Tutor");
    EXPECT_TRUE(
        prompts.shown[3].text.endsWith("edit words and phrases, see also the license on the 'Record and Edit' form."));
    EXPECT_TRUE(prompts.shown[3].text.contains(QString::fromLatin1(product::kVersion)));
}

TEST(MainWindow, ExitClosesTheSoundLibraryAndEveryWindow)
{
    ProgramFolder folder;
    ScriptedPrompts prompts({QString("kestrin")});
    FakeSound sound;
    FakeClock clock;
    const Started started = startIn(folder, prompts, sound, clock);
    QWidget other;
    other.show();
    ASSERT_TRUE(sound.initialised);
    started.main()->exit_program->click();
    EXPECT_FALSE(sound.initialised);
    EXPECT_FALSE(started.main()->isVisible());
    EXPECT_FALSE(other.isVisible());
    EXPECT_EQ(started.session().stop_flag, "yes");
}
