#include "store/word_files.h"

#include "app/session.h"
#include "store/table_limit.h"
#include "store/text_files.h"
#include "store/texts.h"

#include <QDir>
#include <QFile>
#include <QSet>

namespace quorvane {

bool splitEntry(const QString& line, WordEntry* entry)
{
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

void generate_unknowns_file(Session& session)
{
    const QString separator = QDir::separator();
    session.list_file = session.languages_folder + session.current_language + separator + session.current_list + ".txt";
    const QString userList = session.user_folder + session.current_language + separator + session.current_list;
    session.known_file = userList + "-k.txt";
    session.unknown_file = userList + "-u.txt";

    if (QFile::exists(session.unknown_file) || !QFile::exists(session.list_file))
        return;
    if (!QFile::exists(session.known_file)) {
        QFile::copy(session.list_file, session.unknown_file);
        return;
    }
    const QStringList known = readTextLines(session.known_file).value_or(QStringList());
    if (known.size() > kMaxKnownLines)
        throw TableLimitError(texts::tooManyLines(session.known_file, kMaxKnownLines));
    // The known table always holds one empty slot after its lines, so an empty list line is
    // left out as soon as a known file exists.
    QSet<QString> knownLines(known.begin(), known.end());
    knownLines.insert(QString());

    QStringList unknown;
    for (const QString& line : readTextLines(session.list_file).value_or(QStringList())) {
        if (!knownLines.contains(line))
            unknown.append(line);
    }
    writeTextLines(session.unknown_file, unknown);
}

void create_array_of_words(Session& session, const QString& path)
{
    QStringList words;
    QStringList translations;
    QStringList soundNumbers;
    if (const auto lines = readTextLines(path)) {
        WordEntry entry;
        for (const QString& line : *lines) {
            if (!splitEntry(line, &entry))
                continue;
            if (words.size() >= kMaxWordEntries)
                throw TableLimitError(texts::tooManyEntries(path, kMaxWordEntries));
            words.append(entry.word);
            translations.append(entry.translation);
            soundNumbers.append(entry.sound_number);
        }
    }
    words.append(QString());
    translations.append(QString());
    soundNumbers.append(QString());
    session.words = std::move(words);
    session.translations = std::move(translations);
    session.sound_numbers = std::move(soundNumbers);
}

void load_trans_index(const QString& path, QStringList& table)
{
    const auto lines = readTextLines(path);
    if (!lines)
        return;
    QList<std::pair<int, QString>> pairs;
    pairs.reserve(lines->size());
    int lineNumber = 0;
    for (const QString& line : *lines) {
        ++lineNumber;
        const QStringList fields = line.split(u'|');
        bool isNumber = false;
        const int slot = fields.first().trimmed().toInt(&isNumber);
        if (fields.size() < 2 || !isNumber || slot < 0 || slot > kMaxSoundNumber)
            throw TableLimitError(texts::badPairingLine(path, lineNumber, kMaxSoundNumber));
        pairs.append({slot, fields.at(1)});
    }
    for (const auto& [slot, number] : pairs)
        table[slot] = number;
}

QStringList scan_folder(const QString& folder)
{
    QDir dir(folder);
    return dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDir::Name | QDir::IgnoreCase);
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
