#include "core/product.h"
#include "sound/sdl_sound.h"
#include "test_support.h"

#include <QAction>
#include <QLabel>
#include <QMenu>

#include <gtest/gtest.h>

using namespace quorvane;
using quorvane::test::items;
using quorvane::test::Program;

namespace {

const QString kNamePrompt =
    "What is your first name?  This is for the program to remember which words you have learned.";
const QString kNoLibrary = "Error! The sound library (SDL2) was not found. All the files are not in the right folders.";

} // namespace

TEST(Startup, SoundFailureIsExplainedThenTheNameIsAskedThenLanguagesAreListed)
{
    Program p;
    p.folder.mkdir("languages/spanish");
    p.folder.mkdir("languages/English");
    p.folder.write("languages/readme.txt", "a plain file shows up as a language");
    p.folder.mkdir("languages/german");
    p.sound.initError = 3;
    MainWindow* main = p.start();

    EXPECT_EQ(p.prompts.boxes(),
              QStringList({"message||An error occured. Please turn off other programs that may be using sound and "
                           "start this program again. The specific error message is:\r\nError initializing output "
                           "device.",
                           "input|Student Name|" + kNamePrompt}));
    EXPECT_EQ(p.sound.initArguments, QList<int>({22050, 64, 0}));

    // Listed in the order a Windows scan gives, plain files too, and the first one chosen.
    EXPECT_EQ(std::pair(items(main->lang_list), main->lang_list->currentRow()),
              std::pair(QStringList({"English", "german", "readme.txt", "spanish"}), 0));
    const Session& s = p.session();
    EXPECT_EQ(std::tuple(s.current_language, s.sound_ok, s.user_name, s.user_folder, s.languages_folder),
              std::tuple("English", false, "kestrin", QDir::currentPath() + "/users/kestrin/",
                         QDir::currentPath() + "/languages/"));
    EXPECT_TRUE(p.folder.exists("users/kestrin"));
    EXPECT_EQ(window("qvmain"), main); // shown
}

TEST(Startup, WithoutASoundLibraryOnlyItsMessageIsShownAndTheRealEngineStartsSilentlyToAskTheName)
{
    // The library missing, the real engine when SDL audio cannot start, and when it can.
    for (const QByteArray driver : {"", "no-such-driver", "dummy"}) {
        SCOPED_TRACE(driver.constData());
        const QByteArray previous = qgetenv("SDL_AUDIODRIVER");
        const bool starts = driver == "dummy";
        if (!driver.isEmpty())
            qputenv("SDL_AUDIODRIVER", driver);
        {
            Program p;
            if (!starts)
                p.folder.mkdir("languages/spanish");
            p.prompts.answers = {QString("")};
            SdlSound sdl;
            p.sound.missing = driver.isEmpty();
            if (!driver.isEmpty())
                p.library = &sdl;
            MainWindow* main = p.start();
            EXPECT_EQ(p.prompts.texts(), QStringList({starts ? kNamePrompt : kNoLibrary}));
            // No languages folder when the engine starts: nothing listed, nothing said.
            EXPECT_EQ(main->lang_list->count(), 0);
            const Session& s = p.session();
            EXPECT_EQ(std::tuple(s.sound_ok, s.current_language, p.folder.exists("users"), p.sound.initialised,
                                 main->isVisible()),
                      std::tuple(starts, "", starts, false, true));
            // An empty name shares the users folder.
            EXPECT_TRUE(!starts || s.user_folder == QDir::currentPath() + "/users//") << s.user_folder.toStdString();
        }
        qputenv("SDL_AUDIODRIVER", previous);
    }
}

TEST(MainWindow, EveryNamedControlHasACaptionOfItsOwnAndTheFontToggleMenuMessagesAndExitWork)
{
    Program p;
    MainWindow* main = p.start();
    EXPECT_EQ(main->objectName(), "qvmain");
    EXPECT_EQ(main->windowTitle(), QString::fromLatin1(product::kWebAddress));
    QStringList captions;
    const QStringList arial = {"small_flash", "test_me", "show_test_results", "print_list", "toggle_font"};
    const QStringList names = QString("Label9 Label1 Label3 Label2 Label4 flash_cards small_flash test_me "
                                      "show_test_results print_list record_word_word record_word_list new_language "
                                      "add_list toggle_font play_paragraph paly_syllables exit_program File "
                                      "Instructions1 Help1 Exit Instructions2 Help2 Troubleshooting About1")
                                  .split(' ');
    for (const QString& name : names) {
        const QObject* control = main->findChild<QObject*>(name);
        ASSERT_NE(control, nullptr) << name.toStdString();
        const QString caption = control->property(qobject_cast<const QMenu*>(control) ? "title" : "text").toString();
        EXPECT_FALSE(caption.trimmed().isEmpty()) << name.toStdString();
        EXPECT_FALSE(captions.contains(caption)) << name.toStdString();
        captions.append(caption);
        if (const auto* widget = qobject_cast<const QWidget*>(control);
            widget && !qobject_cast<const QMenu*>(control)) {
            EXPECT_EQ(widget->font().family(), arial.contains(name) ? "Arial" : "MS Sans Serif") << name.toStdString();
        }
    }
    for (const char* name : {"lang_list", "lists_list", "known_lists", "words_list", "words_liste", "txt_word_search",
                             "txt_word_search2", "Label5", "Label6", "Label8"})
        EXPECT_NE(main->findChild<QWidget*>(name), nullptr) << name;
    EXPECT_TRUE(main->Label5->text().contains(QString::fromLatin1(product::kWebAddress)));

    // The font toggle switches three lists between 8 and 10 points.
    const auto sizes = [main] {
        QList<int> points;
        for (const QListWidget* box :
             {main->lists_list, main->words_list, main->words_liste, main->lang_list, main->known_lists})
            points.append(box->font().pointSize());
        return std::pair(main->toggle_font->text(), points);
    };
    main->toggle_font_click();
    EXPECT_EQ(sizes(), std::pair(QString("Decrease Font"), QList<int>({10, 10, 10, 8, 8})));
    main->toggle_font->click();
    EXPECT_EQ(sizes(), std::pair(QString("Increase Font"), QList<int>({8, 8, 8, 8, 8})));

    // Each menu item shows its own message under its title; the contacts and the version are named, and
    // the troubleshooting lines are broken by carriage returns alone.
    p.prompts.shown.clear();
    for (QAction* item : {main->Instructions2, main->Help2, main->Troubleshooting, main->About1})
        item->trigger();
    const QString web = QString::fromLatin1(product::kWebAddress);
    QStringList texts = p.prompts.texts();
    ASSERT_EQ(texts.size(), 4);
    EXPECT_EQ(texts.removeDuplicates() + texts.count(QString()), 0) << texts.join('\n').toStdString();
    EXPECT_EQ(QStringList({p.prompts.shown[0].title, p.prompts.shown[1].title, p.prompts.shown[2].title,
                           p.prompts.shown[3].title}),
              QStringList({"Instructions", "Help", "Troubleshooting", "About " + web + " Vocabulary Tutor"}));
    EXPECT_TRUE(texts[1].contains(web) && texts[1].contains(QString::fromLatin1(product::kMaintainerEmail)));
    EXPECT_TRUE(texts[2].count('\r') >= 5 && !texts[2].contains('\n'));
    EXPECT_TRUE(texts[3].contains(QString::fromLatin1(product::kVersion)));

    // Exit closes the sound library and every window.
    QWidget other;
    other.show();
    ASSERT_TRUE(p.sound.initialised);
    main->exit_program->click();
    EXPECT_FALSE(p.sound.initialised || main->isVisible() || other.isVisible());
    EXPECT_EQ(p.session().stop_flag, "yes");
}
