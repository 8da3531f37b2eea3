#pragma once

#include <QStringList>

namespace quorvane {

class Session;

// What the main window shows once a language is chosen.
struct LanguageLists
{
    QStringList lists;       // the word lists of the language, master left out
    QStringList known_lists; // the student's known lists of the language
    QString error;           // a pairing file that could not be read, to be told ("" when all was read)
};

// Chooses a language: current_language, master_file and trans_file follow it, the student's
// folder of the language is made, and where the language has a trans file, target_language,
// target_master_file, trans_index_file and the pairing table follow too (without one, the
// previous language's stay in force). shown_file is cleared, and the rewrites a killed run left in
// the language's folder and the student's folder of it are removed. A malformed pairing file throws
// TableLimitError before any session value changes.
LanguageLists choose_language(Session& session, const QString& language);

// The student's known lists of the current language (word files shorter than 2 bytes are swept).
QStringList known_lists_of(const Session& session);

// Chooses a list of the current language and shows its unknown words, or its known words: the
// files of the list, current_list, shown_file and the word arrays follow; the unknown file is made
// when missing. A table limit throws TableLimitError before any session value or file changes. A
// file that cannot be read or made is named, with the cause, in told ("" when all went well), for
// the caller to tell; when the shown file is not read, nothing is shown (shown_file cleared, the
// arrays empty) and the result is false. A known list read while its unknown file cannot be made is
// still shown (true, with told set).
bool choose_list(Session& session, const QString& list, bool known, QString* told);

} // namespace quorvane
