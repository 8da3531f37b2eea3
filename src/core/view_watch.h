#pragma once

#include <QObject>
#include <QPointer>

namespace quorvane {

// A window a long loop talks to between its waits.
class WatchedView
{
public:
    virtual ~WatchedView() = default;
    // True from the moment the window is closed; the loop then ends at its next check.
    virtual bool unloaded() const = 0;
};

// What every long loop asks after each wait: is its window still there? The window may be
// destroyed (viewObject is watched for that) or only closed (unloaded).
class ViewWatch
{
public:
    ViewWatch(const WatchedView& view, QObject* viewObject) : m_view(view), m_guard(viewObject) {}
    bool gone() const { return !m_guard || m_view.unloaded(); }

private:
    const WatchedView& m_view;
    QPointer<QObject> m_guard;
};

} // namespace quorvane
