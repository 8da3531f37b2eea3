#include "core/table_limit.h"
#include "store/text_files.h"
#include "test_support.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

using namespace quorvane;
using quorvane::test::items;
using quorvane::test::Program;
using quorvane::test::repeatedLines;

namespace {

// The text colours of the word count and the two word boxes.
QList<QColor> colours(const MainWindow* main)
{
    return {main->Label8->palette().color(QPalette::WindowText), main->words_list->palette().color(QPalette::Text),
            main->words_liste->palette().color(QPalette::Text)};
}

// The word count, then the words and the translations shown, each with its selected row.
QString shown(const MainWindow* main)
{
    const auto box = [](const ListBox* list) {
        return items(list).join(',') + "@" + QString::number(list->currentRow());
    };
    return main->Label8->text() + "|" + box(main->words_list) + "|" + box(main->words_liste);
}

// A click of the mouse on a row, through the box's viewport as a user makes it.
void clickRow(ListBox* box, int row)
{
    const QRect rect = box->visualItemRect(box->item(row));
    ASSERT_TRUE(box->viewport()->rect().contains(rect.center())) << row;
    QTest::mouseClick(box->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
}

// kestrin learning spanish, which pairs with english for 01001 to 01003; 01004 has no partner.
MainWindow* startSpanish(Program& p)
{
    p.folder.write("languages/spanish/trans_spanish.dat", "english\r\n");
    p.folder.write("languages/spanish/trans_index_spanish_english.dat",
                   "01001|00201\r\n01002|00202\r\n01003|00203\r\n");
    for (const char* number : {"01001", "01002", "01003", "01004"})
        p.folder.write(QString("languages/spanish/01/%1.mp3").arg(number), "mp3");
    for (const char* number : {"00201", "00202", "00203"})
        p.folder.write(QString("languages/english/00/%1.mp3").arg(number), "mp3");
    return p.start("spanish");
}

const QByteArray kFourWords = "uno|one|01001\r\ndos|two|01002\r\ntres|three|01003\r\ncuatro|four|01004\r\n";

} // namespace

TEST(UnknownWords, OpeningAListMakesItsUnknownFileOnceShowsAndCountsItsEntriesAndATableLimitChangesNothing)
{
    Program p;
    QByteArray food = "spanish word or phrase|student's language translation|99999\r\n";
    for (int i = 1; i <= 10; ++i)
        food += QString("word%1|meaning %1|010%2\r\n").arg(i).arg(i, 2, 10, QChar('0')).toLatin1();
    // An entry without sound number, unreadable lines, an LF-only line end, a last line without end.
    food += "sin|without|\r\nonly|two fields\r\nfour|fields|01099|x\r\nni\xF1o|child|01200\nagua|water|01001";
    p.folder.write("languages/spanish/food.txt", food);
    p.folder.write("languages/spanish/empty.txt", "uno|one|01001\r\n");
    p.folder.write("users/kestrin/spanish/empty-u.txt", "");
    p.folder.write("languages/spanish/trip.txt", "header|h|99999\r\n\r\nir|to go|01500\r\nver|to see|01501\r\n"
                                                 "Ver|to see|01501\r\na|b\r\n\r\nser|to be|01502\r\n"
                                                 "ver|to see|01501\r\n");
    p.folder.write("users/kestrin/spanish/trip-k.txt", "header|h|99999\r\nver|to see|01501\r\n");
    p.folder.write("languages/spanish/three.txt", kFourWords.left(kFourWords.indexOf("cuatro")));
    p.folder.write("languages/spanish/huge.txt", repeatedLines("a|b|00001", kMaxWordEntries + 1));
    p.folder.write("languages/spanish/big.txt", "uno|one|01001\r\ndos|two|01002\r\n");
    p.folder.write("users/kestrin/spanish/big-k.txt", repeatedLines("k|k|00001", kMaxKnownLines + 1));
    MainWindow* main = startSpanish(p);
    Session& s = p.session();

    // First opening: a byte copy of the list, header and unreadable lines included. The entry
    // without a sound number is counted but not shown.
    Program::choose(main->lists_list, "food");
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/food-u.txt"), food);
    EXPECT_EQ(QStringList({s.list_file, s.unknown_file, s.known_file, s.shown_file})
                  .replaceInStrings(QDir::currentPath(), ""),
              QStringList({"/languages/spanish/food.txt", "/users/kestrin/spanish/food-u.txt",
                           "/users/kestrin/spanish/food-k.txt", "/users/kestrin/spanish/food-u.txt"}));
    EXPECT_EQ(main->Label8->text(), "14 Unknown Words");
    EXPECT_EQ(items(main->words_list).mid(10), QStringList({"word10", QString::fromUtf8("niño"), "agua"}));
    EXPECT_EQ(items(main->words_liste).mid(0, 2), QStringList({"student's language translation", "meaning 1"}));
    EXPECT_EQ(main->words_liste->count(), 13);
    EXPECT_EQ(colours(main), QList<QColor>({QApplication::palette().color(QPalette::ButtonText), QColor(0, 0, 0x60),
                                            QColor(0, 0, 0x60)}));
    EXPECT_TRUE(p.sound.played.isEmpty());

    // Never rebuilt: words added to the list later do not reach the unknown file, nor does an
    // emptied unknown file fill up again.
    p.folder.write("languages/spanish/food.txt", food + "\r\nnuevo|new|01098\r\n");
    Program::choose(main->lists_list, "food");
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/food-u.txt"), food);
    Program::choose(main->lists_list, "empty");
    EXPECT_EQ(shown(main), "0 Unknown Words|@-1|@-1");
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/empty-u.txt"), QByteArray());

    // A known list opened before its list: the unknown file is made without the known lines (every
    // copy, compared case-sensitively) and without the empty lines; lines that are no entry stay.
    ASSERT_EQ(items(main->known_lists), QStringList({"big", "trip"}));
    select_row(main->known_lists, 1);
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/trip-u.txt"),
              QByteArray("ir|to go|01500\r\nVer|to see|01501\r\na|b\r\nser|to be|01502\r\n"));
    EXPECT_EQ(std::tuple(s.current_list, s.shown_file), std::tuple("trip", s.known_file));
    EXPECT_EQ(shown(main), "2 Known Words|header,ver@-1|h,to see@-1");
    EXPECT_EQ(colours(main), QList<QColor>({QColor(0, 0, 0xC0), QColor(0, 0, 0xA0), QColor(0, 0, 0xA0)}));
    EXPECT_EQ(p.prompts.shown.size(), 1);

    // A table limit is reported and changes no session value nor file.
    Program::choose(main->lists_list, "three");
    auto state = [&] {
        return QStringList({s.current_list, s.shown_file, s.list_file, s.known_file, s.unknown_file}) + s.words +
               s.translations + s.sound_numbers;
    };
    const QStringList before = state();
    const auto filesBefore = p.folder.snapshot();

    // A list of 30,002 entries, and a known file of 20,002 lines: each said with its file and limit.
    for (const auto& [list, file, limit] : {std::tuple("huge", "languages/spanish/huge.txt", "30001"),
                                            std::tuple("big", "users/kestrin/spanish/big-k.txt", "20001")}) {
        p.prompts.shown.clear();
        Program::choose(main->lists_list, list);
        ASSERT_EQ(p.prompts.texts().size(), 1);
        const QString text = p.prompts.texts()[0];
        EXPECT_TRUE(text.contains(p.folder.file(file)) && text.contains(limit)) << text.toStdString();
        EXPECT_EQ(state(), before);
        EXPECT_TRUE(p.folder.snapshot() == filesBefore);
    }
    EXPECT_TRUE(main->isVisible());

    // The cards play the list still open, and "Mark Word As Known" moves one of its words.
    p.sound.onPlay = [&](const QString&) {
        Program::press("qvplay", p.sound.played.size() == 1 ? "i_know_this_word" : "pause");
    };
    main->flash_cards_click();
    EXPECT_EQ(splitLines(decodeWindows1252(p.folder.read("users/kestrin/spanish/three-k.txt"))).size(), 1);
    EXPECT_FALSE(p.folder.exists("users/kestrin/spanish/huge-k.txt") ||
                 p.folder.exists("users/kestrin/spanish/huge-u.txt"));
    EXPECT_EQ(p.folder.read("languages/spanish/huge.txt"), filesBefore.value("languages/spanish/huge.txt"));

    // A known file at the limit is read whole.
    p.folder.write("users/kestrin/spanish/big-k.txt",
                   repeatedLines("k|k|00001", kMaxKnownLines - 1) + "dos|two|01002\r\n");
    Program::choose(main->lists_list, "big");
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/big-u.txt"), QByteArray("uno|one|01001\r\n"));

    // A list gone since it was listed makes no unknown file, and is said.
    QFile::remove(p.folder.file("languages/spanish/big.txt"));
    QFile::remove(p.folder.file("users/kestrin/spanish/big-u.txt"));
    Program::choose(main->lists_list, "big");
    EXPECT_FALSE(p.folder.exists("users/kestrin/spanish/big-u.txt"));
    EXPECT_TRUE(p.prompts.texts().last().contains(p.folder.file("languages/spanish/big.txt")));
}

TEST(UnknownWords, AClickSaysTheWordOnceAndTheTranslationInTheTargetLanguageADoubleClickMovesItSilently)
{
    Program p;
    p.folder.write("languages/spanish/numbers.txt", kFourWords);
    p.folder.write("languages/spanish/gap.txt", "uno|one|01001\r\nhueco|gap|\r\ntres|three|01003\r\n");
    p.folder.write("languages/spanish/one.txt", "solo|alone|01001\r\n");
    MainWindow* main = startSpanish(p);
    Program::choose(main->lists_list, "numbers");
    EXPECT_EQ(main->words_list->currentRow(), -1);

    // The word: said once, the translation box follows without a sound; a second click says it again.
    clickRow(main->words_list, 1);
    EXPECT_EQ(std::pair(main->words_liste->currentRow(), main->Label6->text()), std::pair(1, QString("File # 01002")));
    clickRow(main->words_list, 1);
    EXPECT_EQ(p.sound.played, QStringList(2, p.played("spanish/01/01002.mp3")));

    // The translation: its recording in the target language, and the word box follows silently.
    p.sound.played.clear();
    clickRow(main->words_liste, 2);
    EXPECT_EQ(p.sound.played, QStringList({p.played("english/00/00203.mp3")}));
    EXPECT_EQ(std::pair(main->words_list->currentRow(), main->Label6->text()), std::pair(2, QString("File # 00203")));
    // A word without a pairing has no translation to say.
    clickRow(main->words_liste, 3);
    EXPECT_EQ(std::pair(p.sound.played.size(), main->words_list->currentRow()), std::pair(qsizetype(1), 3));

    // Row 1 of gap shows "tres" but stands for index 1 of the arrays, the entry without a sound
    // number: neither the word nor the translation has anything to say.
    Program::choose(main->lists_list, "gap");
    EXPECT_EQ(shown(main), "3 Unknown Words|uno,tres@-1|one,three@-1");
    p.sound.played.clear();
    clickRow(main->words_list, 1);
    clickRow(main->words_liste, 1);
    clickRow(main->words_list, 0);
    EXPECT_EQ(p.sound.played, QStringList({p.played("spanish/01/01001.mp3")}));

    // A double-click moves the word between the files silently and keeps its row; with no word
    // selected nothing moves.
    Program::choose(main->lists_list, "numbers");
    EXPECT_EQ(main->known_lists->count(), 0);
    const auto before = p.folder.snapshot();
    main->words_list_dblclick();
    EXPECT_TRUE(p.folder.snapshot() == before);

    clickRow(main->words_list, 1);
    p.sound.played.clear();
    main->words_list_dblclick();
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/numbers-u.txt"),
              QByteArray("uno|one|01001\r\ntres|three|01003\r\ncuatro|four|01004\r\n||\r\n"));
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/numbers-k.txt"), QByteArray("dos|two|01002\r\n"));
    EXPECT_EQ(items(main->known_lists), QStringList({"numbers"}));
    EXPECT_EQ(shown(main), "3 Words|uno,tres,cuatro@1|one,three,four@1"); // the closing "||" line is no entry
    EXPECT_TRUE(p.sound.played.isEmpty());
    EXPECT_EQ(p.session().recording_active, "on");
    // "on" does not silence anything: the next click is heard.
    clickRow(main->words_list, 0);
    EXPECT_EQ(p.sound.played, QStringList({p.played("spanish/01/01001.mp3")}));

    // From the known list back to the unknown file, by a real double-click.
    select_row(main->known_lists, 0);
    EXPECT_EQ(main->Label8->text(), "1 Known Words");
    p.sound.played.clear();
    // A window system sends a double-click as a click followed by a double-click event.
    clickRow(main->words_list, 0);
    const QRect first = main->words_list->visualItemRect(main->words_list->item(0));
    QTest::mouseDClick(main->words_list->viewport(), Qt::LeftButton, Qt::NoModifier, first.center());
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/numbers-k.txt"), QByteArray("||\r\n"));
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/numbers-u.txt"),
              QByteArray("uno|one|01001\r\ntres|three|01003\r\ncuatro|four|01004\r\n||\r\ndos|two|01002\r\n"));
    EXPECT_EQ(shown(main), "0 Words|@-1|@-1");
    // The word moved back follows the closing line, and its row still names it.
    Program::choose(main->lists_list, "numbers");
    EXPECT_EQ(shown(main), "4 Unknown Words|uno,tres,cuatro,dos@-1|one,three,four,two@-1");
    // The press before the double-click said the word once; the move itself said nothing.
    EXPECT_EQ(p.sound.played, QStringList({p.played("spanish/01/01002.mp3")}));

    // The last word of a list: the unknown file keeps only the closing line and stays.
    Program::choose(main->lists_list, "one");
    select_row(main->words_list, 0);
    main->words_list_dblclick();
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/one-u.txt"), QByteArray("||\r\n"));
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/one-k.txt"), QByteArray("solo|alone|01001\r\n"));
    EXPECT_EQ(shown(main), "0 Words|@-1|@-1");
    // The known file of numbers, emptied above, still holds its closing line, so it stays listed.
    EXPECT_EQ(items(main->known_lists), QStringList({"numbers", "one"}));
    EXPECT_EQ(p.prompts.shown.size(), 1);
}
