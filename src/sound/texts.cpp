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

} // namespace quorvane::sound_texts
