#include "sound/texts.h"

namespace quorvane::sound_texts {

QString fileNumberCaption(const QString& soundNumber)
{
    return QStringLiteral("File # ") + soundNumber;
}

QString openFailed(const QString& errorText)
{
    return QStringLiteral("An error occured opening the sound file.\r\n") + errorText;
}

QString playFailed(const QString& errorText)
{
    return QStringLiteral("An error occured playing the sample!\r\n") + errorText;
}

QString takeNotStored(const QString& path, const QString& reason)
{
    return QStringLiteral("The recording %1 could not be stored (%2). The earlier recording, if any, is kept.")
        .arg(path, reason);
}

QString captureNotWritten(const QString& path, const QString& reason)
{
    return QStringLiteral("The MP3 file %1 could not be written (%2). The capture has stopped.").arg(path, reason);
}

} // namespace quorvane::sound_texts
