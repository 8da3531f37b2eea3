#include "store/new_language.h"

#include "core/prompts.h"
#include "core/session.h"
#include "store/paths.h"
#include "store/speech_voices.h"
#include "store/text_files.h"
#include "store/texts.h"
#include "store/word_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include <signal.h>
#include <unistd.h>

namespace quorvane {

namespace {

// A line that is exactly this closes a word file; it is no entry and is not carried over.
const QString kClosingLine = QStringLiteral("||");
// A sound number is the last five characters of its line.
constexpr int kSoundNumberLength = 5;

// A name that would reach into another folder is refused before the file system sees it.
bool holdsSeparator(const QString& name)
{
    return name.contains(u'/') || name.contains(QDir::separator());
}

// The suffix of the folder a new language is built in, beside the languages folder (so never listed
// as a language): new_language.<process id>.tmp.
const QString kStagingPrefix = QStringLiteral("new_language.");
const QString kStagingSuffix = QStringLiteral(".tmp");
// Written last into the staging folder: what it holds is whole and goes into place.
const QString kCompleteMarker = QStringLiteral("complete");

QString stagingParent(const QString& languages)
{
    return QDir::cleanPath(languages + QStringLiteral("..")) + QDir::separator();
}

// Whether the process whose id a staging folder's name holds still runs (and may be building it).
bool builderRuns(const QString& name)
{
    bool ok = false;
    const qint64 pid =
        name.mid(kStagingPrefix.size(), name.size() - kStagingPrefix.size() - kStagingSuffix.size()).toLongLong(&ok);
    return ok && pid > 0 && pid != ::getpid() && (::kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM);
}

// Moves every folder of a complete staging folder into the languages folder (those already there
// are left); moved lists those it moved.
bool moveIntoPlace(const QString& staging, const QString& languages, QStringList* moved, QString* failedPath,
                   QString* error)
{
    const QDir dir(staging);
    // The target first, the new language last: once the new language is listed, it is whole.
    QStringList folders = dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden);
    const QString last = readFirstLine(dir.filePath(kCompleteMarker));
    folders.removeAll(last);
    folders.append(last);
    for (const QString& folder : folders) {
        if (folder.isEmpty() || !QFileInfo(dir.filePath(folder)).isDir() || QFileInfo::exists(languages + folder))
            continue;
        if (!renameIntoPlace(dir.filePath(folder), languages + folder, error)) {
            *failedPath = languages + folder;
            return false;
        }
        moved->append(languages + folder);
    }
    return true;
}

// A new language built in a folder of its own and moved into the languages folder whole: the folders
// made so far are removed again, with everything written in them, unless they were moved.
class StagedLanguage
{
public:
    explicit StagedLanguage(const QString& languages)
        : m_languages(languages), m_staging(stagingParent(languages) + kStagingPrefix + QString::number(::getpid()) +
                                            kStagingSuffix + QDir::separator())
    {
    }
    StagedLanguage(const StagedLanguage&) = delete;
    StagedLanguage& operator=(const StagedLanguage&) = delete;
    ~StagedLanguage() { QDir(m_staging).removeRecursively(); }

    // Where a language folder is built, under its own name.
    QString folder(const QString& name) const { return m_staging + name + QDir::separator(); }

    // Makes the folder of a language named name, which does not exist yet; false, with error set,
    // when the file system refuses it.
    bool make(const QString& name, QString* error)
    {
        if (holdsSeparator(name)) {
            *error = store_texts::kNameHoldsSeparator;
            return false;
        }
        std::error_code code;
        std::filesystem::create_directories(std::filesystem::path(QFile::encodeName(m_staging).toStdString()), code);
        if (!code)
            std::filesystem::create_directory(std::filesystem::path(QFile::encodeName(folder(name)).toStdString()),
                                              code);
        if (code) {
            *error = QString::fromLocal8Bit(code.message());
            return false;
        }
        return true;
    }

    // Marks the build complete and moves it into place, language last; false, with error naming
    // what was not made, when that fails (a target folder moved already is removed again).
    bool place(const QString& language, QString* error)
    {
        QString cause;
        QString failed = m_staging + kCompleteMarker;
        QStringList moved;
        if (!writeTextLines(failed, {language}, &cause) ||
            !moveIntoPlace(m_staging, m_languages, &moved, &failed, &cause)) {
            for (const QString& folder : moved)
                QDir(folder).removeRecursively();
            *error = store_texts::notMade(failed, cause);
            return false;
        }
        return true;
    }

private:
    QString m_languages;
    QString m_staging;
};

// Writes lines to a new file of a new language built in staged, to be moved to folder; false, with
// error naming the file where it was to be, on failure.
bool writeNew(const QString& staged, const QString& folder, const QString& name, const QStringList& lines,
              QString* error)
{
    QString cause;
    if (writeTextLines(staged + name, lines, &cause))
        return true;
    *error = store_texts::notMade(folder + name, cause);
    return false;
}

// Turns every word file of the target's folder into a list of the new language, each line kept up
// to its first "|" followed by "|" and its sound number, and writes the identity pairing of every
// sound number met. False, with error set, when something could not be read or made.
bool copyTargetLists(const QString& languages, const QString& staged, const QString& name, const QString& target,
                     QString* error)
{
    const QString targetFolder = paths::languageFolder(languages, target);
    const QString newFolder = paths::languageFolder(languages, name);
    QStringList pairs;
    for (const QString& entry : scan_folder(targetFolder)) {
        if (!entry.endsWith(paths::kListSuffix, Qt::CaseSensitive) || !QFileInfo(targetFolder + entry).isFile())
            continue;
        // Only the target's master gets the new language's name.
        const QString copy = QString(entry).replace(paths::masterName(target), paths::masterName(name));
        QFile source(targetFolder + entry);
        if (!source.open(QIODevice::ReadOnly)) {
            *error = store_texts::notMade(newFolder + copy, source.errorString());
            return false;
        }
        QStringList lines;
        for (const QString& line : splitLines(decodeWindows1252(source.readAll()))) {
            if (line == kClosingLine)
                continue;
            const QString soundNumber = line.right(kSoundNumberLength);
            lines.append(line.left(line.indexOf(u'|') + 1) + u'|' + soundNumber);
            pairs.append(soundNumber + u'|' + soundNumber);
        }
        if (!writeNew(staged, newFolder, copy, lines, error))
            return false;
    }
    return writeNew(staged, newFolder, QFileInfo(paths::transIndexFile(languages, name, target)).fileName(), pairs,
                    error);
}

} // namespace

bool new_language(Session& session, QString* error)
{
    Prompts& prompts = session.prompts;
    const QString& languages = session.languages_folder;
    const QString name = prompts.input(store_texts::kNewLanguagePrompt, store_texts::kNewLanguageTitle).toLower();
    if (name.isEmpty())
        return false;
    const QString folder = languages + name;
    if (QFileInfo::exists(folder)) {
        *error = store_texts::kLanguageExists;
        return false;
    }
    StagedLanguage staged(languages);
    QString cause;
    if (!staged.make(name, &cause)) {
        *error = store_texts::notMade(folder, cause);
        return false;
    }

    const QString target = prompts.input(store_texts::kTargetPrompt, store_texts::kTargetTitle).toLower();
    if (target.isEmpty()) {
        // Kept so: the new folder stays, without a trans file.
        staged.place(name, error);
        return false;
    }
    const QString targetFolder = languages + target;
    if (holdsSeparator(target)) {
        *error = store_texts::notMade(targetFolder, store_texts::kNameHoldsSeparator);
        return false;
    }
    const QString newFolder = paths::languageFolder(languages, name);
    if (!QFileInfo::exists(targetFolder)) {
        prompts.message(store_texts::kTargetNotFound);
        if (!staged.make(target, &cause)) {
            *error = store_texts::notMade(targetFolder, cause);
            return false;
        }
        // The pairing is recorded from the target's side too.
        const QString transFile = paths::transFile(languages, target);
        if (!writeNew(staged.folder(target), paths::languageFolder(languages, target), QFileInfo(transFile).fileName(),
                      {name}, error))
            return false;
    } else {
        prompts.message(store_texts::kTargetFound);
        if (!copyTargetLists(languages, staged.folder(name), name, target, error))
            return false;
    }
    if (!writeNew(staged.folder(name), newFolder, QFileInfo(paths::transFile(languages, name)).fileName(), {target},
                  error))
        return false;
    // A name the voice table knows gets its voice file, so its words are spoken before any recording.
    if (const QString voice = table_voice(name);
        !voice.isEmpty() &&
        !writeNew(staged.folder(name), newFolder, QFileInfo(voice_file(languages, name)).fileName(), {voice}, error))
        return false;
    return staged.place(name, error);
}

void sweep_new_languages(const QString& languagesFolder)
{
    const QString parent = stagingParent(languagesFolder);
    for (const QString& name : QDir(parent).entryList({kStagingPrefix + u'*' + kStagingSuffix},
                                                      QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden)) {
        if (builderRuns(name))
            continue;
        const QString staging = parent + name;
        QStringList moved;
        QString failed;
        QString error;
        if (QFileInfo::exists(QDir(staging).filePath(kCompleteMarker)))
            moveIntoPlace(staging, languagesFolder, &moved, &failed, &error);
        QDir(staging).removeRecursively();
    }
}

bool add_list(Session& session, QString* error)
{
    Prompts& prompts = session.prompts;
    const QString& language = session.current_language;
    if (language.isEmpty()) {
        *error = store_texts::kSelectLanguageFirst;
        return false;
    }
    QString name = prompts.input(store_texts::newListPrompt(language), store_texts::kNewListTitle);
    if (name.isEmpty())
        return false;
    name.replace(u' ', u'_');
    const QString path = paths::listFile(session.languages_folder, language, name);
    if (QFileInfo::exists(path)) {
        *error = store_texts::kListExists;
        return false;
    }
    if (holdsSeparator(name)) {
        *error = store_texts::notMade(path, store_texts::kNameHoldsSeparator);
        return false;
    }
    // Written whole or not at all.
    QString cause;
    if (!writeTextLines(path, {store_texts::newListHeader(language)}, &cause)) {
        *error = store_texts::notMade(path, cause);
        return false;
    }
    prompts.message(name);
    return true;
}

} // namespace quorvane
