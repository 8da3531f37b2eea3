#include "core/table_limit.h"
#include "store/search.h"
#include "store/text_files.h"
#include "test_support.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

using namespace quorvane;
using quorvane::test::boxes;
using quorvane::test::items;
using quorvane::test::Program;
using quorvane::test::ProgramFolder;

namespace {

// The search and the pairing as the rules read, re-reading the files and scanning them whole.
const QString kAccented = QString::fromUtf8("\u00F6\u00F5\u00F1\u00ED\u00EC\u00E9\u00E8\u00E3\u00E1\u00E0");
const QString kFoldFrom = QString::fromUtf8("\u00E0\u00E1\u00E3\u00E8\u00E9\u00EC\u00ED\u00F1\u00F2\u00F3\u00F5\u00F6");
const QString kFoldTo = "aaaeeiinoooo";

bool accented(const QString& text)
{
    for (const QChar c : kAccented)
        if (text.contains(c))
            return true;
    return false;
}

std::optional<WordArrays> literalSearch(const QString& path, int field, const QString& text)
{
    if (text.size() < 2)
        return std::nullopt;
    const QString term = text.toLower();
    WordArrays found{{}, {}, {}};
    const QStringList lines = readTextLines(path).value();
    for (const QString& line : lines) {
        const QStringList fields = line.split('|');
        QString candidate = fields.at(field);
        if (accented(candidate) && !accented(term))
            for (int i = 0; i < kFoldFrom.size(); ++i)
                candidate.replace(kFoldFrom[i], kFoldTo[i]);
        if (candidate.startsWith(term) ||
            (field == 1 &&
             (candidate.contains("to " + term) || candidate.contains(", " + term) || candidate.contains("," + term)))) {
            found.words.append(fields.value(0));
            found.translations.append(fields.value(1));
            found.sound_numbers.append(fields.value(2));
        }
    }
    found.words.append(QString());
    found.translations.append(QString());
    found.sound_numbers.append(QString());
    return found;
}

QStringList literalPairing(const QStringList& master, const QStringList& target)
{
    QList<QStringList> targetFields;
    for (const QString& line : target)
        targetFields.append(line == "||" ? QStringList() : line.split('|'));
    QStringList pairs;
    for (const QString& line : master) {
        const QStringList fields = line.split('|');
        if (fields.size() != 3 || line == "||")
            continue;
        QString key = fields[1];
        if (key.contains(','))
            key = key.left(key.indexOf(','));
        key.replace("to ", "");
        for (const QStringList& other : targetFields) {
            if (other.size() == 3 && other[0] == key) {
                pairs.append(fields[2] + "|" + other[2]);
                break;
            }
        }
    }
    return pairs;
}

// A master of count lines with accents, capitals, commas, "to ", repeated words, lines of two and
// four fields, numbered from first.
QByteArray generatedMaster(int count, int first)
{
    const char* stems[] = {"co", "Co", "ni\xF1", "ni", "c\xF3", "c\xF3t\xE9", "\xE1rbol", "arb", "pot", "to", "eat"};
    const char* meanings[] = {"to eat, to have", "eat",        "potato salad", "great, eat",
                              ",eats",           "drink, eat", "Eat",          "go"};
    QByteArray bytes;
    for (int i = 0; i < count; ++i) {
        const QByteArray stem = stems[(i * 7) % 11];
        const QByteArray meaning = meanings[(i * 5) % 8];
        const QByteArray number = QByteArray::number(first + i).rightJustified(5, '0');
        const QByteArray suffix = QByteArray::number(i % 13);
        bytes += i % 97 == 5 ? "x|" + meaning : stem + suffix + "|" + meaning + (i % 3 ? suffix : "") + "|" + number;
        bytes += i % 89 == 7 ? "|extra\r\n" : "\r\n";
    }
    return bytes;
}

MainWindow* startWithMasters(Program& p, const QByteArray& spanish, const QByteArray& english)
{
    p.folder.write("languages/spanish/master_spanish.txt", spanish);
    p.folder.write("languages/spanish/food.txt", "comer|to eat|01436\r\n");
    p.folder.write("languages/spanish/trans_spanish.dat", "english\r\n");
    if (!english.isNull())
        p.folder.write("languages/english/master_english.txt", english);
    return p.start("spanish");
}

// Types text into a box key by key, as a student would; letters beyond ASCII as their own keys.
void type(QLineEdit* box, const QString& text)
{
    for (const QChar c : text) {
        if (c.unicode() < 0x80)
            QTest::keyClick(box, c.toLatin1());
        else
            QTest::sendKeyEvent(QTest::Click, box, Qt::Key(c.toUpper().unicode()), QString(c), Qt::NoModifier);
    }
}

} // namespace

TEST(Search, TypingSearchesTheMasterWithFoldedAccentsAndTranslationPrefixes)
{
    Program p;
    MainWindow* main =
        startWithMasters(p,
                         "comer|to eat, to have lunch|01436\r\nComer|capital|01437\r\ncorrer|to run|01438\r\n"
                         "ni\xF1o|child|01439\r\nnino|not a word|01440\r\nc\xF3mo|how|01441\r\n"
                         "c\xF3t\xE9|side|01442\r\nbeber|to drink, eat|01443\r\ngrande|great|01444\r\n"
                         "comida|eats,food|\r\ncomo|as\r\n",
                         {});
    Session& s = p.session();
    select_row(main->lists_list, 0);
    const QString caption = main->Label8->text();
    const QString shown = s.shown_file;

    type(main->txt_word_search, "co");
    // Capitals in the master never match; cómo is not folded (ó alone is no accent), cóté is.
    EXPECT_EQ(s.words, QStringList({"comer", "correr", "cóté", "comida", "como", ""}));
    EXPECT_EQ(items(main->words_list), QStringList({"comer", "correr", "cóté"})); // those with a sound number
    EXPECT_EQ(items(main->words_liste), QStringList({"to eat, to have lunch", "to run", "side"}));
    EXPECT_EQ(main->Label8->text(), caption);
    EXPECT_EQ(s.shown_file, shown);
    EXPECT_EQ(s.current_list, "food");

    auto search = [&](QLineEdit* box, const QString& text) {
        box->clear();
        type(box, text);
        return items(main->words_list);
    };
    EXPECT_EQ(search(main->txt_word_search, "Co"), QStringList({"comer", "correr", "cóté"}));
    EXPECT_EQ(search(main->txt_word_search, "nino"), QStringList({"niño", "nino"}));
    EXPECT_EQ(search(main->txt_word_search, "niño"), QStringList({"niño"}));
    EXPECT_EQ(search(main->txt_word_search, "NIÑO"), QStringList({"niño"}));
    // A term whose only accent is ó counts as plain: the folded cóté never matches it.
    EXPECT_EQ(search(main->txt_word_search, "có"), QStringList({"cómo"}));
    EXPECT_EQ(search(main->txt_word_search, "cot"), QStringList({"cóté"}));
    // Deleting down to fewer than two letters leaves the last results.
    QTest::keyClick(main->txt_word_search, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(main->txt_word_search, Qt::Key_Backspace);
    EXPECT_EQ(main->txt_word_search->text(), "");
    EXPECT_EQ(items(main->words_list), QStringList({"cóté"}));

    EXPECT_EQ(search(main->txt_word_search2, "eat"), QStringList({"comer", "beber"}));
    EXPECT_EQ(s.words, QStringList({"comer", "beber", "comida", ""}));
    EXPECT_EQ(search(main->txt_word_search2, "have"), QStringList({"comer"}));
    EXPECT_EQ(search(main->txt_word_search2, "food"), QStringList());
    EXPECT_EQ(p.prompts.shown.size(), 1);

    // The master changed on disk is searched as it is now. A line without the field searched stops
    // the search; the words shown stay.
    const QByteArray master = p.folder.read("languages/spanish/master_spanish.txt");
    p.folder.write("languages/spanish/master_spanish.txt", master + "habla|to speak|01445\r\n");
    EXPECT_EQ(search(main->txt_word_search2, "to sp"), QStringList({"habla"}));
    p.folder.write("languages/spanish/master_spanish.txt", master + "habla|to speak|01445\r\nsolo\r\n");
    main->txt_word_search2->setText("as");
    ASSERT_EQ(p.prompts.shown.size(), 2);
    EXPECT_TRUE(p.prompts.shown[1].text.contains("Line 13 of the file")) << p.prompts.shown[1].text.toStdString();
    EXPECT_EQ(items(main->words_list), QStringList({"habla"}));

    QFile::remove(s.master_file);
    main->txt_word_search->setText("xy");
    EXPECT_EQ(p.prompts.shown.last().text,
              "Required master list file was not found. You need " + s.languages_folder + "/master_spanish.txt");
    EXPECT_TRUE(s.languages_folder.endsWith('/'));
}

TEST(Search, TheFastSearchFindsWhatReadingTheFileAfreshFindsEvenAfterTheFileChanges)
{
    ProgramFolder folder;
    const QString path = folder.file("master.txt");
    MasterCache cache;
    const QStringList terms = {"co", "Co",  "ni", "niñ", "NIÑ", "có", "cot", "arb", "ár",
                               "to", "eat", "ea", "go",  "po",  "sa", "ta",  "x",   ""};
    qsizetype found = 0;
    for (int round = 0; round < 3; ++round) {
        // The file is rewritten at once with the same size: only its bytes tell the change.
        QByteArray master = generatedMaster(4000, 1000);
        if (round == 1)
            master.replace("co", "cx");
        if (round == 2)
            master.replace("\xF1", "n");
        folder.write("master.txt", master);
        for (const QString& term : terms) {
            for (int field : {0, 1}) {
                const auto fast = search_master(path, field, term, cache);
                const auto literal = literalSearch(path, field, term);
                ASSERT_EQ(fast.has_value(), literal.has_value()) << term.toStdString();
                if (fast) {
                    EXPECT_EQ(fast->words, literal->words) << term.toStdString() << field << round;
                    EXPECT_EQ(fast->translations, literal->translations);
                    EXPECT_EQ(fast->sound_numbers, literal->sound_numbers);
                    found += fast->words.size() - 1;
                }
            }
        }
    }
    EXPECT_GT(found, 20000);
    // More matches than the table holds stop the search before anything is shown.
    folder.write("master.txt", test::repeatedLines("coma|comma|00001", kMaxSearchResults + 1));
    EXPECT_THROW(search_master(path, 0, "co", cache), TableLimitError);
    folder.write("master.txt", test::repeatedLines("coma|comma|00001", kMaxSearchResults));
    EXPECT_EQ(search_master(path, 0, "co", cache)->words.size(), kMaxSearchResults + 1);
}

TEST(Pairing, TheIndexPairsEachKeyWithTheFirstTargetWordAndIsWrittenAnew)
{
    Program p;
    MainWindow* main =
        startWithMasters(p,
                         "comer|to eat, to have lunch|01436\r\ntomar|eat, consume|01437\r\n"
                         "ir|to go|01438\r\nsalsa|tomato sauce|01439\r\nuno|one|01440\r\n"
                         "dos|two|01441|x\r\ntres|three|01442\r\n||\r\nnada|, none|01443\r\n",
                         "eat|comer|00217\r\nEat|capital|00218\r\neat|again|00219\r\ngo|ir|00220\r\n"
                         "tomasauce|odd|00221\r\none|uno\r\ntwo|dos|00222\r\n||\r\nthree|tres|00223\r\n");
    p.folder.write("languages/spanish/trans_index_spanish_english.dat", "old|lines\r\nmore|old\r\nstill|old\r\n");
    const QByteArray expected = "01436|00217\r\n01437|00217\r\n01438|00220\r\n01439|00221\r\n01442|00223\r\n";
    main->create_trans_index();
    EXPECT_EQ(p.folder.read("languages/spanish/trans_index_spanish_english.dat"), expected);

    // Offered in the menu: the same file again, the pairs loaded at once, and how many were made.
    main->pair_recordings->trigger();
    EXPECT_EQ(p.folder.read("languages/spanish/trans_index_spanish_english.dat"), expected);
    EXPECT_EQ(p.session().target_sound_numbers.at(1439), "00221");
    EXPECT_TRUE(p.prompts.shown.last().text.startsWith("5 recordings of spanish"))
        << p.prompts.texts().join('\n').toStdString();

    // A language without its own trans file still has spanish's target: its pairing is refused
    // from the menu rather than written over spanish's index.
    Program::choose(main->lang_list, "english");
    main->pair_recordings->trigger();
    EXPECT_TRUE(p.prompts.texts().last().startsWith("english is not connected to a target language"));
    EXPECT_EQ(p.folder.read("languages/spanish/trans_index_spanish_english.dat"), expected);
    Program::choose(main->lang_list, "spanish");

    // Either master missing: the same message, nothing written.
    QFile::remove(p.folder.file("languages/english/master_english.txt"));
    p.session().trans_index_file = p.folder.file("languages/spanish/other.dat");
    main->create_trans_index();
    p.session().target_master_file.clear();
    main->create_trans_index();
    QFile::remove(p.folder.file("languages/spanish/master_spanish.txt"));
    main->create_trans_index();
    EXPECT_EQ(p.prompts.texts().mid(3), QStringList(3, "Master file for one of the two languages was not found."));
    EXPECT_FALSE(p.folder.exists("languages/spanish/other.dat"));
}

TEST(Pairing, TheFastPairingGivesTheNestedScansLinesAndTooLongATargetWritesNothing)
{
    for (int round = 0; round < 2; ++round) {
        const QStringList master = splitLines(decodeWindows1252(generatedMaster(3000, 1000 + round)));
        QStringList target = splitLines(decodeWindows1252(generatedMaster(3000, 50000)));
        // Target words like the keys: the part before the comma, "to " removed.
        for (int i = 0; i < target.size(); i += 2 + round)
            target[i] = pairing_key(master[(i * 31) % master.size()].section('|', 1, 1)) + "|w|" + QString::number(i);
        const QStringList pairs = pair_masters(master, target);
        EXPECT_EQ(pairs, literalPairing(master, target));
        EXPECT_GT(pairs.size(), 1000);
    }

    Program p;
    MainWindow* main = startWithMasters(p, "comer|to eat|01436\r\n", test::repeatedLines("x", kMaxTargetLines + 1));
    p.folder.write("languages/spanish/trans_index_spanish_english.dat", "01436|00217\r\n");
    main->create_trans_index();
    EXPECT_TRUE(p.prompts.shown.last().text.contains("more than 30001 lines"))
        << p.prompts.shown.last().text.toStdString();
    EXPECT_EQ(p.folder.read("languages/spanish/trans_index_spanish_english.dat"), "01436|00217\r\n");
}

TEST(NewLanguage, AKnownTargetsListsBecomeListsOfTheNewLanguageWithTheIdentityPairing)
{
    Program p;
    p.folder.write("languages/english/master_english.txt", "eat|comer|00217\r\n||\r\nno bar 00300\r\n");
    p.folder.write("languages/english/eat_words.txt", "eat|comer|00217\r\nx|y|z|00218\r\n1234\r\n");
    p.folder.write("languages/english/notes.TXT", "not copied\r\n");
    p.folder.write("languages/spanish/food.txt", "comer|to eat|01436\r\n");
    MainWindow* main = p.start("spanish");
    p.prompts.push(QString("SwaHili"));
    p.prompts.push(QString("English"));
    main->new_language->click();

    EXPECT_EQ(p.folder.read("languages/swahili/eat_words.txt"), "eat||00217\r\nx||00218\r\n|1234\r\n");
    EXPECT_EQ(p.folder.read("languages/swahili/master_swahili.txt"), "eat||00217\r\n|00300\r\n");
    EXPECT_EQ(
        QDir(p.folder.file("languages/swahili")).entryList(QDir::Files),
        QStringList({"eat_words.txt", "master_swahili.txt", "trans_index_swahili_english.dat", "trans_swahili.dat"}));
    EXPECT_EQ(p.folder.read("languages/swahili/trans_index_swahili_english.dat"),
              "00217|00217\r\n00218|00218\r\n1234|1234\r\n00217|00217\r\n00300|00300\r\n");
    EXPECT_EQ(p.folder.read("languages/swahili/trans_swahili.dat"), "english\r\n");
    EXPECT_FALSE(p.folder.exists("languages/english/trans_english.dat"));
    // Every language is listed again and the first one is chosen.
    EXPECT_EQ(items(main->lang_list), QStringList({"english", "spanish", "english", "spanish", "swahili"}));
    EXPECT_EQ(p.session().current_language, "english");
    EXPECT_EQ(main->lang_list->currentRow(), 0);
    const QStringList shown = boxes(p.prompts).mid(1);
    ASSERT_EQ(shown.size(), 3);
    EXPECT_TRUE(shown[0].startsWith("input|Add New Language|") &&
                shown[0].endsWith("language you want to add.  If you want to begin work on a new language, what do "
                                  "you want to call it?  Use 8 or fewer english letters and numbers, but not spaces."));
    EXPECT_TRUE(shown[1].startsWith("input|Target Language|You need to connect this new language"));
    EXPECT_TRUE(shown[2].startsWith("message||Thank you, that language was found on this computer.  Words lists"));

    // The same name again, even as a plain file: nothing changes.
    p.folder.write("languages/zulu", "a file");
    for (const char* name : {"swahili", "zulu"}) {
        p.prompts.push(QString(name));
        main->new_language->click();
        EXPECT_EQ(p.prompts.texts().last(), "That language already exits.  Please choose another name.");
    }
    EXPECT_EQ(main->lang_list->count(), 5);
}

TEST(NewLanguage, AnUnknownTargetIsRecordedOnBothSidesAndARefusedNameLeavesNothing)
{
    Program p;
    p.folder.write("languages/english/words.txt", "one|uno|00001\r\n");
    MainWindow* main = p.start();
    p.prompts.push(QString("swahili"));
    p.prompts.push(QString("xhosa"));
    main->new_language->click();
    EXPECT_EQ(p.prompts.texts().last(),
              "That language folder is not on this computer, but your selection is being recorded.");
    EXPECT_EQ(p.folder.read("languages/xhosa/trans_xhosa.dat"), "swahili\r\n");
    EXPECT_EQ(p.folder.read("languages/swahili/trans_swahili.dat"), "xhosa\r\n");
    EXPECT_EQ(QDir(p.folder.file("languages/swahili")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot) +
                  QDir(p.folder.file("languages/xhosa")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList({"trans_swahili.dat", "trans_xhosa.dat"}));
    EXPECT_EQ(items(main->lang_list), QStringList({"english", "english", "swahili", "xhosa"}));
    EXPECT_EQ(p.session().current_language, "english");

    // An empty target leaves the new folder without a trans file, and lists nothing again.
    p.prompts.push(QString("zulu"));
    p.prompts.push(QString());
    main->new_language->click();
    EXPECT_TRUE(QFileInfo(p.folder.file("languages/zulu")).isDir());
    EXPECT_TRUE(QDir(p.folder.file("languages/zulu")).isEmpty());
    EXPECT_EQ(main->lang_list->count(), 4);

    // Names the file system refuses: said, naming what could not be made, and nothing is left.
    const QString tooLong(300, 'a');
    const QString longButFolderFits(240, 'b');
    const QList<QStringList> refused = {
        {"english/x"}, {tooLong}, {"yoruba", tooLong}, {"igbo", "en/x"}, {longButFolderFits, "english"}};
    const QStringList before = QDir(p.folder.file("languages")).entryList();
    for (const QStringList& answers : refused) {
        const qsizetype shown = p.prompts.shown.size();
        for (const QString& answer : answers)
            p.prompts.push(answer);
        main->new_language->click();
        const QString last = p.prompts.texts().last();
        EXPECT_TRUE(last.contains("could not be made") && last.contains("Nothing was added"))
            << answers.join(',').toStdString() << ": " << last.toStdString();
        EXPECT_TRUE(last.contains(answers.last().left(10))) << last.toStdString();
        EXPECT_GT(p.prompts.shown.size(), shown + static_cast<qsizetype>(answers.size()));
        EXPECT_EQ(QDir(p.folder.file("languages")).entryList(), before) << answers.join(',').toStdString();
    }
    EXPECT_EQ(QDir(p.folder.file("languages/english")).entryList(QDir::Files), QStringList({"words.txt"}));
    EXPECT_EQ(main->lang_list->count(), 4);
}

TEST(NewList, ANewListHoldsItsHeaderLineAndIsListedAndBadNamesAreRefused)
{
    Program p;
    MainWindow* main = p.start();
    main->add_list->click(); // no language installed, none chosen
    EXPECT_EQ(p.prompts.texts().last(), "First select a language.");

    p.folder.write("languages/spanish/food.txt", "comer|to eat|01436\r\n");
    main->lang_list->addItem("spanish");
    Program::choose(main->lang_list, "spanish");
    for (const QString& name : {QString("my words"), QString("food"), QString(), QString("a/b"), QString(300, 'c')})
        p.prompts.push(name);
    for (int i = 0; i < 5; ++i)
        main->add_list->click();
    EXPECT_EQ(p.folder.read("languages/spanish/my_words.txt"),
              "spanish word or phrase|student's language translation|99999\r\n");
    EXPECT_EQ(items(main->lists_list), QStringList({"food", "my_words"}));
    EXPECT_EQ(QDir(p.folder.file("languages/spanish")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList({"food.txt", "my_words.txt"}));
    QStringList shown = boxes(p.prompts).mid(2);
    ASSERT_EQ(shown.size(), 9) << shown.join('\n').toStdString();
    EXPECT_EQ(shown[0], "input|Add New Word List|This creates a new word/phrase list to be added to the currently "
                        "selected language (spanish).  If this is not what you want to do, click cancel.  After "
                        "creating this new list, you can add words and phrases to it using the 'Record and Edit "
                        "Selected List' button. What is the name of the new list?  Use only english characters and "
                        "numbers.");
    EXPECT_EQ(shown[1], "message||my_words");
    EXPECT_EQ(shown[3], "message||That list already exists for this language.  Please choose another list name.");
    EXPECT_TRUE(shown[6].contains("a/b.txt could not be made")) << shown[6].toStdString();
    EXPECT_TRUE(shown[8].contains("could not be made")) << shown[8].toStdString();
}

TEST(Pairing, TheSampleCoursesIndexesAreWhatThePairingWrites)
{
    Program p;
    const QString demo = QStringLiteral(QUORVANE_DEMO_DIR) + "/languages/";
    for (const QString file : {"spanish/master_spanish.txt", "spanish/trans_spanish.dat", "english/master_english.txt",
                               "english/trans_english.dat"}) {
        QFile in(demo + file);
        ASSERT_TRUE(in.open(QIODevice::ReadOnly)) << file.toStdString();
        p.folder.write("languages/" + file, in.readAll());
    }
    MainWindow* main = p.start();
    for (const QString language : {"english", "spanish"}) {
        Program::choose(main->lang_list, language);
        main->create_trans_index();
        const QString index = language + "/trans_index_" + language + "_" + p.session().target_language + ".dat";
        QFile committed(demo + index);
        ASSERT_TRUE(committed.open(QIODevice::ReadOnly)) << index.toStdString();
        EXPECT_EQ(p.folder.read("languages/" + index), committed.readAll()) << index.toStdString();
    }
}
