#include "quiz/results_file.h"

#include "core/session.h"
#include "store/paths.h"
#include "store/text_files.h"
#include "store/texts.h"

#include <QDate>
#include <QFileInfo>
#include <QLocale>

namespace quorvane {

namespace {

// Words up to this long are padded so that their TABs line up.
constexpr int kLongestPaddedWord = 15;
constexpr int kPaddedWidth = 17;

const QString kLineEnd = QStringLiteral("\r\n");

} // namespace

bool append_test_result(const QString& line, QString* error)
{
    return appendTextLines(paths::testResultsFile(), {line}, error);
}

std::optional<QString> read_test_results(QString* error)
{
    const QString path = paths::testResultsFile();
    if (!QFileInfo::exists(path))
        return std::nullopt;
    QString cause;
    const std::optional<QByteArray> bytes = readFileBytes(path, &cause);
    if (!bytes) {
        if (error)
            *error = store_texts::fileNotRead(path, cause);
        return std::nullopt;
    }
    return decodeWindows1252(*bytes);
}

QString read_student_record(const QString& userName)
{
    QString text;
    for (const QString& line : readTextLines(paths::studentTestRecord(userName)).value_or(QStringList()))
        text += line + kLineEnd;
    return text;
}

QString list_report(const Session& session, const QDate& today)
{
    QString text = QStringLiteral("User: ") + session.user_name + QStringLiteral(" List: ") + session.shown_file +
                   QStringLiteral("  ") + QLocale::system().toString(today, QLocale::ShortFormat) + kLineEnd;
    for (qsizetype i = 0; i < session.words.size(); ++i) {
        const QString& word = session.words.at(i);
        const qsizetype pad = word.size() > kLongestPaddedWord ? 0 : kPaddedWidth - word.size();
        text += kLineEnd + word + QString(pad, u' ') + u'\t' + session.translations.value(i);
    }
    return text;
}

} // namespace quorvane
