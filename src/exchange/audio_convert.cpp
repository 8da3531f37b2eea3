#include "exchange/audio_convert.h"

#include "exchange/imported_words.h"
#include "exchange/texts.h"
#include "sound/cipher.h"
#include "sound/mp3_encoder.h"

#include <QFile>
#include <QTemporaryDir>

#include <SDL.h>
#include <SDL_mixer.h>

namespace quorvane {

namespace {

constexpr int kRecordingRate = 22050;

// Samples of any SDL format as signed 16-bit little-endian mono at the same rate.
std::optional<QByteArray> toMono16(const Uint8* data, Uint32 length, SDL_AudioFormat format, Uint8 channels, int rate)
{
    SDL_AudioCVT convert;
    if (SDL_BuildAudioCVT(&convert, format, channels, rate, AUDIO_S16LSB, 1, rate) < 0)
        return std::nullopt;
    QByteArray buffer(static_cast<qsizetype>(length) * std::max(1, convert.len_mult), Qt::Uninitialized);
    memcpy(buffer.data(), data, length);
    convert.buf = reinterpret_cast<Uint8*>(buffer.data());
    convert.len = static_cast<int>(length);
    if (convert.needed && SDL_ConvertAudio(&convert) < 0)
        return std::nullopt;
    buffer.truncate(convert.needed ? convert.len_cvt : static_cast<int>(length));
    return buffer;
}

struct Decoded
{
    QByteArray samples;
    int rate = 0;
};

std::optional<Decoded> decode(const QByteArray& bytes)
{
    SDL_AudioSpec spec;
    Uint8* buffer = nullptr;
    Uint32 length = 0;
    if (SDL_LoadWAV_RW(SDL_RWFromConstMem(bytes.constData(), static_cast<int>(bytes.size())), 1, &spec, &buffer,
                       &length)) {
        auto samples = toMono16(buffer, length, spec.format, spec.channels, spec.freq);
        SDL_FreeWAV(buffer);
        if (!samples)
            return std::nullopt;
        return Decoded{*samples, spec.freq};
    }
    // Other formats need the mixer open: it decodes to the output's format.
    int frequency = 0;
    Uint16 format = 0;
    int channels = 0;
    if (Mix_QuerySpec(&frequency, &format, &channels) == 0)
        return std::nullopt;
    Mix_Chunk* chunk = Mix_LoadWAV_RW(SDL_RWFromConstMem(bytes.constData(), static_cast<int>(bytes.size())), 1);
    if (!chunk)
        return std::nullopt;
    auto samples = toMono16(chunk->abuf, chunk->alen, format, static_cast<Uint8>(channels), frequency);
    Mix_FreeChunk(chunk);
    if (!samples)
        return std::nullopt;
    return Decoded{*samples, frequency};
}

} // namespace

std::optional<QByteArray> audioAsMp3(const QByteArray& bytes, QString* cause)
{
    if (looksLikeMp3(bytes))
        return bytes;
    const auto decoded = decode(bytes);
    if (!decoded || decoded->samples.isEmpty()) {
        *cause = exchange_texts::kUnreadableAudio;
        return std::nullopt;
    }
    return encodeMp3(decoded->samples, decoded->rate, cause);
}

std::optional<QByteArray> newRecordingAsMp3(const QString& strPath, QString* cause)
{
    QTemporaryDir folder;
    const QString plain = folder.filePath(QStringLiteral("recording.raw"));
    QFile samples(plain);
    if (!folder.isValid() || !decipher_file(strPath, plain) || !samples.open(QIODevice::ReadOnly)) {
        *cause = exchange_texts::kUnreadableAudio;
        return std::nullopt;
    }
    return encodeMp3(samples.readAll(), kRecordingRate, cause);
}

} // namespace quorvane
