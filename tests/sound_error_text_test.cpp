#include "sound/sound_error_text.h"

#include <gtest/gtest.h>

using quorvane::sound_error_text;

TEST(SoundErrorText, KnownCodesKeepTheirExactWording)
{
    EXPECT_EQ(sound_error_text(0), "No errors");
    EXPECT_EQ(sound_error_text(1), "Cannot call this command after FSOUND_Init.  Call FSOUND_Close first.");
    EXPECT_EQ(sound_error_text(3), "Error initializing output device.");
    EXPECT_EQ(sound_error_text(6),
              "Soundcard does not support the features needed for this soundsystem (16bit stereo output)");
    EXPECT_EQ(sound_error_text(9), "File not found");
    EXPECT_EQ(sound_error_text(10), "Unknown file format");
    EXPECT_EQ(sound_error_text(12), "Not enough memory ");
    EXPECT_EQ(sound_error_text(16), "Failed to allocate a new channel");
    EXPECT_EQ(sound_error_text(17), "Recording is not supported on this machine");
    EXPECT_EQ(sound_error_text(19), "An error occured trying to open the specified CD device");
}

TEST(SoundErrorText, CodesOutsideTheEnumerationAreUnknown)
{
    for (int code : {20, -1, 1000})
        EXPECT_EQ(sound_error_text(code), "Unknown error") << code;
}
