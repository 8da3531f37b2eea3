#pragma once

#include <QString>

// The fixed texts of the master-list search, the pairing with the translation language, and the
// making of new languages and lists.
namespace quorvane::search_texts {

// Search. The path of the missing master is said as languages_folder, a separator and the file
// name: the language's own folder is left out and two separators stand in a row, kept so.
QString masterNotFound(const QString& languagesFolder, const QString& separator, const QString& language);
QString tooManyResults(const QString& path, int limit);
QString notReadable(const QString& path, const QString& reason);
QString fieldMissing(const QString& path, int lineNumber, int field);

// Pairing.
QString pairingMasterNotFound();
QString tooManyTargetLines(const QString& path, int limit);
QString pairingWritten(int pairs, const QString& language, const QString& target, const QString& path);
QString pairingNotWritten(const QString& path, const QString& reason);
QString pairingNoTarget(const QString& language, const QString& transFile);
QString pairingMenu();
QString pairingItem();

// New language.
QString newLanguagePrompt();
QString newLanguageTitle();
QString languageExists();
QString targetPrompt();
QString targetTitle();
QString targetNotFound();
QString targetFound();

// New list.
QString selectLanguageFirst();
QString newListPrompt(const QString& language);
QString newListTitle();
QString listExists();
// The one line of a new list: the language name followed by this.
QString newListHeader(const QString& language);

// A folder or file that the file system would not make; nothing of the new language or list is
// left behind.
QString notMade(const QString& path, const QString& reason);
QString nameHoldsSeparator();

} // namespace quorvane::search_texts
