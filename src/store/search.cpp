#include "store/search.h"

#include "core/accents.h"
#include "core/session.h"
#include "core/table_limit.h"
#include "store/file_lock.h"
#include "store/paths.h"
#include "store/text_files.h"
#include "store/texts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QStringMatcher>

#include <future>

namespace quorvane {

namespace {

// The letters whose presence makes a text count as accented (ö õ ñ í ì é è ã á à). Kept as it is:
// ò and ó are not among them although fold_accents folds them.
constexpr QStringView kAccentTestLetters = u"\u00F6\u00F5\u00F1\u00ED\u00EC\u00E9\u00E8\u00E3\u00E1\u00E0";

bool passesAccentTest(const QString& text)
{
    for (const QChar character : text) {
        if (kAccentTestLetters.contains(character))
            return true;
    }
    return false;
}

// Whether a translation begins with the term, or holds it after "to ", ", " or ",": one look for
// the term, then at what stands before each place it was found.
bool translationMatches(const QString& candidate, const QStringMatcher& term)
{
    const QStringView text(candidate);
    for (qsizetype at = term.indexIn(text); at >= 0; at = term.indexIn(text, at + 1)) {
        const QStringView before = text.left(at);
        if (at == 0 || before.endsWith(u',') || before.endsWith(u", ") || before.endsWith(u"to "))
            return true;
    }
    return false;
}

// A line that is exactly this closes a word file; it is no entry.
const QString kClosingLine = QStringLiteral("||");

} // namespace

struct MasterCache::Line
{
    QString fields[3];     // the first three fields; those the line lacks are empty
    int fieldCount = 0;    // how many fields the line splits into
    QString accentFree[2]; // word and translation folded; null where the field passes no accent test
};

namespace {

// The master's bytes split into lines and fields, and folded: the costly part of a first search.
std::unique_ptr<QList<MasterCache::Line>> prepareLines(const QByteArray& bytes)
{
    auto lines = std::make_unique<QList<MasterCache::Line>>();
    const QStringList texts = splitLines(decodeWindows1252(bytes));
    lines->reserve(texts.size());
    for (const QString& text : texts) {
        MasterCache::Line line;
        const QStringList fields = text.split(u'|');
        line.fieldCount = static_cast<int>(fields.size());
        for (int i = 0; i < 3 && i < line.fieldCount; ++i)
            line.fields[i] = fields.at(i);
        for (int i = 0; i < 2; ++i) {
            if (passesAccentTest(line.fields[i]))
                line.accentFree[i] = fold_accents(line.fields[i]);
        }
        lines->append(std::move(line));
    }
    return lines;
}

std::optional<QByteArray> readAllOf(const QString& path, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = file.errorString();
        return std::nullopt;
    }
    return file.readAll();
}

} // namespace

struct MasterCache::Prepared
{
    QString path;
    QByteArray bytes;
    std::unique_ptr<QList<Line>> lines;
};

MasterCache::MasterCache() = default;

// A preparation still running is waited for by its future.
MasterCache::~MasterCache() = default;

void MasterCache::prepareAhead(const QString& path)
{
    takePrepared();
    m_prepared = std::make_unique<Prepared>();
    m_pending = std::async(std::launch::async, [prepared = m_prepared.get(), path] {
        if (auto bytes = readAllOf(path, nullptr)) {
            prepared->lines = prepareLines(*bytes);
            prepared->bytes = std::move(*bytes);
            prepared->path = path;
        }
    });
}

void MasterCache::takePrepared()
{
    if (!m_pending.valid())
        return;
    m_pending.get();
    const std::unique_ptr<Prepared> prepared = std::move(m_prepared);
    if (!prepared->lines)
        return;
    m_path = std::move(prepared->path);
    m_bytes = std::move(prepared->bytes);
    m_lines = std::move(prepared->lines);
}

const QList<MasterCache::Line>* MasterCache::lines(const QString& path, QString* error)
{
    takePrepared();
    std::optional<QByteArray> bytes = readAllOf(path, error);
    if (!bytes)
        return nullptr;
    if (m_lines && path == m_path && *bytes == m_bytes)
        return m_lines.get();
    m_lines = prepareLines(*bytes);
    m_path = path;
    m_bytes = std::move(*bytes);
    return m_lines.get();
}

std::optional<WordArrays> search_master(const QString& path, int field, const QString& text, MasterCache& cache,
                                        QString* error)
{
    if (text.size() < 2 || (field != 0 && field != 1))
        return std::nullopt;
    const QString term = text.toLower();
    const bool termAccented = passesAccentTest(term);
    const QList<MasterCache::Line>* lines = cache.lines(path, error);
    if (!lines)
        return std::nullopt;

    const QStringMatcher matcher(term);
    WordArrays found{{}, {}, {}};
    int lineNumber = 0;
    for (const MasterCache::Line& line : *lines) {
        ++lineNumber;
        if (line.fieldCount <= field)
            throw TableLimitError(store_texts::fieldMissing(path, lineNumber, field));
        // Capitals of the master are never lower-cased, so they never match.
        const QString& candidate =
            !termAccented && !line.accentFree[field].isNull() ? line.accentFree[field] : line.fields[field];
        const bool matches = field == 0 ? candidate.startsWith(term) : translationMatches(candidate, matcher);
        if (!matches)
            continue;
        if (found.words.size() >= kMaxSearchResults)
            throw TableLimitError(store_texts::tooManyResults(path, kMaxSearchResults));
        found.words.append(line.fields[0]);
        found.translations.append(line.fields[1]);
        found.sound_numbers.append(line.fields[2]);
    }
    found.words.append(QString());
    found.translations.append(QString());
    found.sound_numbers.append(QString());
    return found;
}

bool search_master_list(Session& session, int field, const QString& text, MasterCache& cache, QString* error)
{
    if (text.size() < 2 || (field != 0 && field != 1))
        return false;
    if (!QFileInfo::exists(session.master_file)) {
        *error = store_texts::masterNotFound(session.languages_folder, QDir::separator(), session.current_language);
        return false;
    }
    QString cause;
    std::optional<WordArrays> found = search_master(session.master_file, field, text, cache, &cause);
    if (!found) {
        *error = store_texts::notReadable(session.master_file, cause);
        return false;
    }
    session.words = std::move(found->words);
    session.translations = std::move(found->translations);
    session.sound_numbers = std::move(found->sound_numbers);
    session.words_file.clear();
    return true;
}

QString pairing_key(const QString& translation)
{
    const qsizetype comma = translation.indexOf(u',');
    QString key = comma < 0 ? translation : translation.left(comma);
    return key.remove(QStringLiteral("to "));
}

QStringList pair_masters(const QStringList& master, const QStringList& target)
{
    // The sound number of the first target entry of each word.
    QHash<QString, QString> firstOfWord;
    firstOfWord.reserve(target.size());
    WordEntry entry;
    for (const QString& line : target) {
        if (line != kClosingLine && splitEntry(line, &entry) && !firstOfWord.contains(entry.word))
            firstOfWord.insert(entry.word, entry.sound_number);
    }
    QStringList pairs;
    for (const QString& line : master) {
        if (line == kClosingLine || !splitEntry(line, &entry))
            continue;
        const auto partner = firstOfWord.constFind(pairing_key(entry.translation));
        if (partner != firstOfWord.constEnd())
            pairs.append(entry.sound_number + u'|' + *partner);
    }
    return pairs;
}

std::optional<int> create_trans_index(Session& session, QString* error)
{
    const auto fail = [error](const QString& text) -> std::optional<int> {
        *error = text;
        return std::nullopt;
    };
    if (!QFileInfo::exists(session.master_file) || session.target_master_file.isEmpty() ||
        !QFileInfo::exists(session.target_master_file))
        return fail(store_texts::kPairingMasterNotFound);
    // Held from the reads of the masters to the rename of the pairing file: another copy of the
    // program changing a master meanwhile waits.
    FileLock lock(paths::languageLockFile(session.languages_folder, session.current_language));
    QString cause;
    if (!lock.acquire(&cause))
        return fail(cause);
    const auto target = readTextLines(session.target_master_file, &cause);
    if (!target)
        return fail(store_texts::fileNotRead(session.target_master_file, cause));
    if (target->size() > kMaxTargetLines)
        throw TableLimitError(store_texts::tooManyTargetLines(session.target_master_file, kMaxTargetLines));
    const auto master = readTextLines(session.master_file, &cause);
    if (!master)
        return fail(store_texts::fileNotRead(session.master_file, cause));
    const QStringList pairs = pair_masters(*master, *target);
    if (!writeTextLines(session.trans_index_file, pairs, &cause))
        return fail(store_texts::pairingNotWritten(session.trans_index_file, cause));
    return static_cast<int>(pairs.size());
}

std::optional<int> pair_recordings(Session& session, QString* error)
{
    if (session.current_language.isEmpty()) {
        *error = store_texts::kSelectLanguageFirst;
        return std::nullopt;
    }
    if (!QFileInfo::exists(session.trans_file)) {
        *error = store_texts::pairingNoTarget(session.current_language, session.trans_file);
        return std::nullopt;
    }
    const auto pairs = create_trans_index(session, error);
    if (pairs && !load_trans_index(session.trans_index_file, session.target_sound_numbers, error))
        return std::nullopt;
    return pairs;
}

} // namespace quorvane
