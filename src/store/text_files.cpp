#include "store/text_files.h"

#include "store/file_faults.h"
#include "store/file_lock.h"
#include "store/paths.h"
#include "store/texts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QScopeGuard>
#include <QSet>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <signal.h>
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

Q_NEVER_INLINE char encodeOutsideLatin1(char16_t code)
{
    return encodeTable().value(code, '?');
}

// Inlined where files are encoded: nearly every character is its own byte.
inline char encodeCharacter(QChar character)
{
    const char16_t code = character.unicode();
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) [[likely]]
        return static_cast<char>(code);
    return encodeOutsideLatin1(code);
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

std::optional<QStringList> readTextLines(const QString& path, QString* error)
{
    const auto bytes = readFileBytes(path, error);
    if (!bytes)
        return std::nullopt;
    return splitLines(decodeWindows1252(*bytes));
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
        return store_texts::kDiskFull;
    if (code == EWOULDBLOCK)
        return store_texts::kFileBusy;
    return QString::fromLocal8Bit(std::strerror(code));
}

bool fail(int code, QString* error)
{
    if (error)
        *error = causeText(code);
    return false;
}

// Writes every byte, as many calls as it takes; false with *code set otherwise.
bool writeAll(int fd, QByteArrayView bytes, int* code)
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

// The file a rewrite writes beside path: its own to each writer, two processes never share one.
QString rewriteName(const QString& path)
{
    static std::atomic<quint64> written{0};
    return path + u'.' + QString::number(::getpid()) + u'-' + QString::number(++written) + paths::kRewriteSuffix;
}

// Whether the process that wrote this file beside another may still be writing it: the name holds
// its process id. A name without one is from a writer that no longer runs.
bool writerMayRun(const QString& name)
{
    const QString mark = name.chopped(paths::kRewriteSuffix.size());
    const qsizetype dot = mark.lastIndexOf(u'.');
    const qsizetype dash = mark.lastIndexOf(u'-');
    if (dot < 0 || dash < dot)
        return false;
    bool ok = false;
    const qint64 pid = mark.mid(dot + 1, dash - dot - 1).toLongLong(&ok);
    if (!ok || pid <= 0 || pid == ::getpid())
        return false;
    return ::kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM;
}

} // namespace

std::optional<QByteArray> readFileBytes(const QString& path, QString* error)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        fail(errno, error);
        return std::nullopt;
    }
    const auto closing = qScopeGuard([fd] { ::close(fd); });
    struct stat info = {};
    if (::fstat(fd, &info) != 0 || S_ISDIR(info.st_mode)) {
        fail(S_ISDIR(info.st_mode) ? EISDIR : errno, error);
        return std::nullopt;
    }
    QByteArray bytes;
    bytes.reserve(static_cast<qsizetype>(info.st_size));
    char chunk[65536];
    for (;;) {
        const ssize_t got = ::read(fd, chunk, sizeof chunk);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0) {
            fail(errno, error);
            return std::nullopt;
        }
        if (got == 0)
            return bytes;
        bytes.append(chunk, got);
    }
}

bool forEachLine(const QString& path, const std::function<void(const QByteArray& line)>& take, QString* error)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return fail(errno, error);
    const auto closing = qScopeGuard([fd] { ::close(fd); });
    QByteArray line;
    bool afterCr = false; // an LF right after a CR ends no second line
    char chunk[65536];
    for (;;) {
        const ssize_t got = ::read(fd, chunk, sizeof chunk);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return fail(errno, error);
        if (got == 0)
            break;
        const char* start = chunk;
        const char* const end = chunk + got;
        for (const char* c = chunk; c < end; ++c) {
            if (*c != '\r' && *c != '\n') {
                afterCr = false;
                continue;
            }
            line.append(start, c - start);
            start = c + 1;
            if (!(afterCr && *c == '\n' && line.isEmpty()))
                take(line);
            afterCr = *c == '\r';
            line.clear();
        }
        line.append(start, end - start);
    }
    if (!line.isEmpty())
        take(line);
    return true;
}

bool writeTextLines(const QString& path, const QStringList& lines, QString* error)
{
    return writeBytes(path, encodeLines(lines), error);
}

bool writeBytes(const QString& path, const QByteArray& bytes, QString* error)
{
    return writeBytes(path, QList<QByteArrayView>{bytes}, error);
}

bool writeBytes(const QString& path, const QList<QByteArrayView>& pieces, QString* error)
{
    const QByteArray target = QFile::encodeName(path);
    const QByteArray beside = QFile::encodeName(rewriteName(path));
    const int fd = ::open(beside.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd < 0)
        return fail(errno, error);
    // The new file keeps the old one's permissions.
    struct stat old = {};
    if (::stat(target.constData(), &old) == 0)
        ::fchmod(fd, old.st_mode & 07777);
    int code = 0;
    bool written =
        std::all_of(pieces.begin(), pieces.end(), [&](QByteArrayView piece) { return writeAll(fd, piece, &code); }) &&
        syncToDisk(fd, &code);
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
        const QByteArray beside = QFile::encodeName(rewriteName(path));
        const int fd = ::open(beside.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
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
    int fd = -1;
    qint64 before = 0;
    bool made = false;
    // The file locked must still be the one of that name: an appender that made it and failed
    // removes it, and a waiter would otherwise append to the removed file.
    for (;;) {
        made = !QFileInfo::exists(path);
        fd = ::open(name.constData(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
        if (fd < 0)
            return fail(errno, error);
        int code = 0;
        if (!lockDescriptor(fd, FileLock::kDefaultWaitMs, &code)) {
            ::close(fd);
            return fail(code, error);
        }
        struct stat opened = {};
        struct stat named = {};
        if (::fstat(fd, &opened) == 0 && ::stat(name.constData(), &named) == 0 && opened.st_ino == named.st_ino &&
            opened.st_dev == named.st_dev) {
            before = opened.st_size;
            break;
        }
        ::close(fd);
    }
    made = made && before == 0;
    if (previousLength)
        *previousLength = made ? -1 : before;
    QByteArray bytes = encodeLines(lines);
    char last = '\n';
    if (before > 0 && ::pread(fd, &last, 1, before - 1) == 1 && last != '\n' && last != '\r')
        bytes.prepend("\r\n");
    int code = 0;
    const bool written = writeAll(fd, bytes, &code) && syncToDisk(fd, &code);
    if (!written) {
        // All or nothing: what this append wrote goes again, and only that.
        if (made)
            ::unlink(name.constData());
        ::ftruncate(fd, before);
        ::fsync(fd);
    }
    // Closing gives the turn to the next appender. The bytes are on the disk already, so an error
    // of the close itself is not taken for a failure.
    ::close(fd);
    return written || fail(code, error);
}

bool renameIntoPlace(const QString& from, const QString& to, QString* error)
{
    int code = 0;
    if (!renameInto(QFile::encodeName(from), QFile::encodeName(to), &code))
        return fail(code, error);
    syncFolderOf(to);
    return true;
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
    for (const QString& name : dir.entryList({QLatin1Char('*') + paths::kRewriteSuffix}, QDir::Files | QDir::Hidden)) {
        if (!writerMayRun(name))
            QFile::remove(dir.filePath(name));
    }
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
