#include "review/texts.h"

namespace quorvane::review_texts {

QString dueCaption(int count)
{
    return QStringLiteral("%1 words due today").arg(count);
}

QString logNotWritten(const QString& path, const QString& cause)
{
    return QStringLiteral("The answer could not be added to the review log %1: %2.").arg(path, cause);
}

QString moveNotLogged(const QString& word, const QString& target, const QString& path, const QString& cause)
{
    return QStringLiteral("%1 was not moved to %2, because the review log %3 could not be written: %4.")
        .arg(word, target, path, cause);
}

QString pictureNotSaved(const QString& path, const QString& cause)
{
    return QStringLiteral("The progress picture could not be saved as %1: %2.").arg(path, cause);
}

QString pictureSaved(const QString& path)
{
    return QStringLiteral("The progress picture was saved as %1.").arg(path);
}

QString missedRow(const QString& word, int misses)
{
    return QStringLiteral("%1   (%2)").arg(word).arg(misses);
}

QString damagedLines(int count)
{
    return QStringLiteral("%1 damaged lines of the review log were skipped.").arg(count);
}

} // namespace quorvane::review_texts
