#include "record/texts.h"

#include "core/product.h"

namespace quorvane::record_texts {

QString withSoundsCount(int count)
{
    return QString::number(count) + QLatin1Char(' ') + kWithSoundsCaption;
}

QString withoutSoundsCount(int count)
{
    return QString::number(count) + QLatin1Char(' ') + kWithoutSoundsCaption;
}

QString fileNumber(const QString& soundNumber)
{
    return QStringLiteral("File: ") + soundNumber;
}

QString takeLevel(double seconds, double peakDbfs, bool silent)
{
    const QString length = QString::number(seconds, 'f', 2) + QStringLiteral(" s");
    if (silent)
        return length + QStringLiteral(", silent");
    return length + QStringLiteral(", peak ") + QString::number(peakDbfs, 'f', 1) + QStringLiteral(" dBFS");
}

QString folderNotMade(const QString& folder, const QString& reason)
{
    return QStringLiteral("The folder %1 could not be made (%2), so nothing was recorded.").arg(folder, reason);
}

QString packingQuestion(const QString& language, const QString& recordingsFolder)
{
    return QStringLiteral("Use this function AFTER you have finished recording ALL the words and phrases for the ") +
           language + QStringLiteral(" language.  Clicking 'OK' below will place the recordings in ") +
           QStringLiteral("the folder called ") + recordingsFolder + QStringLiteral(".  ") +
           QStringLiteral("Please e-mail all the 'str' zip files in that folder to ") +
           QString::fromLatin1(product::kMaintainerEmail) +
           QStringLiteral(", one at a time in separate e-mails, because they are big.") + QStringLiteral("\n\n") +
           QStringLiteral("Click 'OK' to run this function or 'Cancel' to go back.");
}

QString workingOn(const QString& archiveName)
{
    return QStringLiteral("Currently the program is working on ") + archiveName +
           QStringLiteral(".  Please wait about 5 seconds before clicking 'OK' below.");
}

QString finished(const QString& recordingsFolder)
{
    return QStringLiteral("This action is finished.") + QStringLiteral("\n") +
           QStringLiteral("Please e-mail the files located in ") + recordingsFolder + QStringLiteral(" to ") +
           QString::fromLatin1(product::kMaintainerEmail) + QStringLiteral(".");
}

QString packingReport(const QString& recordingsFolder, const QStringList& written, const QStringList& failed)
{
    const QString writtenList =
        written.isEmpty() ? QString() : QStringLiteral("\n\nArchives written:\n") + written.join(u'\n');
    if (failed.isEmpty())
        return finished(recordingsFolder) + writtenList;
    return QStringLiteral("Packing is over, but not every archive could be written.") + writtenList +
           QStringLiteral("\n\nArchives NOT written:\n") + failed.join(u'\n');
}

QString archiveFailed(const QString& archive, const QString& reason)
{
    return QStringLiteral("%1 (%2)").arg(archive, reason);
}

QString packingProgress(const QString& archiveName, int percent)
{
    return QStringLiteral("Packing %1: %2%").arg(archiveName).arg(percent);
}

QString packingFailed(const QString& what, const QString& reason)
{
    return QStringLiteral("Packing stopped: %1 could not be written (%2).").arg(what, reason);
}

QString addFailed(const QString& reason)
{
    return QStringLiteral("The new word could not be added: %1").arg(reason);
}

QString saveFailed(const QString& reason)
{
    return QStringLiteral("The changes could not be saved: %1").arg(reason);
}

QString deleteFailed(const QString& reason)
{
    return QStringLiteral("The word could not be deleted: %1").arg(reason);
}

QString fileNotRead(const QString& path, const QString& reason)
{
    return QStringLiteral("%1 could not be read (%2). No file was changed.").arg(path, reason);
}

QString fileNotWritten(const QString& path, const QString& reason)
{
    return QStringLiteral("%1 could not be written (%2). No file was changed.").arg(path, reason);
}

QString completedLater(const QString& reason)
{
    QString text = reason;
    text.replace(QStringLiteral("No file was changed."),
                 QStringLiteral("The change is kept and will be completed when the program next starts."));
    return text;
}

} // namespace quorvane::record_texts
