#include "exchange/word_import.h"

#include "core/basic.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/table_limit.h"
#include "exchange/anki_package.h"
#include "exchange/audio_convert.h"
#include "exchange/csv_reader.h"
#include "exchange/kvtml.h"
#include "exchange/texts.h"
#include "store/file_lock.h"
#include "store/paths.h"
#include "store/text_files.h"
#include "store/texts.h"
#include "store/word_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

namespace quorvane {

namespace {

constexpr int kFirstNewNumber = 70000;

// Undoes what a failed or cancelled import wrote, newest first.
struct Rollback
{
    QStringList made;
    QString master;
    qint64 masterLength = -2; // -2: the master file was not appended to
    QString numbers;
    std::optional<QStringList> numberLines; // the counter file's lines before, when it existed
    bool numbersWritten = false;

    void run() const
    {
        if (numbersWritten) {
            if (numberLines)
                writeTextLines(numbers, *numberLines);
            else
                QFile::remove(numbers);
        }
        if (masterLength != -2)
            restoreLength(master, masterLength);
        for (auto it = made.crbegin(); it != made.crend(); ++it)
            QFile::remove(*it);
    }
};

QString fileName(QString name)
{
    static const QString forbidden = QStringLiteral("\\/:*?\"<>|");
    name = name.trimmed();
    for (QChar& c : name) {
        if (c.isSpace() || forbidden.contains(c))
            c = u'_';
    }
    return name;
}

std::optional<ImportBatch> readBatch(Session& session, const QString& path, QString* error, bool* cancelled)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == u"csv" || suffix == u"tsv" || suffix == u"txt")
        return readCsvWords(path, error);
    if (suffix == u"apkg" || suffix == u"colpkg")
        return readAnkiPackage(path, error);
    if (suffix != u"kvtml") {
        *error = exchange_texts::kUnknownFormat;
        return std::nullopt;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = file.errorString();
        return std::nullopt;
    }
    const auto parsed = parseKvtml(file.readAll(), error);
    if (!parsed)
        return std::nullopt;
    QString lesson;
    if (parsed->lessons.size() > 1) {
        QStringList names;
        for (const KvtmlLesson& each : parsed->lessons)
            names.append(each.name);
        const QString answer =
            session.prompts
                .input(exchange_texts::chooseLesson(names), exchange_texts::kLessonTitle, exchange_texts::kAllLessons)
                .trimmed();
        bool isNumber = false;
        const int number = answer.toInt(&isNumber);
        if (answer.isEmpty()) {
            *cancelled = true;
            return std::nullopt;
        }
        if (isNumber && number >= 1 && number <= names.size()) {
            lesson = names.at(number - 1);
        } else if (names.contains(answer)) {
            lesson = answer;
        } else if (answer.compare(exchange_texts::kAllLessons, Qt::CaseInsensitive) != 0) {
            session.prompts.message(exchange_texts::unknownLesson(answer), exchange_texts::kImportTitle);
            *cancelled = true;
            return std::nullopt;
        }
    }
    return kvtmlWords(*parsed, lesson, QFileInfo(path).absolutePath());
}

} // namespace

ImportOutcome commit_import(const Session& session, const QString& list, const ImportBatch& batch,
                            ImportProgress* progress, ImportSummary* summary, QString* error)
{
    const QString& folder = session.languages_folder;
    const QString& language = session.current_language;
    const QString listPath = paths::listFile(folder, language, list);
    const QString masterPath = paths::masterFile(folder, language);
    const QString numberPath = paths::highestNumberFile(folder, language);
    summary->list = list;
    summary->skipped = batch.skipped;
    summary->audioLost = batch.audioLost;
    summary->reasons = batch.reasons + batch.audioReasons;
    if (batch.words.size() > kMaxWordEntries) {
        *error = exchange_texts::tooManyEntries(static_cast<int>(batch.words.size()), kMaxWordEntries);
        return ImportOutcome::Failed;
    }

    // The master and highest_num are read and written under the language's lock, so a second copy of
    // the program adding words meanwhile never hands out the same sound numbers.
    FileLock lock(paths::languageLockFile(folder, language));
    if (!lock.acquire(error))
        return ImportOutcome::Failed;

    // The master's entries by word and translation, and the next free number.
    QHash<QString, QString> numbers;
    if (QFileInfo::exists(masterPath)) {
        const auto lines = readTextLines(masterPath);
        if (!lines) {
            *error = exchange_texts::cannotRead(masterPath);
            return ImportOutcome::Failed;
        }
        WordEntry entry;
        for (const QString& line : *lines) {
            if (splitEntry(line, &entry))
                numbers.insert(entry.word + u'|' + entry.translation, entry.sound_number);
        }
    }
    Rollback rollback;
    rollback.master = masterPath;
    rollback.numbers = numberPath;
    int next = kFirstNewNumber;
    if (QFileInfo::exists(numberPath)) {
        rollback.numberLines = readTextLines(numberPath);
        if (!rollback.numberLines) {
            *error = exchange_texts::cannotRead(numberPath);
            return ImportOutcome::Failed;
        }
        next = static_cast<int>(basic::leadingNumber(rollback.numberLines->value(0)));
    }
    const int firstNumber = next;

    // Everything is built before anything is written.
    QStringList listLines;
    QStringList masterLines;
    QList<QPair<QString, QByteArray>> recordings;
    QSet<QString> recorded;
    QSet<QString> recordingFolders;
    listLines.reserve(batch.words.size());
    for (const ImportedWord& imported : batch.words) {
        const QString word = fitToWordFile(imported.word, &summary->replaced);
        const QString translation = fitToWordFile(imported.translation, &summary->replaced);
        const QString key = word + u'|' + translation;
        QString number = numbers.value(key);
        const bool fresh = number.isEmpty();
        if (fresh) {
            if (next > kMaxSoundNumber) {
                *error = exchange_texts::kNoSoundNumbersLeft;
                return ImportOutcome::Failed;
            }
            number = QStringLiteral("%1").arg(next++, 5, 10, QLatin1Char('0'));
            numbers.insert(key, number);
            masterLines.append(joinEntry(word, translation, number));
        }
        listLines.append(joinEntry(word, translation, number));
        ++summary->imported;
        if (imported.audio.isEmpty())
            continue;
        // A number handed out now has no recording yet (a file there is a leftover); an entry of the
        // master keeps the recording it has.
        const QString recording = paths::releasedRecording(folder, language, number);
        if (recorded.contains(recording) || (!fresh && QFileInfo::exists(recording))) {
            ++summary->withAudio;
            continue;
        }
        QString cause;
        const auto mp3 = audioAsMp3(imported.audio, &cause);
        if (!mp3) {
            ++summary->audioLost;
            summary->reasons.append(exchange_texts::audioNotUsed(imported.audioName, cause));
            continue;
        }
        recorded.insert(recording);
        recordingFolders.insert(QFileInfo(recording).absolutePath());
        recordings.append({recording, *mp3});
        ++summary->withAudio;
    }

    // Then written, each step undone when a later one fails or the user cancels.
    const qsizetype total = recordings.size() + 1;
    auto fail = [&](ImportOutcome outcome) {
        rollback.run();
        if (progress)
            progress->advance(total, total);
        *summary = ImportSummary{list, 0, 0, summary->replaced, summary->skipped, summary->audioLost, summary->reasons};
        return outcome;
    };
    // The sound numbers are taken first and the list is written last: a kill part-way leaves at most
    // recordings and master lines no list uses yet, and never a number that a later import hands out again.
    if (next != firstNumber) {
        rollback.numbersWritten = true;
        if (!writeTextLines(numberPath, {QStringLiteral(" ") + QString::number(next)}, error)) {
            *error = exchange_texts::cannotWrite(numberPath, *error);
            return fail(ImportOutcome::Failed);
        }
    }
    for (const QString& recordingFolder : std::as_const(recordingFolders))
        QDir().mkpath(recordingFolder);
    bool cancelled = false;
    const auto advance = [&](qsizetype done) {
        cancelled = progress && !progress->advance(done, total);
        return !cancelled;
    };
    if (!writeFiles(recordings, error, advance)) {
        if (cancelled)
            return fail(ImportOutcome::Cancelled);
        *error = exchange_texts::cannotWrite(paths::languageFolder(folder, language), *error);
        return fail(ImportOutcome::Failed);
    }
    for (const auto& recording : std::as_const(recordings))
        rollback.made.append(recording.first);
    if (!masterLines.isEmpty()) {
        qint64 previous = -1;
        if (!appendTextLines(masterPath, masterLines, error, &previous)) {
            *error = exchange_texts::cannotWrite(masterPath, *error);
            return fail(ImportOutcome::Failed);
        }
        rollback.masterLength = previous;
    }
    if (!writeTextLines(listPath, listLines, error)) {
        *error = exchange_texts::cannotWrite(listPath, *error);
        return fail(ImportOutcome::Failed);
    }
    rollback.made.append(listPath);
    if (progress)
        progress->advance(total, total);
    return ImportOutcome::Done;
}

std::optional<QString> import_word_list(Session& session, const QString& path, ImportProgress* progress)
{
    Prompts& prompts = session.prompts;
    const QString& title = exchange_texts::kImportTitle;
    if (session.current_language.isEmpty()) {
        prompts.message(store_texts::kSelectLanguageFirst);
        return std::nullopt;
    }
    QString error;
    bool cancelled = false;
    const auto batch = readBatch(session, path, &error, &cancelled);
    if (cancelled)
        return std::nullopt;
    if (!batch) {
        prompts.message(exchange_texts::cannotImport(path, error), title);
        return std::nullopt;
    }
    if (batch->words.isEmpty()) {
        QString text = exchange_texts::cannotImport(path, exchange_texts::noEntries(path));
        for (const QString& reason : batch->reasons.mid(0, 5))
            text += QStringLiteral("\n  ") + reason;
        prompts.message(text, title);
        return std::nullopt;
    }

    QString list = fileName(QFileInfo(path).completeBaseName());
    if (list.isEmpty())
        list = QStringLiteral("imported");
    const auto exists = [&](const QString& name) {
        return QFileInfo::exists(paths::listFile(session.languages_folder, session.current_language, name));
    };
    while (exists(list) || list == paths::masterName(session.current_language)) {
        int n = 2;
        while (exists(list + QStringLiteral("_%1").arg(n)))
            ++n;
        list = fileName(prompts.input(exchange_texts::listExists(list, session.current_language),
                                      exchange_texts::kListTitle, list + QStringLiteral("_%1").arg(n)));
        if (list.isEmpty())
            return std::nullopt;
    }

    ImportSummary summary;
    switch (commit_import(session, list, *batch, progress, &summary, &error)) {
    case ImportOutcome::Failed:
        prompts.message(exchange_texts::cannotImport(path, error), title);
        return std::nullopt;
    case ImportOutcome::Cancelled:
        prompts.message(exchange_texts::kImportCancelled, title);
        return std::nullopt;
    case ImportOutcome::Done:
        break;
    }
    prompts.message(exchange_texts::importSummary(summary.list, summary.imported, summary.withAudio, summary.replaced,
                                                  summary.skipped, summary.audioLost, summary.reasons),
                    title);
    return list;
}

} // namespace quorvane
