#include "app/list_box.h"
#include "app/main_window.h"
#include "app/session.h"
#include "test_support.h"

#include "quorvane/testing.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

#include <memory>

using namespace quorvane;
using quorvane::test::ProgramFolder;

namespace {

QStringList items(const QListWidget* box)
{
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts.append(box->item(i)->text());
    return texts;
}

struct Started
{
    ScriptedPrompts prompts{{QString("kestrin")}};
    FakeSound sound;
    FakeClock clock;
    std::unique_ptr<QWidget> window;

    explicit Started(const ProgramFolder& folder) : window(start(folder.path(), &prompts, &sound, &clock)) {}
    MainWindow* main() const { return static_cast<MainWindow*>(window.get()); }
    Session& session() const { return sessionOf(window.get()); }
    // Selects a language by name, as a click would.
    void chooseLanguage(const QString& name) const
    {
        const auto found = main()->lang_list->findItems(name, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << name.toStdString();
        select_row(main()->lang_list, main()->lang_list->row(found.first()));
    }
};

// Three languages: spanish pairs with english, english has no pairing, german has no trans file.
void writeLanguages(const ProgramFolder& folder)
{
    folder.write("languages/spanish/food.txt", "comer|to eat|01436\r\n");
    folder.write("languages/spanish/verbs.txt", "ir|to go|01500\r\n");
    folder.write("languages/spanish/master_spanish.txt", "comer|to eat|01436\r\n");
    folder.write("languages/spanish/master_english.txt", "eat|comer|00217\r\n");
    folder.write("languages/spanish/tiny.txt", "x");
    folder.write("languages/spanish/empty.txt", "");
    folder.write("languages/spanish/notes.TXT", "not a list\r\n");
    folder.write("languages/spanish/trans_spanish.dat", "english\r\nignored\r\n");
    folder.write("languages/spanish/trans_index_spanish_english.dat", "01436|00217\r\n00017|00442\r\n17|00500\r\n");
    folder.write("languages/english/master_english.txt", "eat|comer|00217\r\n");
    folder.write("languages/english/numbers.txt", "one|uno|00001\r\n");
    folder.write("languages/german/colours.txt", "rot|red|00300\r\n");
    folder.write("users/kestrin/spanish/food-k.txt", "comer|to eat|01436\r\n");
    folder.write("users/kestrin/spanish/old-k.txt", "x");
    folder.write("users/kestrin/spanish/notes.txt", "not a known list\r\n");
}

} // namespace

TEST(LanguageSelection, ChoosingALanguageListsItsListsSweepsEmptyFilesAndLoadsThePairing)
{
    ProgramFolder folder;
    writeLanguages(folder);
    Started started(folder);
    MainWindow* main = started.main();
    Session& s = started.session();
    const QString languages = QDir::currentPath() + "/languages/";

    // The first language is chosen at start; it has no trans file, so there is no target yet.
    EXPECT_EQ(s.current_language, "english");
    EXPECT_EQ(s.target_language, "");
    EXPECT_TRUE(main->txt_word_search->isVisible());
    EXPECT_TRUE(main->txt_word_search2->isVisible());
    EXPECT_TRUE(main->Label9->isVisible());

    started.chooseLanguage("spanish");
    EXPECT_EQ(s.current_language, "spanish");
    // Files of under 2 bytes are deleted, the language's own master file is no list, but another
    // language's master file and an upper-case extension are looked at as any other name.
    EXPECT_EQ(items(main->lists_list), QStringList({"food", "master_english", "verbs"}));
    EXPECT_FALSE(folder.exists("languages/spanish/tiny.txt"));
    EXPECT_FALSE(folder.exists("languages/spanish/empty.txt"));
    EXPECT_TRUE(folder.exists("languages/spanish/notes.TXT"));
    EXPECT_EQ(items(main->known_lists), QStringList({"food"}));
    EXPECT_FALSE(folder.exists("users/kestrin/spanish/old-k.txt"));
    EXPECT_TRUE(QFileInfo(folder.file("users/kestrin/english")).isDir());

    EXPECT_EQ(s.master_file, languages + "spanish/master_spanish.txt");
    EXPECT_EQ(s.trans_file, languages + "spanish/trans_spanish.dat");
    EXPECT_EQ(s.target_language, "english");
    EXPECT_EQ(s.target_master_file, languages + "english/master_english.txt");
    EXPECT_EQ(s.trans_index_file, languages + "spanish/trans_index_spanish_english.dat");
    EXPECT_EQ(s.target_sound_numbers.size(), kSoundNumberSlots);
    EXPECT_EQ(s.target_sound_numbers.at(1436), "00217");
    EXPECT_EQ(s.target_sound_numbers.at(17), "00500"); // a later line for the same slot wins

    // Open a list, then choose a language without a trans file: nothing is shown any more and the
    // previous target and its pairings stay in force.
    select_row(main->lists_list, 2);
    EXPECT_EQ(s.current_list, "verbs");
    EXPECT_EQ(main->words_list->count(), 1);
    started.chooseLanguage("german");
    EXPECT_EQ(s.shown_file, "");
    EXPECT_EQ(main->words_list->count(), 0);
    EXPECT_EQ(main->words_liste->count(), 0);
    EXPECT_EQ(items(main->lists_list), QStringList({"colours"}));
    EXPECT_EQ(main->known_lists->count(), 0);
    EXPECT_TRUE(QFileInfo(folder.file("users/kestrin/german")).isDir());
    EXPECT_EQ(s.master_file, languages + "german/master_german.txt");
    EXPECT_EQ(s.trans_file, languages + "german/trans_german.dat");
    EXPECT_EQ(s.target_language, "english");
    EXPECT_EQ(s.trans_index_file, languages + "spanish/trans_index_spanish_english.dat");
    EXPECT_EQ(s.target_sound_numbers.at(1436), "00217");
    EXPECT_TRUE(started.prompts.shown.size() == 1); // only the name was asked
}

TEST(LanguageSelection, AnEmptyTransFileGivesAnEmptyTargetAndABadPairingLineIsReported)
{
    ProgramFolder folder;
    folder.write("languages/basque/words.txt", "bat|one|00001\r\n");
    folder.write("languages/basque/trans_basque.dat", "\r\n");
    folder.write("languages/welsh/words.txt", "un|one|00001\r\n");
    folder.write("languages/welsh/trans_welsh.dat", "english\r\n");
    folder.write("languages/welsh/trans_index_welsh_english.dat", "00001|00100\r\n\r\n");
    Started started(folder);
    Session& s = started.session();
    const QString languages = QDir::currentPath() + "/languages/";

    EXPECT_EQ(s.current_language, "basque");
    EXPECT_EQ(s.target_language, "");
    EXPECT_EQ(s.target_master_file, languages + "/master_.txt");
    EXPECT_EQ(s.trans_index_file, languages + "basque/trans_index_basque_.dat");

    // An empty pairing line stops the load with a message naming the file; the window stays up and
    // the table is not half filled.
    started.chooseLanguage("welsh");
    ASSERT_EQ(started.prompts.shown.size(), 2);
    EXPECT_EQ(started.prompts.shown[1].kind, "message");
    EXPECT_TRUE(started.prompts.shown[1].text.contains("trans_index_welsh_english.dat"))
        << started.prompts.shown[1].text.toStdString();
    EXPECT_EQ(s.target_sound_numbers.at(1), "");
    EXPECT_EQ(items(started.main()->lists_list), QStringList({"words"}));
    EXPECT_TRUE(started.main()->isVisible());
}
