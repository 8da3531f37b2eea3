#pragma once

#include <QByteArray>
#include <QString>

namespace quorvane {

class Clock;

// Error codes reported by SoundLibrary::getError(); sound_error_text() explains each one.
enum SoundError : int {
    kSoundOk = 0,
    kSoundNotInitialised = 2,
    kSoundInitFailed = 3,
    kSoundPlayFailed = 5,
    kSoundFileNotFound = 9,
    kSoundUnknownFormat = 10,
    kSoundLoadFailed = 11,
    kSoundOutOfMemory = 12,
    kSoundInvalidParameter = 14,
    kSoundNoFreeChannel = 16,
    kSoundNoRecordingDevice = 17,
};

// Sample modes, as the program passes them to sampleLoad and sampleAlloc.
constexpr unsigned kSample16Bits = 0x10;
constexpr unsigned kSampleMono = 0x20;
constexpr unsigned kSampleSigned = 0x100;
constexpr unsigned kSampleHardware2D = 0x80000;
constexpr unsigned kPlaybackSampleMode = 0x80130;
constexpr int kFreeIndex = -1;      // sampleLoad/playSound: let the library choose
constexpr int kUnmanagedIndex = -2; // sampleAlloc: the caller frees the sample itself

// The sound library: samples, mixing channels and the microphone. Handles returned by
// sampleLoad, sampleAlloc and playSound are never 0; every failure returns 0 (or false) and
// sets the code that getError() reports next. The real one is SdlSound.
class SoundLibrary
{
public:
    virtual ~SoundLibrary() = default;

    // Whether the library itself can start on this machine (its audio subsystem comes up).
    // Checked once at start-up, before init.
    virtual bool available() = 0;
    // Opens the output at mixrate Hz with maxchannels mixing channels.
    virtual bool init(int mixrate, int maxchannels, unsigned flags) = 0;
    virtual void close() = 0;
    // The code of the last failure (kSoundOk when the last call succeeded).
    virtual int getError() = 0;

    // Loads a whole MP3 or WAV file; offset and length 0 mean the whole file.
    virtual int sampleLoad(int index, const QString& path, unsigned mode, int offset, int length) = 0;
    // Loads a sample from signed 16-bit mono little-endian PCM in memory at frequency Hz (a
    // synthesized word). name identifies the sound; loading the same name and bytes again may give
    // the same sample.
    virtual int sampleLoadPcm(const QString& name, const QByteArray& pcm16Mono, int frequency) = 0;
    // An empty sample of length frames, for recording into.
    virtual int sampleAlloc(int index, int length, unsigned mode, int defaultFrequency, int defaultVolume,
                            int defaultPan, int defaultPriority) = 0;
    virtual void sampleFree(int sample) = 0;
    // Length of a sample in sample frames at its own rate.
    virtual int sampleGetLength(int sample) = 0;
    // Copies length bytes from offset of a sample's data (the lock, copy and unlock of one read).
    // Returns an empty array and sets the error on failure.
    virtual QByteArray sampleRead(int sample, int offset, int length) = 0;

    // Starts a sample on channel (kFreeIndex: any free channel); returns the channel handle.
    virtual int playSound(int channel, int sample) = 0;
    virtual bool isPlaying(int channel) = 0;

    // Records from the microphone into a sample made by sampleAlloc.
    virtual bool recordStartSample(int sample, bool loop) = 0;
    virtual bool recordStop() = 0;
    // Frames recorded so far into the sample.
    virtual int recordGetPosition() = 0;

    // The clock the program waits on; a library that simulates time (the test double) uses it.
    virtual void useClock(Clock& clock) { (void)clock; }
};

} // namespace quorvane
