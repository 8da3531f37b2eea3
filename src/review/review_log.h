#pragma once

#include "review/scheduler.h"

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace quorvane {

class Session;
struct WordArrays;

namespace review {

inline const QString kSourceTest = QStringLiteral("test");
inline const QString kSourceCard = QStringLiteral("card");
inline const QString kSourceMove = QStringLiteral("move");

// One line of the review log: date and time (ISO 8601, local), list, word, sound number, grade
// and source, TAB-separated.
struct LogLine
{
    QDateTime when;
    QString list;
    QString word;
    QString soundNumber;
    int grade = 0;
    QString source;
};
QString format_log_line(const LogLine& line);

// users/<name>/<language>/reviews.txt of the session's student and language.
QString review_log_path(const Session& session);

// Appends the review of entry index of the word arrays, dated by the session's clock, to the
// review log (made when missing). A failure is said in a message box naming the file; the
// activity that graded the word goes on. Nothing is written for an index that names no entry.
void log_grade(Session& session, int index, int grade, const QString& source);

// The log line of a move of entry index to targetFile: easy for the known file, again for the
// unknown file. It is appended before the move changes a file and cut off again when the object
// goes without keep(), so a move and its line are in the files together or not at all. When the
// line cannot be written the move must not go on: error says the word was not moved, and why.
class MoveRecord
{
public:
    MoveRecord(Session& session, int index, const QString& targetFile, QString* error = nullptr);
    ~MoveRecord();
    MoveRecord(const MoveRecord&) = delete;
    MoveRecord& operator=(const MoveRecord&) = delete;

    bool written() const { return m_written; }
    // The move completed: the line stays.
    void keep() { m_kept = true; }

private:
    QString m_path;
    qint64 m_previousLength = -1;
    bool m_appended = false;
    bool m_written = true;
    bool m_kept = false;
};

// The review log replayed: each word's memory state, keyed by sound number and word, plus what the
// progress window draws. The log is only ever appended to, so update() reads only the bytes added
// since the last call (all of them when the path changed or the file shrank). Lines are replayed
// in file order; a damaged line is skipped and counted.
class ReviewBook
{
public:
    void update(const QString& path);
    // Replays one more line.
    void add(QStringView line);

    // Valid until the next update() or add().
    const MemoryState* find(const QString& soundNumber, const QString& word) const;
    int damaged() const { return m_damaged; }
    int lines() const { return m_lines; }
    // Moves to the known file per week, by the Julian day of the week's Monday.
    const QMap<int, int>& knownPerWeek() const { return m_knownPerWeek; }
    // The words answered "again" most often (at most count, most missed first, then by word).
    QList<QPair<QString, int>> mostMissed(int count) const;

private:
    struct Word
    {
        QString word;
        MemoryState state;
        int next = -1; // the next word of the same sound number
    };
    // The first word of a sound number (-1: none); with make, the slot to set it in.
    int firstOf(QStringView soundNumber) const;
    int& firstSlot(QStringView soundNumber);

    QString m_path;
    qint64 m_consumed = 0;
    int m_damaged = 0;
    int m_lines = 0;
    // Words by sound number: five-digit numbers in a table by their value, so that a look-up on a
    // list of 30,000 words makes no text and stays within the few milliseconds a move may take;
    // other sound numbers by their text.
    std::vector<Word> m_words;
    std::vector<int> m_firstByNumber;
    QHash<QString, int> m_firstByText;
    QMap<int, int> m_knownPerWeek;
};

// The session's review book, brought up to date with its review log.
ReviewBook& review_book(Session& session);

// The Julian day a review made at moment belongs to.
int day_of(const QDateTime& moment);
// The day a reviewed word falls due at the desired retention.
int due_day(const MemoryState& state, double desiredRetention);

// The indexes of entries (from 0, the empty last slot left out) a review run plays on day today:
// the reviewed words due by today, most overdue first (then in list order), followed by words never
// reviewed, in list order, as many as perDay allows after the words first reviewed today.
QList<int> review_queue(const ReviewBook& book, const WordArrays& entries, int today, double desiredRetention,
                        int perDay);
// The number of reviewed words of entries due by today.
int due_count(const ReviewBook& book, const WordArrays& entries, int today, double desiredRetention);

// The entries of the chosen list's unknown file: the word arrays when they show it and were just
// read from it (arraysFresh; a test may have filled them from another file since), else the file.
WordArrays unknown_entries(const Session& session, bool arraysFresh);

} // namespace review
} // namespace quorvane
