#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quorvane {

// Audio as an MP3 recording: MP3 bytes as they are; WAV (and, while the sound library is open,
// whatever SDL2_mixer decodes: OGG, FLAC ...) decoded to 16-bit mono samples and encoded to MP3.
// Nothing, with cause set, for audio that cannot be decoded or encoded.
std::optional<QByteArray> audioAsMp3(const QByteArray& bytes, QString* cause);

// A new recording (.str, enciphered samples at 22050 Hz) as MP3 bytes; nothing, with cause set,
// when it cannot be deciphered or encoded.
std::optional<QByteArray> newRecordingAsMp3(const QString& strPath, QString* cause);

} // namespace quorvane
