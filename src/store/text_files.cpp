#include "store/text_files.h"

#include "store/file_faults.h"
#include "store/paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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

namespace {

// ---- Fault injection (tests only)

struct Faults
{
    std::array<int, 3> counts{};
    file_faults::Step step = file_faults::Step::write;
    int failAt = 0; // the count of that step that fails; 0: none
    int error = 0;
};

Faults& faults()
{
    static Faults state;
    return state;
}

// Counts a step; the injected error code when this one is to fail, else 0.
int injectedFault(file_faults::Step step)
{
    Faults& state = faults();
    const int counted = ++state.counts[static_cast<size_t>(step)];
    return state.failAt > 0 && state.step == step && counted == state.failAt ? state.error : 0;
}

// ---- The steps, each checked

QString causeText(int code)
{
    if (code == ENOSPC || code == EDQUOT)
        return QStringLiteral("the disk is full");
    return QString::fromLocal8Bit(std::strerror(code));
}

bool fail(int code, QString* error)
{
    if (error)
        *error = causeText(code);
    return false;
}

// Writes every byte, as many calls as it takes; false with *code set otherwise.
bool writeAll(int fd, const QByteArray& bytes, int* code)
{
    const char* data = bytes.constData();
    qsizetype left = bytes.size();
    if (const int injected = injectedFault(file_faults::Step::write)) {
        left /= 2;
        *code = injected;
        while (left > 0) {
            const ssize_t written = ::write(fd, data, static_cast<size_t>(left));
            if (written <= 0)
                break;
            data += written;
            left -= written;
        }
        return false;
    }
    while (left > 0) {
        const ssize_t written = ::write(fd, data, static_cast<size_t>(left));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0) {
            *code = written < 0 ? errno : ENOSPC;
            return false;
        }
        data += written;
        left -= written;
    }
    return true;
}

// The data on the disk: a full disk may only say so here.
bool syncToDisk(int fd, int* code)
{
    if (const int injected = injectedFault(file_faults::Step::flush)) {
        *code = injected;
        return false;
    }
    if (::fsync(fd) != 0) {
        *code = errno;
        return false;
    }
    return true;
}

bool renameInto(const QByteArray& from, const QByteArray& to, int* code)
{
    if (const int injected = injectedFault(file_faults::Step::rename)) {
        *code = injected;
        return false;
    }
    if (::rename(from.constData(), to.constData()) != 0) {
        *code = errno;
        return false;
    }
    return true;
}

// Makes a rename lasting; a failure here leaves the file whole under one of its names, so it is
// not reported.
void syncFolderOf(const QString& path)
{
    const int fd = ::open(QFile::encodeName(QFileInfo(path).absolutePath()).constData(), O_RDONLY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

} // namespace

bool writeTextLines(const QString& path, const QStringList& lines, QString* error)
{
    return writeBytes(path, encodeLines(lines), error);
}

bool writeBytes(const QString& path, const QByteArray& bytes, QString* error)
{
    const QByteArray target = QFile::encodeName(path);
    const QByteArray beside = QFile::encodeName(path + paths::kRewriteSuffix);
    const int fd = ::open(beside.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (fd < 0)
        return fail(errno, error);
    // The new file keeps the old one's permissions.
    struct stat old = {};
    if (::stat(target.constData(), &old) == 0)
        ::fchmod(fd, old.st_mode & 07777);
    int code = 0;
    bool written = writeAll(fd, bytes, &code) && syncToDisk(fd, &code);
    if (::close(fd) != 0 && written) {
        code = errno;
        written = false;
    }
    if (!written || !renameInto(beside, target, &code)) {
        ::unlink(beside.constData());
        return fail(code, error);
    }
    syncFolderOf(path);
    return true;
}

bool writeFiles(const QList<QPair<QString, QByteArray>>& files, QString* error,
                const std::function<bool(qsizetype)>& progress)
{
    QList<QByteArray> targets;
    QList<QByteArray> besides;
    qsizetype renamed = 0;
    const auto undo = [&] {
        for (qsizetype i = 0; i < besides.size(); ++i)
            ::unlink((i < renamed ? targets : besides).at(i).constData());
    };
    int code = 0;
    for (const auto& [path, bytes] : files) {
        const QByteArray beside = QFile::encodeName(path + paths::kRewriteSuffix);
        const int fd = ::open(beside.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
        if (fd < 0) {
            code = errno;
            undo();
            return fail(code, error);
        }
        targets.append(QFile::encodeName(path));
        besides.append(beside);
        bool written = writeAll(fd, bytes, &code);
        if (::close(fd) != 0 && written) {
            code = errno;
            written = false;
        }
        if (!written) {
            undo();
            return fail(code, error);
        }
        if (progress && !progress(besides.size())) {
            undo();
            if (error)
                error->clear();
            return false;
        }
    }
    if (files.isEmpty())
        return true;
    // One sync of the whole file system holding the files makes every one of them lasting.
    const int folder =
        ::open(QFile::encodeName(QFileInfo(files.first().first).absolutePath()).constData(), O_RDONLY | O_CLOEXEC);
    code = injectedFault(file_faults::Step::flush);
    if (code == 0 && (folder < 0 || ::syncfs(folder) != 0))
        code = errno;
    if (folder >= 0)
        ::close(folder);
    if (code != 0) {
        undo();
        return fail(code, error);
    }
    for (; renamed < besides.size(); ++renamed) {
        if (!renameInto(besides.at(renamed), targets.at(renamed), &code)) {
            undo();
            return fail(code, error);
        }
    }
    QSet<QString> folders;
    for (const auto& file : files) {
        const QString folderPath = QFileInfo(file.first).absolutePath();
        if (!folders.contains(folderPath)) {
            folders.insert(folderPath);
            syncFolderOf(file.first);
        }
    }
    return true;
}

bool appendTextLines(const QString& path, const QStringList& lines, QString* error, qint64* previousLength)
{
    const QByteArray name = QFile::encodeName(path);
    const qint64 before = fileLength(path);
    if (previousLength)
        *previousLength = before;
    const int fd = ::open(name.constData(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    if (fd < 0)
        return fail(errno, error);
    QByteArray bytes = encodeLines(lines);
    char last = '\n';
    if (before > 0 && ::pread(fd, &last, 1, before - 1) == 1 && last != '\n')
        bytes.prepend("\r\n");
    int code = 0;
    bool written = writeAll(fd, bytes, &code) && syncToDisk(fd, &code);
    if (!written && before >= 0) {
        // All or nothing: the fragment written goes again.
        ::ftruncate(fd, before);
        ::fsync(fd);
    }
    if (::close(fd) != 0 && written) {
        code = errno;
        written = false;
        if (before >= 0)
            restoreLength(path, before);
    }
    if (written)
        return true;
    if (before < 0)
        ::unlink(name.constData());
    return fail(code, error);
}

bool restoreLength(const QString& path, qint64 length)
{
    if (length < 0)
        return QFile::remove(path) || !QFileInfo::exists(path);
    return QFile::resize(path, length);
}

void removeStrayRewrites(const QString& folder)
{
    const QDir dir(folder);
    for (const QString& name : dir.entryList({QLatin1Char('*') + paths::kRewriteSuffix}, QDir::Files | QDir::Hidden))
        QFile::remove(dir.filePath(name));
}

namespace file_faults {

void failAt(Step step, int nth, int errorCode)
{
    Faults& state = faults();
    state.step = step;
    state.failAt = state.counts[static_cast<size_t>(step)] + nth;
    state.error = errorCode;
}

void reset()
{
    faults() = Faults();
}

int count(Step step)
{
    return faults().counts[static_cast<size_t>(step)];
}

} // namespace file_faults

qint64 fileLength(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() ? info.size() : -1;
}

} // namespace quorvane
