#include "sound/mp3_encoder.h"
#include "test_support.h"

#include <QtEndian>

#include <cmath>

#include <gtest/gtest.h>

using namespace quorvane;
using namespace quorvane::test;

namespace {

// seconds of a 440 Hz tone at rate, 16-bit mono little-endian.
QByteArray tone(double seconds, int rate)
{
    QByteArray pcm(int(seconds * rate) * 2, '\0');
    for (int i = 0; i < pcm.size() / 2; ++i)
        qToLittleEndian<qint16>(qint16(8000 * std::sin(2 * M_PI * 440 * i / rate)), pcm.data() + 2 * i);
    return pcm;
}

// The largest sample value of 16-bit mono PCM.
int peak(const QByteArray& pcm)
{
    int largest = 0;
    for (int i = 0; i + 1 < pcm.size(); i += 2)
        largest = qMax(largest, std::abs(int(qFromLittleEndian<qint16>(pcm.constData() + i))));
    return largest;
}

// What ffmpeg makes of MP3 bytes: 22050 Hz mono samples, and the stream's description.
QByteArray decodeMp3(const QByteArray& mp3, QString* description)
{
    ProgramFolder folder;
    folder.write("piece.mp3", mp3);
    QByteArray samples;
    runTool("ffmpeg", {"-hide_banner", "-i", folder.file("piece.mp3"), "-f", "s16le", "-ac", "1", "-ar", "22050", "-"},
            &samples, description);
    return samples;
}

} // namespace

TEST(Speech, EncodedMp3IsTheCourseFormatAndKeepsTheSoundsLength)
{
    // 22050 Hz as it is, 16000 Hz resampled: both come out 32 kbit/s mono 22050 Hz, as long as they went in
    // (plus the encoder's delay and padding, under two frames).
    for (const int rate : {22050, 16000}) {
        QString error;
        const std::optional<QByteArray> mp3 = encodeMp3(tone(1.5, rate), rate, &error);
        ASSERT_TRUE(mp3) << error.toStdString();
        EXPECT_NE(mp3->left(3), "ID3");
        QString description;
        const QByteArray decoded = decodeMp3(*mp3, &description);
        EXPECT_TRUE(description.contains("22050 Hz, mono")) << description.toStdString();
        EXPECT_TRUE(description.contains("32 kb/s")) << description.toStdString();
        const double seconds = decoded.size() / (2 * 22050.0);
        EXPECT_GE(seconds, 1.5);
        EXPECT_LE(seconds, 1.5 + 2 * 1152 / 22050.0);
        EXPECT_GT(peak(decoded), 4000);
    }

    // Two pieces appended make one stream as long as both.
    const QByteArray twice = *encodeMp3(tone(1.0, 22050), 22050, nullptr) + *encodeMp3(tone(1.0, 22050), 22050, nullptr);
    QString description;
    EXPECT_GE(decodeMp3(twice, &description).size() / (2 * 22050.0), 2.0);

    QString error;
    EXPECT_FALSE(encodeMp3(QByteArray(3, '\0'), 22050, &error));
    EXPECT_EQ(error, "the sound data ends in half a sample");
    EXPECT_FALSE(encodeMp3(tone(0.1, 22050), 0, &error));
    EXPECT_EQ(error, "the sample rate 0 Hz is not valid");
}
