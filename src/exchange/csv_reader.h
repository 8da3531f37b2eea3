#pragma once

#include "exchange/imported_words.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace quorvane {

// The text of a file in UTF-8 (with or without its byte-order mark) when its bytes are valid
// UTF-8, otherwise in Windows-1252.
QString decodeImportedText(const QByteArray& bytes);

// The records of CSV or TSV text: fields separated by tabs when the first line holds one, by
// semicolons when it holds semicolons but no comma, else by commas; a field in double quotes may
// hold separators, line breaks and doubled quotes. A record whose quote never closes, or whose
// closing quote is followed by other text, is left out with its reason, and reading goes on at the
// line after its first. lines gives each record's first line (from 1).
struct CsvRecords
{
    QList<QStringList> records;
    QList<int> lines;
    QList<QString> badRecords; // reasons, "line N: ..."
};
CsvRecords parseCsv(const QString& text);

// The words of a CSV or TSV file: word, translation and, optionally, an audio file named relative
// to the file's folder (or absolute). A first line naming its columns (word, translation, audio
// ...) is a header: its names place the columns. Nothing, with error set, when the file cannot be
// read.
std::optional<ImportBatch> readCsvWords(const QString& path, QString* error);

} // namespace quorvane
