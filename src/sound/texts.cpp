#include "sound/texts.h"

namespace quorvane::sound_texts {

QString fileNumberCaption(const QString& soundNumber)
{
    return QStringLiteral("File # ") + soundNumber;
}

QString synthesizedCaption(const QString& soundNumber)
{
    return fileNumberCaption(soundNumber) + kSynthesizedMark;
}

QString speechRateUnexpected(int rate)
{
    return QStringLiteral("eSpeak NG speaks at %1 Hz instead of 22050 Hz").arg(rate);
}

QString voiceMissing(const QString& voice)
{
    return QStringLiteral("eSpeak NG has no voice \"%1\"").arg(voice);
}

QString speechFailed(const QString& voice, int code)
{
    return QStringLiteral("eSpeak NG failed with the voice \"%1\" (error %2)").arg(voice).arg(code);
}

QString speechUnavailable(const QString& language, const QString& reason)
{
    return QStringLiteral("Words of %1 without a recording cannot be spoken: %2. They stay silent; check the voice "
                          "named in voice_%1.dat in the language's folder.")
        .arg(language, reason);
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

QString sampleRateInvalid(int sampleRate)
{
    return QStringLiteral("the sample rate %1 Hz is not valid").arg(sampleRate);
}

QString formatRefused(int sampleRate)
{
    return QStringLiteral("the MP3 encoder refused the format (%1 Hz mono)").arg(sampleRate);
}

QString encoderFailed(int code)
{
    return QStringLiteral("the MP3 encoder failed (code %1)").arg(code);
}

QString encoderFailedAtEnd(int code)
{
    return QStringLiteral("the MP3 encoder failed at the end (code %1)").arg(code);
}

} // namespace quorvane::sound_texts
