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

// The next free sound number of the current language, taken from highest_num.dat (made holding
// "70000" when missing), which is rewritten, atomically, with that number plus 1 printed as a
// number is printed: one leading blank (" 70001"). Gives the number trimmed ("70000"); nothing,
// with error set, when the file cannot be read or written.
std::optional<QString> get_high(const Session& session, QString* error = nullptr);

// Appends the line left|right|number to a word file, creating it when missing, as appendTextLines
// does: all or nothing, and never glued onto a last line that has no line end.
bool add_word2(const QString& path, const QString& leftWord, const QString& rightWord, const QString& highestNumber,
               QString* error = nullptr);

// The add_word button: a fresh number from get_high, then the entry appended to the list file
// (unless the list is the master list), to the master file and to the student's unknown file.
// Gives the number given; nothing, with error set, when a step failed (the steps before it stay
// done). The record window's lists are not refreshed.
std::optional<QString> add_word(const Session& session, const EditedEntry& entry, QString* error = nullptr);

// Rewrites one word file, atomically, changing every line whose last five characters are the
// entry's sound number: replaced by left|right|number, or dropped when deleteMode is "yes".
// Every matched line of the master file appends one line to the language's change log (the old
// line or "word_deleted", "->", the new entry), after the master file is rewritten; a line cut
// short by a kill during an earlier append is removed first. With no
// sound number nothing matches and the file is rewritten unchanged. False when the file cannot be
// read or written: it is then as it was.
bool replace_or_delete(const Session& session, const QString& path, const EditedEntry& entry, const QString& deleteMode,
                       QString* error = nullptr);

// The save_text button: replace_or_delete on the list file (unless it is the master file), the
// master file, the unknown file and the known file, in that order. An error ends it at once,
// without a message (kept so: a missing known or unknown file is an ordinary end), and the files
// not yet rewritten stay as they were. Gives the row the window selects next in the list the
// entry was clicked in (one row down, which shows and plays that entry); nothing when an error
// ended the save.
std::optional<int> save_text(const Session& session, const EditedEntry& entry, int currentRow,
                             const QString& deleteMode = QStringLiteral("no"));

// The delete_word button: save_text with delete_mode "yes".
std::optional<int> delete_word(const Session& session, const EditedEntry& entry, int currentRow);

} // namespace quorvane
