#include "sound/playback.h"

#include "sound/cipher.h"
#include "test_support.h"

#include <gtest/gtest.h>

namespace {

using namespace quorvane;

class Playback : public quorvane::test::CoreTest
{
protected:
    // The path of a Spanish recording, written with bytes when they are given.
    QString mp3(const QString& number, const QByteArray& bytes = QByteArray()) const
    {
        const QString relative = "spanish/" + number.left(2) + "/" + number + ".mp3";
        if (!bytes.isEmpty())
            folder.write("languages/" + relative, bytes);
        return session.languages_folder + relative;
    }
    // Seconds of virtual time one say_word or one wait_seconds takes.
    double timedSay(const QString& number)
    {
        return timed([&] { say_word(session, number, "spanish"); });
    }
    double timedWait(float seconds)
    {
        return timed([&] { wait_seconds(session, seconds); });
    }
    double timed(const std::function<void()>& action)
    {
        const double before = clock.now;
        action();
        return clock.now - before;
    }
};

TEST_F(Playback, PausesFollowTheSpeedMissingFilesCountAndAStopCutsASound)
{
    // Below a speed of 1.5 s the wait is 0.8 s plus the speed, however long the sound; from 1.5 s on
    // the sound plays out and the speed follows; a missing file waits 1 s plus the speed and is
    // counted until a file is found. Only an exact "yes" stops.
    // Each step: the sound number, the length of its file (0: no file), the speed, the stop flag, the
    // seconds the word takes and the missing count after it.
    const std::tuple<const char*, double, float, const char*, double, int> steps[] = {
        {"01000", 5.0, 0.2f, "", 1.0, 0},    {"01001", 0.1, 0.2f, "", 1.0, 0}, {"02000", 2.0, 1.5f, "", 3.5, 0},
        {"02001", 0.5, 2.0f, "Yes", 2.5, 0}, {"03000", 0, 0.5f, "", 1.5, 1},   {"03001", 0, 0.5f, "", 1.5, 2},
        {"03002", 1.0, 0.2f, "", 1.0, 0}};
    QStringList paths, shown;
    for (const auto& [number, length, speed, stop, seconds, missing] : steps) {
        if (length > 0) {
            paths.append(mp3(number, "ID3"));
            sound.durations.insert(paths.last(), length);
        }
        shown.append(QString("File # ") + number);
        session.speed = speed;
        session.stop_flag = stop;
        EXPECT_NEAR(timedSay(number), seconds, 0.03) << number;
        EXPECT_EQ(session.missing_sound_count, missing) << number;
    }
    EXPECT_EQ(sound.played, paths);
    EXPECT_EQ(view.captions, shown);
    EXPECT_NE(session.sound_channel, 0);

    // A stop while a long sound plays ends at once, without the pause after it.
    sound.durations.insert(mp3("02000"), 10.0);
    session.speed = 2.0f;
    session.stop_flag = "";
    clock.at(3.0, [this] { session.stop_flag = "yes"; });
    EXPECT_NEAR(timedSay("02000"), 3.0, 0.05);
    EXPECT_EQ(sound.played.size(), 6);

    // An empty sound number does nothing at all.
    EXPECT_EQ(timedSay(""), 0.0);
    EXPECT_EQ(view.captions.size(), shown.size() + 1);

    // Library failures are shown, and the pause still happens.
    session.speed = 0.2f;
    session.stop_flag = "";
    sound.loadError = kSoundLoadFailed;
    EXPECT_NEAR(timedSay("02000"), 1.0, 0.03);
    sound.loadError = 0;
    sound.playError = kSoundNoFreeChannel;
    EXPECT_NEAR(timedSay("02000"), 1.0, 0.03);
    EXPECT_EQ(prompts.boxes(),
              QStringList({"message||An error occured opening the sound file.\r\nError loading file",
                           "message||An error occured playing the sample!\r\nAn invalid parameter was passed to "
                           "this function",
                           "message||An error occured playing the sample!\r\nFailed to allocate a new channel"}));
    EXPECT_EQ(session.sound_channel, 0);
}

TEST_F(Playback, Mp3CaptureAppendsTheWordAndSilencesInsteadOfPlayingButANewRecordingPlays)
{
    mp3("04000", "WORD-BYTES");
    folder.write("silence.mp3", QByteArray("SIL\0", 4));
    folder.write("out_file.mp3.capture.tmp", "HEAD");
    session.mp3_words_left = 1;
    session.silence_count = 4;
    session.speed = 3.0f;
    EXPECT_EQ(timedSay("04000"), 0.0);
    EXPECT_EQ(folder.read("out_file.mp3.capture.tmp"),
              QByteArray("HEADWORD-BYTES\r\nSIL\0\r\nSIL\0\r\nSIL\0\r\nSIL\0\r\n", 40));
    EXPECT_TRUE(sound.played.isEmpty());
    EXPECT_EQ(view.captions, QStringList({"File # 04000"}));

    // No silence when the count is 0 or less; a missing word file appends nothing but silence.
    QFile::remove(folder.file("out_file.mp3.capture.tmp"));
    session.silence_count = -1;
    say_word(session, "04000", "spanish");
    EXPECT_EQ(folder.read("out_file.mp3.capture.tmp"), QByteArray("WORD-BYTES\r\n"));
    session.silence_count = 1;
    say_word(session, "04999", "spanish");
    EXPECT_EQ(folder.read("out_file.mp3.capture.tmp"), QByteArray("WORD-BYTES\r\nSIL\0\r\n", 18));
    EXPECT_EQ(session.missing_sound_count, 1);

    // The capture becomes out_file.mp3 whole; once the count is down to 0 the file beside it goes.
    finish_mp3_capture(session);
    EXPECT_EQ(folder.read("out_file.mp3"), QByteArray("WORD-BYTES\r\nSIL\0\r\n", 18));
    EXPECT_TRUE(folder.exists("out_file.mp3.capture.tmp"));
    session.mp3_words_left = 0;
    finish_mp3_capture(session);
    EXPECT_FALSE(folder.exists("out_file.mp3.capture.tmp"));
    EXPECT_EQ(folder.read("out_file.mp3"), QByteArray("WORD-BYTES\r\nSIL\0\r\n", 18));

    // append_file copies any bytes; a source it cannot read appends nothing, a target it cannot write
    // is false.
    folder.write("a.bin", QByteArray("\x00\xff\r", 3));
    append_file(folder.file("a.bin"), folder.file("new.mp3"));
    append_file(folder.file("a.bin"), folder.file("new.mp3"));
    EXPECT_EQ(folder.read("new.mp3"), QByteArray("\x00\xff\r\r\n\x00\xff\r\r\n", 10));
    append_file(folder.file("absent.bin"), folder.file("other.mp3"));
    EXPECT_FALSE(append_file(folder.file("a.bin"), folder.file("no/such/folder/x.mp3")));
    EXPECT_FALSE(folder.exists("other.mp3") || folder.exists("no/such/folder/x.mp3"));

    // A new recording plays through a temporary WAV in the record window, even while capturing.
    folder.write("languages/spanish/new_str/01/01436.tmp", QByteArray(30870, '\x11'));
    ASSERT_TRUE(encipher_file(folder.file("languages/spanish/new_str/01/01436.tmp"),
                              folder.file("languages/spanish/new_str/01/01436.str")));
    QFile::remove(folder.file("languages/spanish/new_str/01/01436.tmp"));
    session.record_window_playing = true;
    session.mp3_words_left = 2;
    session.silence_count = 2;
    session.speed = 0.2f;
    say_word(session, "01436", "spanish");
    const QString wav = session.languages_folder + "spanish/new_str/01/01436.wav";
    EXPECT_EQ(sound.played, QStringList({wav}));
    EXPECT_FALSE(QFile::exists(wav) || folder.exists("languages/spanish/new_str/01/01436.tmp") ||
                 folder.exists("out_file.mp3.capture.tmp"));
    EXPECT_TRUE(folder.exists("languages/spanish/new_str/01/01436.str"));

    // Outside the record window a .str path is not played and costs no time.
    session.record_window_playing = false;
    QString str = folder.file("languages/spanish/new_str/01/01436.str");
    EXPECT_EQ(timed([&] { play_sound_file(session, str); }), 0.0);
    EXPECT_EQ(sound.played.size(), 1);

    // While a recording session runs nothing plays, but a temporary WAV is still deleted.
    mp3("06000", "ID3");
    folder.write("left.wav", "RIFF");
    session.recording_active = "yes";
    EXPECT_EQ(timedSay("06000"), 0.0);
    QString left = folder.file("left.wav");
    EXPECT_EQ(timed([&] { play_sound_file(session, left); }), 0.0);
    EXPECT_FALSE(folder.exists("left.wav"));
    EXPECT_EQ(sound.played.size(), 1);
}

// A timer that falls back to 0 at midnight, as the system timer does.
class MidnightClock : public Clock
{
public:
    double timer() override { return seconds >= 86400.0 ? seconds - 86400.0 : seconds; }
    void processEvents() override
    {
        seconds += 0.01;
        if (++calls == 1000 && session)
            session->stop_flag = "yes";
    }
    double seconds = 86399.5;
    int calls = 0;
    Session* session = nullptr;
};

TEST_F(Playback, WaitSecondsEndsOnTimeOrOnAnExactFlagAndRunsOnAcrossMidnight)
{
    EXPECT_EQ(timedWait(0.0f) + timedWait(-2.0f), 0.0);
    const double half = timedWait(0.5f);
    EXPECT_TRUE(half >= 0.5 - 1e-9 && half <= 0.511) << half;
    clock.at(0.3, [this] { session.skip_flag = "yes"; });
    EXPECT_NEAR(timedWait(60.0f), 0.3, 0.011);
    EXPECT_EQ(timedWait(60.0f), 0.0);
    session.skip_flag = "no";
    session.stop_flag = "quit";
    EXPECT_NEAR(timedWait(0.2f), 0.2, 0.011);

    // Past midnight the timer falls back to 0: the wait runs on until a flag ends it.
    MidnightClock midnight;
    Session late(prompts, sound, midnight);
    midnight.session = &late;
    wait_seconds(late, 1.0f);
    EXPECT_EQ(midnight.calls, 1000);
}

} // namespace
