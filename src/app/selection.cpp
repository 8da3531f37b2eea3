#include "app/selection.h"

#include "core/session.h"
#include "store/paths.h"
#include "store/text_files.h"
#include "store/texts.h"
#include "store/word_files.h"

#include <QDir>
#include <QFileInfo>

namespace quorvane {

LanguageLists choose_language(Session& session, const QString& language)
{
    const QString& languages = session.languages_folder;
    const QString transFile = paths::transFile(languages, language);
    // The pairing file is the one thing that can fail on a table limit, so it is loaded first; the
    // loader leaves the table untouched when it throws, so nothing has changed then.
    const bool paired = QFileInfo::exists(transFile);
    QString target;
    QString indexFile;
    // A pairing that cannot be read is said; the language is chosen all the same, without it.
    QString error;
    QString cause;
    if (paired) {
        const std::optional<QStringList> lines = readTextLines(transFile, &cause);
        if (!lines)
            error = store_texts::fileNotRead(transFile, cause);
        target = lines ? lines->value(0) : QString();
        indexFile = paths::transIndexFile(languages, language, target);
        if (lines && QFileInfo::exists(indexFile))
            load_trans_index(indexFile, session.target_sound_numbers, &error);
    }

    session.shown_file.clear();
    session.current_language = language;
    const QString studentFolder = paths::studentLanguageFolder(session.user_folder, language);
    if (!QFileInfo(studentFolder).isDir())
        QDir().mkpath(studentFolder);
    // A rewrite left beside its file is one a killed run never finished: only this session writes
    // the student's files (the folder is locked), and a rewrite of a language file is over before
    // its handler returns.
    removeStrayRewrites(studentFolder);
    removeStrayRewrites(paths::languageFolder(languages, language));
    LanguageLists result;
    result.error = error;
    result.lists = scan_and_sweep(paths::languageFolder(languages, language), paths::kListSuffix);
    result.lists.removeAll(paths::masterName(language));
    result.known_lists = known_lists_of(session);

    session.master_file = paths::masterFile(languages, language);
    session.trans_file = transFile;
    if (!paired)
        return result;
    session.target_language = target;
    session.target_master_file = paths::masterFile(languages, target);
    session.trans_index_file = indexFile;
    return result;
}

QStringList known_lists_of(const Session& session)
{
    return scan_and_sweep(paths::studentLanguageFolder(session.user_folder, session.current_language),
                          paths::kKnownSuffix);
}

bool choose_list(Session& session, const QString& list, bool known, QString* told)
{
    const ListFiles files = list_files_of(session, list);
    const QString shown = known ? files.known_file : files.unknown_file;
    const WordArrays previous{session.words, session.translations, session.sound_numbers};
    // A known list is read before the unknown file is made, so a limit of either changes nothing.
    std::optional<WordArrays> arrays;
    QString error;
    if (known)
        arrays = read_word_file(shown, &error, previous);
    if (known && !arrays) {
        error = store_texts::fileNotRead(shown, error);
    } else if (!make_unknowns_file(files, &error)) {
        if (!known)
            arrays.reset();
    } else {
        error.clear();
        if (!known) {
            arrays = read_word_file(shown, &error, previous);
            if (!arrays)
                error = store_texts::fileNotRead(shown, error);
        }
    }
    if (told)
        *told = error;

    session.current_list = list;
    session.list_file = files.list_file;
    session.known_file = files.known_file;
    session.unknown_file = files.unknown_file;
    session.shown_file = arrays ? shown : QString();
    WordArrays read = arrays ? std::move(*arrays) : WordArrays();
    session.words = std::move(read.words);
    session.translations = std::move(read.translations);
    session.sound_numbers = std::move(read.sound_numbers);
    session.words_file = session.shown_file;
    return arrays.has_value();
}

} // namespace quorvane
