#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace quorvane {

class Session;

// What the record window shows while the archives are written. Called often while an archive is
// written, with the clock's processEvents() run after each call so that the window repaints.
class PackingView
{
public:
    virtual ~PackingView() = default;
    virtual void show_packing_progress(const QString& text) = 0;
};

// A zip archive built in memory holding each of files under its bare name, stored as they are when
// store is true (enciphered recordings do not compress), deflated otherwise: the archiver leaves no
// temporary file anywhere, and the archive is then written like every other file, through
// writeBytes. onProgress gets 0 to 100 while it is built. Nothing, with error set, on failure.
std::optional<QByteArray> build_zip(const QStringList& files, bool store,
                                    const std::function<void(int percent)>& onProgress = {}, QString* error = nullptr);

// What one packing wrote: the archives written, and those that failed, each with its cause.
struct PackingReport
{
    QStringList written;
    QStringList failed;
};

// The per-folder packing of the recordings of kind ("str"): for each subfolder D of the current
// language's new_str folder, in listing order, the archive D.zip of D's files of that kind written
// inside D, the box naming it, then its copy as recordings/str/<language>_str_<D>.zip. A folder
// with no recordings gets no archive. A failure is put in the report and the next folder is tried.
void pack_folder_recordings(Session& session, const QString& kind, PackingReport& report, PackingView* view = nullptr);

// The zip button: the question (Cancel: "The action has been cancelled." and nothing else), the
// recordings and recordings/str folders, the recording archives, the archive <language>.zip of the
// word files directly in the language folder (never an archive, a lock, a journal or a temporary
// file) and its copy recordings/text_<language>.zip, the busy box and the final box, which lists
// the archives written and those that failed with their causes. True when every archive was
// written.
bool pack_recordings(Session& session, PackingView* view = nullptr);

// Whether a file directly in a language folder is one that packing takes: not the language's own
// archive, nor a lock, journal, temporary or archiver's left-over file.
bool packed_language_file(const QString& name, const QString& archiveName);

// Removes what a killed packing or rewrite left in a language's folder and its recording folders:
// files written beside their names and the archiver's temporaries (<archive>.zip.XXXXXX).
void sweep_packing_leftovers(const QString& languageFolder);

} // namespace quorvane
