#include "record/editing.h"

#include "core/basic.h"
#include "core/flags.h"
#include "core/session.h"
#include "record/editing_texts.h"
#include "store/paths.h"
#include "store/text_files.h"

#include <QFile>
#include <QFileInfo>

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

// Appends lines to the change log. A kill in the middle of an earlier append can leave the start
// of a line without its end; that fragment is no change the maintainer can replay, so it is cut
// off first and the log only ever holds whole lines.
bool appendChanges(const QString& path, const QStringList& lines, QString* error)
{
    QFile file(path);
    if (file.size() > 0 && file.open(QIODevice::ReadOnly)) {
        const QByteArray bytes = file.readAll();
        file.close();
        if (!bytes.endsWith('\n'))
            file.resize(bytes.lastIndexOf('\n') + 1);
    }
    return appendTextLines(path, lines, error);
}

} // namespace

std::optional<QString> get_high(const Session& session, QString* error)
{
    const QString path = paths::highestNumberFile(session.languages_folder, session.current_language);
    if (!QFileInfo::exists(path) && !writeTextLines(path, {editing_texts::firstNewNumber()}, error))
        return std::nullopt;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = file.errorString();
        return std::nullopt;
    }
    const QString highestNumber = splitLines(decodeWindows1252(file.readAll())).value(0);
    file.close();
    if (!writeTextLines(path, {printedNumber(basic::leadingNumber(highestNumber) + 1)}, error))
        return std::nullopt;
    return highestNumber.trimmed();
}

bool add_word2(const QString& path, const QString& leftWord, const QString& rightWord, const QString& highestNumber,
               QString* error)
{
    return appendTextLines(path, {leftWord + u'|' + rightWord + u'|' + highestNumber}, error);
}

std::optional<QString> add_word(const Session& session, const EditedEntry& entry, QString* error)
{
    const auto number = get_high(session, error);
    if (!number)
        return std::nullopt;
    QStringList targets;
    if (session.list_file != session.master_file)
        targets.append(session.list_file);
    targets << session.master_file << session.unknown_file;
    for (const QString& path : targets) {
        if (!add_word2(path, entry.left_word, entry.right_word, *number, error))
            return std::nullopt;
    }
    return number;
}

bool replace_or_delete(const Session& session, const QString& path, const EditedEntry& entry, const QString& deleteMode,
                       QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = file.errorString();
        return false;
    }
    const QByteArray bytes = file.readAll();
    file.close();
    // Each byte is one character of the file's code page, so lines are matched and copied as
    // bytes: the same result as decoding and encoding them, without doing it for every line.
    const bool deleting = deleteMode == flags::kYes;
    const bool isMaster = path == session.master_file;
    const QByteArray number = encodeWindows1252(entry.current_sound_number);
    const QByteArray replacement = encodeLines({entryLine(entry, entry.current_sound_number)});
    QByteArray rewritten;
    rewritten.reserve(bytes.size() + bytes.size() / 16 + replacement.size());
    QStringList logLines;
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
            logLines.append((deleting ? editing_texts::deletedMarker() : decodeWindows1252(line.toByteArray())) +
                            editing_texts::changeArrow() + entryLine(entry, entry.current_sound_number));
    }
    if (!writeBytes(path, rewritten, error))
        return false;
    const QString changesFile = paths::changesFile(session.languages_folder, session.current_language);
    return logLines.isEmpty() || appendChanges(changesFile, logLines, error);
}

std::optional<int> save_text(const Session& session, const EditedEntry& entry, int currentRow,
                             const QString& deleteMode)
{
    QStringList targets;
    if (session.list_file != session.master_file)
        targets.append(session.list_file);
    targets << session.master_file << session.unknown_file << session.known_file;
    for (const QString& path : targets) {
        if (!replace_or_delete(session, path, entry, deleteMode))
            return std::nullopt;
    }
    return currentRow + 1;
}

std::optional<int> delete_word(const Session& session, const EditedEntry& entry, int currentRow)
{
    return save_text(session, entry, currentRow, flags::kYes);
}

} // namespace quorvane
