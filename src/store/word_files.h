#pragma once

#include <QString>
#include <QStringList>

namespace quorvane {

class Session;

// A word entry: "word|translation|sound number". Any other number of fields is not an entry.
struct WordEntry
{
    QString word;
    QString translation;
    QString sound_number;
};
bool splitEntry(const QString& line, WordEntry* entry);
QString joinEntry(const QString& word, const QString& translation, const QString& soundNumber);

// Sets list_file, known_file and unknown_file for current_language and current_list, and makes
// the unknown file when it does not exist: the list file copied whole when there is no known
// file, otherwise every list line that is not a line of the known file. An existing unknown file
// is never rebuilt. Throws TableLimitError (before writing) for a known file of too many lines.
void generate_unknowns_file(Session& session);

// Fills words, translations and sound_numbers with the entries of a word file, the last slot
// empty. A file that cannot be opened gives no entries. Throws TableLimitError, leaving the
// arrays as they were, for a file of more than kMaxWordEntries entries.
void create_array_of_words(Session& session, const QString& path);

// Reads a pairing file into the table, line by line: the second field goes to the slot named
// by the first. Slots the file does not name keep their text. Throws TableLimitError, with the
// table untouched, for a line that names no slot or has no second field.
void load_trans_index(const QString& path, QStringList& table);

// The names in a folder, as a Windows file system lists them: sorted by name, ignoring case.
QStringList scan_folder(const QString& folder);
// The names of the files in folder ending with suffix (case-sensitive), without the suffix.
// Files shorter than 2 bytes are deleted instead of listed.
QStringList scan_and_sweep(const QString& folder, const QString& suffix);

} // namespace quorvane
