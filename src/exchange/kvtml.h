#pragma once

#include "exchange/imported_words.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace quorvane {

// A KVTML 2 vocabulary file as read: each entry's first two translations (and the sound file of the
// first, named relative to the file), and its lessons, nested ones named "outer/inner", each with
// the ids of its entries (those of the lessons inside it included).
struct KvtmlEntry
{
    QString id;
    QString word;
    QString translation;
    QString sound;
};
struct KvtmlLesson
{
    QString name;
    QStringList entryIds;
};
struct KvtmlFile
{
    QList<KvtmlEntry> entries;
    QList<KvtmlLesson> lessons;
};

// Nothing, with error set, for text that is not well-formed XML or whose root is not a KVTML 2
// document.
std::optional<KvtmlFile> parseKvtml(const QByteArray& bytes, QString* error);

// The words of the chosen lesson (every entry when lesson is empty) in file order; an entry
// without a second translation is left out with its reason; the sound files are read from folder.
ImportBatch kvtmlWords(const KvtmlFile& file, const QString& lesson, const QString& folder);

// A KVTML 2 document of one lesson named title: two identifiers (the languages), and one entry per
// word, whose first translation names its sound file where sounds gives one (same index, "" for
// none).
struct KvtmlExport
{
    QString title;
    QString language;
    QString translationLanguage;
    QStringList words;
    QStringList translations;
    QStringList sounds;
};
QByteArray writeKvtml(const KvtmlExport& list);

} // namespace quorvane
