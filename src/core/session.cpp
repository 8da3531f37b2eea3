#include "core/session.h"

#include "core/sound_library.h"

namespace quorvane {

Session::Session(Prompts& prompts_, SoundLibrary& sound_, Clock& clock_)
    : prompts(prompts_), sound(sound_), clock(clock_)
{
    target_sound_numbers.resize(kSoundNumberSlots);
    sound.useClock(clock);
}

} // namespace quorvane
