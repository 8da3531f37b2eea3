#include "test_support.h"

#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

using namespace quorvane;
using quorvane::test::items;
using quorvane::test::Program;

namespace {

// The language, its target, and the files that go with them, below the languages folder.
QStringList languageFiles(const Session& s)
{
    QStringList files{s.current_language, s.target_language};
    for (const QString& path : {s.master_file, s.trans_file, s.target_master_file, s.trans_index_file})
        files.append(QString(path).remove(QDir::currentPath() + "/languages/"));
    return files;
}

} // namespace

TEST(LanguageSelection, ChoosingALanguageListsItsListsSweepsEmptyFilesAndLoadsThePairingOrChangesNothing)
{
    // spanish pairs with english; english has no pairing, german no trans file, basque an empty one;
    // a pairing line of welsh is empty.
    Program p;
    const auto& folder = p.folder;
    folder.write("languages/spanish/food.txt", "comer|to eat|01436\r\n");
    folder.write("languages/spanish/Verbs.txt", "ir|to go|01500\r\n");
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
    folder.write("languages/basque/words.txt", "bat|one|00001\r\n");
    folder.write("languages/basque/trans_basque.dat", "\r\n");
    folder.write("languages/welsh/words.txt", "un|one|00001\r\n");
    folder.write("languages/welsh/trans_welsh.dat", "english\r\n");
    folder.write("languages/welsh/trans_index_welsh_english.dat", "00001|00100\r\n\r\n");
    folder.write("users/kestrin/spanish/food-k.txt", "comer|to eat|01436\r\n");
    folder.write("users/kestrin/spanish/old-k.txt", "x");
    folder.write("users/kestrin/spanish/two-k.txt", "ab");
    folder.write("users/kestrin/spanish/notes.txt", "not a known list\r\n");
    MainWindow* main = p.start();
    Session& s = p.session();

    // The first language is chosen at start; its trans file is empty, so there is no target yet.
    EXPECT_EQ(languageFiles(s), QStringList({"basque", "", "basque/master_basque.txt", "basque/trans_basque.dat",
                                             "/master_.txt", "basque/trans_index_basque_.dat"}));
    EXPECT_TRUE(QFileInfo(folder.file("users/kestrin/basque")).isDir());
    EXPECT_TRUE(main->txt_word_search->isVisible() && main->txt_word_search2->isVisible() && main->Label9->isVisible());

    Program::choose(main->lang_list, "spanish");
    // Listed in name order whatever the case; files of under 2 bytes are deleted; the language's own
    // master file is no list, but another language's master file is; only ".txt" names count.
    EXPECT_EQ(items(main->lists_list), QStringList({"food", "master_english", "Verbs"}));
    EXPECT_FALSE(folder.exists("languages/spanish/tiny.txt") || folder.exists("languages/spanish/empty.txt"));
    EXPECT_TRUE(folder.exists("languages/spanish/notes.TXT"));
    EXPECT_EQ(items(main->known_lists), QStringList({"food", "two"}));
    EXPECT_FALSE(folder.exists("users/kestrin/spanish/old-k.txt"));

    EXPECT_EQ(languageFiles(s),
              QStringList({"spanish", "english", "spanish/master_spanish.txt", "spanish/trans_spanish.dat",
                           "english/master_english.txt", "spanish/trans_index_spanish_english.dat"}));
    EXPECT_EQ(s.target_sound_numbers.size(), kSoundNumberSlots);
    EXPECT_EQ(s.target_sound_numbers.at(1436), "00217");
    EXPECT_EQ(s.target_sound_numbers.at(17), "00500"); // a later line for the same slot wins

    // Open a list, then choose a language without a trans file: nothing is shown any more and the
    // previous target and its pairings stay in force.
    select_row(main->lists_list, 2);
    EXPECT_EQ(QStringList({s.current_list}) + items(main->words_list), QStringList({"Verbs", "ir"}));
    Program::choose(main->lang_list, "german");
    EXPECT_EQ(s.shown_file, "");
    EXPECT_EQ(items(main->words_list) + items(main->words_liste) + items(main->known_lists), QStringList());
    EXPECT_EQ(items(main->lists_list), QStringList({"colours"}));
    EXPECT_TRUE(QFileInfo(folder.file("users/kestrin/german")).isDir());
    EXPECT_EQ(languageFiles(s), QStringList({"german", "english", "german/master_german.txt", "german/trans_german.dat",
                                             "english/master_english.txt", "spanish/trans_index_spanish_english.dat"}));
    EXPECT_EQ(s.target_sound_numbers.at(1436), "00217");
    EXPECT_EQ(p.prompts.shown.size(), 1); // only the name was asked

    // An empty pairing line stops the choice with a message naming the file, before anything changes:
    // every session value a language choice sets, and what the main window's boxes show.
    select_row(main->lists_list, 0);
    auto state = [&] {
        return languageFiles(s) + QStringList({s.shown_file, s.current_list}) + s.target_sound_numbers + s.words +
               items(main->lists_list) + items(main->known_lists) + items(main->words_list) + items(main->words_liste);
    };
    const QStringList before = state();
    Program::choose(main->lang_list, "welsh");
    ASSERT_EQ(p.prompts.shown.size(), 2);
    EXPECT_TRUE(p.prompts.shown[1].kind == "message" &&
                p.prompts.shown[1].text.contains("trans_index_welsh_english.dat"))
        << p.prompts.shown[1].text.toStdString();
    EXPECT_EQ(state(), before);
    EXPECT_FALSE(p.folder.exists("users/kestrin/welsh"));
    EXPECT_TRUE(main->isVisible());
}
