#include "record/editing.h"

#include "core/basic.h"
#include "core/flags.h"
#include "core/session.h"
#include "record/edit_journal.h"
#include "record/texts.h"
#include "store/file_lock.h"
#include "store/paths.h"
#include "store/text_files.h"

#include <QFile>

#include <cmath>

namespace quorvane {

namespace {

// The number of characters a sound number takes at the end of an entry line.
constexpr int kSoundNumberLength = 5;

// A number as the print statement writes it: a blank in front of a number that is not negative.
QString printedNumber(double value)
{
    const QString digits = value == std::floor(value) && std::abs(value) < 1e15
                               ? QString::number(static_cast<qint64>(value))
                               : QString::number(value, 'g', 15);
    return value < 0 ? digits : QStringLiteral(" ") + digits;
}

QString entryLine(const EditedEntry& entry, const QString& number)
{
    return entry.left_word + u'|' + entry.right_word + u'|' + number;
}

// A file's whole contents, or nothing (error naming it) when it exists and cannot be read; a missing
// file reads as absent.
std::optional<std::optional<QByteArray>> readIfThere(const QString& path, QString* error)
{
    QFile file(path);
    if (!file.exists())
        return std::optional<QByteArray>();
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = record_texts::fileNotRead(path, file.errorString());
        return std::nullopt;
    }
    return std::optional<QByteArray>(file.readAll());
}

// highest_num.dat's number; "70000" when it is missing.
std::optional<QString> readHighest(const QString& path, QString* error)
{
    const auto bytes = readIfThere(path, error);
    if (!bytes)
        return std::nullopt;
    return *bytes ? splitLines(decodeWindows1252(**bytes)).value(0) : record_texts::kFirstNewNumber;
}

// The language's lock, taken around the read and the change of its files; an edit a killed copy
// left half made is finished first.
class LanguageEdit
{
public:
    explicit LanguageEdit(const Session& session)
        : m_folder(paths::languageFolder(session.languages_folder, session.current_language)),
          m_lock(paths::languageLockFile(session.languages_folder, session.current_language))
    {
    }
    bool begin(QString* error) { return m_lock.acquire(error) && recover_edits(m_folder, error); }
    bool apply(const EditPlan& plan, QString* error) { return apply_edit(m_folder, plan, error); }
    // begin, then highest_num.dat's number.
    std::optional<QString> highest(const QString& path, QString* error)
    {
        return begin(error) ? readHighest(path, error) : std::nullopt;
    }

private:
    QString m_folder;
    FileLock m_lock;
};

QByteArray nextHighest(const QString& highestNumber)
{
    return encodeLines({printedNumber(basic::leadingNumber(highestNumber) + 1)});
}

// The lines of bytes with every line ending in the entry's number replaced (or dropped when
// deleting), each ending CR LF; logLines gets the change log's line for each when the file is the
// master file. Each byte is one character of the file's code page, so lines are matched and copied
// as bytes: the same result as decoding and encoding them, without doing it for every line.
QByteArray replaced(const QByteArray& bytes, const EditedEntry& entry, bool deleting, bool isMaster,
                    QStringList* logLines)
{
    const QByteArray number = encodeWindows1252(entry.current_sound_number);
    const QByteArray replacement = encodeLines({entryLine(entry, entry.current_sound_number)});
    QByteArray rewritten;
    rewritten.reserve(bytes.size() + bytes.size() / 16 + replacement.size());
    const char* data = bytes.constData();
    const qsizetype size = bytes.size();
    for (qsizetype start = 0; start < size;) {
        qsizetype end = start;
        while (end < size && data[end] != '\r' && data[end] != '\n')
            ++end;
        const QByteArrayView line(data + start, end - start);
        start = end < size && data[end] == '\r' && end + 1 < size && data[end + 1] == '\n' ? end + 2 : end + 1;
        // With no entry clicked there is no number, and no line is taken for one.
        const QByteArrayView lastCharacters = line.size() < kSoundNumberLength ? line : line.last(kSoundNumberLength);
        if (number.isEmpty() || lastCharacters != number) {
            rewritten.append(line);
            rewritten.append("\r\n", 2);
            continue;
        }
        if (!deleting)
            rewritten.append(replacement);
        if (isMaster)
            logLines->append((deleting ? record_texts::kDeletedMarker : decodeWindows1252(line.toByteArray())) +
                             record_texts::kChangeArrow + entryLine(entry, entry.current_sound_number));
    }
    return rewritten;
}

// Adds the correction (or deletion) of each of paths that exists to plan: a file that is not there
// holds nothing to correct. False, with error set, when one cannot be read.
bool planCorrection(const Session& session, const QStringList& paths, const EditedEntry& entry,
                    const QString& deleteMode, EditPlan* plan, QString* error)
{
    QStringList logLines;
    for (const QString& path : paths) {
        const auto bytes = readIfThere(path, error);
        if (!bytes)
            return false;
        if (*bytes)
            plan->rewrites.append(
                {path, replaced(**bytes, entry, deleteMode == flags::kYes, path == session.master_file, &logLines)});
    }
    if (!logLines.isEmpty())
        plan->appends.append({paths::changesFile(session.languages_folder, session.current_language), logLines});
    return true;
}

} // namespace

std::optional<QString> get_high(const Session& session, QString* error)
{
    const QString path = paths::highestNumberFile(session.languages_folder, session.current_language);
    LanguageEdit edit(session);
    const auto highestNumber = edit.highest(path, error);
    if (!highestNumber)
        return std::nullopt;
    QString cause;
    if (!writeBytes(path, nextHighest(*highestNumber), &cause)) {
        if (error)
            *error = record_texts::fileNotWritten(path, cause);
        return std::nullopt;
    }
    return highestNumber->trimmed();
}

bool add_word2(const QString& path, const QString& leftWord, const QString& rightWord, const QString& highestNumber,
               QString* error)
{
    return appendTextLines(path, {leftWord + u'|' + rightWord + u'|' + highestNumber}, error);
}

std::optional<QString> add_word(const Session& session, const EditedEntry& entry, QString* error)
{
    const QString highestFile = paths::highestNumberFile(session.languages_folder, session.current_language);
    LanguageEdit edit(session);
    const auto highestNumber = edit.highest(highestFile, error);
    if (!highestNumber)
        return std::nullopt;
    const QString number = highestNumber->trimmed();
    EditPlan plan;
    plan.rewrites.append({highestFile, nextHighest(*highestNumber)});
    QStringList targets;
    if (session.list_file != session.master_file)
        targets.append(session.list_file);
    targets << session.master_file << session.unknown_file;
    for (const QString& path : targets)
        plan.appends.append({path, {entry.left_word + u'|' + entry.right_word + u'|' + number}});
    if (!edit.apply(plan, error))
        return std::nullopt;
    return number;
}

bool replace_or_delete(const Session& session, const QString& path, const EditedEntry& entry, const QString& deleteMode,
                       QString* error)
{
    LanguageEdit edit(session);
    EditPlan plan;
    return edit.begin(error) && planCorrection(session, {path}, entry, deleteMode, &plan, error) &&
           edit.apply(plan, error);
}

std::optional<int> save_text(const Session& session, const EditedEntry& entry, int currentRow,
                             const QString& deleteMode, QString* error)
{
    QStringList targets;
    if (session.list_file != session.master_file)
        targets.append(session.list_file);
    targets << session.master_file << session.unknown_file << session.known_file;
    LanguageEdit edit(session);
    EditPlan plan;
    if (!edit.begin(error) || !planCorrection(session, targets, entry, deleteMode, &plan, error) ||
        !edit.apply(plan, error))
        return std::nullopt;
    return currentRow + 1;
}

std::optional<int> delete_word(const Session& session, const EditedEntry& entry, int currentRow, QString* error)
{
    return save_text(session, entry, currentRow, flags::kYes, error);
}

} // namespace quorvane
