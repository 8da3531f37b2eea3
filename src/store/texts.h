#pragma once

#include <QString>

// The fixed texts of the word store.
namespace quorvane::texts {

QString tooManyLines(const QString& path, int limit);
QString tooManyEntries(const QString& path, int limit);
QString badPairingLine(const QString& path, int lineNumber, int highestSoundNumber);

} // namespace quorvane::texts
