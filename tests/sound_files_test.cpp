#include "core/sound_error_text.h"
#include "sound/cipher.h"
#include "sound/sound_files.h"
#include "test_support.h"

#include <gtest/gtest.h>

using namespace quorvane;
using quorvane::test::opensslBlowfish;
using quorvane::test::patternBytes;
using quorvane::test::ProgramFolder;

TEST(Cipher, AKnownVectorFilesThatAgreeWithOpensslAndTheWavFilesMadeOfThem)
{
    const QByteArray key = QByteArray::fromHex("00112233445566778899aabbccddeeff");
    const QByteArray iv = QByteArray::fromHex("0102030405060708");
    const QByteArray expected = QByteArray::fromHex("aa13434ebbe78df9cc1e21207aeb26d292bea50d516b2f1f");
    EXPECT_EQ(blowfishCbc("hello blowfish cbc test", key, iv, CipherDirection::Encipher).value_or("").toHex(),
              expected.toHex());
    EXPECT_EQ(blowfishCbc(expected, key, iv, CipherDirection::Decipher), "hello blowfish cbc test");
    // A wrong key fails the padding check.
    EXPECT_FALSE(blowfishCbc(expected, QByteArray(16, 'k'), iv, CipherDirection::Decipher).has_value());

    ProgramFolder folder;
    const QByteArray samples = patternBytes(30870);
    folder.write("a.tmp", samples);
    ASSERT_TRUE(encipher_file(folder.file("a.tmp"), folder.file("a.str")));
    EXPECT_EQ(folder.read("a.tmp"), samples); // the plain file is left in place
    // A whole block of padding follows data of a whole number of blocks.
    EXPECT_EQ(folder.read("a.str").size(), 30872);
    EXPECT_EQ(opensslBlowfish(folder, "a.str", "by_openssl.raw", true), samples);
    folder.write("b.raw", patternBytes(1001));
    ASSERT_FALSE(opensslBlowfish(folder, "b.raw", "b.str", false).isEmpty());
    ASSERT_TRUE(decipher_file(folder.file("b.str"), folder.file("b.tmp")));
    EXPECT_EQ(folder.read("b.tmp"), patternBytes(1001));

    // An empty recording round-trips too; an existing output is replaced whole.
    folder.write("empty.tmp", QByteArray());
    folder.write("empty.out", QByteArray(100, 'x'));
    ASSERT_TRUE(encipher_file(folder.file("empty.tmp"), folder.file("empty.str")));
    EXPECT_EQ(folder.read("empty.str").size(), 8);
    ASSERT_TRUE(decipher_file(folder.file("empty.str"), folder.file("empty.out")));
    EXPECT_EQ(folder.read("empty.out"), QByteArray());
    EXPECT_FALSE(decipher_file(folder.file("absent.str"), folder.file("absent.tmp")));
    EXPECT_FALSE(folder.exists("absent.tmp"));

    // A recording becomes a WAV file beside it: the header, then the samples; the .tmp file goes.
    EXPECT_EQ((four_byte_text(16777218) + four_byte_text(2147483647)).toHex(), QByteArray("02000001ffffff7f"));
    auto recording = [&](const QString& name) {
        folder.write(name + ".tmp", samples);
        EXPECT_TRUE(encipher_file(folder.file(name + ".tmp"), folder.file(name + ".str")));
        QFile::remove(folder.file(name + ".tmp"));
        return folder.file(name + ".str");
    };
    EXPECT_EQ(str_to_wav(recording("new_str/01/01436")), folder.file("new_str/01/01436.wav"));
    EXPECT_FALSE(folder.exists("new_str/01/01436.tmp"));
    EXPECT_TRUE(folder.exists("new_str/01/01436.str"));
    // RIFF, size, WAVE, fmt chunk of 16: PCM, mono, 22050 Hz, 44100 bytes/s, 2-byte frames, 16 bits; data size.
    const QByteArray header = QByteArray::fromHex(
        "52494646 ba780000 57415645 666d7420 10000000 0100 0100 22560000 44ac0000 0200 1000 64617461 "
        "96780000");
    const QByteArray bytes = folder.read("new_str/01/01436.wav");
    EXPECT_TRUE(bytes == header + samples) << bytes.left(44).toHex().toStdString();

    // Kept: a longer old WAV of the same name is overwritten from the start, its tail left behind.
    folder.write("old/5.wav", QByteArray(40000, 'Z'));
    str_to_wav(recording("old/5"));
    EXPECT_TRUE(folder.read("old/5.wav") == bytes + QByteArray(40000 - bytes.size(), 'Z'));

    // A recording that does not decipher gives a header stating no samples.
    folder.write("bad/9.str", "not enciphered");
    str_to_wav(folder.file("bad/9.str"));
    EXPECT_EQ(folder.read("bad/9.wav").toHex(),
              (header.left(4) + QByteArray::fromHex("24000000") + header.mid(8, 32) + QByteArray(4, '\0')).toHex());
}

using SoundFiles = quorvane::test::CoreTest;

TEST_F(SoundFiles, ChoosesTheNewRecordingOnlyWhileTheRecordWindowPlays)
{
    const QString mp3 = session.languages_folder + "spanish/01/01436.mp3";
    const QString str = session.languages_folder + "spanish/new_str/01/01436.str";
    // Step by step: a file added, whether the record window plays, the file chosen, the missing count.
    const std::tuple<const char*, bool, QString, int> steps[] = {
        {"", false, mp3, 1}, // nothing on disk: the released path, counted as missing, call after call
        {"", false, mp3, 2},
        {"new_str/01/01436.str", false, mp3, 3}, // a new recording only counts in the record window
        {"", true, str, 0},
        {"01/01436.mp3", false, mp3, 0}};
    for (const auto& [added, recordWindow, chosen, missing] : steps) {
        if (*added)
            folder.write(QString("languages/spanish/") + added, "x");
        session.record_window_playing = recordWindow;
        if (missing == 0)
            session.missing_sound_count = 5;
        const ChosenSound found = choose_sound_file(session, "01436", "spanish");
        EXPECT_EQ(QStringList({found.path, found.extension}), QStringList({chosen, chosen.right(4)}));
        EXPECT_EQ(session.missing_sound_count, missing) << chosen.toStdString();
    }
    // The language passed is used, not the current one.
    session.current_language = "french";
    EXPECT_EQ(choose_sound_file(session, "70012", "german").path, session.languages_folder + "german/70/70012.mp3");
}

TEST(SoundErrorText, CodesUpToNineteenHaveWordsOfTheirOwnAndEveryOtherCodeTheUnknownOnes)
{
    QStringList texts = {sound_error_text(-1).trimmed()};
    for (int code = 0; code < 20; ++code)
        texts.append(sound_error_text(code).trimmed());
    EXPECT_EQ(texts.removeDuplicates() + texts.count(QString()), 0) << texts.join('\n').toStdString();
    for (const int code : {20, 1000})
        EXPECT_EQ(sound_error_text(code), sound_error_text(-1)) << code;
}
