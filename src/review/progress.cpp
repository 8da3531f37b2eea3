#include "review/progress.h"

#include "store/text_files.h"

#include <QLocale>

namespace quorvane::review {

namespace {

constexpr int kResultFields = 9;

} // namespace

QMap<QString, QList<ScorePoint>> test_scores(const QString& resultsText, const QString& student,
                                             const QString& language)
{
    QMap<QString, QList<ScorePoint>> scores;
    const QLocale c = QLocale::c();
    for (const QString& line : splitLines(resultsText)) {
        const QStringList fields = line.split(u'\t');
        if (fields.size() != kResultFields || fields.at(0) != student || fields.at(1) != language ||
            !fields.at(4).endsWith(u'%'))
            continue;
        bool ok = false;
        const int percent = fields.at(4).chopped(1).toInt(&ok);
        const QDateTime when = c.toDateTime(fields.at(8), QStringLiteral("M/d/yyyy h:mm:ss AP"));
        if (ok && when.isValid())
            scores[fields.at(6)].append({when, percent});
    }
    return scores;
}

} // namespace quorvane::review
