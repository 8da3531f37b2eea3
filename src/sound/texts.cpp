#include "sound/texts.h"

#include <QFileInfo>

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

QString mp3OutputFile()
{
    return QStringLiteral("out_file.mp3");
}

QString silenceFile()
{
    return QStringLiteral("silence.mp3");
}

QString repeatCountPrompt()
{
    return QStringLiteral("How many times should words be repeated before going to the next word? Recommended ranges "
                          "are from 3 to 30.");
}

QString repeatCountReset()
{
    return QStringLiteral("That was too few or too many. It is now set to 3.");
}

QString targetNotWritten(const QString& target, const QString& reason)
{
    return QStringLiteral("The word could not be added to %1 (%2). Nothing was moved.")
        .arg(QFileInfo(target).fileName(), reason);
}

QString sourceNotWritten(const QString& target, const QString& source, const QString& reason)
{
    return QStringLiteral("The word was added to %1, but %2 could not be rewritten (%3). The word is now in both "
                          "files.")
        .arg(QFileInfo(target).fileName(), QFileInfo(source).fileName(), reason);
}

QString rangeOverflow()
{
    return QStringLiteral("Overflow: the range of the random number is too wide.");
}

} // namespace quorvane::sound_texts
