#include "sound/sound_files.h"

#include "app/session.h"
#include "quorvane/testing.h"
#include "sound/cipher.h"
#include "test_support.h"

#include <gtest/gtest.h>

namespace {

using quorvane::test::ProgramFolder;

QByteArray rawSamples(int length)
{
    QByteArray bytes(length, '\0');
    for (int i = 0; i < length; ++i)
        bytes[i] = static_cast<char>((i * 7 + 3) & 0xFF);
    return bytes;
}

TEST(SoundFiles, FourByteTextIsLittleEndian)
{
    EXPECT_EQ(quorvane::four_byte_text(44100).toHex(), QByteArray("44ac0000"));
    EXPECT_EQ(quorvane::four_byte_text(0).toHex(), QByteArray("00000000"));
    EXPECT_EQ(quorvane::four_byte_text(16777218).toHex(), QByteArray("02000001"));
    EXPECT_EQ(quorvane::four_byte_text(2147483647).toHex(), QByteArray("ffffff7f"));
}

TEST(SoundFiles, ChoosesTheNewRecordingOnlyWhileTheRecordWindowPlays)
{
    ProgramFolder folder;
    quorvane::ScriptedPrompts prompts;
    quorvane::FakeSound sound;
    quorvane::FakeClock clock;
    quorvane::Session session(prompts, sound, clock);
    session.languages_folder = folder.path() + "/languages/";
    const QString mp3 = session.languages_folder + "spanish/01/01436.mp3";
    const QString str = session.languages_folder + "spanish/new_str/01/01436.str";

    // Nothing on disk: the released path, counted as missing, call after call.
    auto chosen = quorvane::choose_sound_file(session, "01436", "spanish");
    EXPECT_EQ(chosen.path, mp3);
    EXPECT_EQ(chosen.extension, ".mp3");
    quorvane::choose_sound_file(session, "01436", "spanish");
    EXPECT_EQ(session.missing_sound_count, 2);

    // Only the new recording exists: outside the record window the (missing) released one is still chosen.
    folder.write("languages/spanish/new_str/01/01436.str", "x");
    chosen = quorvane::choose_sound_file(session, "01436", "spanish");
    EXPECT_EQ(chosen.path, mp3);
    EXPECT_EQ(session.missing_sound_count, 3);
    session.record_window_playing = true;
    chosen = quorvane::choose_sound_file(session, "01436", "spanish");
    EXPECT_EQ(chosen.path, str);
    EXPECT_EQ(chosen.extension, ".str");
    EXPECT_EQ(session.missing_sound_count, 0);

    // Both exist: the released one outside the record window, and the count stays 0.
    folder.write("languages/spanish/01/01436.mp3", "y");
    session.missing_sound_count = 5;
    session.record_window_playing = false;
    chosen = quorvane::choose_sound_file(session, "01436", "spanish");
    EXPECT_EQ(chosen.path, mp3);
    EXPECT_EQ(session.missing_sound_count, 0);
    // The language passed is used, not the current one.
    session.current_language = "french";
    EXPECT_EQ(quorvane::choose_sound_file(session, "70012", "german").path,
              session.languages_folder + "german/70/70012.mp3");
}

TEST(SoundFiles, StrToWavWritesTheHeaderAndSamplesAndRemovesTheTmpFile)
{
    ProgramFolder folder;
    const QByteArray samples = rawSamples(30870);
    folder.write("new_str/01/01436.tmp", samples);
    ASSERT_TRUE(quorvane::encipher_file(folder.file("new_str/01/01436.tmp"), folder.file("new_str/01/01436.str")));
    QFile::remove(folder.file("new_str/01/01436.tmp"));

    const QString wav = quorvane::str_to_wav(folder.file("new_str/01/01436.str"));
    EXPECT_EQ(wav, folder.file("new_str/01/01436.wav"));
    EXPECT_FALSE(folder.exists("new_str/01/01436.tmp"));
    EXPECT_TRUE(folder.exists("new_str/01/01436.str"));
    const QByteArray header = QByteArray::fromHex("52494646"
                                                  "ba780000"
                                                  "57415645"
                                                  "666d7420"
                                                  "10000000"
                                                  "0100"
                                                  "0100"
                                                  "22560000"
                                                  "44ac0000"
                                                  "0200"
                                                  "1000"
                                                  "64617461"
                                                  "96780000");
    const QByteArray bytes = folder.read("new_str/01/01436.wav");
    EXPECT_EQ(bytes.size(), 30914);
    EXPECT_EQ(bytes.left(44).toHex(), header.toHex());
    EXPECT_TRUE(bytes.mid(44) == samples);

    // Kept: a longer old WAV of the same name is overwritten from the start, its tail left behind.
    folder.write("old/5.wav", QByteArray(40000, 'Z'));
    folder.write("old/5.tmp", samples);
    ASSERT_TRUE(quorvane::encipher_file(folder.file("old/5.tmp"), folder.file("old/5.str")));
    quorvane::str_to_wav(folder.file("old/5.str"));
    const QByteArray overwritten = folder.read("old/5.wav");
    EXPECT_EQ(overwritten.size(), 40000);
    EXPECT_EQ(overwritten.left(44).toHex(), header.toHex());
    EXPECT_TRUE(overwritten.mid(44, 30870) == samples);
    EXPECT_EQ(overwritten.mid(30914), QByteArray(40000 - 30914, 'Z'));

    // A recording that does not decipher gives a header stating no samples.
    folder.write("bad/9.str", "not enciphered");
    EXPECT_EQ(folder.read("bad/9.str").size(), 14);
    quorvane::str_to_wav(folder.file("bad/9.str"));
    const QByteArray empty = folder.read("bad/9.wav");
    EXPECT_EQ(empty.size(), 44);
    EXPECT_EQ(empty.mid(4, 4).toHex(), QByteArray("24000000"));
    EXPECT_EQ(empty.mid(40, 4).toHex(), QByteArray("00000000"));
}

} // namespace
