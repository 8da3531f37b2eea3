#include "core/table_limit.h"
#include "store/text_files.h"
#include "store/word_files.h"
#include "test_support.h"

#include <gtest/gtest.h>

#include <random>

using namespace quorvane;
using quorvane::test::ProgramFolder;
using quorvane::test::repeatedLines;

TEST(TextFiles, EveryWindows1252ByteRoundTripsAndLinesAreWrittenWithCrLf)
{
    QByteArray all;
    for (int b = 0; b < 256; ++b)
        all.append(static_cast<char>(b));
    const QString text = decodeWindows1252(all);
    EXPECT_EQ(encodeWindows1252(text), all);
    // The euro sign, n with tilde, and 0x81, undefined in the code page: kept as its control character.
    EXPECT_EQ(text.mid(0x80, 2) + text.at(0xF1), QString::fromUtf8("\u20AC\u0081\u00F1"));
    EXPECT_EQ(encodeWindows1252(QString::fromUtf8("niño Ω €")), QByteArray("ni\xF1o ? \x80"));

    EXPECT_EQ(splitLines("a\r\nb\nc\rd"), QStringList({"a", "b", "c", "d"}));
    EXPECT_EQ(splitLines("a\r\n\r\nb\r\n"), QStringList({"a", "", "b"}));
    EXPECT_EQ(splitLines("\r\n"), QStringList({""}));
    EXPECT_TRUE(splitLines("").isEmpty());

    ProgramFolder folder;
    ASSERT_TRUE(writeTextLines(folder.file("out.txt"), {"comer|to eat|01436", "", "||"}));
    EXPECT_EQ(folder.read("out.txt"), QByteArray("comer|to eat|01436\r\n\r\n||\r\n"));
    ASSERT_TRUE(appendTextLines(folder.file("out.txt"), {QString::fromUtf8("año|year|01000")}));
    EXPECT_EQ(folder.read("out.txt"), QByteArray("comer|to eat|01436\r\n\r\n||\r\na\xF1o|year|01000\r\n"));
}

TEST(WordFiles, WordArraysHoldTheEntriesOfThreeFieldsAndAnEmptyLastSlot)
{
    quorvane::test::CoreSession core;
    const ProgramFolder& folder = core.folder;
    Session& s = core.session;
    const auto arrays = [](const Session& read) { return QList({read.words, read.translations, read.sound_numbers}); };
    // Every line end, Windows-1252 bytes, an empty sound number, lines of two and four fields.
    folder.write("list.txt", "a\xE9|\x80|01003\r\n||\r\nx|y\n\nuno|one|01001\rdos|two|\r\nx|y|z|w\r\ntres|three|01003");
    create_array_of_words(s, folder.file("list.txt"));
    EXPECT_EQ(arrays(s), QList<QStringList>({{QString::fromUtf8("aé"), "uno", "dos", "tres", ""},
                                             {QString::fromUtf8("€"), "one", "two", "three", ""},
                                             {"01003", "01001", "", "01003", ""}}));
    EXPECT_EQ(s.wordCount(), 4);
    create_array_of_words(s, folder.file("missing.txt"));
    EXPECT_EQ(arrays(s), QList<QStringList>(3, QStringList({""})));

    // splitEntry applies the same rule to one line.
    WordEntry entry;
    ASSERT_TRUE(splitEntry("comer|to eat, to have lunch|", &entry));
    EXPECT_EQ(QStringList({entry.word, entry.translation, entry.sound_number}),
              QStringList({"comer", "to eat, to have lunch", ""}));
    for (const char* other : {"a|b", "a|b|c|d", "", "||"})
        EXPECT_FALSE(splitEntry(other, &entry)) << other;

    // Reading keeps the strings of entries that did not change; whatever the arrays held before,
    // the result must be exactly that of reading into fresh arrays.
    std::mt19937 random(20240611);
    const QList<QByteArray> pieces = {"a", "b", "ab", "\xE9", "\x80", "\x9F", "|", "|", "|", "\r\n", "\n", "\r", ""};
    const QList<QByteArray> lines = {
        "uno|one|01001", "dos|two|01002", "a\xE9|\x80|01003", "a\xE9|\x81|01003", "||", "x|y", "x|y|z|w", ""};
    for (int round = 0; round < 400; ++round) {
        QByteArray bytes;
        for (int i = std::uniform_int_distribution<int>(0, 12)(random); i > 0; --i) {
            if (random() % 2) {
                bytes += lines.at(random() % lines.size()) + "\r\n";
            } else {
                for (int j = std::uniform_int_distribution<int>(1, 6)(random); j > 0; --j)
                    bytes += pieces.at(random() % pieces.size());
            }
        }
        folder.write("list.txt", bytes);
        Session fresh(core.prompts, core.sound, core.clock);
        create_array_of_words(fresh, folder.file("list.txt"));
        create_array_of_words(s, folder.file("list.txt"));
        ASSERT_EQ(arrays(s), arrays(fresh)) << bytes.toHex().toStdString();
    }

    // The table holds 30,001 entries; one more leaves the arrays as they were.
    folder.write("exact.txt", repeatedLines("a|b|00001", kMaxWordEntries) + "not an entry\r\n");
    create_array_of_words(s, folder.file("exact.txt"));
    folder.write("huge.txt", repeatedLines("a|b|00001", kMaxWordEntries + 1));
    EXPECT_THROW(create_array_of_words(s, folder.file("huge.txt")), TableLimitError);
    EXPECT_EQ(s.wordCount(), kMaxWordEntries);
}

TEST(WordFiles, PairingLinesFillTheTableAMalformedLineLoadsNothingAndFoldersAreListedInWindowsOrder)
{
    ProgramFolder folder;
    QStringList table(kSoundNumberSlots);
    table[5] = "00099"; // left by an earlier language
    folder.write("index.dat", "00017|00442\r\n01436|00217\r\n17|00500\r\n");
    load_trans_index(folder.file("index.dat"), table);
    load_trans_index(folder.file("missing.dat"), table);
    EXPECT_EQ(QStringList({table[17], table[1436], table[5]}), QStringList({"00500", "00217", "00099"}));

    for (const QByteArray& bad : {QByteArray("100000|00001"), QByteArray(""), QByteArray("00020"), QByteArray("abc|1"),
                                  QByteArray("00020\0|1", 8), QByteArray("20abc|1")}) {
        QStringList fresh(kSoundNumberSlots);
        folder.write("index.dat", "00017|00442\r\n" + bad + "\r\n");
        EXPECT_THROW(load_trans_index(folder.file("index.dat"), fresh), TableLimitError) << bad.constData();
        EXPECT_EQ(fresh[17], "") << "a partial table was loaded for " << bad.constData();
    }

    // A folder is listed as a Windows file system lists it: upper-cased and compared code by code,
    // "S" (0x53) before "_" (0x5F), "N" before "P", "A" before "Z".
    ProgramFolder names;
    for (const char* name : {"Zebra", "apple", "animal_sounds", "animals"})
        names.write(name, "x");
    EXPECT_EQ(scan_folder(names.path()), QStringList({"animals", "animal_sounds", "apple", "Zebra"}));
}
