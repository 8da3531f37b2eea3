#include "editor/texts.h"

namespace quorvane::editor_texts {

QString languageAndList(const QString& language, const QString& list)
{
    const QChar cr(u'\r');
    return QString(cr) + cr + language + cr + cr + kListNameHeading + cr + list;
}

QString notSaved(const QString& path, const QString& reason)
{
    return QStringLiteral("The list could not be saved to %1 (%2). Your changes are still in the window.")
        .arg(path, reason);
}

QString notMade(const QString& path, const QString& reason)
{
    return QStringLiteral("The new list %1 could not be made (%2).").arg(path, reason);
}

} // namespace quorvane::editor_texts
