#include "store/word_files.h"

#include "core/basic.h"
#include "core/session.h"
#include "core/table_limit.h"
#include "store/paths.h"
#include "store/text_files.h"
#include "store/texts.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <algorithm>
#include <utility>
#include <vector>

namespace quorvane {

namespace {

const QString kEndLine = QStringLiteral("||");

} // namespace

bool splitEntry(const QString& line, WordEntry* entry)
{
    if (line == kEndLine)
        return false;
    const qsizetype first = line.indexOf(u'|');
    if (first < 0)
        return false;
    const qsizetype second = line.indexOf(u'|', first + 1);
    if (second < 0 || line.indexOf(u'|', second + 1) >= 0)
        return false;
    entry->word = line.left(first);
    entry->translation = line.mid(first + 1, second - first - 1);
    entry->sound_number = line.mid(second + 1);
    return true;
}

QString joinEntry(const QString& word, const QString& translation, const QString& soundNumber)
{
    return word + u'|' + translation + u'|' + soundNumber;
}

namespace {

// Whether text is what the Windows-1252 bytes from..to decode to, without decoding them: the
// bytes below 0x80 and from 0xA0 up are their own characters.
bool decodesTo(const QString& text, const char* from, const char* to)
{
    if (text.size() != to - from)
        return false;
    const QChar* character = text.constData();
    for (const char* byte = from; byte < to; ++byte, ++character) {
        const auto value = static_cast<unsigned char>(*byte);
        if (value >= 0x80 && value < 0xA0)
            return text == decodeWindows1252(QByteArray::fromRawData(from, to - from));
        if (character->unicode() != value)
            return false;
    }
    return true;
}

// The fields of one entry as byte ranges of the file.
struct EntryBytes
{
    const char* word;
    const char* wordEnd;
    const char* translation;
    const char* translationEnd;
    const char* soundNumber;
    const char* soundNumberEnd;
};

// The word arrays being replaced. A file read again after a move differs from them by a line,
// so an entry equal to the one at the same place, or one place further on, shares its strings
// instead of allocating three new ones.
class PreviousEntries
{
public:
    explicit PreviousEntries(const WordArrays& previous)
        : m_words(previous.words), m_translations(previous.translations), m_soundNumbers(previous.sound_numbers)
    {
    }

    // The index of an earlier entry equal to entry number n of the file, or -1.
    qsizetype find(qsizetype n, const EntryBytes& entry)
    {
        for (const qsizetype candidate : {n + m_skipped, n + m_skipped + 1}) {
            if (matches(candidate, entry)) {
                m_skipped = candidate - n;
                return candidate;
            }
        }
        return -1;
    }

    const QStringList& m_words;
    const QStringList& m_translations;
    const QStringList& m_soundNumbers;

private:
    bool matches(qsizetype index, const EntryBytes& entry) const
    {
        return index < m_words.size() && decodesTo(m_soundNumbers.at(index), entry.soundNumber, entry.soundNumberEnd) &&
               decodesTo(m_words.at(index), entry.word, entry.wordEnd) &&
               decodesTo(m_translations.at(index), entry.translation, entry.translationEnd);
    }

    qsizetype m_skipped = 0;
};

QString decodeField(const char* from, const char* to)
{
    return from == to ? QString() : decodeWindows1252(QByteArray::fromRawData(from, to - from));
}

// The entries of the bytes of a word file; path names the file in the message of a table limit.
WordArrays parseWordArrays(const QByteArray& bytes, const QString& path, const WordArrays& previousArrays)
{
    QStringList words;
    QStringList translations;
    QStringList soundNumbers;
    {
        // One pass over the bytes: the bars and line ends are single bytes in the code page, and
        // each field is decoded straight from the bytes.
        const char* const end = bytes.constData() + bytes.size();
        // Growing the arrays as they fill would copy them again and again.
        const qsizetype lines =
            std::min<qsizetype>(std::count(bytes.begin(), bytes.end(), '\n') + 1, kMaxWordEntries + 1);
        words.reserve(lines);
        translations.reserve(lines);
        soundNumbers.reserve(lines);
        PreviousEntries previous(previousArrays);
        const char* line = bytes.constData();
        while (line < end) {
            const char* bars[2] = {nullptr, nullptr};
            int barCount = 0;
            const char* stop = line;
            for (; stop < end && *stop != '\r' && *stop != '\n'; ++stop) {
                if (*stop == '|') {
                    if (barCount < 2)
                        bars[barCount] = stop;
                    ++barCount;
                }
            }
            // A line that is exactly "||" ends a file a move rewrote: it is no entry.
            if (barCount == 2 && stop - line > 2) {
                if (words.size() >= kMaxWordEntries)
                    throw TableLimitError(store_texts::tooManyEntries(path, kMaxWordEntries));
                const EntryBytes entry{line, bars[0], bars[0] + 1, bars[1], bars[1] + 1, stop};
                if (const qsizetype same = previous.find(words.size(), entry); same >= 0) {
                    words.append(previous.m_words.at(same));
                    translations.append(previous.m_translations.at(same));
                    soundNumbers.append(previous.m_soundNumbers.at(same));
                } else {
                    words.append(decodeField(entry.word, entry.wordEnd));
                    translations.append(decodeField(entry.translation, entry.translationEnd));
                    soundNumbers.append(decodeField(entry.soundNumber, entry.soundNumberEnd));
                }
            }
            // A line ends with CR LF, LF or CR.
            if (stop + 1 < end && stop[0] == '\r' && stop[1] == '\n')
                ++stop;
            line = stop < end ? stop + 1 : end;
        }
    }
    words.append(QString());
    translations.append(QString());
    soundNumbers.append(QString());
    return {std::move(words), std::move(translations), std::move(soundNumbers)};
}

} // namespace

ListFiles list_files_of(const Session& session, const QString& list)
{
    const QString& language = session.current_language;
    return {paths::listFile(session.languages_folder, language, list),
            paths::knownFile(session.user_folder, language, list),
            paths::unknownFile(session.user_folder, language, list)};
}

bool make_unknowns_file(const ListFiles& files, QString* error)
{
    if (QFile::exists(files.unknown_file))
        return true;
    QString cause;
    const auto notRead = [&](const QString& path) {
        if (error)
            *error = store_texts::fileNotRead(path, cause);
        return false;
    };
    std::optional<QByteArray> unknown;
    if (!QFile::exists(files.known_file)) {
        unknown = readFileBytes(files.list_file, &cause);
        if (!unknown)
            return notRead(files.list_file);
    } else {
        const auto known = readTextLines(files.known_file, &cause);
        if (!known)
            return notRead(files.known_file);
        if (known->size() > kMaxKnownLines)
            throw TableLimitError(store_texts::tooManyLines(files.known_file, kMaxKnownLines));
        const auto listed = readTextLines(files.list_file, &cause);
        if (!listed)
            return notRead(files.list_file);
        // The known table always holds one empty slot after its lines, so an empty list line is
        // left out as soon as a known file exists.
        QSet<QString> knownLines(known->begin(), known->end());
        knownLines.insert(QString());
        QStringList lines;
        for (const QString& line : *listed) {
            if (!knownLines.contains(line))
                lines.append(line);
        }
        unknown = encodeLines(lines);
    }
    // A list too long to be shown is refused before the student's copy of it is made, so the list
    // opens once it is mended.
    parseWordArrays(*unknown, files.list_file, {});
    if (writeBytes(files.unknown_file, *unknown, &cause))
        return true;
    if (error)
        *error = store_texts::unknownFileNotMade(files.unknown_file, cause);
    return false;
}

bool generate_unknowns_file(Session& session, QString* error)
{
    const ListFiles files = list_files_of(session, session.current_list);
    session.list_file = files.list_file;
    session.known_file = files.known_file;
    session.unknown_file = files.unknown_file;
    return make_unknowns_file(files, error);
}

std::optional<WordArrays> read_word_file(const QString& path, QString* error, const WordArrays& previous)
{
    const auto bytes = readFileBytes(path, error);
    if (!bytes)
        return std::nullopt;
    return parseWordArrays(*bytes, path, previous);
}

bool create_array_of_words(Session& session, const QString& path, QString* error)
{
    QString cause;
    std::optional<WordArrays> arrays =
        read_word_file(path, &cause, WordArrays{session.words, session.translations, session.sound_numbers});
    if (!arrays && error)
        *error = store_texts::fileNotRead(path, cause);
    WordArrays read = arrays ? std::move(*arrays) : WordArrays();
    session.words = std::move(read.words);
    session.translations = std::move(read.translations);
    session.sound_numbers = std::move(read.sound_numbers);
    session.words_file = path;
    return arrays.has_value();
}

namespace {

// The slot a pairing line names: its first field, blanks around it allowed, digits only and no
// higher than kMaxSoundNumber; -1 for anything else (a NUL or a letter after the digits included).
int pairingSlot(const char* from, const char* to)
{
    while (from < to && (*from == ' ' || *from == '\t'))
        ++from;
    while (to > from && (to[-1] == ' ' || to[-1] == '\t'))
        --to;
    if (from == to || to - from > 9)
        return -1;
    int slot = 0;
    for (; from < to; ++from) {
        if (*from < '0' || *from > '9')
            return -1;
        slot = slot * 10 + (*from - '0');
    }
    return slot <= kMaxSoundNumber ? slot : -1;
}

} // namespace

bool load_trans_index(const QString& path, QStringList& table, QString* error)
{
    // The file is read a line at a time into a copy of the table (its slots, not their texts), so a
    // pairing file of any length takes no more memory than the table, and the table is untouched
    // when a line is refused.
    QStringList paired = table;
    int lineNumber = 0;
    const auto take = [&](const QByteArray& line) {
        ++lineNumber;
        const char* const begin = line.constData();
        const char* const end = begin + line.size();
        const char* const bar = std::find(begin, end, '|');
        const int slot = pairingSlot(begin, bar);
        if (bar == end || slot < 0 || slot >= paired.size())
            throw TableLimitError(store_texts::badPairingLine(path, lineNumber, kMaxSoundNumber));
        const char* const second = std::find(bar + 1, end, '|');
        paired[slot] = decodeWindows1252(QByteArray::fromRawData(bar + 1, second - bar - 1));
    };
    QString cause;
    if (!forEachLine(path, take, &cause)) {
        if (error)
            *error = store_texts::fileNotRead(path, cause);
        return false;
    }
    table = std::move(paired);
    return true;
}

std::optional<QString> translation_sound_number(const Session& session, const QString& soundNumber)
{
    const auto slot = basic::toLong(soundNumber);
    if (!slot || *slot < 0 || *slot >= kSoundNumberSlots)
        return std::nullopt;
    return session.target_sound_numbers.value(*slot);
}

QStringList scan_folder(const QString& folder)
{
    const QStringList found =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Unsorted);
    // A Windows file system compares names upper-cased, code by code: "_" comes after the letters.
    // Each name is upper-cased once, not at every comparison.
    std::vector<std::pair<QString, QString>> keyed;
    keyed.reserve(found.size());
    for (const QString& name : found)
        keyed.emplace_back(name.toUpper(), name);
    std::sort(keyed.begin(), keyed.end());
    QStringList names;
    names.reserve(found.size());
    for (auto& [key, name] : keyed)
        names.append(std::move(name));
    return names;
}

QStringList scan_and_sweep(const QString& folder, const QString& suffix)
{
    QStringList names;
    const QString prefix = folder.endsWith(QDir::separator()) ? folder : folder + QDir::separator();
    for (const QString& entry : scan_folder(folder)) {
        if (!entry.endsWith(suffix, Qt::CaseSensitive))
            continue;
        const QString path = prefix + entry;
        if (fileLength(path) < 2) {
            QFile::remove(path);
            continue;
        }
        names.append(entry.left(entry.size() - suffix.size()));
    }
    return names;
}

} // namespace quorvane
