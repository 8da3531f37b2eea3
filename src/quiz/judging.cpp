#include "quiz/judging.h"

#include "quiz/texts.h"

#include <QDateTime>
#include <QLocale>

#include <cmath>

namespace quorvane {

namespace {

constexpr int kSecondsPerDay = 86400;
constexpr int kSecondsPerHour = 3600;

} // namespace

bool typed_answer_found(const QString& typed, const QString& expected)
{
    if (typed.isEmpty())
        return false;
    return expected.contains(typed + u'\\') || expected.contains(typed + u'/') ||
           expected.contains(typed + QStringLiteral(" (")) || expected.contains(u' ' + typed) ||
           expected.contains(typed + u',') || expected == typed;
}

int score_percent(int correct, int asked)
{
    if (asked <= 0)
        return 0;
    return static_cast<int>(std::floor(double(correct) * 100.0 / double(asked) + 0.5));
}

QString duration_text(double seconds)
{
    // A time of day: whole seconds, within one day.
    int total = static_cast<int>(std::lround(seconds)) % kSecondsPerDay;
    if (total < 0)
        total += kSecondsPerDay;
    const int hours = total / kSecondsPerHour;
    const int hour12 = hours % 12 == 0 ? 12 : hours % 12;
    QString text = QStringLiteral("%1:%2:%3 %4")
                       .arg(hour12)
                       .arg(total / 60 % 60, 2, 10, QLatin1Char('0'))
                       .arg(total % 60, 2, 10, QLatin1Char('0'))
                       .arg(hours < 12 ? QStringLiteral("AM") : QStringLiteral("PM"));
    // Blind on purpose: every "12:" goes, minutes and seconds of 12 included.
    text.remove(QStringLiteral("12:"));
    text.remove(QStringLiteral("AM"));
    return text;
}

QString us_date_time(const QDateTime& moment)
{
    return QLocale::c().toString(moment, QStringLiteral("M/d/yyyy h:mm:ss AP"));
}

QString results_line(const TestResult& result)
{
    // Spelling is always asked by sound, whatever List2 says.
    const int row = result.kind == TestKind::spelling ? 1 : result.presentationRow;
    return QStringList({result.student, result.language, result.source, QString::number(result.asked),
                        QString::number(result.percent) + u'%', result.duration,
                        quiz_texts::kindName(static_cast<int>(result.kind)), quiz_texts::presentationName(row),
                        result.start})
        .join(u'\t');
}

} // namespace quorvane
