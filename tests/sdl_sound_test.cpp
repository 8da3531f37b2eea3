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

int load(SdlSound& sound, const ProgramFolder& folder, const QString& name)
{
    return sound.sampleLoad(-1, folder.file(name), kPlaybackSampleMode, 0, 0);
}

} // namespace

TEST(SdlSound, LoadsWavAndMp3PlaysThemTogetherAndTheyEnd)
{
    ProgramFolder folder;
    folder.write("tone.wav", toneWav(1.0));
    ASSERT_EQ(runTool("lame", {"--quiet", folder.file("tone.wav"), folder.file("tone.mp3")}), 0);

    SdlSound sound;
    ASSERT_TRUE(sound.available());
    EXPECT_EQ(load(sound, folder, "tone.wav"), 0);
    EXPECT_EQ(sound.getError(), kSoundNotInitialised);
    ASSERT_TRUE(sound.init(kMixRate, 64, 0)) << sound.getError();
    EXPECT_FALSE(sound.init(kMixRate, 64, 0));
    EXPECT_EQ(sound.getError(), 1);

    const int wav = load(sound, folder, "tone.wav");
    ASSERT_NE(wav, 0) << sound.getError();
    EXPECT_EQ(sound.sampleGetLength(wav), kRate);
    const int mp3 = load(sound, folder, "tone.mp3");
    ASSERT_NE(mp3, 0) << sound.getError();
    EXPECT_NE(mp3, wav);
    // The encoder may add up to a few frames of padding around the second of sound.
    EXPECT_GE(sound.sampleGetLength(mp3), kRate);
    EXPECT_LE(sound.sampleGetLength(mp3), kRate + 3000);

    const int first = sound.playSound(-1, wav);
    const int second = sound.playSound(-1, mp3);
    ASSERT_NE(first, 0);
    ASSERT_NE(second, 0);
    EXPECT_NE(first, second);
    EXPECT_TRUE(sound.isPlaying(first));
    EXPECT_TRUE(sound.isPlaying(second));
    EXPECT_FALSE(sound.isPlaying(0));
    EXPECT_FALSE(sound.isPlaying(65));
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
}

TEST(SdlSound, ReportsNoDeviceMissingUnknownAndDamagedFilesAndFullChannels)
{
    const QByteArray driver = qgetenv("SDL_AUDIODRIVER");
    qputenv("SDL_AUDIODRIVER", "no_such_driver");
    {
        SdlSound sound;
        EXPECT_FALSE(sound.init(kMixRate, 64, 0));
        EXPECT_EQ(sound.getError(), kSoundInitFailed);
    }
    qputenv("SDL_AUDIODRIVER", driver);

    ProgramFolder folder;
    folder.write("text.mp3", "this is not a recording\r\n");
    folder.write("damaged.wav", QByteArray("RIFF\x10\0\0\0WAVEjunkjunkjunk", 24));
    folder.write("long.wav", toneWav(3.0));
    SdlSound sound;
    ASSERT_TRUE(sound.init(kMixRate, 2, 0));
    const std::pair<const char*, int> failures[] = {
        {"absent.mp3", kSoundFileNotFound}, {"text.mp3", kSoundUnknownFormat}, {"damaged.wav", kSoundLoadFailed}};
    for (const auto& [name, error] : failures) {
        EXPECT_EQ(load(sound, folder, name), 0) << name;
        EXPECT_EQ(sound.getError(), error) << name;
    }
    EXPECT_EQ(sound.playSound(-1, 0), 0);
    EXPECT_EQ(sound.getError(), kSoundInvalidParameter);

    const int sample = load(sound, folder, "long.wav");
    ASSERT_NE(sample, 0);
    EXPECT_EQ(sound.getError(), kSoundOk);
    EXPECT_NE(sound.playSound(-1, sample), 0);
    EXPECT_NE(sound.playSound(-1, sample), 0);
    EXPECT_EQ(sound.playSound(-1, sample), 0);
    EXPECT_EQ(sound.getError(), kSoundNoFreeChannel);
}

TEST(SdlSound, CacheReusesDecodedFilesAndStaysBounded)
{
    ProgramFolder folder;
    folder.write("word.wav", toneWav(0.1));
    folder.write("long.wav", toneWav(5.0));
    SdlSound sound;
    ASSERT_TRUE(sound.init(kMixRate, 64, 0));

    const int word = load(sound, folder, "word.wav");
    EXPECT_EQ(load(sound, folder, "word.wav"), word);
    EXPECT_EQ(sound.cachedSampleCount(), 1);
    // A file rewritten with other contents is decoded again.
    folder.write("word.wav", toneWav(0.2));
    const int rewritten = load(sound, folder, "word.wav");
    EXPECT_NE(rewritten, word);
    EXPECT_EQ(sound.sampleGetLength(rewritten), kRate / 5);

    const int playing = load(sound, folder, "long.wav");
    const int channel = sound.playSound(-1, playing);
    ASSERT_NE(channel, 0);
    int last = 0;
    for (int i = 0; i < SdlSound::kMaxCachedSamples + 10; ++i) {
        const QString name = QStringLiteral("many%1.wav").arg(i);
        folder.write(name, toneWav(0.1));
        last = load(sound, folder, name);
        ASSERT_NE(last, 0);
    }
    EXPECT_LE(sound.cachedSampleCount(), SdlSound::kMaxCachedSamples);
    EXPECT_LE(sound.cachedBytes(), SdlSound::kMaxCachedBytes);
    // The least recently used sample is gone; the newest and the one still playing stay.
    EXPECT_EQ(sound.sampleGetLength(word), 0);
    EXPECT_EQ(sound.getError(), kSoundInvalidParameter);
    EXPECT_EQ(sound.sampleGetLength(last), kRate / 10);
    EXPECT_EQ(sound.sampleGetLength(playing), kRate * 5);
    EXPECT_TRUE(sound.isPlaying(channel));

    // Freeing a sample stops it on its channel.
    sound.sampleFree(playing);
    EXPECT_FALSE(sound.isPlaying(channel));
}

TEST(SdlSound, RecordsIntoAnAllocatedSample)
{
    SdlSound sound;
    ASSERT_TRUE(sound.init(kMixRate, 64, 0));
    const int length = 4410;
    const int sample = sound.sampleAlloc(kUnmanagedIndex, length, 0x30, kRate, 255, 128, 255);
    ASSERT_NE(sample, 0);
    EXPECT_EQ(sound.sampleGetLength(sample), length);
    EXPECT_EQ(sound.sampleRead(sample, 0, length * 2).size(), length * 2);
    EXPECT_TRUE(sound.sampleRead(sample, 2, length * 2).isEmpty());
    EXPECT_EQ(sound.getError(), kSoundInvalidParameter);

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
