#pragma once

#include "core/accents.h"

#include <QString>
#include <QStringList>

class QDateTime;

namespace quorvane {

// The three kinds of test, in the order of the option buttons.
enum class TestKind { multipleChoice = 0, spelling = 1, fillInBlank = 2 };

// Whether a typed answer is right in the typing modes: not empty, and either the whole expected
// answer or one rendering of it: followed in it by "\", "/", " (" or ",", or preceded by a blank.
// Case-sensitive; "o" is right for "to go, to walk", through "o,".
bool typed_answer_found(const QString& typed, const QString& expected);

// The score in percent, rounded half up; 0 when no question was finished.
int score_percent(int correct, int asked);

// A duration in seconds as the results show it: the US time of day of that length with every
// "12:" and every "AM" taken out, so 3 min 25 s gives "03:25 " (the trailing blank is kept) and
// 12 min 12 s gives "12 ".
QString duration_text(double seconds);

// A date and time in the US default form, "3/14/2007 2:14:07 PM".
QString us_date_time(const QDateTime& moment);

// One results line: the nine fields joined by TAB, without a line end.
struct TestResult
{
    QString student;
    QString language;
    QString source;
    int asked = 0;
    int percent = 0;
    QString duration;
    TestKind kind = TestKind::multipleChoice;
    int presentationRow = 0;
    QString start;
};
QString results_line(const TestResult& result);

} // namespace quorvane
