#include "core/clock.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QThread>
#include <QTime>
#include <QTimer>

#include <chrono>
#include <cmath>

namespace quorvane {

namespace {

constexpr int kIdleWaitMilliseconds = 10;
constexpr double kSecondsPerDay = 86400.0;

// The time of day to a fraction of a microsecond: the wall clock read once, then carried on by the
// steady clock, which resolves nanoseconds. Callers that seed a generator from the timer at every
// call (random_index) then get a new seed at each call rather than one per millisecond.
double fineTimeOfDay()
{
    using Steady = std::chrono::steady_clock;
    static const Steady::time_point origin = Steady::now();
    static const double originTimeOfDay = QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
    const double elapsed = std::chrono::duration<double>(Steady::now() - origin).count();
    return std::fmod(originTimeOfDay + elapsed, kSecondsPerDay);
}

} // namespace

QtClock::QtClock() = default;
QtClock::~QtClock() = default;

double QtClock::timer()
{
    return fineTimeOfDay();
}

QDateTime QtClock::dateTime()
{
    return QDateTime::currentDateTime();
}

void QtClock::processEvents()
{
    QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance();
    if (!QCoreApplication::instance() || !dispatcher) {
        QThread::msleep(kIdleWaitMilliseconds);
        return;
    }
    // Handle what is pending; when nothing is, sleep in the dispatcher until an event arrives or
    // the wake-up timer fires, whichever is first.
    if (!m_wakeUp) {
        m_wakeUp = std::make_unique<QTimer>();
        m_wakeUp->setSingleShot(true);
        m_wakeUp->setTimerType(Qt::PreciseTimer);
    }
    m_wakeUp->start(kIdleWaitMilliseconds);
    dispatcher->processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

} // namespace quorvane
