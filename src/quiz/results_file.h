#pragma once

#include <QString>

#include <optional>

class QDate;

namespace quorvane {

class Session;

// Appends one results line and CR LF to test_results.txt in the program folder, creating it when
// missing. The file is only ever appended to. False, with error set, when it cannot be written.
bool append_test_result(const QString& line, QString* error);

// The whole of test_results.txt as one text; nothing when there is none yet, or when it cannot be
// read (error then names it and the cause).
std::optional<QString> read_test_results(QString* error = nullptr);

// A student's own record, users/<name>_test.txt: each line followed by CR LF; "" when there is none.
QString read_student_record(const QString& userName);

// The text the list viewer shows for the shown words: a header with the student, the shown file
// and the date, then a row per slot of the word arrays (the empty last one included): the word,
// blanks up to 17 characters for a word of up to 15, a TAB and the translation.
QString list_report(const Session& session, const QDate& today);

} // namespace quorvane
