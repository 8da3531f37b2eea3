#include "store/texts.h"

#include <QFileInfo>

namespace quorvane::texts {

QString tooManyLines(const QString& path, int limit)
{
    return QStringLiteral("The file %1 has more than %2 lines, which is more than Quorvane can hold. "
                          "Nothing was changed.")
        .arg(path)
        .arg(limit);
}

QString tooManyEntries(const QString& path, int limit)
{
    return QStringLiteral("The file %1 has more than %2 words, which is more than Quorvane can hold. "
                          "Nothing was changed.")
        .arg(path)
        .arg(limit);
}

QString badPairingLine(const QString& path, int lineNumber, int highestSoundNumber)
{
    return QStringLiteral("Line %1 of the file %2 does not pair two sound numbers from 0 to %3. "
                          "The translations of this language were not loaded.")
        .arg(lineNumber)
        .arg(path)
        .arg(highestSoundNumber);
}

QString unknownFileNotMade(const QString& path, const QString& reason)
{
    return QStringLiteral("Your list of unknown words could not be made in %1 (%2).").arg(path, reason);
}

QString fileNotRead(const QString& path, const QString& reason)
{
    return QStringLiteral("The file %1 could not be read (%2). Nothing was made from it.").arg(path, reason);
}

QString noListToMoveIn(const QString& word)
{
    return QStringLiteral("Please choose a list first: \"%1\" is moved between the unknown and known words of a "
                          "list. Nothing was moved.")
        .arg(word);
}

QString sourceNotRead(const QString& source, const QString& reason)
{
    return QStringLiteral("The word could not be moved: %1 could not be read (%2). Nothing was moved.")
        .arg(source, reason);
}

QString wordNotInFile(const QString& word, const QString& source)
{
    return QStringLiteral("\"%1\" is not in %2, so it was not moved.").arg(word, source);
}

QString targetNotWritten(const QString& target, const QString& reason)
{
    return QStringLiteral("The word could not be added to %1 (%2). Nothing was moved.")
        .arg(QFileInfo(target).fileName(), reason);
}

QString sourceNotRewritten(const QString& source, const QString& reason)
{
    return QStringLiteral("The word could not be moved: %1 could not be rewritten (%2). Nothing was moved.")
        .arg(QFileInfo(source).fileName(), reason);
}

QString sourceNotWritten(const QString& target, const QString& source, const QString& reason)
{
    return QStringLiteral("The word was added to %1, but %2 could not be rewritten (%3). The word is now in both "
                          "files.")
        .arg(QFileInfo(target).fileName(), QFileInfo(source).fileName(), reason);
}

QString unknownWordsCaption(int count)
{
    return QString::number(count) + QStringLiteral(" Unknown Words");
}

QString knownWordsCaption(int count)
{
    return QString::number(count) + QStringLiteral(" Known Words");
}

QString wordsCaption(int count)
{
    return QString::number(count) + QStringLiteral(" Words");
}

QString soundLibraryMissing()
{
    return QStringLiteral("Error! The sound library (SDL2) was not found. All the files are not in the right folders.");
}

QString soundStartFailed(const QString& errorText)
{
    return QStringLiteral("An error occured. Please turn off other programs that may be using sound and start "
                          "this program again. The specific error message is:") +
           QStringLiteral("\r\n") + errorText;
}

QString namePrompt()
{
    return QStringLiteral(
        "What is your first name?  This is for the program to remember which words you have learned.");
}

QString nameTitle()
{
    return QStringLiteral("Student Name");
}

QString studentAlreadyOpen(const QString& userName)
{
    return QStringLiteral("Quorvane is already open for %1 in another window. Please use that window, or close it "
                          "and start Quorvane again. Nothing was changed.")
        .arg(userName);
}

QString lockNotMade(const QString& path, const QString& reason)
{
    return QStringLiteral("The lock file %1 could not be made (%2). Nothing was changed.").arg(path, reason);
}

QString lockBusy(const QString& path)
{
    return QStringLiteral("Another copy of Quorvane is still changing the files that %1 guards. Please try again "
                          "in a moment. Nothing was changed.")
        .arg(path);
}

} // namespace quorvane::texts
