#include "exchange/anki_package.h"

#include "exchange/texts.h"
#include "store/text_files.h"

#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QUuid>

#include <zip.h>

#include <memory>

namespace quorvane {

namespace {

struct ZipCloser
{
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
using Zip = std::unique_ptr<zip_t, ZipCloser>;

// The bytes of a zip entry; nothing when it is not there or cannot be read.
std::optional<QByteArray> readEntry(zip_t* archive, const char* name)
{
    zip_stat_t stat;
    zip_stat_init(&stat);
    if (zip_stat(archive, name, 0, &stat) != 0 || !(stat.valid & ZIP_STAT_SIZE))
        return std::nullopt;
    zip_file_t* file = zip_fopen(archive, name, 0);
    if (!file)
        return std::nullopt;
    QByteArray bytes(static_cast<qsizetype>(stat.size), Qt::Uninitialized);
    const zip_int64_t read = zip_fread(file, bytes.data(), stat.size);
    zip_fclose(file);
    if (read < 0 || static_cast<zip_uint64_t>(read) != stat.size)
        return std::nullopt;
    return bytes;
}

bool hasEntry(zip_t* archive, const char* name)
{
    return zip_name_locate(archive, name, 0) >= 0;
}

// The notes' fields, each note's fields split at 0x1F, in the order the notes were made.
std::optional<QList<QStringList>> readNotes(const QString& collectionPath, QString* error)
{
    const QString connection = QStringLiteral("quorvane-import-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    std::optional<QList<QStringList>> notes;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        database.setDatabaseName(collectionPath);
        database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        if (!database.open()) {
            if (error)
                *error = exchange_texts::kUnreadableCollection;
        } else {
            QSqlQuery query(database);
            query.setForwardOnly(true);
            if (!query.exec(QStringLiteral("SELECT flds FROM notes ORDER BY id"))) {
                if (error)
                    *error = exchange_texts::kUnreadableCollection;
            } else {
                notes.emplace();
                while (query.next())
                    notes->append(query.value(0).toString().split(QChar(0x1F)));
            }
        }
        database.close();
    }
    QSqlDatabase::removeDatabase(connection);
    return notes;
}

} // namespace

std::optional<ImportBatch> readAnkiPackage(const QString& path, QString* error)
{
    int zipError = 0;
    Zip archive(zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, &zipError));
    if (!archive) {
        if (error)
            *error = exchange_texts::kNotPackage;
        return std::nullopt;
    }
    if (hasEntry(archive.get(), "collection.anki21b")) {
        if (error)
            *error = exchange_texts::kCompressedPackage;
        return std::nullopt;
    }
    std::optional<QByteArray> collection = readEntry(archive.get(), "collection.anki21");
    if (!collection)
        collection = readEntry(archive.get(), "collection.anki2");
    if (!collection) {
        if (error)
            *error = exchange_texts::kNotPackage;
        return std::nullopt;
    }
    // SQLite reads a file: the collection is written into a folder of its own that goes with it.
    QTemporaryDir folder;
    const QString collectionPath = folder.filePath(QStringLiteral("collection"));
    if (!folder.isValid() || !writeBytes(collectionPath, *collection, error))
        return std::nullopt;
    const auto notes = readNotes(collectionPath, error);
    if (!notes)
        return std::nullopt;

    // The media map: media name -> the zip entry holding it.
    QHash<QString, QString> media;
    if (const auto map = readEntry(archive.get(), "media")) {
        const QJsonObject object = QJsonDocument::fromJson(*map).object();
        for (auto it = object.begin(); it != object.end(); ++it)
            media.insert(it.value().toString(), it.key());
    }

    static const QRegularExpression soundTag(QStringLiteral("\\[sound:([^\\]]+)\\]"));
    ImportBatch batch;
    for (qsizetype n = 0; n < notes->size(); ++n) {
        const QStringList& fields = notes->at(n);
        const QString name = exchange_texts::noteName(n + 1);
        QString sound;
        for (const QString& field : fields) {
            const auto found = soundTag.match(field);
            if (found.hasMatch()) {
                sound = found.captured(1);
                break;
            }
        }
        ImportedWord word;
        word.word = stripHtml(QString(fields.value(0)).remove(soundTag));
        word.translation = stripHtml(QString(fields.value(1)).remove(soundTag));
        if (word.word.isEmpty()) {
            batch.skip(exchange_texts::entryReason(name, exchange_texts::kNoWord));
            continue;
        }
        if (word.translation.isEmpty()) {
            batch.skip(exchange_texts::entryReason(name, exchange_texts::kNoTranslation));
            continue;
        }
        if (!sound.isEmpty()) {
            const QString entry = media.value(sound);
            const auto bytes = entry.isEmpty() ? std::nullopt : readEntry(archive.get(), entry.toUtf8().constData());
            if (bytes) {
                word.audio = *bytes;
                word.audioName = sound;
            } else {
                batch.loseAudio(exchange_texts::entryReason(name, exchange_texts::audioMissing(sound)));
            }
        }
        batch.words.append(word);
    }
    return batch;
}

} // namespace quorvane
