#include "sound/sound_files.h"

#include "core/session.h"
#include "sound/cipher.h"
#include "store/paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

namespace quorvane {

namespace {

constexpr quint32 kWavHeaderTail = 36; // header bytes after the RIFF size field, data excluded
constexpr quint32 kFormatBlockSize = 16;
constexpr quint16 kPcmFormat = 1;
constexpr quint16 kChannels = 1;
constexpr quint16 kBytesPerFrame = 2;
constexpr quint16 kBitsPerSample = 16;

QByteArray twoByteText(quint16 value)
{
    QByteArray result(2, '\0');
    qToLittleEndian(value, result.data());
    return result;
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
    qToLittleEndian(value, result.data());
    return result;
}

QByteArray wav_header(quint32 dataLength, quint32 rate)
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
    header += four_byte_text(rate);
    header += four_byte_text(rate * kBytesPerFrame);
    header += twoByteText(kBytesPerFrame);
    header += twoByteText(kBitsPerSample);
    header += "data";
    header += four_byte_text(dataLength);
    return header;
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
        wav.write(wav_header(static_cast<quint32>(samples.size())));
        wav.write(samples);
    }
    return wavPath;
}

} // namespace quorvane
