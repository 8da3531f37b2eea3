#include "core/sound_error_text.h"

#include <array>

namespace quorvane {

QString sound_error_text(int code)
{
    static const std::array<const char*, 20> texts = {
        "No errors",
        "Cannot call this command after FSOUND_Init.  Call FSOUND_Close first.",
        "This command failed because FSOUND_Init was not called",
        "Error initializing output device.",
        "The output device is already in use and cannot be reused.",
        "Playing the sound failed.",
        "Soundcard does not support the features needed for this soundsystem (16bit stereo output)",
        "Error setting cooperative level for hardware.",
        "Error creating hardware sound buffer.",
        "File not found",
        "Unknown file format",
        "Error loading file",
        "Not enough memory ",
        "The version number of this file format is not supported",
        "An invalid parameter was passed to this function",
        "Tried to use an EAX command on a non EAX enabled channel or output.",
        "Failed to allocate a new channel",
        "Recording is not supported on this machine",
        "Required Mediaplayer codec is not installed",
        "An error occured trying to open the specified CD device",
    };
    if (code < 0 || code >= static_cast<int>(texts.size()))
        return QStringLiteral("Unknown error");
    return QString::fromLatin1(texts[static_cast<size_t>(code)]);
}

} // namespace quorvane
