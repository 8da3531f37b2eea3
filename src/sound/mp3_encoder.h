#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quorvane {

// The format of every MP3 the program writes: the sample course's own.
constexpr int kMp3BitRateKbps = 32;
constexpr int kMp3SampleRate = 22050;

// PCM 16-bit mono samples at sampleRate to MP3 bytes (32 kbit/s mono 22050 Hz, resampled by LAME if needed).
// The bytes carry no header frame of their own (no Xing/Info frame), so pieces can be appended one after
// another into one playable file. Fails, with error set, on an odd byte count, a rate that is not positive
// or an encoder failure.
std::optional<QByteArray> encodeMp3(const QByteArray& pcm16Mono, int sampleRate, QString* error);

} // namespace quorvane
