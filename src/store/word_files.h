#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace quorvane {

class Session;

// A word entry: "word|translation|sound number". Any other number of fields is not an entry, and
// neither is a line that is exactly "||": it ends a file that a move rewrote (the arrays' empty
// last slot), and every reader skips it.
struct WordEntry
{
    QString word;
    QString translation;
    QString sound_number;
};
bool splitEntry(const QString& line, WordEntry* entry);
QString joinEntry(const QString& word, const QString& translation, const QString& soundNumber);

// The three parallel word arrays of one file, the last slot empty.
struct WordArrays
{
    QStringList words{QString()};
    QStringList translations{QString()};
    QStringList sound_numbers{QString()};
};

// The files of one list: the list in the language folder and the student's known and unknown
// files of it.
struct ListFiles
{
    QString list_file;
    QString known_file;
    QString unknown_file;
};
ListFiles list_files_of(const Session& session, const QString& list);

// Makes the unknown file of a list when it does not exist: the list file copied whole when there
// is no known file, otherwise every list line that is not a line of the known file. An existing
// unknown file is never rebuilt. Throws TableLimitError before writing for a known file of too
// many lines, or an unknown file that would hold too many entries. False, with error set to a
// sentence naming the file and the cause, when the list or known file cannot be read (nothing is
// written then) or the unknown file cannot be written.
bool make_unknowns_file(const ListFiles& files, QString* error);

// Sets list_file, known_file and unknown_file for current_language and current_list and makes the
// unknown file as make_unknowns_file does; false, with error set as it sets it, on failure.
bool generate_unknowns_file(Session& session, QString* error);

// The entries of a word file, or nothing with error set to the cause when it cannot be read.
// Throws TableLimitError for a file of more than kMaxWordEntries entries. Strings equal to those of
// previous at the same place are shared with it rather than decoded again.
std::optional<WordArrays> read_word_file(const QString& path, QString* error, const WordArrays& previous = {});

// Fills words, translations and sound_numbers with the entries of a word file, the last slot
// empty, and words_file with its path. A file that cannot be read gives no entries (false), with
// error naming it and the cause. Throws TableLimitError, leaving the arrays as they were, for a
// file of more than kMaxWordEntries entries.
bool create_array_of_words(Session& session, const QString& path, QString* error = nullptr);

// Reads a pairing file into the table, line by line: the second field goes to the slot named
// by the first. Slots the file does not name keep their text. Throws TableLimitError, with the
// table untouched, for a line that names no slot or has no second field. A file that cannot be read
// leaves the table untouched and gives false, with error naming it and the cause.
bool load_trans_index(const QString& path, QStringList& table, QString* error = nullptr);

// The translation language's sound number paired with a sound number of the current language
// ("" where the table holds none); nothing for a sound number that names no slot of the table.
std::optional<QString> translation_sound_number(const Session& session, const QString& soundNumber);

// The names in a folder, as a Windows file system lists them: compared upper-cased, code by code,
// so "animals" comes before "animal_sounds".
QStringList scan_folder(const QString& folder);
// The names of the files in folder ending with suffix (case-sensitive), without the suffix.
// Files shorter than 2 bytes are deleted instead of listed.
QStringList scan_and_sweep(const QString& folder, const QString& suffix);

} // namespace quorvane
