#pragma once

#include "core/product.h"

#include <QString>

// The fixed texts of the word store.
namespace quorvane::store_texts {

QString tooManyLines(const QString& path, int limit);
QString tooManyEntries(const QString& path, int limit);
QString badPairingLine(const QString& path, int lineNumber, int highestSoundNumber);

// The unknown file of a list that could not be made.
QString unknownFileNotMade(const QString& path, const QString& reason);
// A word file that could not be read: nothing was made from it.
QString fileNotRead(const QString& path, const QString& reason);
// A word that could not be moved between a student's unknown and known files.
QString noListToMoveIn(const QString& word);
QString sourceNotRead(const QString& source, const QString& reason);
QString wordNotInFile(const QString& word, const QString& source);
QString targetNotWritten(const QString& target, const QString& reason);
QString sourceNotRewritten(const QString& source, const QString& reason);
QString sourceNotWritten(const QString& target, const QString& source, const QString& reason);

// The caption above the word boxes: how many words the shown list holds.
QString unknownWordsCaption(int count);
QString knownWordsCaption(int count);
QString wordsCaption(int count);

// Start-up: the sound library, and the student's name.
inline const QString kSoundLibraryMissing =
    QStringLiteral("Error! The sound library (SDL2) was not found. All the files are not in the right folders.");
QString soundStartFailed(const QString& errorText);
inline const QString kNamePrompt =
    QStringLiteral("What is your first name?  This is for the program to remember which words you have learned.");
inline const QString kNameTitle = QStringLiteral("Student Name");
// Another copy of the program already has the student's files open.
QString studentAlreadyOpen(const QString& userName);
// A shared file's lock that could not be made, or that another copy of the program keeps.
QString lockNotMade(const QString& path, const QString& reason);
QString lockBusy(const QString& path);

// The master-list search, the pairing with the translation language, and the making of new languages and lists.

// Search. The path of the missing master is said as languages_folder, a separator and the file
// name: the language's own folder is left out and two separators stand in a row, kept so.
QString masterNotFound(const QString& languagesFolder, const QString& separator, const QString& language);
QString tooManyResults(const QString& path, int limit);
QString notReadable(const QString& path, const QString& reason);
QString fieldMissing(const QString& path, int lineNumber, int field);

// Pairing.
inline const QString kPairingMasterNotFound = QStringLiteral("Master file for one of the two languages was not found.");
QString tooManyTargetLines(const QString& path, int limit);
QString pairingWritten(int pairs, const QString& language, const QString& target, const QString& path);
QString pairingNotWritten(const QString& path, const QString& reason);
QString pairingNoTarget(const QString& language, const QString& transFile);
inline const QString kPairingMenu = QStringLiteral("&Contributors");
inline const QString kPairingItem = QStringLiteral("&Pair Recordings With The Target Language");

// New language.
inline const QString kNewLanguagePrompt =
    QStringLiteral("This button is for users who want to add their own language. Before you begin, it is "
                   "best to ask %1 (%2) whether word lists already exist for the ")
        .arg(QString::fromLatin1(product::kMaintainerName), QString::fromLatin1(product::kMaintainerEmail)) +
    QStringLiteral("language you want to add.  ") +
    QStringLiteral("If you want to begin work on a new language, what do you want to call it?  Use 8 or fewer "
                   "english letters and numbers, but not spaces.");
inline const QString kNewLanguageTitle = QStringLiteral("Add New Language");
inline const QString kLanguageExists = QStringLiteral("That language already exits.  Please choose another name.");
inline const QString kTargetPrompt = QStringLiteral(
    "You need to connect this new language to a 'target' language. The target language will be the other "
    "language in this language pair that the students already know.  Usually, the target language will be "
    "english.  If the target language you type below already exists on this computer, you will not have to "
    "type those target translations or record the target sounds.  What is the 'target' language?  Be sure to "
    "spell it correctly.  The name must be 8 or fewer english letters.");
inline const QString kTargetTitle = QStringLiteral("Target Language");
inline const QString kTargetNotFound =
    QStringLiteral("That language folder is not on this computer, but your selection is being recorded.");
inline const QString kTargetFound = QStringLiteral(
    "Thank you, that language was found on this computer.  Words lists from that language will now be "
    "formatted to be used in the new language you are adding so that the exiting words/phrases of the "
    "student's native language do not have to be retyped.  After clicking OK below you can select the new "
    "language in the list of languages, then select one of the word lists, and then select 'Record and Edit' "
    "to type the translations and record words for the new language.");

// New list.
inline const QString kSelectLanguageFirst = QStringLiteral("First select a language.");
QString newListPrompt(const QString& language);
inline const QString kNewListTitle = QStringLiteral("Add New Word List");
inline const QString kListExists =
    QStringLiteral("That list already exists for this language.  Please choose another list name.");
// The one line of a new list: the language name followed by this.
QString newListHeader(const QString& language);

// A folder or file that the file system would not make; nothing of the new language or list is
// left behind.
QString notMade(const QString& path, const QString& reason);
inline const QString kNameHoldsSeparator = QStringLiteral("a name cannot hold \"/\"");

// The causes a write names for the two failures users meet most.
inline const QString kDiskFull = QStringLiteral("the disk is full");
inline const QString kFileBusy = QStringLiteral("another copy of Quorvane keeps it busy");

} // namespace quorvane::store_texts
