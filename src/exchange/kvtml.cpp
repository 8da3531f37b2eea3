#include "exchange/kvtml.h"

#include "exchange/texts.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QSet>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>

namespace quorvane {

namespace {

// The first <text> (and <sound>) of a <translation> element; the reader ends on its end tag.
void readTranslation(QXmlStreamReader& xml, QString* text, QString* sound)
{
    while (xml.readNextStartElement()) {
        if (xml.name() == u"text")
            *text = xml.readElementText(QXmlStreamReader::IncludeChildElements);
        else if (xml.name() == u"sound")
            *sound = xml.readElementText(QXmlStreamReader::IncludeChildElements);
        else
            xml.skipCurrentElement();
    }
}

void readEntry(QXmlStreamReader& xml, KvtmlFile& file)
{
    KvtmlEntry entry;
    entry.id = xml.attributes().value(QLatin1String("id")).toString();
    QHash<QString, QString> texts;
    QHash<QString, QString> sounds;
    QStringList order;
    while (xml.readNextStartElement()) {
        if (xml.name() != u"translation") {
            xml.skipCurrentElement();
            continue;
        }
        const QString id = xml.attributes().value(QLatin1String("id")).toString();
        QString text;
        QString sound;
        readTranslation(xml, &text, &sound);
        if (!texts.contains(id))
            order.append(id);
        texts.insert(id, text);
        sounds.insert(id, sound);
    }
    // The translations in the order of their ids, as the identifiers number the languages.
    std::sort(order.begin(), order.end(), [](const QString& a, const QString& b) { return a.toInt() < b.toInt(); });
    entry.word = order.size() > 0 ? texts.value(order.at(0)) : QString();
    entry.translation = order.size() > 1 ? texts.value(order.at(1)) : QString();
    entry.sound = order.isEmpty() ? QString() : sounds.value(order.at(0));
    file.entries.append(entry);
}

// Reads a <container> and the containers inside it; gives the ids of every entry they hold.
QStringList readContainer(QXmlStreamReader& xml, KvtmlFile& file, const QString& outer)
{
    const qsizetype index = file.lessons.size();
    file.lessons.append(KvtmlLesson{});
    QString name;
    QStringList ids;
    while (xml.readNextStartElement()) {
        if (xml.name() == u"name") {
            name = xml.readElementText(QXmlStreamReader::IncludeChildElements);
        } else if (xml.name() == u"entry") {
            ids.append(xml.attributes().value(QLatin1String("id")).toString());
            xml.skipCurrentElement();
        } else if (xml.name() == u"container") {
            ids += readContainer(xml, file, outer.isEmpty() ? name : outer + u'/' + name);
        } else {
            xml.skipCurrentElement();
        }
    }
    file.lessons[index].name = outer.isEmpty() ? name : outer + u'/' + name;
    file.lessons[index].entryIds = ids;
    return ids;
}

} // namespace

std::optional<KvtmlFile> parseKvtml(const QByteArray& bytes, QString* error)
{
    QXmlStreamReader xml(bytes);
    KvtmlFile file;
    if (!xml.readNextStartElement() || xml.name() != u"kvtml" ||
        !xml.attributes().value(QLatin1String("version")).startsWith(u"2")) {
        if (error)
            *error = exchange_texts::kNotKvtml;
        return std::nullopt;
    }
    while (xml.readNextStartElement()) {
        if (xml.name() == u"entries") {
            while (xml.readNextStartElement()) {
                if (xml.name() == u"entry")
                    readEntry(xml, file);
                else
                    xml.skipCurrentElement();
            }
        } else if (xml.name() == u"lessons") {
            while (xml.readNextStartElement()) {
                if (xml.name() == u"container")
                    readContainer(xml, file, QString());
                else
                    xml.skipCurrentElement();
            }
        } else {
            xml.skipCurrentElement();
        }
    }
    if (xml.hasError()) {
        if (error)
            *error = QStringLiteral("%1 (%2, line %3)")
                         .arg(exchange_texts::kNotKvtml, xml.errorString())
                         .arg(xml.lineNumber());
        return std::nullopt;
    }
    return file;
}

ImportBatch kvtmlWords(const KvtmlFile& file, const QString& lesson, const QString& folder)
{
    QSet<QString> chosen;
    for (const KvtmlLesson& each : file.lessons) {
        if (each.name == lesson)
            chosen = QSet<QString>(each.entryIds.begin(), each.entryIds.end());
    }
    ImportBatch batch;
    const QDir dir(folder);
    for (const KvtmlEntry& entry : file.entries) {
        if (!lesson.isEmpty() && !chosen.contains(entry.id))
            continue;
        const QString name = exchange_texts::entryName(entry.id);
        if (entry.word.trimmed().isEmpty()) {
            batch.skip(exchange_texts::entryReason(name, exchange_texts::kNoWord));
            continue;
        }
        if (entry.translation.trimmed().isEmpty()) {
            batch.skip(exchange_texts::entryReason(name, exchange_texts::kNoTranslation));
            continue;
        }
        ImportedWord word{entry.word.trimmed(), entry.translation.trimmed(), {}, {}};
        if (!entry.sound.isEmpty()) {
            QFile sound(dir.filePath(entry.sound));
            if (sound.open(QIODevice::ReadOnly)) {
                word.audio = sound.readAll();
                word.audioName = entry.sound;
            } else {
                batch.loseAudio(exchange_texts::entryReason(name, exchange_texts::audioMissing(entry.sound)));
            }
        }
        batch.words.append(word);
    }
    return batch;
}

QByteArray writeKvtml(const KvtmlExport& list)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeDTD(QStringLiteral("<!DOCTYPE kvtml PUBLIC \"kvtml2.dtd\" \"http://edu.kde.org/kvtml/kvtml2.dtd\">"));
    xml.writeStartElement(QStringLiteral("kvtml"));
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("2.0"));
    xml.writeStartElement(QStringLiteral("information"));
    xml.writeTextElement(QStringLiteral("generator"), QStringLiteral("Quorvane"));
    xml.writeTextElement(QStringLiteral("title"), list.title);
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("identifiers"));
    const QStringList languages = {list.language, list.translationLanguage};
    for (int i = 0; i < languages.size(); ++i) {
        xml.writeStartElement(QStringLiteral("identifier"));
        xml.writeAttribute(QStringLiteral("id"), QString::number(i));
        xml.writeTextElement(QStringLiteral("name"), languages.at(i));
        xml.writeEndElement();
    }
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("entries"));
    for (qsizetype i = 0; i < list.words.size(); ++i) {
        xml.writeStartElement(QStringLiteral("entry"));
        xml.writeAttribute(QStringLiteral("id"), QString::number(i));
        for (int side = 0; side < 2; ++side) {
            xml.writeStartElement(QStringLiteral("translation"));
            xml.writeAttribute(QStringLiteral("id"), QString::number(side));
            xml.writeTextElement(QStringLiteral("text"), side == 0 ? list.words.at(i) : list.translations.at(i));
            if (side == 0 && !list.sounds.value(i).isEmpty())
                xml.writeTextElement(QStringLiteral("sound"), list.sounds.at(i));
            xml.writeEndElement();
        }
        xml.writeEndElement();
    }
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("lessons"));
    xml.writeStartElement(QStringLiteral("container"));
    xml.writeTextElement(QStringLiteral("name"), list.title);
    xml.writeTextElement(QStringLiteral("inpractice"), QStringLiteral("true"));
    for (qsizetype i = 0; i < list.words.size(); ++i) {
        xml.writeEmptyElement(QStringLiteral("entry"));
        xml.writeAttribute(QStringLiteral("id"), QString::number(i));
    }
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndDocument();
    return bytes;
}

} // namespace quorvane
