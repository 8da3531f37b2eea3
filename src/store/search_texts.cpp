#include "store/search_texts.h"

#include "core/product.h"

namespace quorvane::search_texts {

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

QString pairingMasterNotFound()
{
    return QStringLiteral("Master file for one of the two languages was not found.");
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

QString pairingMenu()
{
    return QStringLiteral("&Contributors");
}

QString pairingItem()
{
    return QStringLiteral("&Pair Recordings With The Target Language");
}

QString newLanguagePrompt()
{
    return QStringLiteral("This button is for users who want to add their own language. Before you begin, it is "
                          "best to ask %1 (%2) whether word lists already exist for the ")
               .arg(QString::fromLatin1(product::kMaintainerName), QString::fromLatin1(product::kMaintainerEmail)) +
           QStringLiteral("language you want to add.  ") +
           QStringLiteral("If you want to begin work on a new language, what do you want to call it?  Use 8 or fewer "
                          "english letters and numbers, but not spaces.");
}

QString newLanguageTitle()
{
    return QStringLiteral("Add New Language");
}

QString languageExists()
{
    return QStringLiteral("That language already exits.  Please choose another name.");
}

QString targetPrompt()
{
    return QStringLiteral(
        "You need to connect this new language to a 'target' language. The target language will be the other "
        "language in this language pair that the students already know.  Usually, the target language will be "
        "english.  If the target language you type below already exists on this computer, you will not have to "
        "type those target translations or record the target sounds.  What is the 'target' language?  Be sure to "
        "spell it correctly.  The name must be 8 or fewer english letters.");
}

QString targetTitle()
{
    return QStringLiteral("Target Language");
}

QString targetNotFound()
{
    return QStringLiteral("That language folder is not on this computer, but your selection is being recorded.");
}

QString targetFound()
{
    return QStringLiteral(
        "Thank you, that language was found on this computer.  Words lists from that language will now be "
        "formatted to be used in the new language you are adding so that the exiting words/phrases of the "
        "student's native language do not have to be retyped.  After clicking OK below you can select the new "
        "language in the list of languages, then select one of the word lists, and then select 'Record and Edit' "
        "to type the translations and record words for the new language.");
}

QString selectLanguageFirst()
{
    return QStringLiteral("First select a language.");
}

QString newListPrompt(const QString& language)
{
    return QStringLiteral("This creates a new word/phrase list to be added to the currently selected language (") +
           language +
           QStringLiteral(").  If this is not what you want to do, click cancel.  After creating this new list, you "
                          "can add words and phrases to it using the 'Record and Edit Selected List' button. What "
                          "is the name of the new list?  Use only english characters and numbers.");
}

QString newListTitle()
{
    return QStringLiteral("Add New Word List");
}

QString listExists()
{
    return QStringLiteral("That list already exists for this language.  Please choose another list name.");
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

QString nameHoldsSeparator()
{
    return QStringLiteral("a name cannot hold \"/\"");
}

} // namespace quorvane::search_texts
