#pragma once

#include <QString>

// The fixed texts of editing words and of packing a contributor's work for sending.
namespace quorvane::editing_texts {

// highest_num.dat when a language has none yet: the first number given to a new entry.
QString firstNewNumber();
// The two kinds of line of the change log; the first part of a deletion's line.
QString changeArrow();
QString deletedMarker();

// The boxes of packing, in the order they are shown.
// recordingsFolder is named without a final separator, as the boxes show it.
QString packingQuestion(const QString& language, const QString& recordingsFolder);
QString cancelled();
QString workingOn(const QString& archiveName);
QString busy();
QString finished(const QString& recordingsFolder);
// The progress shown while an archive is written.
QString packingProgress(const QString& archiveName, int percent);
// A step of packing that failed (the folders made before stay).
QString packingFailed(const QString& what, const QString& reason);
// An entry that could not be added.
QString addFailed(const QString& reason);

} // namespace quorvane::editing_texts
