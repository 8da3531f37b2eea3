#include "exchange/csv_reader.h"

#include "exchange/texts.h"
#include "store/text_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

namespace quorvane {

namespace {

const QStringList kWordNames = {"word", "words", "term", "front", "question", "expression", "vocabulary"};
const QStringList kTranslationNames = {"translation", "meaning", "back", "answer", "definition"};
const QStringList kAudioNames = {"audio", "sound", "audio file", "audio path", "recording", "file"};

QChar separatorOf(const QString& text)
{
    const QString firstLine = text.left(text.indexOf(u'\n'));
    if (firstLine.contains(u'\t'))
        return u'\t';
    if (firstLine.contains(u';') && !firstLine.contains(u','))
        return u';';
    return u',';
}

enum class RecordEnd { Line, Text, UnclosedQuote, TextAfterQuote };

// Reads one record from position, leaving position after its line end.
RecordEnd readRecord(const QString& text, qsizetype& position, QChar separator, QStringList& fields, int& newlines)
{
    fields.clear();
    newlines = 0;
    QString field;
    const qsizetype size = text.size();
    qsizetype i = position;
    bool quotedField = false;
    while (i < size) {
        const QChar c = text.at(i);
        if (field.isEmpty() && !quotedField && c == u'"') {
            quotedField = true;
            ++i;
            bool closed = false;
            while (i < size) {
                const QChar q = text.at(i);
                if (q == u'"') {
                    if (i + 1 < size && text.at(i + 1) == u'"') {
                        field.append(u'"');
                        i += 2;
                        continue;
                    }
                    closed = true;
                    ++i;
                    break;
                }
                if (q == u'\n')
                    ++newlines;
                field.append(q);
                ++i;
            }
            if (!closed) {
                position = size;
                return RecordEnd::UnclosedQuote;
            }
            if (i < size && text.at(i) != separator && text.at(i) != u'\r' && text.at(i) != u'\n') {
                while (i < size && text.at(i) != u'\n')
                    ++i;
                position = i < size ? i + 1 : size;
                return RecordEnd::TextAfterQuote;
            }
            continue;
        }
        if (c == separator) {
            fields.append(field);
            field.clear();
            quotedField = false;
            ++i;
            continue;
        }
        if (c == u'\r' || c == u'\n') {
            if (c == u'\r' && i + 1 < size && text.at(i + 1) == u'\n')
                ++i;
            fields.append(field);
            position = i + 1;
            return RecordEnd::Line;
        }
        field.append(c);
        ++i;
    }
    fields.append(field);
    position = size;
    return RecordEnd::Text;
}

// The column of the first of names among a header's fields, -1 when none is there.
int columnOf(const QStringList& header, const QStringList& names)
{
    for (int i = 0; i < header.size(); ++i) {
        if (names.contains(header.at(i).trimmed().toLower()))
            return i;
    }
    return -1;
}

} // namespace

QString decodeImportedText(const QByteArray& bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8.decode(bytes);
    if (!utf8.hasError())
        return text.startsWith(QChar(0xFEFF)) ? text.mid(1) : text;
    return decodeWindows1252(bytes);
}

CsvRecords parseCsv(const QString& text)
{
    CsvRecords result;
    const QChar separator = separatorOf(text);
    qsizetype position = 0;
    int line = 1;
    QStringList fields;
    while (position < text.size()) {
        const qsizetype start = position;
        int newlines = 0;
        const RecordEnd end = readRecord(text, position, separator, fields, newlines);
        if (end == RecordEnd::UnclosedQuote) {
            result.badRecords.append(exchange_texts::lineReason(line, exchange_texts::kUnclosedQuote));
            // Reading goes on at the line after the record's first: one broken quote loses one line.
            const qsizetype nextLine = text.indexOf(u'\n', start);
            if (nextLine < 0)
                break;
            position = nextLine + 1;
            ++line;
            continue;
        }
        if (end == RecordEnd::TextAfterQuote) {
            result.badRecords.append(exchange_texts::lineReason(line, exchange_texts::kTextAfterQuote));
            line += newlines + 1;
            continue;
        }
        const bool blank = fields.size() == 1 && fields.first().trimmed().isEmpty();
        if (!blank) {
            result.records.append(fields);
            result.lines.append(line);
        }
        line += newlines + 1;
    }
    return result;
}

std::optional<ImportBatch> readCsvWords(const QString& path, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = file.errorString();
        return std::nullopt;
    }
    const CsvRecords parsed = parseCsv(decodeImportedText(file.readAll()));
    ImportBatch batch;
    for (const QString& reason : parsed.badRecords)
        batch.skip(reason);
    int wordColumn = 0;
    int translationColumn = 1;
    int audioColumn = 2;
    qsizetype first = 0;
    if (!parsed.records.isEmpty()) {
        const QStringList& header = parsed.records.first();
        const int word = columnOf(header, kWordNames);
        const int translation = columnOf(header, kTranslationNames);
        if (word >= 0 || translation >= 0) {
            wordColumn = word >= 0 ? word : 0;
            translationColumn = translation >= 0 ? translation : (wordColumn == 0 ? 1 : 0);
            audioColumn = columnOf(header, kAudioNames);
            first = 1;
        }
    }
    const QDir folder = QFileInfo(path).absoluteDir();
    for (qsizetype r = first; r < parsed.records.size(); ++r) {
        const QStringList& fields = parsed.records.at(r);
        const int line = parsed.lines.at(r);
        ImportedWord word;
        word.word = fields.value(wordColumn).trimmed();
        word.translation = fields.value(translationColumn).trimmed();
        if (word.word.isEmpty()) {
            batch.skip(exchange_texts::lineReason(line, exchange_texts::kNoWord));
            continue;
        }
        if (word.translation.isEmpty()) {
            batch.skip(exchange_texts::lineReason(line, exchange_texts::kNoTranslation));
            continue;
        }
        const QString audio = audioColumn >= 0 ? fields.value(audioColumn).trimmed() : QString();
        if (!audio.isEmpty()) {
            QFile audioFile(folder.filePath(audio));
            if (audioFile.open(QIODevice::ReadOnly)) {
                word.audio = audioFile.readAll();
                word.audioName = audio;
            } else {
                batch.loseAudio(exchange_texts::lineReason(line, exchange_texts::audioMissing(audio)));
            }
        }
        batch.words.append(word);
    }
    return batch;
}

} // namespace quorvane
