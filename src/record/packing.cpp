#include "record/packing.h"

#include "core/clock.h"
#include "core/prompts.h"
#include "core/session.h"
#include "record/editing_texts.h"
#include "store/paths.h"
#include "store/word_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <zip.h>

namespace quorvane {

namespace {

const QString kZipSuffix = QStringLiteral(".zip");

QString zipErrorText(zip_error_t* error)
{
    return QString::fromLocal8Bit(zip_error_strerror(error));
}

QString withoutSeparator(const QString& folder)
{
    return folder.endsWith(QDir::separator()) ? folder.chopped(1) : folder;
}

// The files directly in folder (no folders), in listing order, whose names pass keep.
QStringList filesIn(const QString& folder, const std::function<bool(const QString& name)>& keep)
{
    QStringList files;
    const QString prefix = withoutSeparator(folder) + QDir::separator();
    for (const QString& name : scan_folder(folder)) {
        if (keep(name) && QFileInfo(prefix + name).isFile())
            files.append(prefix + name);
    }
    return files;
}

// Shows a progress line and lets the window repaint.
void showProgress(Session& session, PackingView* view, const QString& archiveName, int percent)
{
    if (!view)
        return;
    view->show_packing_progress(editing_texts::packingProgress(archiveName, percent));
    session.clock.processEvents();
}

} // namespace

bool write_zip(const QString& archivePath, const QStringList& files, bool store,
               const std::function<void(int percent)>& onProgress, QString* error)
{
    const auto fail = [error](const QString& text) {
        if (error)
            *error = text;
        return false;
    };
    int code = 0;
    zip_t* archive = zip_open(QFile::encodeName(archivePath).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    if (!archive) {
        zip_error_t openError;
        zip_error_init_with_code(&openError, code);
        const QString text = zipErrorText(&openError);
        zip_error_fini(&openError);
        return fail(text);
    }
    for (const QString& path : files) {
        zip_source_t* source = zip_source_file_create(QFile::encodeName(path).constData(), 0, -1, nullptr);
        const QByteArray name = QFileInfo(path).fileName().toUtf8();
        const zip_int64_t index =
            source ? zip_file_add(archive, name.constData(), source, ZIP_FL_OVERWRITE | ZIP_FL_ENC_UTF_8) : -1;
        if (index < 0) {
            if (source)
                zip_source_free(source);
            const QString text = zipErrorText(zip_get_error(archive));
            zip_discard(archive);
            return fail(text);
        }
        zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), store ? ZIP_CM_STORE : ZIP_CM_DEFLATE, 0);
    }
    if (onProgress) {
        auto* callback = new std::function<void(int)>(onProgress);
        zip_register_progress_callback_with_state(
            archive, 0.01,
            [](zip_t*, double done, void* state) {
                (*static_cast<std::function<void(int)>*>(state))(static_cast<int>(done * 100.0 + 0.5));
            },
            [](void* state) { delete static_cast<std::function<void(int)>*>(state); }, callback);
    }
    if (zip_close(archive) != 0) {
        const QString text = zipErrorText(zip_get_error(archive));
        zip_discard(archive);
        return fail(text);
    }
    return true;
}

bool copy_over(const QString& source, const QString& target, QString* error)
{
    QFile in(source);
    QSaveFile out(target);
    const auto fail = [error](const QFileDevice& file) {
        if (error)
            *error = file.fileName() + QStringLiteral(": ") + file.errorString();
        return false;
    };
    if (!in.open(QIODevice::ReadOnly))
        return fail(in);
    if (!out.open(QIODevice::WriteOnly))
        return fail(out);
    QByteArray chunk;
    while (!(chunk = in.read(1 << 20)).isEmpty()) {
        if (out.write(chunk) != chunk.size())
            return fail(out);
    }
    if (in.error() != QFileDevice::NoError)
        return fail(in);
    return out.commit() || fail(out);
}

void pack_folder_recordings(Session& session, const QString& kind, PackingView* view)
{
    const QString newFolder = paths::newRecordingsFolder(session.languages_folder, session.current_language);
    const QString suffix = u'.' + kind;
    for (const QString& subfolder : scan_folder(newFolder)) {
        const QString folder = newFolder + subfolder;
        // Only folders hold recordings; a stray file in new_str is no folder of them.
        if (!QFileInfo(folder).isDir())
            continue;
        const QString copyName = session.current_language + QStringLiteral("_") + kind + u'_' + subfolder + kZipSuffix;
        const QString archive = folder + QDir::separator() + subfolder + kZipSuffix;
        const QStringList files =
            filesIn(folder, [&suffix](const QString& name) { return name.endsWith(suffix, Qt::CaseInsensitive); });
        showProgress(session, view, copyName, 0);
        // Failures are passed over: the copy of an archive that was not written fails, and the
        // next folder is tried.
        write_zip(archive, files, true, [&](int percent) { showProgress(session, view, copyName, percent); });
        session.prompts.message(editing_texts::workingOn(copyName));
        copy_over(archive, paths::recordingArchiveCopy(session.current_language, subfolder));
    }
}

bool pack_recordings(Session& session, PackingView* view)
{
    const QString recordings = paths::recordingsFolder();
    if (!session.prompts.okCancel(
            editing_texts::packingQuestion(session.current_language, withoutSeparator(recordings)))) {
        session.prompts.message(editing_texts::cancelled());
        return false;
    }
    QDir().mkpath(paths::recordingArchivesFolder());
    pack_folder_recordings(session, QStringLiteral("str"), view);

    const QString languageFolder = paths::languageFolder(session.languages_folder, session.current_language);
    const QString archive = paths::textArchive(session.languages_folder, session.current_language);
    const QString archiveName = QFileInfo(archive).fileName();
    // Neither an earlier archive of the folder nor what a killed rewrite left beside a file.
    const QStringList files = filesIn(languageFolder, [&archiveName](const QString& name) {
        return name.compare(archiveName, Qt::CaseInsensitive) != 0 && !name.endsWith(paths::kRewriteSuffix);
    });
    QString error;
    showProgress(session, view, archiveName, 0);
    const bool written = write_zip(
        archive, files, false, [&](int percent) { showProgress(session, view, archiveName, percent); }, &error);
    if (!written) {
        session.prompts.message(editing_texts::packingFailed(archive, error));
        return false;
    }
    session.prompts.message(editing_texts::busy());
    const QString copy = paths::textArchiveCopy(session.current_language);
    if (!copy_over(archive, copy, &error)) {
        session.prompts.message(editing_texts::packingFailed(copy, error));
        return false;
    }
    session.prompts.message(editing_texts::finished(withoutSeparator(recordings)));
    return true;
}

} // namespace quorvane
