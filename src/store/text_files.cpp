#include "store/text_files.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSaveFile>

#include <array>

namespace quorvane {

namespace {

// Characters of the bytes 0x80 to 0x9F; the bytes 0xA0 to 0xFF are those of Latin-1.
constexpr std::array<char16_t, 32> kHighControlBlock = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

const QHash<char16_t, char>& encodeTable()
{
    static const QHash<char16_t, char> table = [] {
        QHash<char16_t, char> result;
        for (size_t i = 0; i < kHighControlBlock.size(); ++i)
            result.insert(kHighControlBlock[i], static_cast<char>(0x80 + i));
        return result;
    }();
    return table;
}

char encodeCharacter(QChar character)
{
    const char16_t code = character.unicode();
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF))
        return static_cast<char>(code);
    return encodeTable().value(code, '?');
}

} // namespace

QString decodeWindows1252(const QByteArray& bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* out = text.data();
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        *out++ = QChar(value >= 0x80 && value < 0xA0 ? kHighControlBlock[value - 0x80] : char16_t(value));
    }
    return text;
}

QByteArray encodeWindows1252(const QString& text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char* out = bytes.data();
    for (const QChar character : text)
        *out++ = encodeCharacter(character);
    return bytes;
}

QStringList splitLines(const QString& text)
{
    QStringList lines;
    qsizetype start = 0;
    const qsizetype size = text.size();
    for (qsizetype i = 0; i < size; ++i) {
        const QChar c = text.at(i);
        if (c == u'\r' || c == u'\n') {
            lines.append(text.mid(start, i - start));
            if (c == u'\r' && i + 1 < size && text.at(i + 1) == u'\n')
                ++i;
            start = i + 1;
        }
    }
    if (start < size)
        lines.append(text.mid(start));
    return lines;
}

std::optional<QStringList> readTextLines(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return splitLines(decodeWindows1252(file.readAll()));
}

QString readFirstLine(const QString& path)
{
    const auto lines = readTextLines(path);
    return lines && !lines->isEmpty() ? lines->first() : QString();
}

QByteArray encodeLines(const QStringList& lines)
{
    // Encoded straight into one buffer: a file of tens of thousands of lines is one allocation.
    qsizetype total = 0;
    for (const QString& line : lines)
        total += line.size() + 2;
    QByteArray bytes(total, Qt::Uninitialized);
    char* out = bytes.data();
    for (const QString& line : lines) {
        for (const QChar character : line)
            *out++ = encodeCharacter(character);
        *out++ = '\r';
        *out++ = '\n';
    }
    return bytes;
}

bool writeTextLines(const QString& path, const QStringList& lines, QString* error)
{
    return writeBytes(path, encodeLines(lines), error);
}

bool writeBytes(const QString& path, const QByteArray& bytes, QString* error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        if (error)
            *error = file.errorString();
        return false;
    }
    return true;
}

bool appendTextLines(const QString& path, const QStringList& lines, QString* error)
{
    QFile file(path);
    const QByteArray bytes = encodeLines(lines);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append) || file.write(bytes) != bytes.size() || !file.flush()) {
        if (error)
            *error = file.errorString();
        return false;
    }
    return true;
}

qint64 fileLength(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() ? info.size() : -1;
}

} // namespace quorvane
