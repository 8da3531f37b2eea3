#include "record/unfinished_work.h"

#include "record/edit_journal.h"
#include "record/packing.h"
#include "store/file_lock.h"
#include "store/new_language.h"
#include "store/paths.h"
#include "store/text_files.h"

#include <QDir>
#include <QFileInfo>

namespace quorvane {

void finish_unfinished_work(const QString& languagesFolder)
{
    sweep_new_languages(languagesFolder);
    for (const QString& language : QDir(languagesFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString folder = paths::languageFolder(languagesFolder, language);
        if (QFileInfo::exists(folder + kEditJournalName)) {
            // A journal that cannot be completed now stays for the next start or the next edit, which
            // says what stands in the way.
            FileLock lock(paths::languageLockFile(languagesFolder, language));
            if (lock.acquire())
                recover_edits(folder);
        }
        sweep_packing_leftovers(folder);
    }
    // The copies packing writes for sending.
    removeStrayRewrites(paths::recordingsFolder());
    removeStrayRewrites(paths::recordingArchivesFolder());
}

} // namespace quorvane
