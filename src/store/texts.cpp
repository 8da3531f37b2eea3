#include "store/texts.h"

namespace quorvane::texts {

QString tooManyLines(const QString& path, int limit)
{
    return QStringLiteral("The file %1 has more than %2 lines, which is more than Quorvane can hold. "
                          "Nothing was changed.")
        .arg(path)
        .arg(limit);
}

QString tooManyEntries(const QString& path, int limit)
{
    return QStringLiteral("The file %1 has more than %2 words, which is more than Quorvane can hold. "
                          "Nothing was changed.")
        .arg(path)
        .arg(limit);
}

QString badPairingLine(const QString& path, int lineNumber, int highestSoundNumber)
{
    return QStringLiteral("Line %1 of the file %2 does not pair two sound numbers from 0 to %3. "
                          "The translations of this language were not loaded.")
        .arg(lineNumber)
        .arg(path)
        .arg(highestSoundNumber);
}

} // namespace quorvane::texts
