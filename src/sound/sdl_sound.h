#pragma once

#include "core/sound_library.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QString>

#include <SDL_audio.h>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

struct Mix_Chunk;

namespace quorvane {

// The real sound library, over SDL2 and SDL2_mixer: samples are mixer chunks, channels are
// mixer channels (a channel handle is the mixer channel + 1). init fails with kSoundInitFailed
// when no output device can be opened.
//
// Loaded samples are cached by path, size and modification time, so a file loaded again is not
// decoded again. The program never frees what it loads, so the cache is bounded: beyond
// kMaxCachedSamples samples or kMaxCachedBytes of decoded sound the least recently used ones that
// are not playing are freed, and their handles become invalid. Samples made by sampleAlloc are
// never evicted; their owner frees them.
//
// Recording runs on an SDL capture device opened at the sample's rate and format (22050 Hz mono
// 16-bit for every caller); SDL's audio thread fills the sample, every other call runs on the
// caller's thread. No call waits, except for what SDL needs to open or close a device.
class SdlSound : public SoundLibrary
{
public:
    static constexpr int kMaxCachedSamples = 64;
    static constexpr qint64 kMaxCachedBytes = 32 * 1024 * 1024;

    SdlSound();
    ~SdlSound() override;
    SdlSound(const SdlSound&) = delete;
    SdlSound& operator=(const SdlSound&) = delete;

    bool available() override;
    bool init(int mixrate, int maxchannels, unsigned flags) override;
    void close() override;
    int getError() override;

    int sampleLoad(int index, const QString& path, unsigned mode, int offset, int length) override;
    int sampleLoadPcm(const QString& name, const QByteArray& pcm16Mono, int frequency) override;
    int sampleAlloc(int index, int length, unsigned mode, int defaultFrequency, int defaultVolume, int defaultPan,
                    int defaultPriority) override;
    void sampleFree(int sample) override;
    int sampleGetLength(int sample) override;
    QByteArray sampleRead(int sample, int offset, int length) override;

    int playSound(int channel, int sample) override;
    bool isPlaying(int channel) override;

    bool recordStartSample(int sample, bool loop) override;
    bool recordStop() override;
    int recordGetPosition() override;

    // What the cache holds now: loaded samples and their decoded bytes.
    int cachedSampleCount() const;
    qint64 cachedBytes() const;

private:
    struct Sample
    {
        Mix_Chunk* chunk = nullptr; // a loaded file; null for a recording sample
        QString cacheKey;           // empty when not cached
        int frames = 0;             // at the sample's own rate
        quint64 lastUse = 0;
        // A recording sample: its bytes, rate and frame size.
        QByteArray data;
        int frequency = 0;
        int bytesPerFrame = 0;
        int channels = 0;
        SDL_AudioFormat format = 0;
    };

    // Shared with SDL's audio thread while a recording runs; touched there only under the device lock.
    struct Recording
    {
        char* buffer = nullptr;
        int capacityFrames = 0;
        int bytesPerFrame = 0;
        bool loop = false;
        std::atomic<int> positionFrames{0};
    };

    static void captureCallback(void* userData, Uint8* stream, int length);

    bool fail(int code);
    // The cached sample of key, or the one decoded from what bytesOf reads (a whole WAV or MP3 file;
    // nothing: not found) and cached under key.
    int loadCached(const QString& key, const std::function<std::optional<QByteArray>()>& bytesOf);
    bool succeed();
    Sample* find(int sample);
    // Frees least recently used samples, never keep nor one that is playing, until within bounds.
    void evictBeyondBounds(int keep);
    void freeSample(int handle);
    void stopRecording();

    int m_error = kSoundOk;
    bool m_audioStarted = false;
    bool m_open = false;
    int m_mixRate = 0;
    int m_outputBytesPerFrame = 0;

    QHash<int, Sample> m_samples;
    QHash<QString, int> m_cache; // cache key -> sample handle
    qint64 m_cachedBytes = 0;
    int m_nextSample = 1;
    quint64 m_useCounter = 0;

    SDL_AudioDeviceID m_captureDevice = 0;
    int m_recordSample = 0;
    std::unique_ptr<Recording> m_recording;
};

} // namespace quorvane
