#include "core/table_limit.h"
#include "store/search.h"
#include "test_support.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

using namespace quorvane;
using namespace quorvane::test;

namespace {

MainWindow* startWithMasters(Program& p, const QByteArray& spanish, const QByteArray& english)
{
    p.folder.write("languages/spanish/master_spanish.txt", spanish);
    p.folder.write("languages/spanish/food.txt", "comer|to eat|01436\r\n");
    p.folder.write("languages/spanish/trans_spanish.dat", "english\r\n");
    p.folder.write("languages/english/master_english.txt", english);
    return p.start("spanish");
}

// Empties a box, then types text into it key by key as a student would: what the words list shows.
QStringList search(MainWindow* main, QLineEdit* box, const QString& text)
{
    box->clear();
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, box, Qt::Key(c.toUpper().unicode()), QString(c), Qt::NoModifier);
    return items(main->words_list);
}

} // namespace

TEST(Search, TypingSearchesTheMasterWithFoldedAccentsAndTranslationPrefixes)
{
    Program p;
    MainWindow* main =
        startWithMasters(p,
                         "comer|to eat, to have lunch|01436\r\nComer|capital|01437\r\ncorrer|to run|01438\r\n"
                         "ni\xF1o|child|01439\r\nnino|not a word|01440\r\nc\xF3mo|how|01441\r\n"
                         "c\xF3t\xE9|side|01442\r\nbeber|to drink, eat|01443\r\ngrande|great, eat|01444\r\n"
                         "comida|eats,food|\r\ncomo|as\r\n",
                         {});
    Session& s = p.session();
    select_row(main->lists_list, 0);
    const QString caption = main->Label8->text();
    const QString shown = s.shown_file;

    // Capitals in the master never match; cómo is not folded (ó alone is no accent), cóté is. Only
    // those with a sound number are listed; the caption, the file shown and the list stay.
    EXPECT_EQ(search(main, main->txt_word_search, "co"), QStringList({"comer", "correr", "cóté"}));
    EXPECT_EQ(s.words, QStringList({"comer", "correr", "cóté", "comida", "como", ""}));
    EXPECT_EQ(items(main->words_liste), QStringList({"to eat, to have lunch", "to run", "side"}));
    EXPECT_EQ(QStringList({main->Label8->text(), s.shown_file, s.current_list}), QStringList({caption, shown, "food"}));
    EXPECT_EQ(search(main, main->txt_word_search, "nino"), QStringList({"niño", "nino"}));
    EXPECT_EQ(search(main, main->txt_word_search, "niño"), QStringList({"niño"}));
    EXPECT_EQ(search(main, main->txt_word_search, "NIÑO"), QStringList({"niño"}));
    // A term whose only accent is ó counts as plain: the folded cóté never matches it.
    EXPECT_EQ(search(main, main->txt_word_search, "có"), QStringList({"cómo"}));
    // Deleting down to fewer than two letters leaves the last results.
    QTest::keyClick(main->txt_word_search, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(main->txt_word_search, Qt::Key_Backspace);
    EXPECT_EQ(items(main->words_list), QStringList({"cómo"}));

    // A translation holds the term after "to ", ", " or ",", even after a place where it does not.
    EXPECT_EQ(search(main, main->txt_word_search2, "eat"), QStringList({"comer", "beber", "grande"}));
    EXPECT_EQ(s.words, QStringList({"comer", "beber", "grande", "comida", ""}));
    EXPECT_EQ(search(main, main->txt_word_search2, "food"), QStringList());
    EXPECT_EQ(s.words, QStringList({"comida", ""}));
    EXPECT_EQ(search(main, main->txt_word_search2, "have"), QStringList({"comer"}));
    EXPECT_EQ(p.prompts.shown.size(), 1);

    // The master changed on disk is searched as it is now: a line without the field searched stops
    // the search, and the words shown stay.
    p.folder.write("languages/spanish/master_spanish.txt",
                   p.folder.read("languages/spanish/master_spanish.txt") + "solo\r\n");
    main->txt_word_search2->setText("as");
    EXPECT_TRUE(p.prompts.texts().last().contains("Line 12 of the file")) << p.prompts.texts().last().toStdString();
    EXPECT_EQ(items(main->words_list), QStringList({"comer"}));

    QFile::remove(s.master_file);
    main->txt_word_search->setText("xy");
    EXPECT_EQ(p.prompts.shown.last().text,
              "Required master list file was not found. You need " + s.languages_folder + "/master_spanish.txt");
}

TEST(Search, TheCacheSeesEveryChangeOfTheFileAndMoreMatchesThanTheTableHoldsStopTheSearch)
{
    ProgramFolder folder;
    const QString path = folder.file("master.txt");
    MasterCache cache;
    const auto words = [&](int field, const QString& term) {
        const auto found = search_master(path, field, term, cache);
        return found ? found->words : QStringList({"none"});
    };
    // Each rewrite keeps the size: only the bytes tell the change, read ahead or not.
    const QByteArray master = "coma|to eat|00001\r\nni\xF1o|great, eat|00002\r\n";
    folder.write("master.txt", master);
    cache.prepareAhead(path);
    EXPECT_EQ(words(0, "co"), QStringList({"coma", ""}));
    EXPECT_EQ(words(1, "eat"), QStringList({"coma", "niño", ""}));
    folder.write("master.txt", QByteArray(master).replace("co", "cx"));
    EXPECT_EQ(words(0, "co"), QStringList({""}));
    cache.prepareAhead(path);
    folder.write("master.txt", QByteArray(master).replace("\xF1", "n"));
    EXPECT_EQ(words(0, "niñ"), QStringList({""}));
    EXPECT_EQ(QList({words(0, "ni"), words(0, "x"), words(2, "co")}),
              QList({QStringList({"nino", ""}), QStringList({"none"}), QStringList({"none"})}));

    folder.write("master.txt", repeatedLines("coma|comma|00001", kMaxSearchResults + 1));
    EXPECT_THROW(search_master(path, 0, "co", cache), TableLimitError);
    folder.write("master.txt", repeatedLines("coma|comma|00001", kMaxSearchResults));
    EXPECT_EQ(search_master(path, 0, "co", cache)->words.size(), kMaxSearchResults + 1);
}

TEST(Pairing, TheIndexPairsEachKeyWithTheFirstTargetWordAndIsWrittenAnewOrNotAtAll)
{
    Program p;
    MainWindow* main =
        startWithMasters(p,
                         "comer|to eat, to have lunch|01436\r\ntomar|eat, consume|01437\r\n"
                         "ir|to go|01438\r\nsalsa|tomato sauce|01439\r\nuno|one|01440\r\n"
                         "dos|two|01441|x\r\ntres|three|01442\r\n||\r\nnada|, none|01443\r\n",
                         "eat|comer|00217\r\nEat|capital|00218\r\neat|again|00219\r\ngo|ir|00220\r\n"
                         "tomasauce|odd|00221\r\none|uno\r\ntwo|dos|00222\r\n||\r\nthree|tres|00223\r\n");
    const QString index = "languages/spanish/trans_index_spanish_english.dat";
    p.folder.write(index, "old|lines\r\nmore|old\r\nstill|old\r\n");
    const QByteArray expected = "01436|00217\r\n01437|00217\r\n01438|00220\r\n01439|00221\r\n01442|00223\r\n";
    main->create_trans_index();
    EXPECT_EQ(p.folder.read(index), expected);

    // Offered in the menu: the same file again, the pairs loaded at once, and how many were made.
    p.folder.write(index, "");
    main->pair_recordings->trigger();
    EXPECT_EQ(p.folder.read(index), expected);
    EXPECT_EQ(p.session().target_sound_numbers.at(1439), "00221");
    EXPECT_TRUE(p.prompts.texts().last().startsWith("5 recordings of spanish"))
        << p.prompts.texts().last().toStdString();

    // A language without its own trans file still has spanish's target: its pairing is refused
    // from the menu rather than written over spanish's index.
    Program::choose(main->lang_list, "english");
    main->pair_recordings->trigger();
    EXPECT_TRUE(p.prompts.texts().last().startsWith("english is not connected to a target language"));
    EXPECT_EQ(p.folder.read(index), expected);
    Program::choose(main->lang_list, "spanish");

    // Too long a target stops the pairing before anything is written.
    p.folder.write("languages/english/master_english.txt", repeatedLines("x", kMaxTargetLines + 1));
    main->create_trans_index();
    EXPECT_TRUE(p.prompts.texts().last().contains("more than 30001 lines")) << p.prompts.texts().last().toStdString();
    EXPECT_EQ(p.folder.read(index), expected);

    // Either master missing: the same message, nothing written.
    QFile::remove(p.folder.file("languages/english/master_english.txt"));
    p.session().trans_index_file = p.folder.file("languages/spanish/other.dat");
    main->create_trans_index();
    p.session().target_master_file.clear();
    main->create_trans_index();
    QFile::remove(p.folder.file("languages/spanish/master_spanish.txt"));
    main->create_trans_index();
    EXPECT_EQ(p.prompts.texts().mid(4), QStringList(3, "Master file for one of the two languages was not found."));
    EXPECT_FALSE(p.folder.exists("languages/spanish/other.dat"));

    // An index that cannot be read is named as its language is chosen.
    QFile::remove(p.folder.file(index));
    p.folder.mkdir(index);
    Program::choose(main->lang_list, "english");
    Program::choose(main->lang_list, "spanish");
    EXPECT_TRUE(p.prompts.texts().last().contains("trans_index_spanish_english.dat could not be read ("))
        << p.prompts.texts().last().toStdString();
}

TEST(NewLanguage, NewListsAndLanguagesAreMadeWholeOrNotAtAllAKnownTargetsListsCopiedAnUnknownOneRecordedOnBothSides)
{
    Program p;
    MainWindow* main = p.start();
    main->add_list->click(); // no language installed, none chosen
    EXPECT_EQ(p.prompts.texts().last(), "First select a language.");
    p.folder.write("languages/english/master_english.txt", "eat|comer|00217\r\n||\r\nno bar 00300\r\n");
    p.folder.write("languages/english/eat_words.txt", "eat|comer|00217\r\nx|y|z|00218\r\n1234\r\n");
    p.folder.write("languages/english/notes.TXT", "not copied\r\n");
    p.folder.write("languages/spanish/food.txt", "comer|to eat|01436\r\n");
    main->lang_list->addItems({"english", "spanish"});
    const auto entries = [&p](const QString& folder) {
        return QDir(p.folder.file("languages/" + folder)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    };

    // A new list holds its header line and is listed; names it cannot have are refused.
    Program::choose(main->lang_list, "spanish");
    for (const QString& name : {QString("my words"), QString("food"), QString(), QString("a/b"), QString(300, 'c')}) {
        p.prompts.push(name);
        main->add_list->click();
    }
    EXPECT_EQ(p.folder.read("languages/spanish/my_words.txt"),
              "spanish word or phrase|student's language translation|99999\r\n");
    EXPECT_EQ(items(main->lists_list), QStringList({"food", "my_words"}));
    EXPECT_EQ(entries("spanish"), QStringList({"food.txt", "my_words.txt"}));
    const QStringList listBoxes = p.prompts.boxes().mid(2);
    ASSERT_EQ(listBoxes.size(), 9) << listBoxes.join('\n').toStdString();
    EXPECT_EQ(listBoxes[0], "input|Add New Word List|This creates a new word/phrase list to be added to the currently "
                            "selected language (spanish).  If this is not what you want to do, click cancel.  After "
                            "creating this new list, you can add words and phrases to it using the 'Record and Edit "
                            "Selected List' button. What is the name of the new list?  Use only english characters and "
                            "numbers.");
    EXPECT_EQ(listBoxes[1], "message||my_words");
    EXPECT_EQ(listBoxes[3], "message||That list already exists for this language.  Please choose another list name.");
    EXPECT_TRUE(listBoxes[6].contains("a/b.txt could not be made") && listBoxes[8].contains("could not be made"));

    p.prompts.shown.clear();
    const auto answer = [&](const QStringList& answers) {
        for (const QString& text : answers)
            p.prompts.push(text);
        main->new_language->click();
        return p.prompts.texts().last();
    };

    answer({"SwaHili", "English"});
    EXPECT_EQ(p.folder.read("languages/swahili/eat_words.txt"), "eat||00217\r\nx||00218\r\n|1234\r\n");
    EXPECT_EQ(p.folder.read("languages/swahili/master_swahili.txt"), "eat||00217\r\n|00300\r\n");
    EXPECT_EQ(entries("swahili"), QStringList({"eat_words.txt", "master_swahili.txt", "trans_index_swahili_english.dat",
                                               "trans_swahili.dat", "voice_swahili.dat"}));
    EXPECT_EQ(p.folder.read("languages/swahili/voice_swahili.dat"), "sw\r\n");
    EXPECT_EQ(p.folder.read("languages/swahili/trans_index_swahili_english.dat"),
              "00217|00217\r\n00218|00218\r\n1234|1234\r\n00217|00217\r\n00300|00300\r\n");
    EXPECT_EQ(p.folder.read("languages/swahili/trans_swahili.dat"), "english\r\n");
    // Every language is listed again and the first one is chosen.
    EXPECT_EQ(items(main->lang_list), QStringList({"english", "spanish", "english", "spanish", "swahili"}));
    EXPECT_EQ(p.session().current_language, "english");
    const QStringList shown = p.prompts.boxes();
    EXPECT_TRUE(shown.value(0).startsWith("input|Add New Language|") &&
                shown.value(0).endsWith("language you want to add.  If you want to begin work on a new language, "
                                        "what do you want to call it?  Use 8 or fewer english letters and numbers, "
                                        "but not spaces."));
    EXPECT_TRUE(shown.value(1).startsWith("input|Target Language|You need to connect this new language"));
    EXPECT_TRUE(shown.value(2).startsWith("message||Thank you, that language was found on this computer.  Words"));

    // The same name again, even as a plain file: nothing changes (nothing is listed again either).
    p.folder.write("languages/zulu", "a file");
    for (const char* name : {"swahili", "zulu"})
        EXPECT_EQ(answer({name}), "That language already exits.  Please choose another name.");
    QFile::remove(p.folder.file("languages/zulu"));

    EXPECT_EQ(answer({"hausa", "xhosa"}),
              "That language folder is not on this computer, but your selection is being recorded.");
    EXPECT_EQ(p.folder.read("languages/xhosa/trans_xhosa.dat"), "hausa\r\n");
    EXPECT_EQ(p.folder.read("languages/hausa/trans_hausa.dat"), "xhosa\r\n");
    EXPECT_EQ(entries("hausa") + entries("xhosa"), QStringList({"trans_hausa.dat", "trans_xhosa.dat"}));
    EXPECT_EQ(items(main->lang_list).mid(5), QStringList({"english", "hausa", "spanish", "swahili", "xhosa"}));

    // An empty target leaves the new folder without a trans file and lists nothing again (the count at
    // the end).
    answer({"igbo", ""});
    EXPECT_TRUE(QFileInfo(p.folder.file("languages/igbo")).isDir() && entries("igbo").isEmpty());

    // Names the file system refuses: said, naming what could not be made, and nothing is left.
    // A target with a list, so that the long name's folder holds a copy when its index cannot be made.
    p.folder.write("languages/xhosa/words.txt", "one|uno|00001\r\n");
    const QString tooLong(300, 'a');
    const QStringList before = entries("");
    for (const QStringList& answers : QList<QStringList>{
             {"english/x"}, {tooLong}, {"yoruba", tooLong}, {"yoruba", "en/x"}, {QString(240, 'b'), "xhosa"}}) {
        const QString last = answer(answers);
        EXPECT_TRUE(last.contains("could not be made") && last.contains("Nothing was added") &&
                    last.contains(answers.last().left(10)))
            << answers.join(',').toStdString() << ": " << last.toStdString();
        EXPECT_EQ(entries(""), before) << answers.join(',').toStdString();
    }
    EXPECT_EQ(entries("english"), QStringList({"eat_words.txt", "master_english.txt", "notes.TXT"}));
    EXPECT_FALSE(p.folder.exists("languages/english/trans_english.dat"));
    EXPECT_EQ(main->lang_list->count(), 10);
}

TEST(Pairing, TheSampleCoursesIndexesAreWhatThePairingWrites)
{
    const auto demo = [](const QString& file) {
        QFile in(QStringLiteral(QUORVANE_DEMO_DIR) + "/languages/" + file);
        EXPECT_TRUE(in.open(QIODevice::ReadOnly)) << file.toStdString();
        return in.readAll();
    };
    Program p;
    for (const QString file : {"spanish/master_spanish.txt", "spanish/trans_spanish.dat", "english/master_english.txt",
                               "english/trans_english.dat"})
        p.folder.write("languages/" + file, demo(file));
    MainWindow* main = p.start();
    for (const QString language : {"english", "spanish"}) {
        Program::choose(main->lang_list, language);
        main->create_trans_index();
        const QString index = language + "/trans_index_" + language + "_" + p.session().target_language + ".dat";
        EXPECT_EQ(p.folder.read("languages/" + index), demo(index)) << index.toStdString();
    }
    // The English master is made for the Spanish course: (nearly) every Spanish entry has a partner.
    const qsizetype spanish = demo("spanish/master_spanish.txt").count('\n');
    EXPECT_GE(demo("spanish/trans_index_spanish_english.dat").count('\n') * 10, spanish * 9);
}
