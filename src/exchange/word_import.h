#pragma once

#include "exchange/imported_words.h"

#include <QString>

#include <optional>

namespace quorvane {

class Session;

// Told how far a long import has come; answers false when the user cancelled it. Called from the
// thread of the import, between steps; done equal to total says the import has ended, however.
class ImportProgress
{
public:
    virtual ~ImportProgress() = default;
    virtual bool advance(qsizetype done, qsizetype total) = 0;
};

// What an import did, for its summary.
struct ImportSummary
{
    QString list;
    int imported = 0;
    int withAudio = 0;
    int replaced = 0;
    int skipped = 0;
    int audioLost = 0;
    QStringList reasons;
};

enum class ImportOutcome { Done, Cancelled, Failed };

// Turns the batch into the new list `list` of the current language, all or nothing. Each word,
// fitted to a word file (fitToWordFile), becomes an entry of the list; a word whose word and
// translation are those of a master entry takes that entry's sound number, every other one a new
// number from highest_num.dat (taken as get_high takes them) and a new line of the master file.
// Audio becomes the recording of its number (<two digits>/<number>.mp3 of the language folder)
// where that number has none yet: an MP3 as it is, other audio left out and counted. Everything
// is built first, then written: the recordings, the list file, the master's new lines and
// highest_num.dat; a failure or a cancel rolls every written file back. The list file must not
// exist. error is set on Failed.
ImportOutcome commit_import(const Session& session, const QString& list, const ImportBatch& batch,
                            ImportProgress* progress, ImportSummary* summary, QString* error);

// The File > Import Word List... work behind the main window's import_word_list: reads path by its
// extension (.csv, .tsv, .txt; .kvtml; .apkg, .colpkg), asks the lesson of a KVTML file with
// several and the list's name where a list of the file's name exists, commits the import and shows
// one summary box. Every question and message goes through the session's prompts. Gives the new
// list's name when one was made.
std::optional<QString> import_word_list(Session& session, const QString& path, ImportProgress* progress);

} // namespace quorvane
