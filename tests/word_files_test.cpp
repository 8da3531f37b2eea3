#include "app/session.h"
#include "store/table_limit.h"
#include "store/text_files.h"
#include "store/word_files.h"
#include "test_support.h"

#include "quorvane/testing.h"

#include <gtest/gtest.h>

using namespace quorvane;
using quorvane::test::ProgramFolder;

namespace {

// A session whose student is kestrin and whose language is spanish, in folder.
struct StoreFixture
{
    ProgramFolder folder;
    ScriptedPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    Session session{prompts, sound, clock};

    StoreFixture()
    {
        session.languages_folder = folder.file("languages/");
        session.user_folder = folder.file("users/kestrin/");
        session.current_language = "spanish";
        session.current_list = "food";
        folder.mkdir("users/kestrin/spanish");
    }
};

QByteArray repeatedLines(const QByteArray& line, int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += line + "\r\n";
    return bytes;
}

} // namespace

TEST(TextFiles, EveryWindows1252ByteRoundTrips)
{
    QByteArray all;
    for (int b = 0; b < 256; ++b)
        all.append(static_cast<char>(b));
    const QString text = decodeWindows1252(all);
    EXPECT_EQ(encodeWindows1252(text), all);
    EXPECT_EQ(text.at(0x80), QChar(0x20AC)); // euro sign
    EXPECT_EQ(text.at(0xF1), QChar(u'ñ'));
    EXPECT_EQ(text.at(0x81), QChar(0x81)); // undefined in the code page: kept as its control character
    EXPECT_EQ(encodeWindows1252(QString::fromUtf8("niño Ω €")), QByteArray("ni\xF1o ? \x80"));
}

TEST(TextFiles, LinesEndWithCrLfLfOrCrAndAreWrittenWithCrLf)
{
    EXPECT_EQ(splitLines("a\r\nb\nc\rd"), QStringList({"a", "b", "c", "d"}));
    EXPECT_EQ(splitLines("a\r\n"), QStringList({"a"}));
    EXPECT_EQ(splitLines("\r\n"), QStringList({""}));
    EXPECT_EQ(splitLines("a\r\n\r\nb"), QStringList({"a", "", "b"}));
    EXPECT_TRUE(splitLines("").isEmpty());

    ProgramFolder folder;
    ASSERT_TRUE(writeTextLines(folder.file("out.txt"), {QString::fromUtf8("comer|to eat|01436"), "", "||"}));
    EXPECT_EQ(folder.read("out.txt"), QByteArray("comer|to eat|01436\r\n\r\n||\r\n"));
    ASSERT_TRUE(appendTextLines(folder.file("out.txt"), {QString::fromUtf8("año|year|01000")}));
    EXPECT_EQ(folder.read("out.txt"), QByteArray("comer|to eat|01436\r\n\r\n||\r\na\xF1o|year|01000\r\n"));
}

TEST(WordFiles, AnEntryHasExactlyThreeFields)
{
    WordEntry entry;
    EXPECT_TRUE(splitEntry("comer|to eat, to have lunch|01436", &entry));
    EXPECT_EQ(entry.word, "comer");
    EXPECT_EQ(entry.translation, "to eat, to have lunch");
    EXPECT_EQ(entry.sound_number, "01436");
    EXPECT_TRUE(splitEntry("a|b|", &entry));
    EXPECT_EQ(entry.sound_number, "");
    EXPECT_TRUE(splitEntry("||", &entry));
    EXPECT_FALSE(splitEntry("a|b", &entry));
    EXPECT_FALSE(splitEntry("a|b|c|d", &entry));
    EXPECT_FALSE(splitEntry("", &entry));
}

TEST(WordFiles, FirstOpeningWithoutKnownFileCopiesTheListByteForByte)
{
    StoreFixture f;
    // A header line, an LF-only line end, a two-field line and a final line without end: all kept.
    const QByteArray list = "spanish word or phrase|student's language translation|99999\r\n"
                            "a|b\nni\xF1o|child|01200\r\nagua|water|01001";
    f.folder.write("languages/spanish/food.txt", list);
    generate_unknowns_file(f.session);
    EXPECT_EQ(f.session.list_file, f.folder.file("languages/spanish/food.txt"));
    EXPECT_EQ(f.session.unknown_file, f.folder.file("users/kestrin/spanish/food-u.txt"));
    EXPECT_EQ(f.session.known_file, f.folder.file("users/kestrin/spanish/food-k.txt"));
    EXPECT_EQ(f.folder.read("users/kestrin/spanish/food-u.txt"), list);

    // Never rebuilt once it exists, even when the list changes.
    f.folder.write("languages/spanish/food.txt", "pan|bread|01002\r\n");
    generate_unknowns_file(f.session);
    EXPECT_EQ(f.folder.read("users/kestrin/spanish/food-u.txt"), list);
}

TEST(WordFiles, KnownLinesAndEmptyLinesAreLeftOutOfANewUnknownFile)
{
    StoreFixture f;
    f.folder.write("languages/spanish/food.txt", "spanish word or phrase|student's language translation|99999\r\n"
                                                 "pan|bread|01002\r\n"
                                                 "\r\n"
                                                 "agua|water|01001\r\n"
                                                 "a|b\r\n"
                                                 "pan|bread|01002\r\n"
                                                 "Agua|water|01001\r\n");
    f.folder.write("users/kestrin/spanish/food-k.txt",
                   "spanish word or phrase|student's language translation|99999\r\npan|bread|01002\r\n");
    generate_unknowns_file(f.session);
    // Both copies of the known line go, the comparison is case-sensitive, and a line that is not
    // an entry is still copied.
    EXPECT_EQ(f.folder.read("users/kestrin/spanish/food-u.txt"),
              QByteArray("agua|water|01001\r\na|b\r\nAgua|water|01001\r\n"));
}

TEST(WordFiles, MissingListMakesNoUnknownFileAndTooLongKnownFileWritesNothing)
{
    StoreFixture f;
    generate_unknowns_file(f.session);
    EXPECT_FALSE(f.folder.exists("users/kestrin/spanish/food-u.txt"));

    f.folder.write("languages/spanish/food.txt", "pan|bread|01002\r\n");
    f.folder.write("users/kestrin/spanish/food-k.txt", repeatedLines("x|y|00001", kMaxKnownLines + 1));
    try {
        generate_unknowns_file(f.session);
        FAIL() << "a known file of more lines than the table holds was accepted";
    } catch (const TableLimitError& error) {
        EXPECT_TRUE(error.text().contains(f.session.known_file));
        EXPECT_TRUE(error.text().contains("20001"));
    }
    EXPECT_FALSE(f.folder.exists("users/kestrin/spanish/food-u.txt"));

    f.folder.write("users/kestrin/spanish/food-k.txt", repeatedLines("x|y|00001", kMaxKnownLines));
    generate_unknowns_file(f.session);
    EXPECT_EQ(f.folder.read("users/kestrin/spanish/food-u.txt"), QByteArray("pan|bread|01002\r\n"));
}

TEST(WordFiles, WordArraysHoldTheValidEntriesAndAnEmptyLastSlot)
{
    StoreFixture f;
    f.folder.write("w.txt", "uno|one|01000\r\nbad|line\r\ndos|two|\r\nx|y|z|w\r\ntres|three|01003\r\n");
    create_array_of_words(f.session, f.folder.file("w.txt"));
    EXPECT_EQ(f.session.words, QStringList({"uno", "dos", "tres", ""}));
    EXPECT_EQ(f.session.translations, QStringList({"one", "two", "three", ""}));
    EXPECT_EQ(f.session.sound_numbers, QStringList({"01000", "", "01003", ""}));
    EXPECT_EQ(f.session.wordCount(), 3);

    create_array_of_words(f.session, f.folder.file("missing.txt"));
    EXPECT_EQ(f.session.wordCount(), 0);
    EXPECT_EQ(f.session.words, QStringList({""}));
}

TEST(WordFiles, TooManyEntriesLeaveTheArraysAsTheyWere)
{
    StoreFixture f;
    f.folder.write("small.txt", "uno|one|01000\r\n");
    create_array_of_words(f.session, f.folder.file("small.txt"));
    f.folder.write("exact.txt", repeatedLines("a|b|00001", kMaxWordEntries) + "not an entry\r\n");
    create_array_of_words(f.session, f.folder.file("exact.txt"));
    EXPECT_EQ(f.session.wordCount(), kMaxWordEntries);

    create_array_of_words(f.session, f.folder.file("small.txt"));
    f.folder.write("huge.txt", repeatedLines("a|b|00001", kMaxWordEntries + 1));
    EXPECT_THROW(create_array_of_words(f.session, f.folder.file("huge.txt")), TableLimitError);
    EXPECT_EQ(f.session.words, QStringList({"uno", ""}));
}

TEST(WordFiles, PairingLinesFillTheTableAndLaterLinesWin)
{
    ProgramFolder folder;
    QStringList table(kSoundNumberSlots);
    table[5] = "00099"; // left by an earlier language
    folder.write("index.dat", "00017|00442\r\n01436|00217\r\n17|00500\r\n");
    load_trans_index(folder.file("index.dat"), table);
    EXPECT_EQ(table[17], "00500");
    EXPECT_EQ(table[1436], "00217");
    EXPECT_EQ(table[5], "00099");

    load_trans_index(folder.file("missing.dat"), table);
    EXPECT_EQ(table[17], "00500");
}

TEST(WordFiles, AMalformedPairingLineLoadsNothing)
{
    ProgramFolder folder;
    for (const QByteArray& bad :
         {QByteArray("100000|00001\r\n"), QByteArray("\r\n"), QByteArray("00020\r\n"), QByteArray("abc|00001\r\n")}) {
        QStringList table(kSoundNumberSlots);
        folder.write("index.dat", "00017|00442\r\n" + bad);
        EXPECT_THROW(load_trans_index(folder.file("index.dat"), table), TableLimitError) << bad.constData();
        EXPECT_EQ(table[17], "") << "a partial table was loaded for " << bad.constData();
    }
}

TEST(WordFiles, ScansListInNameOrderAndSweepFilesShorterThanTwoBytes)
{
    ProgramFolder folder;
    folder.write("l/Zeta.txt", "ab");
    folder.write("l/alpha.txt", "x|y|00001\r\n");
    folder.write("l/empty.txt", "");
    folder.write("l/one.txt", "x");
    folder.write("l/notes.TXT", "some notes");
    folder.write("l/beta.dat", "xx");
    EXPECT_EQ(scan_and_sweep(folder.file("l"), ".txt"), QStringList({"alpha", "Zeta"}));
    EXPECT_FALSE(folder.exists("l/empty.txt"));
    EXPECT_FALSE(folder.exists("l/one.txt"));
    EXPECT_TRUE(folder.exists("l/notes.TXT"));
    EXPECT_EQ(scan_folder(folder.file("l")), QStringList({"alpha.txt", "beta.dat", "notes.TXT", "Zeta.txt"}));
}
