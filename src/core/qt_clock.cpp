#include "core/clock.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QThread>
#include <QTime>
#include <QTimer>

namespace quorvane {

namespace {
constexpr int kIdleWaitMilliseconds = 10;
}

QtClock::QtClock() = default;
QtClock::~QtClock() = default;

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
