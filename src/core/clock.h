#pragma once

#include <QDateTime>

#include <memory>

class QTimer;

namespace quorvane {

// The one source of time for every wait and countdown of the program.
class Clock
{
public:
    virtual ~Clock() = default;
    // Seconds since midnight, with at least hundredths of a second.
    virtual double timer() = 0;
    // Lets the window system handle what is pending. The real clock blocks for a few
    // milliseconds when nothing is pending, so that a wait does not keep a core busy.
    virtual void processEvents() = 0;
    // The local date and time every dated record takes (test results, the review log).
    virtual QDateTime dateTime() { return QDateTime::currentDateTime(); }
};

// The wall clock and the Qt event loop of the running application.
class QtClock : public Clock
{
public:
    QtClock();
    ~QtClock() override;
    double timer() override;
    void processEvents() override;
    QDateTime dateTime() override;

private:
    std::unique_ptr<QTimer> m_wakeUp; // made on first use, in the thread that waits
};

} // namespace quorvane
