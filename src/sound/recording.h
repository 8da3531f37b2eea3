#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quorvane {

class Session;

// Records the microphone for seconds at rate (channels and bytes per sample as every caller
// passes them: 1 and 2) and stores what was recorded, its silence cut at both ends, as the
// enciphered recording at path (a ".str" file). The take is enciphered in memory and written
// through writeBytes: beside the file, synced, renamed over the old take, so an earlier take stays
// until the new one is complete, and nothing is left beside the file when the write fails.
//
// Waits on the session's clock in steps of 0.01 s, handling window events, until the sample is
// 1300 frames short of full (so that the capture never wraps round) or stop_flag is "yes"; what was
// recorded until then is kept. A failure of the sound library shows its message followed by the
// library's explanation and recording goes on; a recording that never started is not waited for
// and stores an empty file. Returns the plain samples stored; nothing, with error set to the file
// and its cause, when the take could not be stored (the old take, if any, is then untouched).
//
// Throws std::overflow_error when the sample's size does not fit in 32 bits.
std::optional<QByteArray> record_word(Session& session, const QString& path, int rate, float seconds, qint16 channels,
                                      qint16 bytesPerSample, QString* error = nullptr);

// The number of frames of a recording of seconds at rate. The product is taken in single
// precision, as the seconds are given, so 1.4 s at 22050 gives 30870 frames.
int recording_length(float seconds, int rate);

// Cuts the silence at both ends of 16-bit little-endian samples. A sample is loud when its high
// byte is from 2 to 127 and its low byte above 5 (a positive sample of at least 518); the cut
// starts at the last negative sample before the first loud one and ends at the last negative
// sample after the last loud one, close to zero crossings. Samples with no loud sample, or where
// less than two samples would remain, are returned whole.
QByteArray cut_silence(const QByteArray& samples);

// What a stored take sounds like: its length and its loudest sample. peakDbfs is relative to full
// scale (0 dBFS for -32768 or 32767); a silent take has no peak.
struct TakeLevel
{
    double seconds = 0.0;
    double peakDbfs = 0.0;
    bool silent = true;
};
TakeLevel take_level(const QByteArray& samples, int rate);

} // namespace quorvane
