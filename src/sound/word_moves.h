#pragma once

#include <QString>

namespace quorvane {

class Session;

// Asks how many times each flash card repeats its word and sets repeat_count; an answer outside
// 1..60, or no number, sets 3 and says so.
void ask_repeat_count(Session& session);

// A whole number from low to high inclusive. The generator is seeded from the session's clock at
// every call, so two calls within the same tick of the timer give the same number.
double random_index(Session& session, qint32 low, qint32 high);

// Moves entry index of the word arrays (which hold source_file) from source_file to target_file:
// the entry is appended to the target, then the source is replaced by every other entry of the
// arrays (the empty last slot written as "||"); the arrays and the main window's boxes are then
// reloaded from the source. Whenever the process dies, every entry is in at least one file.
void move_word(Session& session, const QString& targetFile, const QString& sourceFile, int index);
void move_to_known(Session& session, int index);
void move_to_unknown(Session& session, int index);

} // namespace quorvane
