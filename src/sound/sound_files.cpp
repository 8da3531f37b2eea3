#include "sound/sound_files.h"

#include "core/session.h"
#include "sound/cipher.h"
#include "store/paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace quorvane {

namespace {

constexpr quint32 kWavHeaderTail = 36; // header bytes after the RIFF size field, data excluded
constexpr quint32 kFormatBlockSize = 16;
constexpr quint16 kPcmFormat = 1;
constexpr quint16 kChannels = 1;
constexpr quint32 kSamplesPerSecond = 22050;
constexpr quint32 kBytesPerSecond = 44100;
constexpr quint16 kBytesPerFrame = 2;
constexpr quint16 kBitsPerSample = 16;

QByteArray twoByteText(quint16 value)
{
    QByteArray result(2, '\0');
    result[0] = static_cast<char>(value & 0xFF);
    result[1] = static_cast<char>(value >> 8);
    return result;
}

// The 44-byte header of a mono 16-bit 22050 Hz PCM file holding dataLength bytes of samples.
QByteArray wavHeader(quint32 dataLength)
{
    QByteArray header;
    header.reserve(44);
    header += "RIFF";
    header += four_byte_text(dataLength + kWavHeaderTail);
    header += "WAVE";
    header += "fmt ";
    header += four_byte_text(kFormatBlockSize);
    header += twoByteText(kPcmFormat);
    header += twoByteText(kChannels);
    header += four_byte_text(kSamplesPerSecond);
    header += four_byte_text(kBytesPerSecond);
    header += twoByteText(kBytesPerFrame);
    header += twoByteText(kBitsPerSample);
    header += "data";
    header += four_byte_text(dataLength);
    return header;
}

} // namespace

ChosenSound choose_sound_file(Session& session, const QString& soundNumber, const QString& language)
{
    ChosenSound chosen;
    chosen.path = paths::newRecording(session.languages_folder, language, soundNumber);
    chosen.extension = QStringLiteral(".str");
    // A new recording is heard only in the record window, even where it is newer than the released one.
    if (!QFileInfo::exists(chosen.path) || !session.record_window_playing) {
        chosen.path = paths::releasedRecording(session.languages_folder, language, soundNumber);
        chosen.extension = QStringLiteral(".mp3");
    }
    if (!QFileInfo::exists(chosen.path))
        session.missing_sound_count = static_cast<qint16>(session.missing_sound_count + 1);
    else
        session.missing_sound_count = 0;
    return chosen;
}

QByteArray four_byte_text(quint32 value)
{
    QByteArray result(4, '\0');
    for (int i = 0; i < 4; ++i)
        result[i] = static_cast<char>((value >> (8 * i)) & 0xFF);
    return result;
}

QString str_to_wav(const QString& strPath)
{
    const QString tmpPath = QString(strPath).replace(QStringLiteral(".str"), QStringLiteral(".tmp"));
    decipher_file(strPath, tmpPath);

    // A failed decipher leaves no tmp file or an empty one: the header then states no samples.
    QByteArray samples;
    {
        QFile tmp(tmpPath);
        if (tmp.open(QIODevice::ReadOnly))
            samples = tmp.readAll();
    }
    QFile::remove(tmpPath);

    const QString wavPath = QString(tmpPath).replace(QStringLiteral(".tmp"), QStringLiteral(".wav"));
    QFile wav(wavPath);
    // Kept: an older, longer file of the same name is overwritten from its start and not truncated,
    // so its tail stays behind the new data.
    if (wav.open(QIODevice::ReadWrite)) {
        wav.write(wavHeader(static_cast<quint32>(samples.size())));
        wav.write(samples);
    }
    return wavPath;
}

} // namespace quorvane
