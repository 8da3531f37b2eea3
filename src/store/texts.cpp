#include "store/texts.h"

#include "core/product.h"

#include <QFileInfo>

namespace quorvane::store_texts {

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

QString soundStartFailed(const QString& errorText)
{
    return QStringLiteral("An error occured. Please turn off other programs that may be using sound and start "
                          "this program again. The specific error message is:") +
           QStringLiteral("\r\n") + errorText;
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

QString masterNotFound(const QString& languagesFolder, const QString& separator, const QString& language)
{
    return QStringLiteral("Required master list file was not found. You need ") + languagesFolder + separator +
           QStringLiteral("master_") + language + QStringLiteral(".txt");
}

QString tooManyResults(const QString& path, int limit)
{
    return QStringLiteral("More than %1 words of %2 match what you typed, which is more than Quorvane can show. "
                          "Type more letters.")
        .arg(limit)
        .arg(path);
}

QString notReadable(const QString& path, const QString& reason)
{
    return QStringLiteral("The file %1 could not be read (%2).").arg(path, reason);
}

QString fieldMissing(const QString& path, int lineNumber, int field)
{
    return QStringLiteral("Line %1 of the file %2 has no %3, so it cannot be searched. The words shown were not "
                          "changed.")
        .arg(lineNumber)
        .arg(path, field == 0 ? QStringLiteral("word") : QStringLiteral("translation"));
}

QString tooManyTargetLines(const QString& path, int limit)
{
    return QStringLiteral("The file %1 has more than %2 lines, which is more than Quorvane can pair with. "
                          "Nothing was written.")
        .arg(path)
        .arg(limit);
}

QString pairingWritten(int pairs, const QString& language, const QString& target, const QString& path)
{
    return QStringLiteral("%1 recordings of %2 are now paired with the recordings of their %3 translations "
                          "(in %4).")
        .arg(pairs)
        .arg(language, target, path);
}

QString pairingNotWritten(const QString& path, const QString& reason)
{
    return QStringLiteral("The pairing file %1 could not be written (%2).").arg(path, reason);
}

QString pairingNoTarget(const QString& language, const QString& transFile)
{
    return QStringLiteral("%1 is not connected to a target language (%2 is missing), so its recordings cannot be "
                          "paired.")
        .arg(language, transFile);
}

QString newListPrompt(const QString& language)
{
    return QStringLiteral("This creates a new word/phrase list to be added to the currently selected language (") +
           language +
           QStringLiteral(").  If this is not what you want to do, click cancel.  After creating this new list, you "
                          "can add words and phrases to it using the 'Record and Edit Selected List' button. What "
                          "is the name of the new list?  Use only english characters and numbers.");
}

QString newListHeader(const QString& language)
{
    return language + QStringLiteral(" word or phrase|student's language translation|99999");
}

QString notMade(const QString& path, const QString& reason)
{
    return QStringLiteral("%1 could not be made (%2). Nothing was added; please choose another name.")
        .arg(path, reason);
}

} // namespace quorvane::store_texts
