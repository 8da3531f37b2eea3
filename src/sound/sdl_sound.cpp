#include "sound/sdl_sound.h"

#include "sound/sound_files.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <SDL.h>
#include <SDL_mixer.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <optional>
#include <unordered_set>

namespace quorvane {

namespace {

constexpr int kOutputChannels = 2;
constexpr int kOutputBufferFrames = 1024;
constexpr int kCaptureBufferFrames = 512;
constexpr int kDefaultRecordingRate = 22050;
constexpr int kAlreadyInitialised = 1;

bool startsWith(const QByteArray& bytes, const char* magic)
{
    return bytes.startsWith(QByteArray(magic));
}

// Where the first MPEG audio frame would start: after an ID3v2 tag when there is one.
qsizetype mpegStart(const QByteArray& bytes)
{
    if (!startsWith(bytes, "ID3") || bytes.size() < 10)
        return 0;
    qsizetype size = 0;
    for (int i = 6; i < 10; ++i)
        size = (size << 7) | (static_cast<quint8>(bytes.at(i)) & 0x7F);
    const bool footer = (static_cast<quint8>(bytes.at(5)) & 0x10) != 0;
    return 10 + size + (footer ? 10 : 0);
}

// The sample rate of the MPEG audio frame header at at, or 0 when there is none there.
int mpegFrameRate(const QByteArray& bytes, qsizetype at)
{
    if (at < 0 || at + 4 > bytes.size())
        return 0;
    const auto b1 = static_cast<quint8>(bytes.at(at + 1));
    const auto b2 = static_cast<quint8>(bytes.at(at + 2));
    const int version = (b1 >> 3) & 3;
    const int layer = (b1 >> 1) & 3;
    const int bitrate = b2 >> 4;
    const int rateIndex = (b2 >> 2) & 3;
    if (static_cast<quint8>(bytes.at(at)) != 0xFF || (b1 & 0xE0) != 0xE0 || version == 1 || layer == 0 ||
        bitrate == 15 || rateIndex == 3)
        return 0;
    static const int rates[4][3] = {{11025, 12000, 8000}, {0, 0, 0}, {22050, 24000, 16000}, {44100, 48000, 32000}};
    return rates[version][rateIndex];
}

// The sample rate of a RIFF WAVE file's format block, or 0.
int wavRate(const QByteArray& bytes)
{
    qsizetype at = 12;
    while (at + 8 <= bytes.size()) {
        const quint32 size = qFromLittleEndian<quint32>(bytes.constData() + at + 4);
        if (bytes.mid(at, 4) == "fmt " && at + 16 <= bytes.size())
            return static_cast<int>(qFromLittleEndian<quint32>(bytes.constData() + at + 12));
        at += 8 + size + (size & 1);
    }
    return 0;
}

bool isWav(const QByteArray& bytes)
{
    return startsWith(bytes, "RIFF") && bytes.mid(8, 4) == "WAVE";
}

// Whether the mixer's decoders can be expected to read these bytes; a file that is none of
// these is of an unknown format rather than a damaged one.
bool knownFormat(const QByteArray& bytes)
{
    return isWav(bytes) || startsWith(bytes, "ID3") || mpegFrameRate(bytes, 0) != 0 || startsWith(bytes, "OggS") ||
           startsWith(bytes, "fLaC") || startsWith(bytes, "FORM") || startsWith(bytes, "Creative Voice File");
}

// The rate the file was made at; fallback when it cannot be told from the header.
int sourceRate(const QByteArray& bytes, int fallback)
{
    int rate = isWav(bytes) ? wavRate(bytes) : mpegFrameRate(bytes, mpegStart(bytes));
    return rate > 0 ? rate : fallback;
}

QString cacheKeyOf(const QFileInfo& info)
{
    return info.absoluteFilePath() + QLatin1Char('\n') + QString::number(info.size()) + QLatin1Char('\n') +
           QString::number(info.lastModified().toMSecsSinceEpoch());
}

int bytesPerSampleOf(SDL_AudioFormat format)
{
    return SDL_AUDIO_BITSIZE(format) / 8;
}

} // namespace

SdlSound::SdlSound() = default;

SdlSound::~SdlSound()
{
    close();
    if (m_audioStarted)
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

bool SdlSound::fail(int code)
{
    m_error = code;
    return false;
}

bool SdlSound::succeed()
{
    m_error = kSoundOk;
    return true;
}

bool SdlSound::available()
{
    if (!m_audioStarted)
        m_audioStarted = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
    return m_audioStarted;
}

bool SdlSound::init(int mixrate, int maxchannels, unsigned flags)
{
    (void)flags;
    if (m_open)
        return fail(kAlreadyInitialised);
    if (!available())
        return fail(kSoundInitFailed);
    if (Mix_OpenAudio(mixrate, AUDIO_S16SYS, kOutputChannels, kOutputBufferFrames) != 0)
        return fail(kSoundInitFailed);
    Mix_AllocateChannels(maxchannels);
    int frequency = 0;
    Uint16 format = 0;
    int channels = 0;
    Mix_QuerySpec(&frequency, &format, &channels);
    m_open = true;
    m_mixRate = frequency;
    m_outputBytesPerFrame = channels * bytesPerSampleOf(format);
    return succeed();
}

void SdlSound::close()
{
    stopRecording();
    if (!m_open) {
        m_samples.clear();
        m_cache.clear();
        m_cachedBytes = 0;
        return;
    }
    Mix_HaltChannel(-1);
    for (const Sample& sample : std::as_const(m_samples)) {
        if (sample.chunk)
            Mix_FreeChunk(sample.chunk);
    }
    m_samples.clear();
    m_cache.clear();
    m_cachedBytes = 0;
    Mix_CloseAudio();
    m_open = false;
}

int SdlSound::getError()
{
    return m_error;
}

SdlSound::Sample* SdlSound::find(int sample)
{
    auto it = m_samples.find(sample);
    return it == m_samples.end() ? nullptr : &it.value();
}

int SdlSound::sampleLoad(int index, const QString& path, unsigned mode, int offset, int length)
{
    // Every file is loaded whole, in the output format; the library chooses the handle.
    (void)index;
    (void)mode;
    (void)offset;
    (void)length;
    if (!m_open)
        return fail(kSoundNotInitialised);
    const QFileInfo info(path);
    if (!info.isFile())
        return fail(kSoundFileNotFound);

    return loadCached(cacheKeyOf(info), [&path] {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? std::optional<QByteArray>(file.readAll()) : std::nullopt;
    });
}

int SdlSound::sampleLoadPcm(const QString& name, const QByteArray& pcm16Mono, int frequency)
{
    if (!m_open)
        return fail(kSoundNotInitialised);
    if (frequency <= 0 || pcm16Mono.isEmpty() || pcm16Mono.size() % 2 != 0)
        return fail(kSoundInvalidParameter);
    const QString key = QStringLiteral("pcm\n%1\n%2\n%3").arg(name).arg(frequency).arg(qHash(pcm16Mono));
    return loadCached(key, [&] {
        return std::optional<QByteArray>(wav_header(quint32(pcm16Mono.size()), quint32(frequency)) + pcm16Mono);
    });
}

int SdlSound::loadCached(const QString& key, const std::function<std::optional<QByteArray>()>& bytesOf)
{
    if (const auto cached = m_cache.constFind(key); cached != m_cache.constEnd()) {
        m_samples[*cached].lastUse = ++m_useCounter;
        succeed();
        return *cached;
    }

    const std::optional<QByteArray> read = bytesOf();
    if (!read)
        return fail(kSoundFileNotFound);
    const QByteArray& bytes = *read;
    if (!knownFormat(bytes))
        return fail(kSoundUnknownFormat);
    SDL_RWops* source = SDL_RWFromConstMem(bytes.constData(), static_cast<int>(bytes.size()));
    Mix_Chunk* chunk = source ? Mix_LoadWAV_RW(source, 1) : nullptr;
    if (!chunk)
        return fail(kSoundLoadFailed);

    const int handle = m_nextSample++;
    Sample sample;
    sample.chunk = chunk;
    sample.cacheKey = key;
    sample.lastUse = ++m_useCounter;
    const qint64 outputFrames = m_outputBytesPerFrame > 0 ? chunk->alen / m_outputBytesPerFrame : 0;
    const int rate = sourceRate(bytes, m_mixRate);
    sample.frames = m_mixRate > 0 ? static_cast<int>((outputFrames * rate + m_mixRate / 2) / m_mixRate) : 0;
    m_samples.insert(handle, sample);
    m_cache.insert(key, handle);
    m_cachedBytes += chunk->alen;
    evictBeyondBounds(handle);
    succeed();
    return handle;
}

void SdlSound::evictBeyondBounds(int keep)
{
    if (m_cache.size() <= kMaxCachedSamples && m_cachedBytes <= kMaxCachedBytes)
        return;
    std::unordered_set<const Mix_Chunk*> playing;
    const int channels = Mix_AllocateChannels(-1);
    for (int channel = 0; channel < channels; ++channel) {
        if (Mix_Playing(channel))
            playing.insert(Mix_GetChunk(channel));
    }
    QList<std::pair<quint64, int>> candidates;
    for (auto it = m_cache.constBegin(); it != m_cache.constEnd(); ++it) {
        const Sample& sample = m_samples[it.value()];
        if (it.value() != keep && !playing.contains(sample.chunk))
            candidates.append({sample.lastUse, it.value()});
    }
    std::sort(candidates.begin(), candidates.end());
    for (const auto& candidate : std::as_const(candidates)) {
        if (m_cache.size() <= kMaxCachedSamples && m_cachedBytes <= kMaxCachedBytes)
            break;
        freeSample(candidate.second);
    }
}

void SdlSound::freeSample(int handle)
{
    const auto it = m_samples.find(handle);
    if (it == m_samples.end())
        return;
    if (handle == m_recordSample) {
        stopRecording();
        m_recordSample = 0;
    }
    if (it->chunk) {
        m_cachedBytes -= it->chunk->alen;
        m_cache.remove(it->cacheKey);
        // Halts any channel still playing it.
        Mix_FreeChunk(it->chunk);
    }
    m_samples.erase(it);
}

int SdlSound::sampleAlloc(int index, int length, unsigned mode, int defaultFrequency, int defaultVolume, int defaultPan,
                          int defaultPriority)
{
    (void)index;
    (void)defaultVolume;
    (void)defaultPan;
    (void)defaultPriority;
    if (length < 0)
        return fail(kSoundInvalidParameter);
    Sample sample;
    sample.channels = (mode & 0x40) ? 2 : 1;
    sample.format = (mode & kSample16Bits) ? AUDIO_S16LSB : AUDIO_S8;
    sample.bytesPerFrame = sample.channels * bytesPerSampleOf(sample.format);
    sample.frequency = defaultFrequency > 0 ? defaultFrequency : kDefaultRecordingRate;
    sample.frames = length;
    const qint64 bytes = qint64(length) * sample.bytesPerFrame;
    if (bytes > std::numeric_limits<int>::max())
        return fail(kSoundOutOfMemory);
    sample.data = QByteArray(static_cast<qsizetype>(bytes), '\0');
    const int handle = m_nextSample++;
    m_samples.insert(handle, sample);
    succeed();
    return handle;
}

void SdlSound::sampleFree(int sample)
{
    freeSample(sample);
}

int SdlSound::sampleGetLength(int sample)
{
    const Sample* found = find(sample);
    if (!found)
        return fail(kSoundInvalidParameter);
    succeed();
    return found->frames;
}

QByteArray SdlSound::sampleRead(int sample, int offset, int length)
{
    const Sample* found = find(sample);
    if (!found || offset < 0 || length < 0) {
        fail(kSoundInvalidParameter);
        return {};
    }
    const bool recording = sample == m_recordSample && m_captureDevice != 0;
    if (recording)
        SDL_LockAudioDevice(m_captureDevice);
    QByteArray result;
    const qsizetype size = found->chunk ? qsizetype(found->chunk->alen) : found->data.size();
    if (qint64(offset) + length <= size) {
        const char* bytes = found->chunk ? reinterpret_cast<const char*>(found->chunk->abuf) : found->data.constData();
        result = QByteArray(bytes + offset, length);
    }
    if (recording)
        SDL_UnlockAudioDevice(m_captureDevice);
    if (result.size() != length) {
        fail(kSoundInvalidParameter);
        return {};
    }
    succeed();
    return result;
}

int SdlSound::playSound(int channel, int sample)
{
    if (!m_open)
        return fail(kSoundNotInitialised);
    Sample* found = find(sample);
    if (!found || !found->chunk || channel < -1 || channel >= Mix_AllocateChannels(-1))
        return fail(kSoundInvalidParameter);
    found->lastUse = ++m_useCounter;
    const int playing = Mix_PlayChannel(channel, found->chunk, 0);
    if (playing < 0)
        return fail(kSoundNoFreeChannel);
    succeed();
    return playing + 1;
}

bool SdlSound::isPlaying(int channel)
{
    if (!m_open || channel < 1 || channel > Mix_AllocateChannels(-1))
        return false;
    return Mix_Playing(channel - 1) != 0;
}

int SdlSound::cachedSampleCount() const
{
    return static_cast<int>(m_cache.size());
}

qint64 SdlSound::cachedBytes() const
{
    return m_cachedBytes;
}

// ---- recording

void SdlSound::captureCallback(void* userData, Uint8* stream, int length)
{
    auto* recording = static_cast<Recording*>(userData);
    const int frameBytes = recording->bytesPerFrame;
    int position = recording->positionFrames.load();
    int frames = length / frameBytes;
    const Uint8* from = stream;
    while (frames > 0) {
        if (position >= recording->capacityFrames) {
            if (!recording->loop || recording->capacityFrames == 0)
                break;
            position = 0;
        }
        const int count = std::min(frames, recording->capacityFrames - position);
        std::memcpy(recording->buffer + qsizetype(position) * frameBytes, from, size_t(count) * frameBytes);
        position += count;
        from += qsizetype(count) * frameBytes;
        frames -= count;
    }
    recording->positionFrames.store(position);
}

bool SdlSound::recordStartSample(int sample, bool loop)
{
    if (!available())
        return fail(kSoundNoRecordingDevice);
    stopRecording();
    Sample* found = find(sample);
    if (!found || found->chunk)
        return fail(kSoundInvalidParameter);

    auto recording = std::make_unique<Recording>();
    recording->buffer = found->data.data();
    recording->capacityFrames = found->frames;
    recording->bytesPerFrame = found->bytesPerFrame;
    recording->loop = loop;

    SDL_AudioSpec wanted;
    SDL_zero(wanted);
    wanted.freq = found->frequency;
    wanted.format = found->format;
    wanted.channels = static_cast<Uint8>(found->channels);
    wanted.samples = kCaptureBufferFrames;
    wanted.callback = &SdlSound::captureCallback;
    wanted.userdata = recording.get();
    SDL_AudioSpec obtained;
    // SDL converts whatever the device gives to exactly the sample's format.
    const SDL_AudioDeviceID device = SDL_OpenAudioDevice(nullptr, 1, &wanted, &obtained, 0);
    if (device == 0)
        return fail(kSoundNoRecordingDevice);
    m_recording = std::move(recording);
    m_captureDevice = device;
    m_recordSample = sample;
    SDL_PauseAudioDevice(device, 0);
    return succeed();
}

void SdlSound::stopRecording()
{
    if (m_captureDevice == 0)
        return;
    // Closing waits for a callback in progress, so the buffer is ours again afterwards.
    SDL_CloseAudioDevice(m_captureDevice);
    m_captureDevice = 0;
}

bool SdlSound::recordStop()
{
    if (m_captureDevice == 0)
        return fail(kSoundInvalidParameter);
    stopRecording();
    return succeed();
}

int SdlSound::recordGetPosition()
{
    return m_recording ? m_recording->positionFrames.load() : 0;
}

} // namespace quorvane
