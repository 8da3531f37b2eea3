#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace quorvane {

// The data files are Windows-1252 text. Decoding maps every byte to one character and encoding
// gives the same byte back (the five bytes the code page leaves undefined map to the control
// characters of the same value); characters outside the code page are written as "?".
QString decodeWindows1252(const QByteArray& bytes);
QByteArray encodeWindows1252(const QString& text);

// Splits text into lines ended by CR LF, LF or CR; a last line without an end is a line too.
QStringList splitLines(const QString& text);
// The lines of a text file, or nothing when it cannot be opened.
std::optional<QStringList> readTextLines(const QString& path);
// The first line of a text file ("" when it is empty or cannot be opened).
QString readFirstLine(const QString& path);
// Every line followed by CR LF.
QByteArray encodeLines(const QStringList& lines);
// Replaces a file by these lines, atomically: a crash leaves the old file or the new one.
bool writeTextLines(const QString& path, const QStringList& lines, QString* error = nullptr);
// Replaces a file by these bytes, atomically.
bool writeBytes(const QString& path, const QByteArray& bytes, QString* error = nullptr);
// Appends these lines to a file, creating it when it does not exist.
bool appendTextLines(const QString& path, const QStringList& lines, QString* error = nullptr);
// The length of a file in bytes, -1 when it does not exist.
qint64 fileLength(const QString& path);

} // namespace quorvane
