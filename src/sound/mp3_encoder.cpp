#include "sound/mp3_encoder.h"

#include "sound/texts.h"

#include <QtEndian>

#include <lame/lame.h>

#include <memory>
#include <vector>

namespace quorvane {

namespace {

struct LameDeleter
{
    void operator()(lame_global_flags* flags) const { lame_close(flags); }
};

std::optional<QByteArray> failWith(QString* error, const QString& text)
{
    if (error)
        *error = text;
    return std::nullopt;
}

} // namespace

std::optional<QByteArray> encodeMp3(const QByteArray& pcm16Mono, int sampleRate, QString* error)
{
    if (sampleRate <= 0)
        return failWith(error, sound_texts::sampleRateInvalid(sampleRate));
    if (pcm16Mono.size() % 2 != 0)
        return failWith(error, sound_texts::kHalfSample);

    const std::unique_ptr<lame_global_flags, LameDeleter> lame(lame_init());
    if (!lame)
        return failWith(error, sound_texts::kEncoderOutOfMemory);
    lame_set_num_channels(lame.get(), 1);
    lame_set_in_samplerate(lame.get(), sampleRate);
    lame_set_out_samplerate(lame.get(), kMp3SampleRate);
    lame_set_mode(lame.get(), MONO);
    lame_set_VBR(lame.get(), vbr_off);
    lame_set_brate(lame.get(), kMp3BitRateKbps);
    lame_set_bWriteVbrTag(lame.get(), 0);
    if (lame_init_params(lame.get()) < 0)
        return failWith(error, sound_texts::formatRefused(sampleRate));

    const int frames = int(pcm16Mono.size() / 2);
    std::vector<short> samples(size_t(frames) + 1);
    for (int i = 0; i < frames; ++i)
        samples[size_t(i)] = qFromLittleEndian<qint16>(pcm16Mono.constData() + 2 * i);

    // LAME's documented worst case for one call: 1.25 times the samples plus 7200 bytes (rates below
    // 22050 Hz are resampled up, so the samples are counted at the output rate).
    const qint64 outputFrames = qint64(frames) * qMax(kMp3SampleRate, sampleRate) / sampleRate + 1;
    QByteArray mp3(int(outputFrames * 5 / 4 + 7200), Qt::Uninitialized);
    auto* out = reinterpret_cast<unsigned char*>(mp3.data());
    const int encoded = lame_encode_buffer(lame.get(), samples.data(), samples.data(), frames, out, int(mp3.size()));
    if (encoded < 0)
        return failWith(error, sound_texts::encoderFailed(encoded));
    const int flushed = lame_encode_flush(lame.get(), out + encoded, int(mp3.size()) - encoded);
    if (flushed < 0)
        return failWith(error, sound_texts::encoderFailedAtEnd(flushed));
    mp3.truncate(encoded + flushed);
    return mp3;
}

} // namespace quorvane
