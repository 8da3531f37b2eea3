#include "sound/sdl_sound.h"

#include <SDL.h>
#include <SDL_mixer.h>

namespace quorvane {

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
        return fail(1);
    if (!available())
        return fail(kSoundInitFailed);
    if (Mix_OpenAudio(mixrate, AUDIO_S16SYS, 2, 1024) != 0)
        return fail(kSoundInitFailed);
    Mix_AllocateChannels(maxchannels);
    m_open = true;
    m_mixRate = mixrate;
    m_error = kSoundOk;
    return true;
}

void SdlSound::close()
{
    if (!m_open)
        return;
    Mix_HaltChannel(-1);
    Mix_CloseAudio();
    m_open = false;
}

int SdlSound::getError()
{
    return m_error;
}

int SdlSound::sampleLoad(int, const QString&, unsigned, int, int)
{
    return fail(kSoundLoadFailed);
}

int SdlSound::sampleAlloc(int, int, unsigned, int, int, int, int)
{
    return fail(kSoundOutOfMemory);
}

void SdlSound::sampleFree(int) {}

int SdlSound::sampleGetLength(int)
{
    return fail(kSoundInvalidParameter);
}

QByteArray SdlSound::sampleRead(int, int, int)
{
    fail(kSoundInvalidParameter);
    return {};
}

int SdlSound::playSound(int, int)
{
    return fail(kSoundPlayFailed);
}

bool SdlSound::isPlaying(int)
{
    return false;
}

bool SdlSound::recordStartSample(int, bool)
{
    return fail(kSoundNoRecordingDevice);
}

bool SdlSound::recordStop()
{
    return fail(kSoundNoRecordingDevice);
}

int SdlSound::recordGetPosition()
{
    return 0;
}

} // namespace quorvane
