#include "app/clock.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QThread>
#include <QTime>
#include <QTimer>

namespace quorvane {

namespace {
constexpr int kIdleWaitMilliseconds = 3;
}

double QtClock::timer()
{
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

void QtClock::processEvents()
{
    QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance();
    if (!QCoreApplication::instance() || !dispatcher) {
        QThread::msleep(kIdleWaitMilliseconds);
        return;
    }
    // Handle everything pending; when nothing is, sleep in the dispatcher until an event
    // arrives or the wake-up timer fires, whichever is first.
    if (dispatcher->processEvents(QEventLoop::AllEvents))
        return;
    QTimer wakeUp;
    wakeUp.setSingleShot(true);
    wakeUp.start(kIdleWaitMilliseconds);
    dispatcher->processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

} // namespace quorvane
