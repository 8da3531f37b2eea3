#pragma once

#include <QString>

namespace quorvane {

class Session;

// Moves the entry the word arrays hold at index from source_file to target_file. The entry is
// looked up by its content in source_file as it is on the disk (at the same place first, for a file
// holding it twice), appended to the target, and the source is replaced by its every other entry
// (an empty last slot written as "||"); no file is ever written from the arrays. When the arrays
// hold source_file they become what it holds now (what reading it again gives) and the main view
// shows them: true then, false otherwise; arrays of anything else
// (search results, a test's words) stay as they are. An entry the source does not hold, a source
// that cannot be read and a failed write give false with error set to what the caller must tell,
// and change no file. Whenever the process dies, every entry is in at least one file.
// Nothing is done, and error left alone, when the arrays hold the shown file and that is not
// source_file (a known list in the flash cards, and "Mark Word As Known"), or index names no entry.
bool move_word(Session& session, const QString& targetFile, const QString& sourceFile, int index,
               QString* error = nullptr);
bool move_to_known(Session& session, int index, QString* error = nullptr);
bool move_to_unknown(Session& session, int index, QString* error = nullptr);

} // namespace quorvane
