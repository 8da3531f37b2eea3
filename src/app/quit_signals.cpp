#include "app/quit_signals.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace quorvane {

namespace {

// The write end of the pipe, the only thing a signal handler touches.
volatile sig_atomic_t g_writeEnd = -1;

void onQuitSignal(int number)
{
    const int fd = g_writeEnd;
    if (fd < 0) {
        // No program left to close: the signal does what it does by default.
        std::signal(number, SIG_DFL);
        std::raise(number);
        return;
    }
    const char byte = static_cast<char>(number);
    [[maybe_unused]] const ssize_t written = ::write(fd, &byte, 1);
}

bool makePipe(int ends[2])
{
    if (::pipe(ends) != 0)
        return false;
    for (int i = 0; i < 2; ++i) {
        ::fcntl(ends[i], F_SETFD, FD_CLOEXEC);
        ::fcntl(ends[i], F_SETFL, ::fcntl(ends[i], F_GETFL) | O_NONBLOCK);
    }
    return true;
}

} // namespace

bool install_quit_signals(QObject* owner, std::function<void()> quit)
{
    // SDL would otherwise turn both signals into an event nobody reads.
    qputenv("SDL_NO_SIGNAL_HANDLERS", "1");

    int ends[2];
    if (!makePipe(ends))
        return false;
    auto* notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, owner);
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [readEnd = ends[0], quit] {
        char bytes[16];
        while (::read(readEnd, bytes, sizeof bytes) > 0) {
        }
        quit();
    });
    // The newest owner's pipe takes the signals; the old ends close with their owner.
    QObject::connect(notifier, &QObject::destroyed, [ends0 = ends[0], ends1 = ends[1]] {
        if (g_writeEnd == ends1)
            g_writeEnd = -1;
        ::close(ends0);
        ::close(ends1);
    });
    g_writeEnd = ends[1];

    struct sigaction action = {};
    action.sa_handler = onQuitSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
    return true;
}

} // namespace quorvane
