#include "store/file_lock.h"

#include "store/texts.h"

#include <QElapsedTimer>
#include <QFile>
#include <QHash>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace quorvane {

namespace {

struct HeldLock
{
    int fd = -1;
    int holders = 0;
};

// The locks this process holds, by lock file.
QHash<QString, HeldLock>& heldLocks()
{
    static QHash<QString, HeldLock> locks;
    return locks;
}

QString causeText(int code)
{
    return QString::fromLocal8Bit(std::strerror(code));
}

} // namespace

FileLock::FileLock(QString lockPath, int waitMs) : m_path(std::move(lockPath)), m_waitMs(waitMs) {}

FileLock::~FileLock()
{
    release();
}

bool FileLock::acquire(QString* error)
{
    if (m_held)
        return true;
    auto& locks = heldLocks();
    if (const auto found = locks.find(m_path); found != locks.end()) {
        ++found->holders;
        m_held = true;
        return true;
    }
    const int fd = ::open(QFile::encodeName(m_path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (fd < 0) {
        if (error)
            *error = store_texts::lockNotMade(m_path, causeText(errno));
        return false;
    }
    int code = 0;
    if (!lockDescriptor(fd, m_waitMs, &code)) {
        ::close(fd);
        if (error)
            *error =
                code == EWOULDBLOCK ? store_texts::lockBusy(m_path) : store_texts::lockNotMade(m_path, causeText(code));
        return false;
    }
    locks.insert(m_path, HeldLock{fd, 1});
    m_held = true;
    return true;
}

bool lockDescriptor(int fd, int waitMs, int* code)
{
    // A short pause between tries that grows to a tenth of a second: the other copy holds the lock
    // for one write, which is over in milliseconds.
    QElapsedTimer waited;
    waited.start();
    std::chrono::milliseconds pause(1);
    while (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        *code = errno;
        if (*code == EINTR)
            continue;
        if (*code != EWOULDBLOCK || waited.elapsed() >= waitMs)
            return false;
        std::this_thread::sleep_for(pause);
        pause = std::min(pause * 2, std::chrono::milliseconds(100));
    }
    return true;
}

void FileLock::release()
{
    if (!m_held)
        return;
    m_held = false;
    auto& locks = heldLocks();
    const auto found = locks.find(m_path);
    if (found == locks.end() || --found->holders > 0)
        return;
    // Closing the last descriptor of the lock file gives the lock up.
    ::close(found->fd);
    locks.erase(found);
}

} // namespace quorvane
