#pragma once

#include <QString>
#include <QStringList>

#include <functional>

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

// Writes a zip archive at archivePath (replacing it, atomically) holding each of files under its
// bare name, stored as they are when store is true (enciphered recordings do not compress),
// deflated otherwise. onProgress gets 0 to 100 while the archive is written. An archive of no
// files is not written and an old one of that name is removed. False, with error set, on failure.
bool write_zip(const QString& archivePath, const QStringList& files, bool store,
               const std::function<void(int percent)>& onProgress = {}, QString* error = nullptr);

// Replaces target by a copy of source, atomically. False, with error set, on failure.
bool copy_over(const QString& source, const QString& target, QString* error = nullptr);

// The per-folder packing of the recordings of kind ("str"): for each subfolder D of the current
// language's new_str folder, in listing order, the archive D.zip of D's files of that kind made
// inside D, the box naming it, then its copy as recordings/str/<language>_str_<D>.zip. Every
// failure here is passed over and the next folder is tried.
void pack_folder_recordings(Session& session, const QString& kind, PackingView* view = nullptr);

// The zip button: the question (Cancel: "The action has been cancelled." and nothing else), the
// recordings and recordings/str folders, the recording archives, the archive <language>.zip of the
// files directly in the language folder (never holding an earlier archive of itself) and its copy
// recordings/text_<language>.zip, the busy box and the final box. A failure after the recording
// archives shows one message naming what could not be written and ends packing: false.
bool pack_recordings(Session& session, PackingView* view = nullptr);

} // namespace quorvane
