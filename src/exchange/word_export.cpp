#include "exchange/word_export.h"

#include "core/prompts.h"
#include "core/session.h"
#include "exchange/audio_convert.h"
#include "exchange/kvtml.h"
#include "exchange/texts.h"
#include "store/paths.h"
#include "store/text_files.h"
#include "store/word_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace quorvane {

namespace {

// The sound number of a new list's header line, which is no word.
const QString kHeaderNumber = QStringLiteral("99999");

QString audioFileName(const QString& word, QSet<QString>& taken)
{
    static const QString forbidden = QStringLiteral("\\/:*?\"<>|");
    QString base = word.trimmed();
    for (QChar& c : base) {
        if (forbidden.contains(c) || c.unicode() < 0x20)
            c = u'_';
    }
    if (base.isEmpty() || base.startsWith(u'.'))
        base.prepend(u'_');
    QString name = base + QStringLiteral(".mp3");
    for (int n = 2; taken.contains(name.toLower()); ++n)
        name = QStringLiteral("%1 (%2).mp3").arg(base).arg(n);
    taken.insert(name.toLower());
    return name;
}

} // namespace

QString csvField(const QString& field)
{
    const bool quote = field.contains(u',') || field.contains(u'"') || field.contains(u'\n') || field.contains(u'\r') ||
                       field.contains(u'\t') || field.contains(u';') ||
                       (!field.isEmpty() && (field.front().isSpace() || field.back().isSpace()));
    if (!quote)
        return field;
    return u'"' + QString(field).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString recordingsFolderFor(const QString& path)
{
    const QFileInfo info(path);
    return info.absoluteDir().filePath(info.completeBaseName() + QStringLiteral("_audio"));
}

std::optional<ExportSummary> export_list(const Session& session, const QString& path, const QString& recordingsFolder,
                                         QString* error)
{
    const QString& folder = session.languages_folder;
    const QString& language = session.current_language;
    const QString listPath = paths::listFile(folder, language, session.current_list);
    const auto lines = readTextLines(listPath);
    if (!lines) {
        *error = exchange_texts::cannotRead(listPath);
        return std::nullopt;
    }
    ExportSummary summary;
    summary.recordingsFolder = recordingsFolder;
    const QDir exportFolder = QFileInfo(path).absoluteDir();
    if (!recordingsFolder.isEmpty() && !QDir().mkpath(recordingsFolder)) {
        *error = recordingsFolder;
        return std::nullopt;
    }
    KvtmlExport kvtml{session.current_list, language, session.target_language, {}, {}, {}};
    QString csv = exchange_texts::kCsvHeader + QStringLiteral("\r\n");
    QSet<QString> taken;
    WordEntry entry;
    for (const QString& line : *lines) {
        if (!splitEntry(line, &entry) || entry.sound_number.isEmpty() || entry.sound_number == kHeaderNumber)
            continue;
        ++summary.entries;
        const QString released = paths::releasedRecording(folder, language, entry.sound_number);
        const QString fresh = paths::newRecording(folder, language, entry.sound_number);
        QString audio;
        if (recordingsFolder.isEmpty()) {
            if (QFileInfo::exists(released))
                audio = QDir::toNativeSeparators(released);
        } else if (QFileInfo::exists(released) || QFileInfo::exists(fresh)) {
            std::optional<QByteArray> mp3;
            QString cause;
            if (QFileInfo::exists(released)) {
                QFile file(released);
                if (file.open(QIODevice::ReadOnly))
                    mp3 = file.readAll();
            } else {
                mp3 = newRecordingAsMp3(fresh, &cause);
            }
            if (mp3) {
                const QString target = QDir(recordingsFolder).filePath(audioFileName(entry.word, taken));
                if (!writeBytes(target, *mp3, error)) {
                    *error = exchange_texts::cannotWrite(target, *error);
                    return std::nullopt;
                }
                ++summary.recordings;
                audio = exportFolder.relativeFilePath(target);
            } else {
                ++summary.recordingsLeftOut;
            }
        }
        csv += csvField(entry.word) + u',' + csvField(entry.translation) + u',' + entry.sound_number + u',' +
               csvField(audio) + QStringLiteral("\r\n");
        kvtml.words.append(entry.word);
        kvtml.translations.append(entry.translation);
        kvtml.sounds.append(audio);
    }
    const bool asKvtml = QFileInfo(path).suffix().compare(QStringLiteral("kvtml"), Qt::CaseInsensitive) == 0;
    if (!writeBytes(path, asKvtml ? writeKvtml(kvtml) : csv.toUtf8(), error)) {
        *error = exchange_texts::cannotWrite(path, *error);
        return std::nullopt;
    }
    return summary;
}

void export_word_list(Session& session, const QString& path)
{
    Prompts& prompts = session.prompts;
    const QString& title = exchange_texts::kExportTitle;
    if (session.current_language.isEmpty() || session.current_list.isEmpty()) {
        prompts.message(exchange_texts::kFirstSelectList, title);
        return;
    }
    const QString folder = recordingsFolderFor(path);
    const bool withRecordings = prompts.yesNo(exchange_texts::exportRecordingsQuestion(folder), title);
    QString error;
    const auto summary = export_list(session, path, withRecordings ? folder : QString(), &error);
    if (!summary) {
        prompts.message(exchange_texts::cannotExport(path, error), title);
        return;
    }
    prompts.message(exchange_texts::exportSummary(session.current_list, path, summary->entries, summary->recordings,
                                                  summary->recordingsFolder, summary->recordingsLeftOut),
                    title);
}

} // namespace quorvane
