#pragma once

// Writes small Anki packages for the tests and the benchmarks, from the format's public
// description: a zip holding the SQLite collection, whose notes table keeps each note's fields in
// flds separated by the character 0x1F, a "media" file mapping the zip's numbered entries to media
// names as JSON ({"0": "name.mp3"}), and the media themselves under those numbers.

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
#include <QPair>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariant>

#include <zip.h>

#include <list>

namespace quorvane::test {

struct AnkiMedia
{
    QString name;
    QByteArray bytes;
};

inline bool writeAnkiPackage(const QString& path, const QList<QStringList>& notes, const QList<AnkiMedia>& media,
                             const char* collectionName = "collection.anki2", bool withMediaMap = true)
{
    QTemporaryDir folder;
    const QString collection = folder.filePath("collection");
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "anki-writer");
        database.setDatabaseName(collection);
        if (!database.open())
            return false;
        QSqlQuery query(database);
        query.exec("CREATE TABLE notes (id INTEGER PRIMARY KEY, guid TEXT, mid INTEGER, mod INTEGER, usn INTEGER, "
                   "tags TEXT, flds TEXT, sfld INTEGER, csum INTEGER, flags INTEGER, data TEXT)");
        database.transaction();
        query.prepare("INSERT INTO notes (id, guid, mid, mod, usn, tags, flds, sfld, csum, flags, data) "
                      "VALUES (?, ?, 1, 0, -1, '', ?, 0, 0, 0, '')");
        for (qsizetype i = 0; i < notes.size(); ++i) {
            query.addBindValue(1000 + i);
            query.addBindValue(QString::number(i));
            query.addBindValue(notes.at(i).join(QChar(0x1F)));
            if (!query.exec())
                return false;
        }
        database.commit();
        database.close();
    }
    QSqlDatabase::removeDatabase("anki-writer");

    QFile collectionFile(collection);
    if (!collectionFile.open(QIODevice::ReadOnly))
        return false;
    std::list<QByteArray> kept; // libzip reads the buffers at zip_close
    auto add = [&](zip_t* archive, const QByteArray& name, const QByteArray& bytes) {
        kept.push_back(bytes);
        zip_source_t* source = zip_source_buffer(archive, kept.back().constData(), kept.back().size(), 0);
        return zip_file_add(archive, name.constData(), source, ZIP_FL_OVERWRITE) >= 0;
    };
    int error = 0;
    zip_t* archive = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    if (!archive)
        return false;
    bool ok = add(archive, collectionName, collectionFile.readAll());
    QJsonObject map;
    for (qsizetype i = 0; i < media.size(); ++i) {
        map.insert(QString::number(i), media.at(i).name);
        ok = ok && add(archive, QByteArray::number(i), media.at(i).bytes);
    }
    if (withMediaMap)
        ok = ok && add(archive, "media", QJsonDocument(map).toJson(QJsonDocument::Compact));
    return zip_close(archive) == 0 && ok;
}

} // namespace quorvane::test
