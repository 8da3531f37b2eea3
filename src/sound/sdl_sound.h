#pragma once

#include "sound/sound_library.h"

namespace quorvane {

// The real sound library, over SDL2 and SDL2_mixer: samples are mixer chunks, channels are
// mixer channels. init fails with kSoundInitFailed when no output device can be opened.
class SdlSound : public SoundLibrary
{
public:
    SdlSound();
    ~SdlSound() override;
    SdlSound(const SdlSound&) = delete;
    SdlSound& operator=(const SdlSound&) = delete;

    bool available() override;
    bool init(int mixrate, int maxchannels, unsigned flags) override;
    void close() override;
    int getError() override;

    int sampleLoad(int index, const QString& path, unsigned mode, int offset, int length) override;
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

private:
    bool fail(int code);

    int m_error = kSoundOk;
    bool m_audioStarted = false;
    bool m_open = false;
    int m_mixRate = 0;
};

} // namespace quorvane
