#include "record/edit_journal.h"

#include "record/texts.h"
#include "store/text_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace quorvane {

namespace {

// The journal is UTF-8 text, one step a line, its fields separated by TAB (no path holds one):
//   rename <TAB> staged file <TAB> target
//   append <TAB> file <TAB> its length before (-1: missing) <TAB> the appended lines in hex
//   commit
const QByteArray kRename = "rename";
const QByteArray kAppend = "append";
const QByteArray kCommit = "commit";

QString journalPath(const QString& languageFolder)
{
    return QDir(languageFolder).filePath(kEditJournalName);
}

QByteArray field(const QString& text)
{
    return text.toUtf8();
}

struct Journal
{
    QList<std::pair<QString, QString>> renames; // staged file, target
    struct Append
    {
        QString path;
        qint64 before = -1;
        QByteArray bytes;
    };
    QList<Append> appends;
    bool committed = false;

    QByteArray encoded() const
    {
        QByteArray out;
        for (const auto& [staged, target] : renames)
            out += kRename + '\t' + field(staged) + '\t' + field(target) + '\n';
        for (const Append& append : appends)
            out += kAppend + '\t' + field(append.path) + '\t' + QByteArray::number(append.before) + '\t' +
                   append.bytes.toHex() + '\n';
        if (committed)
            out += kCommit + '\n';
        return out;
    }

    static Journal decoded(const QByteArray& bytes)
    {
        Journal journal;
        for (const QByteArray& line : bytes.split('\n')) {
            const QList<QByteArray> fields = line.split('\t');
            if (fields.value(0) == kRename && fields.size() == 3)
                journal.renames.append({QString::fromUtf8(fields[1]), QString::fromUtf8(fields[2])});
            else if (fields.value(0) == kAppend && fields.size() == 4)
                journal.appends.append(
                    {QString::fromUtf8(fields[1]), fields[2].toLongLong(), QByteArray::fromHex(fields[3])});
            else if (line == kCommit)
                journal.committed = true;
        }
        return journal;
    }
};

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray tailFrom(const QString& path, qint64 offset)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(std::max<qint64>(offset, 0)))
        return {};
    return file.readAll();
}

// Appends lines unless the journal's earlier run already did: whole, they are not added twice;
// cut short by a kill, the fragment goes and they are added again.
bool replayAppend(const Journal::Append& append, QString* error)
{
    const QByteArray afterLineEnd = QByteArrayLiteral("\r\n") + append.bytes;
    const qint64 now = fileLength(append.path);
    if (now > std::max<qint64>(append.before, 0)) {
        const QByteArray tail = tailFrom(append.path, append.before);
        if (tail == append.bytes || tail == afterLineEnd)
            return true;
        if (!append.bytes.startsWith(tail) && !afterLineEnd.startsWith(tail))
            return true; // not ours: nothing of this append reached the file
        if (!restoreLength(append.path, append.before)) {
            if (error)
                *error = record_texts::fileNotWritten(append.path, QFile(append.path).errorString());
            return false;
        }
    }
    QString cause;
    const QStringList lines =
        decodeWindows1252(append.bytes).split(QStringLiteral("\r\n")).mid(0, append.bytes.count("\r\n"));
    if (appendTextLines(append.path, lines, &cause))
        return true;
    if (error)
        *error = record_texts::fileNotWritten(append.path, cause);
    return false;
}

// Makes the steps of a committed journal; each may already be done.
bool replay(const Journal& journal, QString* error)
{
    for (const auto& [staged, target] : journal.renames) {
        QString cause;
        if (QFileInfo::exists(staged) && !renameIntoPlace(staged, target, &cause)) {
            if (error)
                *error = record_texts::fileNotWritten(target, cause);
            return false;
        }
    }
    for (const Journal::Append& append : journal.appends) {
        if (!replayAppend(append, error))
            return false;
    }
    return true;
}

void rollBack(const Journal& journal, const QString& path)
{
    for (const auto& rename : journal.renames)
        QFile::remove(rename.first);
    QFile::remove(path);
}

} // namespace

bool apply_edit(const QString& languageFolder, const EditPlan& plan, QString* error)
{
    const QString path = journalPath(languageFolder);
    Journal journal;
    for (const EditPlan::Rewrite& rewrite : plan.rewrites)
        journal.renames.append({rewrite.path + kStagedSuffix, rewrite.path});
    for (const EditPlan::Append& append : plan.appends)
        journal.appends.append({append.path, fileLength(append.path), encodeLines(append.lines)});

    QString cause;
    if (!writeBytes(path, journal.encoded(), &cause)) {
        if (error)
            *error = record_texts::fileNotWritten(path, cause);
        return false;
    }
    for (qsizetype i = 0; i < plan.rewrites.size(); ++i) {
        if (!writeBytes(journal.renames[i].first, plan.rewrites[i].bytes, &cause)) {
            if (error)
                *error = record_texts::fileNotWritten(plan.rewrites[i].path, cause);
            rollBack(journal, path);
            return false;
        }
    }
    journal.committed = true;
    if (!writeBytes(path, journal.encoded(), &cause)) {
        if (error)
            *error = record_texts::fileNotWritten(path, cause);
        rollBack(journal, path);
        return false;
    }
    // Committed: from here the change is made, now or, should the disk refuse twice, at the next start.
    if (!replay(journal, nullptr) && !replay(journal, error)) {
        if (error)
            *error = record_texts::completedLater(*error);
        return false;
    }
    QFile::remove(path);
    return true;
}

bool recover_edits(const QString& languageFolder, QString* error)
{
    const QString path = journalPath(languageFolder);
    if (!QFileInfo::exists(path))
        return true;
    const Journal journal = Journal::decoded(readAll(path));
    // A staged file whose write was cut short by the kill is still under its writer's own name.
    for (const auto& rename : journal.renames)
        removeStrayRewrites(QFileInfo(rename.first).path());
    if (!journal.committed) {
        rollBack(journal, path);
        return true;
    }
    if (!replay(journal, error))
        return false;
    QFile::remove(path);
    return true;
}

} // namespace quorvane
