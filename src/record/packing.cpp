#include "record/packing.h"

#include "core/clock.h"
#include "core/prompts.h"
#include "core/session.h"
#include "record/edit_journal.h"
#include "record/texts.h"
#include "store/paths.h"
#include "store/text_files.h"
#include "store/word_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <memory>

#include <zip.h>

namespace quorvane {

namespace {

const QString kZipSuffix = QStringLiteral(".zip");
const QString kTemporarySuffix = QStringLiteral(".tmp");

// The temporary file the archiver makes beside an archive it writes: the archive's name, a dot and
// six characters of its own.
bool archiverTemporary(const QString& name)
{
    static const QRegularExpression pattern(QStringLiteral("\\.zip\\.[A-Za-z0-9]{6}$"),
                                            QRegularExpression::CaseInsensitiveOption);
    return pattern.match(name).hasMatch();
}

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
    view->show_packing_progress(record_texts::packingProgress(archiveName, percent));
    session.clock.processEvents();
}

} // namespace

std::optional<QByteArray> build_zip(const QStringList& files, bool store,
                                    const std::function<void(int percent)>& onProgress, QString* error)
{
    zip_error_t zipError;
    zip_error_init(&zipError);
    const auto fail = [&](zip_error_t* cause) -> std::optional<QByteArray> {
        if (error)
            *error = zipErrorText(cause);
        zip_error_fini(&zipError);
        return std::nullopt;
    };
    zip_source_t* memory = zip_source_buffer_create(nullptr, 0, 0, &zipError);
    if (!memory)
        return fail(&zipError);
    zip_t* archive = zip_open_from_source(memory, ZIP_TRUNCATE, &zipError);
    if (!archive) {
        zip_source_free(memory);
        return fail(&zipError);
    }
    // Kept past zip_close, which writes the archive into it.
    zip_source_keep(memory);
    const std::unique_ptr<zip_source_t, decltype(&zip_source_free)> kept(memory, zip_source_free);
    for (const QString& path : files) {
        zip_source_t* source = zip_source_file_create(QFile::encodeName(path).constData(), 0, -1, nullptr);
        const QByteArray name = QFileInfo(path).fileName().toUtf8();
        const zip_int64_t index =
            source ? zip_file_add(archive, name.constData(), source, ZIP_FL_OVERWRITE | ZIP_FL_ENC_UTF_8) : -1;
        if (index < 0) {
            if (source)
                zip_source_free(source);
            const QString text = path + QStringLiteral(": ") + zipErrorText(zip_get_error(archive));
            zip_discard(archive);
            if (error)
                *error = text;
            zip_error_fini(&zipError);
            return std::nullopt;
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
        zip_error_t* cause = zip_get_error(archive);
        const QString text = zipErrorText(cause);
        zip_discard(archive);
        if (error)
            *error = text;
        zip_error_fini(&zipError);
        return std::nullopt;
    }
    zip_stat_t stat;
    QByteArray bytes;
    if (zip_source_stat(memory, &stat) != 0 || zip_source_open(memory) != 0)
        return fail(zip_source_error(memory));
    bytes.resize(static_cast<qsizetype>(stat.size));
    const zip_int64_t read = zip_source_read(memory, bytes.data(), stat.size);
    zip_source_close(memory);
    if (read != static_cast<zip_int64_t>(stat.size))
        return fail(zip_source_error(memory));
    zip_error_fini(&zipError);
    return bytes;
}

bool packed_language_file(const QString& name, const QString& archiveName)
{
    return name.compare(archiveName, Qt::CaseInsensitive) != 0 && !name.endsWith(kTemporarySuffix) &&
           name != paths::kLockName && name != kEditJournalName && !archiverTemporary(name);
}

void sweep_packing_leftovers(const QString& languageFolder)
{
    const auto sweep = [](const QString& folder) {
        removeStrayRewrites(folder);
        const QDir dir(folder);
        for (const QString& name : dir.entryList({QStringLiteral("*.zip.*")}, QDir::Files | QDir::Hidden)) {
            if (archiverTemporary(name))
                QFile::remove(dir.filePath(name));
        }
    };
    sweep(languageFolder);
    const QString recordings = withoutSeparator(languageFolder) + QDir::separator() + QStringLiteral("new_str");
    for (const QString& subfolder : QDir(recordings).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        sweep(recordings + QDir::separator() + subfolder);
}

void pack_folder_recordings(Session& session, const QString& kind, PackingReport& report, PackingView* view)
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
        if (files.isEmpty())
            continue;
        showProgress(session, view, copyName, 0);
        QString error;
        const auto bytes = build_zip(
            files, true, [&](int percent) { showProgress(session, view, copyName, percent); }, &error);
        session.prompts.message(record_texts::workingOn(copyName));
        // A failure is noted and the next folder is tried.
        const QString copy = paths::recordingArchiveCopy(session.current_language, subfolder);
        if (!bytes)
            report.failed.append(record_texts::archiveFailed(copy, error));
        else if (!writeBytes(archive, *bytes, &error))
            report.failed.append(record_texts::archiveFailed(archive, error));
        else if (!writeBytes(copy, *bytes, &error))
            report.failed.append(record_texts::archiveFailed(copy, error));
        else
            report.written.append(copy);
    }
}

bool pack_recordings(Session& session, PackingView* view)
{
    const QString recordings = paths::recordingsFolder();
    if (!session.prompts.okCancel(
            record_texts::packingQuestion(session.current_language, withoutSeparator(recordings)))) {
        session.prompts.message(record_texts::kCancelled);
        return false;
    }
    PackingReport report;
    if (!QDir().mkpath(paths::recordingArchivesFolder())) {
        session.prompts.message(
            record_texts::packingFailed(paths::recordingArchivesFolder(), record_texts::kPackingFolderNotMade));
        return false;
    }
    pack_folder_recordings(session, QStringLiteral("str"), report, view);

    const QString languageFolder = paths::languageFolder(session.languages_folder, session.current_language);
    const QString archive = paths::textArchive(session.languages_folder, session.current_language);
    const QString archiveName = QFileInfo(archive).fileName();
    const QStringList files = filesIn(
        languageFolder, [&archiveName](const QString& name) { return packed_language_file(name, archiveName); });
    QString error;
    showProgress(session, view, archiveName, 0);
    const auto bytes = build_zip(
        files, false, [&](int percent) { showProgress(session, view, archiveName, percent); }, &error);
    const QString copy = paths::textArchiveCopy(session.current_language);
    if (!bytes || !writeBytes(archive, *bytes, &error)) {
        report.failed.append(record_texts::archiveFailed(archive, error));
    } else {
        session.prompts.message(record_texts::kBusy);
        if (writeBytes(copy, *bytes, &error))
            report.written.append(copy);
        else
            report.failed.append(record_texts::archiveFailed(copy, error));
    }
    session.prompts.message(record_texts::packingReport(withoutSeparator(recordings), report.written, report.failed));
    return report.failed.isEmpty();
}

} // namespace quorvane
