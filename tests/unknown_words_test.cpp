#include "app/list_box.h"
#include "app/main_window.h"
#include "app/session.h"
#include "store/word_files.h"
#include "test_support.h"

#include "quorvane/testing.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <random>

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

QColor textColour(const QWidget* widget, QPalette::ColorRole role)
{
    return widget->palette().color(role);
}

// A click of the mouse on a row, through the box's viewport as a user makes it.
void clickRow(ListBox* box, int row)
{
    const QRect rect = box->visualItemRect(box->item(row));
    ASSERT_TRUE(box->viewport()->rect().contains(rect.center())) << row;
    QTest::mouseClick(box->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
}

// kestrin learning spanish, which pairs with english.
struct Started
{
    ScriptedPrompts prompts{{QString("kestrin")}};
    FakeSound sound;
    FakeClock clock;
    std::unique_ptr<QWidget> window;

    explicit Started(const ProgramFolder& folder) : window(start(folder.path(), &prompts, &sound, &clock))
    {
        const auto spanish = main()->lang_list->findItems("spanish", Qt::MatchExactly);
        if (!spanish.isEmpty())
            select_row(main()->lang_list, main()->lang_list->row(spanish.first()));
    }
    MainWindow* main() const { return static_cast<MainWindow*>(window.get()); }
    Session& session() const { return sessionOf(window.get()); }
    void openList(const QString& name) const
    {
        const auto found = main()->lists_list->findItems(name, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << name.toStdString();
        select_row(main()->lists_list, main()->lists_list->row(found.first()));
    }
    QString played(const QString& relative) const { return QDir::currentPath() + "/languages/" + relative; }
};

void writeSpanish(const ProgramFolder& folder)
{
    folder.write("languages/spanish/trans_spanish.dat", "english\r\n");
    folder.write("languages/spanish/trans_index_spanish_english.dat", "01001|00201\r\n01002|00202\r\n01003|00203\r\n");
    for (const char* number : {"01001", "01002", "01003", "01004"})
        folder.write(QString("languages/spanish/01/%1.mp3").arg(number), "mp3");
    for (const char* number : {"00201", "00202", "00203"})
        folder.write(QString("languages/english/00/%1.mp3").arg(number), "mp3");
}

const QByteArray kFourWords = "uno|one|01001\r\ndos|two|01002\r\ntres|three|01003\r\ncuatro|four|01004\r\n";

} // namespace

TEST(UnknownWords, OpeningAListMakesItsUnknownFileOnceShowsItsEntriesAndCountsThem)
{
    ProgramFolder folder;
    QByteArray food = "spanish word or phrase|student's language translation|99999\r\n";
    for (int i = 1; i <= 10; ++i)
        food += QString("word%1|meaning %1|010%2\r\n").arg(i).arg(i, 2, 10, QChar('0')).toLatin1();
    food += "sin|without|\r\nonly|two fields\r\nfour|fields|01099|x\r\n";
    folder.write("languages/spanish/food.txt", food);
    folder.write("languages/spanish/empty.txt", "uno|one|01001\r\n");
    folder.write("users/kestrin/spanish/empty-u.txt", "");
    folder.write("languages/spanish/trip.txt", "header|h|99999\r\n\r\nir|to go|01500\r\nver|to see|01501\r\n"
                                               "\r\nser|to be|01502\r\n");
    folder.write("users/kestrin/spanish/trip-k.txt", "header|h|99999\r\nver|to see|01501\r\n");
    writeSpanish(folder);
    Started started(folder);
    MainWindow* main = started.main();
    Session& s = started.session();

    // First opening: a byte copy of the list, header and unreadable lines included. The entry
    // without a sound number is counted but not shown.
    started.openList("food");
    EXPECT_EQ(folder.read("users/kestrin/spanish/food-u.txt"), food);
    EXPECT_EQ(s.shown_file, s.unknown_file);
    EXPECT_EQ(s.unknown_file, QDir::currentPath() + "/users/kestrin/spanish/food-u.txt");
    EXPECT_EQ(s.known_file, QDir::currentPath() + "/users/kestrin/spanish/food-k.txt");
    EXPECT_EQ(s.list_file, QDir::currentPath() + "/languages/spanish/food.txt");
    EXPECT_EQ(main->Label8->text(), "12 Unknown Words");
    EXPECT_EQ(main->words_list->count(), 11);
    EXPECT_EQ(main->words_liste->count(), 11);
    EXPECT_EQ(main->words_list->item(0)->text(), "spanish word or phrase");
    EXPECT_EQ(main->words_liste->item(10)->text(), "meaning 10");
    EXPECT_EQ(textColour(main->Label8, QPalette::WindowText), QApplication::palette().color(QPalette::ButtonText));
    EXPECT_EQ(textColour(main->words_list, QPalette::Text), QColor(0, 0, 0x60));
    EXPECT_EQ(textColour(main->words_liste, QPalette::Text), QColor(0, 0, 0x60));
    EXPECT_TRUE(started.sound.played.isEmpty());

    // Never rebuilt: words added to the list later do not reach the unknown file.
    folder.write("languages/spanish/food.txt", food + "nuevo|new|01098\r\n");
    started.openList("food");
    EXPECT_EQ(folder.read("users/kestrin/spanish/food-u.txt"), food);
    started.openList("empty");
    EXPECT_EQ(main->Label8->text(), "0 Unknown Words");
    EXPECT_EQ(main->words_list->count(), 0);
    EXPECT_EQ(folder.read("users/kestrin/spanish/empty-u.txt"), QByteArray());

    // A known list opened before its list: the unknown file is made without the known lines and
    // without the empty lines.
    ASSERT_EQ(items(main->known_lists), QStringList({"trip"}));
    select_row(main->known_lists, 0);
    EXPECT_EQ(folder.read("users/kestrin/spanish/trip-u.txt"), QByteArray("ir|to go|01500\r\nser|to be|01502\r\n"));
    EXPECT_EQ(s.current_list, "trip");
    EXPECT_EQ(s.shown_file, s.known_file);
    EXPECT_EQ(main->Label8->text(), "2 Known Words");
    EXPECT_EQ(items(main->words_list), QStringList({"header", "ver"}));
    EXPECT_EQ(textColour(main->Label8, QPalette::WindowText), QColor(0, 0, 0xC0));
    EXPECT_EQ(textColour(main->words_list, QPalette::Text), QColor(0, 0, 0xA0));
    EXPECT_EQ(textColour(main->words_liste, QPalette::Text), QColor(0, 0, 0xA0));
    EXPECT_EQ(started.prompts.shown.size(), 1);
}

TEST(UnknownWords, AKnownFileOverItsLimitIsReportedAndMakesNoUnknownFile)
{
    ProgramFolder folder;
    folder.write("languages/spanish/big.txt", "uno|one|01001\r\n");
    QByteArray known;
    for (int i = 0; i < 20002; ++i)
        known += "k|k|00001\r\n";
    folder.write("users/kestrin/spanish/big-k.txt", known);
    Started started(folder);
    started.openList("big");
    ASSERT_EQ(started.prompts.shown.size(), 2);
    EXPECT_EQ(started.prompts.shown[1].kind, "message");
    EXPECT_TRUE(started.prompts.shown[1].text.contains("big-k.txt")) << started.prompts.shown[1].text.toStdString();
    EXPECT_FALSE(folder.exists("users/kestrin/spanish/big-u.txt"));
    EXPECT_TRUE(started.main()->isVisible());
}

TEST(UnknownWords, AClickSaysTheWordOnceAndTheTranslationInTheTargetLanguage)
{
    ProgramFolder folder;
    folder.write("languages/spanish/numbers.txt", kFourWords);
    writeSpanish(folder);
    Started started(folder);
    MainWindow* main = started.main();
    started.openList("numbers");
    EXPECT_EQ(main->words_list->currentRow(), -1);

    // The word: said once, the translation box follows without a sound.
    clickRow(main->words_list, 1);
    EXPECT_EQ(started.sound.played, QStringList({started.played("spanish/01/01002.mp3")}));
    EXPECT_EQ(main->words_liste->currentRow(), 1);
    EXPECT_EQ(main->Label6->text(), "File # 01002");
    // A second click on the same row says it again.
    clickRow(main->words_list, 1);
    EXPECT_EQ(started.sound.played.size(), 2);

    // The translation: its recording in the target language, and the word box follows silently.
    started.sound.played.clear();
    clickRow(main->words_liste, 2);
    EXPECT_EQ(started.sound.played, QStringList({started.played("english/00/00203.mp3")}));
    EXPECT_EQ(main->words_list->currentRow(), 2);
    EXPECT_EQ(main->Label6->text(), "File # 00203");
    // A word without a pairing has no translation to say.
    clickRow(main->words_liste, 3);
    EXPECT_EQ(started.sound.played.size(), 1);
    EXPECT_EQ(main->words_list->currentRow(), 3);
    EXPECT_TRUE(started.prompts.shown.size() == 1);
}

TEST(UnknownWords, RowsAfterAnEntryWithoutSoundNumberAreShiftedAgainstTheArrays)
{
    ProgramFolder folder;
    folder.write("languages/spanish/gap.txt", "uno|one|01001\r\nhueco|gap|\r\ntres|three|01003\r\n");
    writeSpanish(folder);
    Started started(folder);
    MainWindow* main = started.main();
    started.openList("gap");
    EXPECT_EQ(main->Label8->text(), "3 Unknown Words");
    EXPECT_EQ(items(main->words_list), QStringList({"uno", "tres"}));
    // Row 1 shows "tres" but stands for index 1 of the arrays, the entry without a sound number:
    // neither the word nor the translation has anything to say.
    clickRow(main->words_list, 1);
    clickRow(main->words_liste, 1);
    EXPECT_TRUE(started.sound.played.isEmpty());
    clickRow(main->words_list, 0);
    EXPECT_EQ(started.sound.played, QStringList({started.played("spanish/01/01001.mp3")}));
}

TEST(UnknownWords, DoubleClickMovesTheWordBetweenTheFilesSilentlyAndKeepsItsRow)
{
    ProgramFolder folder;
    folder.write("languages/spanish/numbers.txt", kFourWords);
    folder.write("languages/spanish/one.txt", "solo|alone|01001\r\n");
    writeSpanish(folder);
    Started started(folder);
    MainWindow* main = started.main();
    Session& s = started.session();
    started.openList("numbers");
    EXPECT_EQ(main->known_lists->count(), 0);

    // No word selected: nothing moves.
    main->words_list_dblclick();
    EXPECT_EQ(folder.read("users/kestrin/spanish/numbers-u.txt"), kFourWords);
    EXPECT_FALSE(folder.exists("users/kestrin/spanish/numbers-k.txt"));

    clickRow(main->words_list, 1);
    started.sound.played.clear();
    main->words_list_dblclick();
    EXPECT_EQ(folder.read("users/kestrin/spanish/numbers-u.txt"),
              QByteArray("uno|one|01001\r\ntres|three|01003\r\ncuatro|four|01004\r\n||\r\n"));
    EXPECT_EQ(folder.read("users/kestrin/spanish/numbers-k.txt"), QByteArray("dos|two|01002\r\n"));
    EXPECT_EQ(items(main->known_lists), QStringList({"numbers"}));
    EXPECT_EQ(items(main->words_list), QStringList({"uno", "tres", "cuatro"}));
    EXPECT_EQ(items(main->words_liste), QStringList({"one", "three", "four"}));
    EXPECT_EQ(main->words_list->currentRow(), 1);
    EXPECT_EQ(main->words_liste->currentRow(), 1);
    // The closing "||" line is read back as an entry without a sound number, and counted.
    EXPECT_EQ(main->Label8->text(), "4 Words");
    EXPECT_TRUE(started.sound.played.isEmpty());
    EXPECT_EQ(s.recording_active, "on");
    // "on" does not silence anything: the next click is heard.
    clickRow(main->words_list, 0);
    EXPECT_EQ(started.sound.played, QStringList({started.played("spanish/01/01001.mp3")}));

    // From the known list back to the unknown file, by a real double-click.
    select_row(main->known_lists, 0);
    EXPECT_EQ(main->Label8->text(), "1 Known Words");
    started.sound.played.clear();
    // A window system sends a double-click as a click followed by a double-click event.
    clickRow(main->words_list, 0);
    const QRect first = main->words_list->visualItemRect(main->words_list->item(0));
    QTest::mouseDClick(main->words_list->viewport(), Qt::LeftButton, Qt::NoModifier, first.center());
    EXPECT_EQ(folder.read("users/kestrin/spanish/numbers-k.txt"), QByteArray("||\r\n"));
    EXPECT_EQ(folder.read("users/kestrin/spanish/numbers-u.txt"),
              QByteArray("uno|one|01001\r\ntres|three|01003\r\ncuatro|four|01004\r\n||\r\ndos|two|01002\r\n"));
    EXPECT_EQ(main->words_list->count(), 0);
    EXPECT_EQ(main->Label8->text(), "1 Words");
    // The press before the double-click said the word once; the move itself said nothing.
    EXPECT_EQ(started.sound.played, QStringList({started.played("spanish/01/01002.mp3")}));

    // The last word of a list: the unknown file keeps only the closing line and stays.
    started.openList("one");
    select_row(main->words_list, 0);
    main->words_list_dblclick();
    EXPECT_EQ(folder.read("users/kestrin/spanish/one-u.txt"), QByteArray("||\r\n"));
    EXPECT_EQ(folder.read("users/kestrin/spanish/one-k.txt"), QByteArray("solo|alone|01001\r\n"));
    EXPECT_EQ(main->words_list->count(), 0);
    EXPECT_EQ(main->words_list->currentRow(), -1);
    // The known file of numbers, emptied above, still holds its closing line, so it stays listed.
    EXPECT_EQ(items(main->known_lists), QStringList({"numbers", "one"}));
    EXPECT_TRUE(started.prompts.shown.size() == 1);
}

TEST(UnknownWords, ReadingAFileGivesTheSameArraysWhateverTheyHeldBefore)
{
    // Reading keeps the strings of entries that did not change; whatever the arrays held before,
    // the result must be exactly that of reading into fresh arrays.
    ProgramFolder folder;
    ScriptedPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    Session carried(prompts, sound, clock);
    std::mt19937 random(20240611);
    const QList<QByteArray> pieces = {"a", "b", "ab", "\xE9", "\x80", "\x9F", "|", "|", "|", "\r\n", "\n", "\r", ""};
    const QList<QByteArray> lines = {
        "uno|one|01001", "dos|two|01002", "a\xE9|\x80|01003", "a\xE9|\x81|01003", "||", "x|y", "x|y|z|w", ""};
    for (int round = 0; round < 400; ++round) {
        QByteArray bytes;
        const int count = std::uniform_int_distribution<int>(0, 12)(random);
        for (int i = 0; i < count; ++i) {
            if (random() % 2) {
                bytes += lines.at(random() % lines.size()) + "\r\n";
            } else {
                for (int j = std::uniform_int_distribution<int>(1, 6)(random); j > 0; --j)
                    bytes += pieces.at(random() % pieces.size());
            }
        }
        folder.write("list.txt", bytes);
        Session fresh(prompts, sound, clock);
        create_array_of_words(fresh, folder.file("list.txt"));
        create_array_of_words(carried, folder.file("list.txt"));
        ASSERT_EQ(carried.words, fresh.words) << bytes.toHex().toStdString();
        ASSERT_EQ(carried.translations, fresh.translations) << bytes.toHex().toStdString();
        ASSERT_EQ(carried.sound_numbers, fresh.sound_numbers) << bytes.toHex().toStdString();
    }
    // The same entries read fresh, by the lines the text files are read by.
    folder.write("list.txt", "a\xE9|\x80|01003\r\n||\r\nx|y\n\nuno|one|01001\rdos|two|");
    Session fresh(prompts, sound, clock);
    create_array_of_words(fresh, folder.file("list.txt"));
    EXPECT_EQ(fresh.words, QStringList({QString::fromUtf8("aé"), "", "uno", "dos", ""}));
    EXPECT_EQ(fresh.translations, QStringList({QString::fromUtf8("€"), "", "one", "two", ""}));
    EXPECT_EQ(fresh.sound_numbers, QStringList({"01003", "", "01001", "", ""}));
}
