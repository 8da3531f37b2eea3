#pragma once

#include <QByteArray>
#include <QPair>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace quorvane {

// The data files are Windows-1252 text. Decoding maps every byte to one character and encoding
// gives the same byte back (the five bytes the code page leaves undefined map to the control
// characters of the same value); characters outside the code page are written as "?".
QString decodeWindows1252(const QByteArray& bytes);
QByteArray encodeWindows1252(const QString& text);

// Splits text into lines ended by CR LF, LF or CR; a last line without an end is a line too.
QStringList splitLines(const QString& text);
// The bytes of a file, or nothing with error set to the cause when it cannot be opened or read
// (a folder in its place included).
std::optional<QByteArray> readFileBytes(const QString& path, QString* error = nullptr);
// The lines of a text file, or nothing (error set as readFileBytes does) when it cannot be read.
std::optional<QStringList> readTextLines(const QString& path, QString* error = nullptr);
// Hands each line of a file to take, in order, without holding the file: a line is ended by CR LF,
// LF or CR, and a last line without an end is a line too. False, with error set to the cause, when
// the file cannot be opened or read.
bool forEachLine(const QString& path, const std::function<void(const QByteArray& line)>& take,
                 QString* error = nullptr);
// The first line of a text file ("" when it is empty or cannot be opened).
QString readFirstLine(const QString& path);
// Every line followed by CR LF.
QByteArray encodeLines(const QStringList& lines);
// Replaces a file by these lines, atomically: the bytes go to a file beside it (its name followed by
// the writer's process id and count and paths::kRewriteSuffix, unique to the writer), every write and the sync to the
// disk are checked, and only then is it renamed over the old one. A crash leaves the old file or the new one; a failure
// leaves the old one and no file beside it, with error set to the cause ("the disk is full" for a full disk).
bool writeTextLines(const QString& path, const QStringList& lines, QString* error = nullptr);
// Replaces a file by these bytes, atomically, as writeTextLines does.
bool writeBytes(const QString& path, const QByteArray& bytes, QString* error = nullptr);
// Replaces a file by these pieces, one after the other, as writeBytes does: for a file put
// together from parts too large to be copied into one first.
bool writeBytes(const QString& path, const QList<QByteArrayView>& pieces, QString* error = nullptr);
// Writes many files, each as writeBytes does, but with one sync of the file system for them all
// instead of two per file: for an import of thousands of recordings. All or nothing: a failure
// removes every file it wrote. progress, where given, hears the count written after each file and
// cancels by answering false (false is then given with error cleared).
bool writeFiles(const QList<QPair<QString, QByteArray>>& files, QString* error = nullptr,
                const std::function<bool(qsizetype)>& progress = {});
// Appends these lines to a file, creating it when it does not exist, all or nothing, and never
// anything but appending: a last line without its end (a fragment left by a crash or a hand edit)
// gets CR LF first, so no line is glued onto it; a last line ended by a lone CR is already ended.
// Appenders to one file, in this process or another, take turns (a flock on the file), and a write
// or sync that fails cuts the file back to where this append began (a file it made is removed), so
// it never cuts another's lines. previousLength, where given, receives that length (-1: the file
// did not exist), for restoreLength.
bool appendTextLines(const QString& path, const QStringList& lines, QString* error = nullptr,
                     qint64* previousLength = nullptr);
// Renames a file over another and makes the rename lasting, through the same fault point as a
// rewrite's rename: for a change staged in a file of its own. False, with error set, on failure.
bool renameIntoPlace(const QString& from, const QString& to, QString* error = nullptr);
// Cuts a file back to length bytes, or removes it for a length of -1: undoes an append.
bool restoreLength(const QString& path, qint64 length);
// Removes the files a rewrite left beside their names in folder when the process died (those of a
// process that still runs are left to it).
void removeStrayRewrites(const QString& folder);
// The length of a file in bytes, -1 when it does not exist.
qint64 fileLength(const QString& path);

} // namespace quorvane
