#pragma once

#include <QDateTime>
#include <QList>
#include <QMap>
#include <QString>

namespace quorvane::review {

struct ScorePoint
{
    QDateTime when;
    int percent = 0;
};

// The scores of one student's tests in one language from the text of test_results.txt, one series
// per kind of test (by its name, "Multiple Choice" ...), each in the order the tests were taken.
// Lines of other students or languages, and lines that cannot be read, are left out.
QMap<QString, QList<ScorePoint>> test_scores(const QString& resultsText, const QString& student,
                                             const QString& language);

} // namespace quorvane::review
