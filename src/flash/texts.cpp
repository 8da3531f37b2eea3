#include "flash/texts.h"

#include "core/basic.h"

namespace quorvane::flash_texts {

QString wordsRemain(int count)
{
    return QString::number(count) + QStringLiteral(" words remain on this list");
}

QString playOf(int play, int count)
{
    return QString::number(play) + QStringLiteral(" of ") + QString::number(count);
}

QString speedShown(float speed)
{
    return basic::general(speed) + QStringLiteral(" sec");
}

QString wordsAdded(int wordsPlayed)
{
    return (wordsPlayed == 0 ? QString() : QString::number(wordsPlayed)) + QStringLiteral(" words added");
}

QString wordsCompleted(int count)
{
    return QString::number(count) + QStringLiteral(" words completed");
}

QString badSoundNumber(const QString& soundNumber)
{
    return QStringLiteral("The sound number \"%1\" names no recording: sound numbers run from 0 to 99999.")
        .arg(soundNumber);
}

QString filesCompleted(int count)
{
    return QString::number(count) + QStringLiteral(" files have been completed.");
}

QString mp3NotWritten(const QString& path, const QString& reason)
{
    return QStringLiteral("The file %1 could not be written (%2). The MP3 files are not finished.").arg(path, reason);
}

QString mp3Stopped(int words, const QString& path)
{
    return QStringLiteral("Stopped after %1 words. The file %2 holds the last of them.").arg(words).arg(path);
}

QString blockTitle(const QString& list, int first, int last)
{
    return QStringLiteral("%1 %2-%3").arg(list).arg(first).arg(last);
}

QString captureTitle(const QString& list)
{
    return QStringLiteral("%1 flash cards").arg(list);
}

QString compilationAlbum(const QString& language, const QString& list)
{
    return QStringLiteral("%1 - %2").arg(language, list);
}

QString playlistNotWritten(const QString& path, const QString& reason)
{
    return QStringLiteral("The playlist %1 could not be written (%2). The MP3 files themselves are finished.")
        .arg(path, reason);
}

} // namespace quorvane::flash_texts
