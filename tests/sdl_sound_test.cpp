#include "sound/sdl_sound.h"

#include "test_support.h"

#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>

#include <QHash>

namespace {

using namespace quorvane;
using quorvane::test::ProgramFolder;
using quorvane::test::runTool;

constexpr int kRate = 22050;
constexpr int kMixRate = 44100;

// A mono 16-bit 22050 Hz PCM file of a tone, made by sox.
QByteArray toneWav(double seconds)
{
    static QHash<double, QByteArray> made;
    if (!made.contains(seconds)) {
        ProgramFolder folder;
        runTool("sox", {"-n", "-r", "22050", "-c", "1", "-b", "16", folder.file("tone.wav"), "synth",
                        QString::number(seconds), "sine", "440"});
        made.insert(seconds, folder.read("tone.wav"));
    }
    return made.value(seconds);
}

struct SdlSoundTest : ::testing::Test
{
    ProgramFolder folder;
    SdlSound sound;
    int load(const QString& name) { return sound.sampleLoad(-1, folder.file(name), kPlaybackSampleMode, 0, 0); }
    // What a call gave, with the error code it left.
    using Outcome = std::pair<int, int>;
    Outcome withError(int result) { return {result, sound.getError()}; }
};

} // namespace

TEST_F(SdlSoundTest, LoadsWavAndMp3PlaysThemTogetherTheyEndAndEachFailureHasItsCode)
{
    const QByteArray driver = qgetenv("SDL_AUDIODRIVER");
    qputenv("SDL_AUDIODRIVER", "no_such_driver");
    EXPECT_EQ(withError(sound.init(kMixRate, 64, 0)), Outcome(0, kSoundInitFailed));
    qputenv("SDL_AUDIODRIVER", driver);

    folder.write("tone.wav", toneWav(1.0));
    ASSERT_EQ(runTool("lame", {"--quiet", folder.file("tone.wav"), folder.file("tone.mp3")}), 0);
    ASSERT_TRUE(sound.available());
    EXPECT_EQ(withError(load("tone.wav")), Outcome(0, kSoundNotInitialised));
    ASSERT_TRUE(sound.init(kMixRate, 64, 0)) << sound.getError();
    EXPECT_EQ(withError(sound.init(kMixRate, 64, 0)), Outcome(0, 1));

    const int wav = load("tone.wav");
    const int mp3 = load("tone.mp3");
    ASSERT_TRUE(wav != 0 && mp3 != 0 && mp3 != wav) << sound.getError();
    EXPECT_EQ(sound.sampleGetLength(wav), kRate);
    // The encoder may add up to a few frames of padding around the second of sound.
    const int mp3Length = sound.sampleGetLength(mp3);
    EXPECT_TRUE(mp3Length >= kRate && mp3Length <= kRate + 3000) << mp3Length;

    const int first = sound.playSound(-1, wav);
    const int second = sound.playSound(-1, mp3);
    ASSERT_TRUE(first != 0 && second != 0 && first != second);
    EXPECT_TRUE(sound.isPlaying(first) && sound.isPlaying(second));
    EXPECT_FALSE(sound.isPlaying(0) || sound.isPlaying(65));
    // Both are heard through rather than dropped: neither ends within half its length.
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !sound.isPlaying(first); }, 10000));
    EXPECT_GT(elapsed.elapsed(), 500);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !sound.isPlaying(second); }, 10000));

    // Playing a channel chosen by its number gives that channel back.
    EXPECT_EQ(sound.playSound(5, wav), 6);
    EXPECT_TRUE(sound.isPlaying(6));
    sound.close();
    EXPECT_FALSE(sound.isPlaying(6));

    // Missing, unknown and damaged files, and a sound for which no channel is free.
    folder.write("text.mp3", "this is not a recording\r\n");
    folder.write("damaged.wav", QByteArray("RIFF\x10\0\0\0WAVEjunkjunkjunk", 24));
    folder.write("long.wav", toneWav(3.0));
    ASSERT_TRUE(sound.init(kMixRate, 2, 0));
    const std::pair<const char*, int> failures[] = {
        {"absent.mp3", kSoundFileNotFound}, {"text.mp3", kSoundUnknownFormat}, {"damaged.wav", kSoundLoadFailed}};
    for (const auto& [name, error] : failures)
        EXPECT_EQ(withError(load(name)), Outcome(0, error)) << name;
    EXPECT_EQ(withError(sound.playSound(-1, 0)), Outcome(0, kSoundInvalidParameter));
    const int sample = load("long.wav");
    ASSERT_EQ(withError(sample).second, kSoundOk);
    EXPECT_TRUE(sound.playSound(-1, sample) != 0 && sound.playSound(-1, sample) != 0);
    EXPECT_EQ(withError(sound.playSound(-1, sample)), Outcome(0, kSoundNoFreeChannel));
}

TEST_F(SdlSoundTest, CacheReusesDecodedFilesStaysBoundedAndRecordingFillsAnAllocatedSample)
{
    folder.write("word.wav", toneWav(0.1));
    folder.write("long.wav", toneWav(5.0));
    ASSERT_TRUE(sound.init(kMixRate, 64, 0));

    const int word = load("word.wav");
    EXPECT_EQ((Outcome{load("word.wav"), sound.cachedSampleCount()}), Outcome(word, 1));
    // A file rewritten with other contents is decoded again.
    folder.write("word.wav", toneWav(0.2));
    const int rewritten = load("word.wav");
    EXPECT_NE(rewritten, word);
    EXPECT_EQ(sound.sampleGetLength(rewritten), kRate / 5);

    const int playing = load("long.wav");
    const int channel = sound.playSound(-1, playing);
    ASSERT_NE(channel, 0);
    int last = 0;
    for (int i = 0; i < SdlSound::kMaxCachedSamples + 10; ++i) {
        const QString name = QStringLiteral("many%1.wav").arg(i);
        folder.write(name, toneWav(0.1));
        last = load(name);
        ASSERT_NE(last, 0);
    }
    EXPECT_LE(sound.cachedSampleCount(), SdlSound::kMaxCachedSamples);
    EXPECT_LE(sound.cachedBytes(), SdlSound::kMaxCachedBytes);
    // The least recently used sample is gone; the newest and the one still playing stay.
    EXPECT_EQ(withError(sound.sampleGetLength(word)), Outcome(0, kSoundInvalidParameter));
    EXPECT_EQ(std::pair(sound.sampleGetLength(last), sound.sampleGetLength(playing)), std::pair(kRate / 10, kRate * 5));
    EXPECT_TRUE(sound.isPlaying(channel));
    // Freeing a sample stops it on its channel.
    sound.sampleFree(playing);
    EXPECT_FALSE(sound.isPlaying(channel));

    const int length = 4410;
    const int sample = sound.sampleAlloc(kUnmanagedIndex, length, 0x30, kRate, 255, 128, 255);
    ASSERT_NE(sample, 0);
    EXPECT_EQ(sound.sampleGetLength(sample), length);
    EXPECT_EQ(withError(int(sound.sampleRead(sample, 2, length * 2).size())), Outcome(0, kSoundInvalidParameter));

    EXPECT_FALSE(sound.recordStop());
    ASSERT_TRUE(sound.recordStartSample(sample, false)) << sound.getError();
    // A single recording stops at the end of its sample.
    EXPECT_TRUE(QTest::qWaitFor([&] { return sound.recordGetPosition() >= length; }, 10000));
    EXPECT_EQ(sound.recordGetPosition(), length);
    EXPECT_TRUE(sound.recordStop());
    EXPECT_EQ(sound.recordGetPosition(), length);
    EXPECT_EQ(sound.sampleRead(sample, 0, length * 2), QByteArray(length * 2, '\0'));
    sound.sampleFree(sample);
    EXPECT_EQ(sound.sampleGetLength(sample), 0);
}
