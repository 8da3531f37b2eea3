#include "store/new_language.h"

#include "core/prompts.h"
#include "core/session.h"
#include "sound/speech_voices.h"
#include "store/paths.h"
#include "store/search_texts.h"
#include "store/text_files.h"
#include "store/word_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

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

// The folders made so far for a new language: removed again, with everything written in them,
// unless kept.
class MadeFolders
{
public:
    MadeFolders() = default;
    MadeFolders(const MadeFolders&) = delete;
    MadeFolders& operator=(const MadeFolders&) = delete;
    ~MadeFolders()
    {
        if (m_kept)
            return;
        for (qsizetype i = m_folders.size(); i-- > 0;)
            QDir(m_folders.at(i)).removeRecursively();
    }

    // Makes folder, whose last part is name and which does not exist yet; false, with error set,
    // when the file system refuses it.
    bool make(const QString& folder, const QString& name, QString* error)
    {
        if (holdsSeparator(name)) {
            *error = search_texts::nameHoldsSeparator();
            return false;
        }
        std::error_code code;
        if (!std::filesystem::create_directory(std::filesystem::path(QFile::encodeName(folder).toStdString()), code)) {
            *error = QString::fromLocal8Bit(code.message());
            return false;
        }
        m_folders.append(folder);
        return true;
    }
    void keep() { m_kept = true; }

private:
    QStringList m_folders;
    bool m_kept = false;
};

// Writes lines to a new file of a new language; a failure is said, naming the file.
bool writeNew(Prompts& prompts, const QString& path, const QStringList& lines)
{
    QString error;
    if (writeTextLines(path, lines, &error))
        return true;
    prompts.message(search_texts::notMade(path, error));
    return false;
}

// Turns every word file of the target's folder into a list of the new language, each line kept up
// to its first "|" followed by "|" and its sound number, and writes the identity pairing of every
// sound number met. False when something could not be read or made (said in a message).
bool copyTargetLists(Prompts& prompts, const QString& languages, const QString& name, const QString& target)
{
    const QString targetFolder = paths::languageFolder(languages, target);
    const QString newFolder = paths::languageFolder(languages, name);
    QStringList pairs;
    for (const QString& entry : scan_folder(targetFolder)) {
        if (!entry.endsWith(paths::kListSuffix, Qt::CaseSensitive) || !QFileInfo(targetFolder + entry).isFile())
            continue;
        // Only the target's master gets the new language's name.
        const QString copy = newFolder + QString(entry).replace(paths::masterName(target), paths::masterName(name));
        QFile source(targetFolder + entry);
        if (!source.open(QIODevice::ReadOnly)) {
            prompts.message(search_texts::notMade(copy, source.errorString()));
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
        if (!writeNew(prompts, copy, lines))
            return false;
    }
    return writeNew(prompts, paths::transIndexFile(languages, name, target), pairs);
}

} // namespace

bool new_language(Session& session)
{
    Prompts& prompts = session.prompts;
    const QString& languages = session.languages_folder;
    const QString name = prompts.input(search_texts::newLanguagePrompt(), search_texts::newLanguageTitle()).toLower();
    if (name.isEmpty())
        return false;
    const QString folder = languages + name;
    if (QFileInfo::exists(folder)) {
        prompts.message(search_texts::languageExists());
        return false;
    }
    MadeFolders made;
    QString error;
    if (!made.make(folder, name, &error)) {
        prompts.message(search_texts::notMade(folder, error));
        return false;
    }

    const QString target = prompts.input(search_texts::targetPrompt(), search_texts::targetTitle()).toLower();
    if (target.isEmpty()) {
        // Kept so: the new folder stays, without a trans file.
        made.keep();
        return false;
    }
    const QString targetFolder = languages + target;
    if (holdsSeparator(target)) {
        prompts.message(search_texts::notMade(targetFolder, search_texts::nameHoldsSeparator()));
        return false;
    }
    if (!QFileInfo::exists(targetFolder)) {
        prompts.message(search_texts::targetNotFound());
        if (!made.make(targetFolder, target, &error)) {
            prompts.message(search_texts::notMade(targetFolder, error));
            return false;
        }
        // The pairing is recorded from the target's side too.
        if (!writeNew(prompts, paths::transFile(languages, target), {name}))
            return false;
    } else {
        prompts.message(search_texts::targetFound());
        if (!copyTargetLists(prompts, languages, name, target))
            return false;
    }
    if (!writeNew(prompts, paths::transFile(languages, name), {target}))
        return false;
    // A name the voice table knows gets its voice file, so its words are spoken before any recording.
    if (const QString voice = table_voice(name);
        !voice.isEmpty() && !writeNew(prompts, voice_file(languages, name), {voice}))
        return false;
    made.keep();
    return true;
}

bool add_list(Session& session)
{
    Prompts& prompts = session.prompts;
    const QString& language = session.current_language;
    if (language.isEmpty()) {
        prompts.message(search_texts::selectLanguageFirst());
        return false;
    }
    QString name = prompts.input(search_texts::newListPrompt(language), search_texts::newListTitle());
    if (name.isEmpty())
        return false;
    name.replace(u' ', u'_');
    const QString path = paths::listFile(session.languages_folder, language, name);
    if (QFileInfo::exists(path)) {
        prompts.message(search_texts::listExists());
        return false;
    }
    if (holdsSeparator(name)) {
        prompts.message(search_texts::notMade(path, search_texts::nameHoldsSeparator()));
        return false;
    }
    // Written whole or not at all.
    if (!writeNew(prompts, path, {search_texts::newListHeader(language)}))
        return false;
    prompts.message(name);
    return true;
}

} // namespace quorvane
