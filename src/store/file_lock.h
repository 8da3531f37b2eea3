#pragma once

#include <QString>

namespace quorvane {

// An exclusive advisory lock (flock) on a lock file, held from acquire() until the object goes. Two
// copies of the program sharing a program folder take it around every read-change-write of a shared
// file (a language's lists, master, change log, highest_num and pairing files; test_results.txt), so
// neither writes over what the other has just written. A second copy waits for the first rather than
// failing at once, up to the wait given. Within one process the lock of a path is taken once and
// shared: a function holding it may call another that takes it again. Writes happen on the main
// thread only, so sharing it between threads is not guarded against.
class FileLock
{
public:
    static constexpr int kDefaultWaitMs = 10000;

    explicit FileLock(QString lockPath, int waitMs = kDefaultWaitMs);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    // Takes the lock, making the lock file when it is missing; false with error set to a sentence
    // naming the file and the cause when it cannot be made or another copy keeps it past the wait.
    bool acquire(QString* error = nullptr);
    // Gives the lock up early (the destructor does it otherwise).
    void release();
    bool held() const { return m_held; }

private:
    QString m_path;
    int m_waitMs;
    bool m_held = false;
};

// Takes an exclusive flock on an open file, waiting for another holder up to waitMs as FileLock
// does; false with code set to the cause (EWOULDBLOCK: still held at the end of the wait).
bool lockDescriptor(int fd, int waitMs, int* code);

} // namespace quorvane
