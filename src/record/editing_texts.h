#pragma once

#include <QString>
#include <QStringList>

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
// The final box: "finished" and the archives written when all were; otherwise what was written
// and what failed, each failure with its cause.
QString packingReport(const QString& recordingsFolder, const QStringList& written, const QStringList& failed);
// An archive that could not be written, and why.
QString archiveFailed(const QString& archive, const QString& reason);
inline const QString kFolderNotMade = QStringLiteral("the folder could not be made");
// The progress shown while an archive is written.
QString packingProgress(const QString& archiveName, int percent);
// A step of packing that failed (the folders made before stay).
QString packingFailed(const QString& what, const QString& reason);
// An entry that could not be added, corrected or deleted.
QString addFailed(const QString& reason);
QString saveFailed(const QString& reason);
QString deleteFailed(const QString& reason);
// A file of an edit that could not be read or written, and why.
QString fileNotRead(const QString& path, const QString& reason);
QString fileNotWritten(const QString& path, const QString& reason);
// An edit that was committed but whose files could not all be written yet.
QString completedLater(const QString& reason);

} // namespace quorvane::editing_texts
