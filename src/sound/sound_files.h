#pragma once

#include <QByteArray>
#include <QString>

namespace quorvane {

class Session;

// The recording chosen for a sound number, and its extension (".str" or ".mp3").
struct ChosenSound
{
    QString path;
    QString extension;
};

// The file of a sound number in a language: the new recording (new_str/<two digits>/<number>.str)
// only while the record window is playing a word and the file exists, otherwise the released
// recording (<two digits>/<number>.mp3). Counts in missing_sound_count the calls in a row that
// found no file.
ChosenSound choose_sound_file(Session& session, const QString& soundNumber, const QString& language);

// Four bytes holding value least significant first.
QByteArray four_byte_text(quint32 value);

// The 44-byte header of a mono 16-bit PCM WAV file at rate Hz holding dataLength bytes of samples.
QByteArray wav_header(quint32 dataLength, quint32 rate = 22050);

// Makes a playable WAV file beside a .str recording (same name, ".wav") and returns its path:
// deciphers to a ".tmp" file, writes the 44-byte header and the samples, deletes the ".tmp".
QString str_to_wav(const QString& strPath);

} // namespace quorvane
