#pragma once

#include <QString>

namespace quorvane {

class Session;

// Moves entry index of the word arrays (which hold source_file) from source_file to target_file:
// the entry is appended to the target, then the source is replaced by every other entry of the
// arrays (the empty last slot written as "||"); the arrays are then reloaded from the source and
// the main view shows them. Whenever the process dies, every entry is in at least one file.
// Nothing is done, and nothing said, when the arrays do not show source_file (shown_file differs)
// or index names no entry.
void move_word(Session& session, const QString& targetFile, const QString& sourceFile, int index);
void move_to_known(Session& session, int index);
void move_to_unknown(Session& session, int index);

} // namespace quorvane
