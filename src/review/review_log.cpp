#include "review/review_log.h"

#include "core/clock.h"
#include "core/prompts.h"
#include "core/session.h"
#include "review/texts.h"
#include "store/paths.h"
#include "store/text_files.h"
#include "store/word_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace quorvane::review {

namespace {

constexpr int kFields = 6;
const QString kDateFormat = QStringLiteral("yyyy-MM-ddTHH:mm:ss");

// The Julian day of "yyyy-MM-ddTHH:mm:ss", read by hand: a hundred thousand lines are replayed at
// start, and a full date parse per line would cost most of the time allowed.
std::optional<int> parseDay(const QString& text)
{
    if (text.size() != kDateFormat.size() || text.at(4) != u'-' || text.at(7) != u'-' || text.at(10) != u'T' ||
        text.at(13) != u':' || text.at(16) != u':')
        return std::nullopt;
    auto number = [&text](int from, int length, bool* ok) {
        int value = 0;
        for (int i = from; i < from + length; ++i) {
            const QChar c = text.at(i);
            if (!c.isDigit()) {
                *ok = false;
                return 0;
            }
            value = value * 10 + c.digitValue();
        }
        return value;
    };
    bool ok = true;
    const QDate date(number(0, 4, &ok), number(5, 2, &ok), number(8, 2, &ok));
    const int hour = number(11, 2, &ok);
    const int minute = number(14, 2, &ok);
    const int second = number(17, 2, &ok);
    if (!ok || !date.isValid() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return static_cast<int>(date.toJulianDay());
}

int mondayOf(int day)
{
    return day - static_cast<int>(QDate::fromJulianDay(day).dayOfWeek() - 1);
}

} // namespace

QString format_log_line(const LogLine& line)
{
    return QStringList({line.when.toString(kDateFormat), line.list, line.word, line.soundNumber,
                        QString::number(line.grade), line.source})
        .join(u'\t');
}

QString review_log_path(const Session& session)
{
    return paths::studentLanguageFolder(session.user_folder, session.current_language) + QStringLiteral("reviews.txt");
}

namespace {

// The log line of entry index, dated by the session's clock; nothing when index names no entry or
// there is no student (no folder of theirs) to remember the answer for.
std::optional<QString> entryLine(Session& session, int index, int grade, const QString& source)
{
    if (index < 0 || index >= session.wordCount() || session.user_folder.isEmpty())
        return std::nullopt;
    QDir().mkpath(QFileInfo(review_log_path(session)).absolutePath());
    return format_log_line({session.clock.dateTime(), session.current_list, session.words.at(index),
                            session.sound_numbers.at(index), grade, source});
}

} // namespace

void log_grade(Session& session, int index, int grade, const QString& source)
{
    const std::optional<QString> line = entryLine(session, index, grade, source);
    QString error;
    if (line && !appendTextLines(review_log_path(session), {*line}, &error))
        session.prompts.message(review_texts::logNotWritten(review_log_path(session), error));
}

MoveRecord::MoveRecord(Session& session, int index, const QString& targetFile) : m_path(review_log_path(session))
{
    const bool toKnown = targetFile == session.known_file;
    const std::optional<QString> line = entryLine(session, index, toKnown ? easy : again, kSourceMove);
    if (!line)
        return;
    QString error;
    m_appended = appendTextLines(m_path, {*line}, &error, &m_previousLength);
    m_written = m_appended;
    if (!m_written)
        session.prompts.message(review_texts::moveNotLogged(session.words.at(index), targetFile, m_path, error));
}

MoveRecord::~MoveRecord()
{
    if (m_appended && !m_kept)
        restoreLength(m_path, m_previousLength);
}

void ReviewBook::update(const QString& path)
{
    const qint64 length = fileLength(path);
    if (path != m_path || length < m_consumed) {
        *this = ReviewBook();
        m_path = path;
    }
    if (length <= m_consumed)
        return;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(m_consumed))
        return;
    const QByteArray bytes = file.read(length - m_consumed);
    // Only whole lines are replayed: a line still being written is read once it has its end.
    const qsizetype end = std::max(bytes.lastIndexOf('\n'), bytes.lastIndexOf('\r'));
    if (end < 0)
        return;
    m_consumed += end + 1;
    for (const QString& line : splitLines(decodeWindows1252(bytes.left(end + 1))))
        add(line);
}

void ReviewBook::add(const QString& line)
{
    if (line.isEmpty())
        return;
    ++m_lines;
    const QStringList fields = line.split(u'\t');
    bool gradeOk = false;
    const int grade = fields.size() == kFields ? fields.at(4).toInt(&gradeOk) : 0;
    const int day = fields.size() == kFields ? parseDay(fields.at(0)).value_or(-1) : -1;
    const QString& source = fields.value(5);
    if (day < 0 || !gradeOk || grade < again || grade > easy ||
        (source != kSourceTest && source != kSourceCard && source != kSourceMove)) {
        ++m_damaged;
        return;
    }
    const QString& word = fields.at(2);
    QList<Word>& words = m_words[fields.at(3)];
    auto found = std::find_if(words.begin(), words.end(), [&word](const Word& w) { return w.word == word; });
    if (found == words.end()) {
        words.append({word, {}});
        found = words.end() - 1;
    }
    apply_review(found->state, grade, day, source != kSourceMove);
    if (source == kSourceMove && grade == easy)
        ++m_knownPerWeek[mondayOf(day)];
}

const MemoryState* ReviewBook::find(const QString& soundNumber, const QString& word) const
{
    const auto words = m_words.constFind(soundNumber);
    if (words == m_words.constEnd())
        return nullptr;
    for (const Word& w : *words) {
        if (w.word == word)
            return &w.state;
    }
    return nullptr;
}

QList<QPair<QString, int>> ReviewBook::mostMissed(int count) const
{
    QList<QPair<QString, int>> missed;
    for (const QList<Word>& words : m_words) {
        for (const Word& w : words) {
            if (w.state.misses > 0)
                missed.append({w.word, w.state.misses});
        }
    }
    std::sort(missed.begin(), missed.end(), [](const auto& a, const auto& b) {
        return a.second != b.second ? a.second > b.second : a.first < b.first;
    });
    return missed.mid(0, count);
}

ReviewBook& review_book(Session& session)
{
    if (!session.review_book)
        session.review_book = std::make_shared<ReviewBook>();
    session.review_book->update(review_log_path(session));
    return *session.review_book;
}

int day_of(const QDateTime& moment)
{
    return static_cast<int>(moment.date().toJulianDay());
}

int due_day(const MemoryState& state, double desiredRetention)
{
    return state.lastDay + interval_days(state.stability, desiredRetention);
}

QList<int> review_queue(const ReviewBook& book, const WordArrays& entries, int today, double desiredRetention,
                        int perDay)
{
    QList<QPair<int, int>> due; // due day, index
    QList<int> fresh;
    int firstSeenToday = 0;
    const int count = static_cast<int>(entries.words.size()) - 1;
    for (int i = 0; i < count; ++i) {
        const MemoryState* state = book.find(entries.sound_numbers.at(i), entries.words.at(i));
        if (!state) {
            fresh.append(i);
        } else {
            if (state->firstDay == today)
                ++firstSeenToday;
            if (const int day = due_day(*state, desiredRetention); day <= today)
                due.append({day, i});
        }
    }
    std::stable_sort(due.begin(), due.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    QList<int> queue;
    for (const auto& [day, index] : due)
        queue.append(index);
    queue.append(fresh.mid(0, std::max(0, perDay - firstSeenToday)));
    return queue;
}

int due_count(const ReviewBook& book, const WordArrays& entries, int today, double desiredRetention)
{
    int due = 0;
    const int count = static_cast<int>(entries.words.size()) - 1;
    for (int i = 0; i < count; ++i) {
        const MemoryState* state = book.find(entries.sound_numbers.at(i), entries.words.at(i));
        if (state && due_day(*state, desiredRetention) <= today)
            ++due;
    }
    return due;
}

WordArrays unknown_entries(const Session& session, bool arraysFresh)
{
    if (arraysFresh && session.shown_file == session.unknown_file)
        return {session.words, session.translations, session.sound_numbers};
    return read_word_arrays(session.unknown_file);
}

} // namespace quorvane::review
