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
#include <array>
#include <cstring>

namespace quorvane::review {

namespace {

constexpr int kFields = 6;
const QString kDateFormat = QStringLiteral("yyyy-MM-ddTHH:mm:ss");

// The Julian day of "yyyy-MM-ddTHH:mm:ss", -1 for any other text; read by hand: a hundred thousand
// lines are replayed at start, and a full date parse per line would cost most of the time allowed.
int parseDay(QStringView text)
{
    if (text.size() != kDateFormat.size() || text.at(4) != u'-' || text.at(7) != u'-' || text.at(10) != u'T' ||
        text.at(13) != u':' || text.at(16) != u':')
        return -1;
    bool ok = true;
    auto number = [&text, &ok](int from, int length) {
        int value = 0;
        for (int i = from; i < from + length; ++i) {
            const char16_t c = text.at(i).unicode();
            ok = ok && c >= u'0' && c <= u'9';
            value = value * 10 + (c - u'0');
        }
        return value;
    };
    const QDate date(number(0, 4), number(5, 2), number(8, 2));
    const bool timeOk = number(11, 2) <= 23 && number(14, 2) <= 59 && number(17, 2) <= 59;
    return ok && timeOk && date.isValid() ? static_cast<int>(date.toJulianDay()) : -1;
}

// The value of a five-digit sound number, -1 for any other text.
int numberValue(QStringView soundNumber)
{
    if (soundNumber.size() != 5)
        return -1;
    int value = 0;
    for (const QChar c : soundNumber) {
        if (c < u'0' || c > u'9')
            return -1;
        value = value * 10 + (c.unicode() - u'0');
    }
    return value;
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

MoveRecord::MoveRecord(Session& session, int index, const QString& targetFile, QString* error)
    : m_path(review_log_path(session))
{
    const bool toKnown = targetFile == session.known_file;
    const std::optional<QString> line = entryLine(session, index, toKnown ? easy : again, kSourceMove);
    if (!line)
        return;
    QString cause;
    m_appended = appendTextLines(m_path, {*line}, &cause, &m_previousLength);
    m_written = m_appended;
    if (!m_written && error)
        *error = review_texts::moveNotLogged(session.words.at(index), targetFile, m_path, cause);
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
    const QString text = decodeWindows1252(bytes.left(end + 1));
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) == u'\n' || text.at(i) == u'\r') {
            add(QStringView(text).sliced(start, i - start));
            start = i + 1;
        }
    }
}

int ReviewBook::firstOf(QStringView soundNumber) const
{
    if (const int value = numberValue(soundNumber); value >= 0)
        return m_firstByNumber.empty() ? -1 : m_firstByNumber[static_cast<size_t>(value)];
    return m_firstByText.value(soundNumber.toString(), -1);
}

int& ReviewBook::firstSlot(QStringView soundNumber)
{
    if (const int value = numberValue(soundNumber); value >= 0) {
        if (m_firstByNumber.empty())
            m_firstByNumber.assign(kSoundNumberSlots, -1);
        return m_firstByNumber[static_cast<size_t>(value)];
    }
    return m_firstByText.insert(soundNumber.toString(), m_firstByText.value(soundNumber.toString(), -1)).value();
}

void ReviewBook::add(QStringView line)
{
    if (line.isEmpty())
        return;
    ++m_lines;
    std::array<QStringView, kFields> fields;
    qsizetype count = 0;
    for (const QStringView field : line.tokenize(u'\t')) {
        if (count == kFields) {
            count = kFields + 1;
            break;
        }
        fields[static_cast<size_t>(count++)] = field;
    }
    const int day = count == kFields ? parseDay(fields[0]) : -1;
    const QStringView source = fields[5];
    const int grade = fields[4].size() == 1 ? fields[4].at(0).unicode() - u'0' : 0;
    if (day < 0 || grade < again || grade > easy ||
        (source != kSourceTest && source != kSourceCard && source != kSourceMove)) {
        ++m_damaged;
        return;
    }
    const QStringView word = fields[2];
    int& first = firstSlot(fields[3]);
    int found = first;
    while (found >= 0 && m_words[static_cast<size_t>(found)].word != word)
        found = m_words[static_cast<size_t>(found)].next;
    if (found < 0) {
        m_words.push_back({word.toString(), {}, first});
        found = first = static_cast<int>(m_words.size()) - 1;
    }
    apply_review(m_words[static_cast<size_t>(found)].state, grade, day, source != kSourceMove);
    if (source == kSourceMove && grade == easy)
        ++m_knownPerWeek[mondayOf(day)];
}

const MemoryState* ReviewBook::find(const QString& soundNumber, const QString& word) const
{
    for (int i = firstOf(soundNumber); i >= 0; i = m_words[static_cast<size_t>(i)].next) {
        const QString& stored = m_words[static_cast<size_t>(i)].word;
        // Compared as plain UTF-16 units: a general comparison costs most of a 30,000-word count.
        if (stored.size() == word.size() &&
            std::memcmp(stored.constData(), word.constData(), static_cast<size_t>(word.size()) * sizeof(QChar)) == 0)
            return &m_words[static_cast<size_t>(i)].state;
    }
    return nullptr;
}

QList<QPair<QString, int>> ReviewBook::mostMissed(int count) const
{
    QList<QPair<QString, int>> missed;
    for (const Word& w : m_words) {
        if (w.state.misses > 0)
            missed.append({w.word, w.state.misses});
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
    if (arraysFresh && session.words_file == session.unknown_file)
        return {session.words, session.translations, session.sound_numbers};
    // An unknown file that cannot be read has no words due; the list's own opening says why.
    return read_word_file(session.unknown_file, nullptr).value_or(WordArrays{});
}

} // namespace quorvane::review
