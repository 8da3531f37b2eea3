#pragma once

#include <QString>

#include <optional>

namespace quorvane {

class Session;

// What the record window holds when one of its editing buttons is pressed: the texts of its two
// edit boxes (left_word, right_word) and the sound number of the entry clicked last
// (current_sound_number, "" before any click).
struct EditedEntry
{
    QString left_word;
    QString right_word;
    QString current_sound_number;
};

// Every edit below holds the language's lock (paths::languageLockFile) from its first read to its
// last write, first finishes an edit a killed copy left half made, and changes its files all or
// nothing through the language's edit journal (apply_edit), so that neither a failure nor a kill
// leaves an entry in some files and not others. A failure is given in error, naming the file and
// the cause.

// The next free sound number of the current language, taken from highest_num.dat (read as "70000"
// when missing), which is rewritten with that number plus 1 printed as a number is printed: one
// leading blank (" 70001"). Read and rewritten under the lock, so two copies never get one number.
// Gives the number trimmed ("70000"); nothing when the file cannot be read or written.
std::optional<QString> get_high(const Session& session, QString* error = nullptr);

// Appends the line left|right|number to a word file, creating it when missing, as appendTextLines
// does: all or nothing, and never glued onto a last line that has no line end.
bool add_word2(const QString& path, const QString& leftWord, const QString& rightWord, const QString& highestNumber,
               QString* error = nullptr);

// The add_word button: the next number of highest_num.dat, and the entry appended to the list file
// (unless the list is the master list), to the master file and to the student's unknown file, all
// in one edit. Gives the number given; nothing when the edit was not made (a retry then adds the
// entry once). The record window's lists are not refreshed.
std::optional<QString> add_word(const Session& session, const EditedEntry& entry, QString* error = nullptr);

// Rewrites one word file, changing every line whose last five characters are the entry's sound
// number: replaced by left|right|number, or dropped when deleteMode is "yes". Every matched line of
// the master file appends one line to the language's change log (the old line or "word_deleted",
// "->", the new entry) in the same edit. With no sound number nothing matches and the file is
// rewritten unchanged. A missing file holds nothing to change and is left missing.
bool replace_or_delete(const Session& session, const QString& path, const EditedEntry& entry, const QString& deleteMode,
                       QString* error = nullptr);

// The save_text button: replace_or_delete on the list file (unless it is the master file), the
// master file, the unknown file and the known file, in one edit; a file that is missing (a student
// without a known file) is passed over. Gives the row the window selects next in the list the
// entry was clicked in (one row down, which shows and plays that entry); nothing when the edit was
// not made, every file then as it was.
std::optional<int> save_text(const Session& session, const EditedEntry& entry, int currentRow,
                             const QString& deleteMode = QStringLiteral("no"), QString* error = nullptr);

// The delete_word button: save_text with delete_mode "yes".
std::optional<int> delete_word(const Session& session, const EditedEntry& entry, int currentRow,
                               QString* error = nullptr);

} // namespace quorvane
