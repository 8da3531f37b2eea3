#include "sound/sdl_sound.h"

#include "test_support.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>

namespace {

using quorvane::SdlSound;
using quorvane::test::ProgramFolder;

constexpr int kRate = 22050;
constexpr int kMixRate = 44100;

QByteArray littleEndian(quint32 value, int bytes)
{
    QByteArray result;
    for (int i = 0; i < bytes; ++i)
        result.append(static_cast<char>((value >> (8 * i)) & 0xFF));
    return result;
}

// A mono 16-bit PCM file of a 440 Hz tone, header written field by field.
QByteArray toneWav(double seconds)
{
    const int frames = static_cast<int>(seconds * kRate);
    QByteArray samples;
    for (int i = 0; i < frames; ++i) {
        const auto value = static_cast<qint16>(8000 * std::sin(2 * M_PI * 440 * i / kRate));
        samples += littleEndian(static_cast<quint16>(value), 2);
    }
    return "RIFF" + littleEndian(samples.size() + 36, 4) + "WAVEfmt " + littleEndian(16, 4) + littleEndian(1, 2) +
           littleEndian(1, 2) + littleEndian(kRate, 4) + littleEndian(kRate * 2, 4) + littleEndian(2, 2) +
           littleEndian(16, 2) + "data" + littleEndian(samples.size(), 4) + samples;
}

bool run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    const bool finished = process.waitForFinished(60000);
    EXPECT_TRUE(finished && process.exitCode() == 0)
        << program.toStdString() << ": " << process.readAllStandardError().toStdString();
    return finished && process.exitCode() == 0;
}

// Waits, handling events, until the channel stops or the deadline passes; the seconds it took.
double secondsUntilSilent(SdlSound& sound, int channel, int deadlineMilliseconds)
{
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !sound.isPlaying(channel); }, deadlineMilliseconds));
    return elapsed.elapsed() / 1000.0;
}

TEST(SdlSound, LoadsWavAndMp3PlaysThemTogetherAndTheyEnd)
{
    ProgramFolder folder;
    folder.write("tone.wav", toneWav(1.0));
    ASSERT_TRUE(run(
        "sox", {"-n", "-r", "22050", "-c", "1", "-b", "16", folder.file("source.wav"), "synth", "1", "sine", "330"}));
    ASSERT_TRUE(run("lame", {"--quiet", folder.file("source.wav"), folder.file("tone.mp3")}));

    SdlSound sound;
    ASSERT_TRUE(sound.available());
    EXPECT_EQ(sound.sampleLoad(-1, folder.file("tone.wav"), quorvane::kPlaybackSampleMode, 0, 0), 0);
    EXPECT_EQ(sound.getError(), quorvane::kSoundNotInitialised);
    ASSERT_TRUE(sound.init(kMixRate, 64, 0)) << sound.getError();
    EXPECT_FALSE(sound.init(kMixRate, 64, 0));
    EXPECT_EQ(sound.getError(), 1);

    const int wav = sound.sampleLoad(-1, folder.file("tone.wav"), quorvane::kPlaybackSampleMode, 0, 0);
    ASSERT_NE(wav, 0) << sound.getError();
    EXPECT_EQ(sound.sampleGetLength(wav), kRate);
    const int mp3 = sound.sampleLoad(-1, folder.file("tone.mp3"), quorvane::kPlaybackSampleMode, 0, 0);
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
    EXPECT_GT(secondsUntilSilent(sound, first, 10000), 0.5);
    secondsUntilSilent(sound, second, 10000);

    // Playing a channel chosen by its number gives that channel back.
    EXPECT_EQ(sound.playSound(5, wav), 6);
    EXPECT_TRUE(sound.isPlaying(6));
    sound.close();
    EXPECT_FALSE(sound.isPlaying(6));
}

TEST(SdlSound, ReportsMissingUnknownAndDamagedFilesAndFullChannels)
{
    ProgramFolder folder;
    folder.write("text.mp3", "this is not a recording\r\n");
    folder.write("damaged.wav", "RIFF" + littleEndian(16, 4) + "WAVEjunkjunkjunk");
    folder.write("long.wav", toneWav(3.0));
    SdlSound sound;
    ASSERT_TRUE(sound.init(kMixRate, 2, 0));

    EXPECT_EQ(sound.sampleLoad(-1, folder.file("absent.mp3"), quorvane::kPlaybackSampleMode, 0, 0), 0);
    EXPECT_EQ(sound.getError(), quorvane::kSoundFileNotFound);
    EXPECT_EQ(sound.sampleLoad(-1, folder.file("text.mp3"), quorvane::kPlaybackSampleMode, 0, 0), 0);
    EXPECT_EQ(sound.getError(), quorvane::kSoundUnknownFormat);
    EXPECT_EQ(sound.sampleLoad(-1, folder.file("damaged.wav"), quorvane::kPlaybackSampleMode, 0, 0), 0);
    EXPECT_EQ(sound.getError(), quorvane::kSoundLoadFailed);
    EXPECT_EQ(sound.playSound(-1, 0), 0);
    EXPECT_EQ(sound.getError(), quorvane::kSoundInvalidParameter);

    const int sample = sound.sampleLoad(-1, folder.file("long.wav"), quorvane::kPlaybackSampleMode, 0, 0);
    ASSERT_NE(sample, 0);
    EXPECT_EQ(sound.getError(), quorvane::kSoundOk);
    EXPECT_NE(sound.playSound(-1, sample), 0);
    EXPECT_NE(sound.playSound(-1, sample), 0);
    EXPECT_EQ(sound.playSound(-1, sample), 0);
    EXPECT_EQ(sound.getError(), quorvane::kSoundNoFreeChannel);
}

TEST(SdlSound, CacheReusesDecodedFilesAndStaysBounded)
{
    ProgramFolder folder;
    folder.write("word.wav", toneWav(0.1));
    folder.write("long.wav", toneWav(5.0));
    SdlSound sound;
    ASSERT_TRUE(sound.init(kMixRate, 64, 0));

    const int word = sound.sampleLoad(-1, folder.file("word.wav"), quorvane::kPlaybackSampleMode, 0, 0);
    EXPECT_EQ(sound.sampleLoad(-1, folder.file("word.wav"), quorvane::kPlaybackSampleMode, 0, 0), word);
    EXPECT_EQ(sound.cachedSampleCount(), 1);
    // A file rewritten with other contents is decoded again.
    folder.write("word.wav", toneWav(0.2));
    const int rewritten = sound.sampleLoad(-1, folder.file("word.wav"), quorvane::kPlaybackSampleMode, 0, 0);
    EXPECT_NE(rewritten, word);
    EXPECT_EQ(sound.sampleGetLength(rewritten), kRate / 5);

    const int playing = sound.sampleLoad(-1, folder.file("long.wav"), quorvane::kPlaybackSampleMode, 0, 0);
    const int channel = sound.playSound(-1, playing);
    ASSERT_NE(channel, 0);
    int last = 0;
    for (int i = 0; i < SdlSound::kMaxCachedSamples + 10; ++i) {
        const QString name = QStringLiteral("many%1.wav").arg(i);
        folder.write(name, toneWav(0.05));
        last = sound.sampleLoad(-1, folder.file(name), quorvane::kPlaybackSampleMode, 0, 0);
        ASSERT_NE(last, 0);
    }
    EXPECT_LE(sound.cachedSampleCount(), SdlSound::kMaxCachedSamples);
    EXPECT_LE(sound.cachedBytes(), SdlSound::kMaxCachedBytes);
    // The least recently used sample is gone; the newest and the one still playing stay.
    EXPECT_EQ(sound.sampleGetLength(word), 0);
    EXPECT_EQ(sound.getError(), quorvane::kSoundInvalidParameter);
    EXPECT_EQ(sound.sampleGetLength(last), kRate / 20);
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
    const int sample = sound.sampleAlloc(quorvane::kUnmanagedIndex, length, 0x30, kRate, 255, 128, 255);
    ASSERT_NE(sample, 0);
    EXPECT_EQ(sound.sampleGetLength(sample), length);
    EXPECT_EQ(sound.sampleRead(sample, 0, length * 2).size(), length * 2);
    EXPECT_TRUE(sound.sampleRead(sample, 2, length * 2).isEmpty());
    EXPECT_EQ(sound.getError(), quorvane::kSoundInvalidParameter);

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

TEST(SdlSound, InitFailsWithNoOutputDevice)
{
    const QByteArray driver = qgetenv("SDL_AUDIODRIVER");
    qputenv("SDL_AUDIODRIVER", "no_such_driver");
    {
        SdlSound sound;
        EXPECT_FALSE(sound.init(kMixRate, 64, 0));
        EXPECT_EQ(sound.getError(), quorvane::kSoundInitFailed);
    }
    qputenv("SDL_AUDIODRIVER", driver);
}

} // namespace
