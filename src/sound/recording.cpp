#include "sound/recording.h"

#include "core/flags.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/sound_error_text.h"
#include "core/sound_library.h"
#include "sound/cipher.h"
#include "sound/playback.h"
#include "sound/texts.h"
#include "store/text_files.h"

#include <QtEndian>

#include <cmath>
#include <limits>
#include <stdexcept>

namespace quorvane {

namespace {

// The capture is stopped this many frames before the sample is full, so that it never wraps round.
constexpr int kStopMargin = 1300;
constexpr float kPollWait = 0.01f;
constexpr int kDefaultVolume = 255;
constexpr int kCentrePan = 128;
constexpr int kHighestPriority = 255;
constexpr double kFullScale = 32768.0;

QString allocFailed(const QString& errorText)
{
    return QStringLiteral("Sample Alloc Error: ") + errorText;
}
QString startFailed(const QString& errorText)
{
    return QStringLiteral("Record StartSample Error: ") + errorText;
}
QString stopFailed(const QString& errorText)
{
    return QStringLiteral("Record Stop Error: ") + errorText;
}
// The library's read of a sample locks, copies and unlocks in one call, so a failed read is told
// as the lock's failure; the unlock cannot fail on its own.
QString lockFailed(const QString& errorText)
{
    return QStringLiteral("Sample Lock Error: ") + errorText;
}

void tell(Session& session, QString (*text)(const QString&))
{
    session.prompts.message(text(sound_error_text(session.sound.getError())));
}

int checkedProduct(qint64 a, qint64 b)
{
    const qint64 product = a * b;
    if (product > std::numeric_limits<qint32>::max() || product < std::numeric_limits<qint32>::min())
        throw std::overflow_error("Overflow");
    return static_cast<int>(product);
}

unsigned char byteAt(const QByteArray& bytes, qsizetype index)
{
    return static_cast<unsigned char>(bytes.at(index));
}

bool negativeHighByte(unsigned char high)
{
    return high > 0x80;
}

bool loud(unsigned char low, unsigned char high)
{
    return high >= 2 && high <= 127 && low > 5;
}

} // namespace

int recording_length(float seconds, int rate)
{
    const float product = seconds * static_cast<float>(rate);
    const double frames = std::floor(static_cast<double>(product));
    if (frames > std::numeric_limits<qint32>::max() || frames < std::numeric_limits<qint32>::min())
        throw std::overflow_error("Overflow");
    return static_cast<int>(frames);
}

QByteArray cut_silence(const QByteArray& samples)
{
    const qsizetype last = samples.size() - 1;
    if (last < 1)
        return samples;

    // Forward: the last negative sample before the first loud one.
    qsizetype p = 0;
    qsizetype negativeBefore = -1;
    for (; p <= last - 16; p += 2) {
        if (negativeHighByte(byteAt(samples, p + 1)))
            negativeBefore = p;
        if (loud(byteAt(samples, p), byteAt(samples, p + 1)))
            break;
    }
    const qsizetype start = negativeBefore >= 0 ? negativeBefore : p;

    // Backward, over high bytes: the last negative sample after the last loud one.
    qsizetype q = last;
    qsizetype negativeAfter = -1;
    for (; q >= start + 1; q -= 2) {
        if (negativeHighByte(byteAt(samples, q)))
            negativeAfter = q;
        if (loud(byteAt(samples, q - 1), byteAt(samples, q)))
            break;
    }
    const qsizetype end = negativeAfter >= 0 ? negativeAfter : q;

    // The byte at end is the high byte of the last sample kept, so it is kept too and whole samples
    // remain. A cut that would leave less than two samples (no loud sample at all, say) keeps the
    // take whole: the contributor then hears what the microphone gave rather than nothing.
    if (end - start + 1 < 3)
        return samples;
    return samples.mid(start, end - start + 1);
}

TakeLevel take_level(const QByteArray& samples, int rate)
{
    TakeLevel level;
    const qsizetype count = samples.size() / 2;
    level.seconds = rate > 0 ? double(count) / rate : 0.0;
    int peak = 0;
    for (qsizetype i = 0; i < count; ++i) {
        const qint16 value = qFromLittleEndian<qint16>(samples.constData() + 2 * i);
        peak = std::max(peak, std::abs(int(value)));
    }
    level.silent = peak == 0;
    level.peakDbfs = level.silent ? -std::numeric_limits<double>::infinity() : 20.0 * std::log10(peak / kFullScale);
    return level;
}

std::optional<QByteArray> record_word(Session& session, const QString& path, int rate, float seconds, qint16 channels,
                                      qint16 bytesPerSample, QString* error)
{
    SoundLibrary& sound = session.sound;
    const int length = recording_length(seconds, rate);
    checkedProduct(checkedProduct(length, channels), bytesPerSample);
    const unsigned mode = unsigned(checkedProduct(bytesPerSample, 8)) | unsigned(checkedProduct(channels, 32));

    const int sample =
        sound.sampleAlloc(kUnmanagedIndex, length, mode, rate, kDefaultVolume, kCentrePan, kHighestPriority);
    if (sample == 0)
        tell(session, allocFailed);
    const bool started = sound.recordStartSample(sample, false);
    if (!started)
        tell(session, startFailed);

    // A recording that never started never moves on: it is not waited for.
    while (started) {
        if (sound.recordGetPosition() >= length - kStopMargin)
            break;
        wait_seconds(session, kPollWait);
        if (session.stop_flag == flags::kYes)
            break;
    }
    if (!sound.recordStop())
        tell(session, stopFailed);
    const int frames = started ? std::max(0, sound.recordGetPosition()) : 0;
    const int count = checkedProduct(checkedProduct(frames, channels), bytesPerSample);

    QByteArray buffer = sound.sampleRead(sample, 0, count);
    if (sample == 0 || buffer.size() != count) {
        tell(session, lockFailed);
        buffer.clear();
    }
    // The box "Do not automaticaly remove silence" is never looked at: the silence is cut whatever it
    // shows, as the program always has.
    if (!buffer.isEmpty())
        buffer = cut_silence(buffer);
    sound.sampleFree(sample);

    const std::optional<QByteArray> enciphered = encipher_bytes(buffer);
    QString cause = sound_texts::kCipherUnavailable;
    if (!enciphered || !writeBytes(path, *enciphered, &cause)) {
        if (error)
            *error = sound_texts::takeNotStored(path, cause);
        return std::nullopt;
    }
    return buffer;
}

} // namespace quorvane
