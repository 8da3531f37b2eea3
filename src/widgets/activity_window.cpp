#include "widgets/activity_window.h"

#include "core/session.h"
#include "widgets/handler_guard.h"

#include <QCloseEvent>
#include <QPointer>

namespace quorvane {

ActivityWindow::ActivityWindow(Session& session, QWidget* parent, MainWindowOnClose onClose)
    : QWidget(parent, Qt::Window), m_session(session), m_onClose(onClose)
{
}

void ActivityWindow::form_unload()
{
    m_unloaded = true;
    unloading();
    if (m_onClose == MainWindowOnClose::show)
        m_session.mainView().show_main_window();
}

void ActivityWindow::guarded(const std::function<void()>& handler)
{
    runHandler(m_session.prompts, handler);
}

void ActivityWindow::guardedWait(const std::function<void()>& handler)
{
    // The main window, and this one with it, may still be deleted meanwhile.
    const QPointer<ActivityWindow> self(this);
    ++m_waits;
    guarded(handler);
    if (!self)
        return;
    --m_waits;
    deleteIfClosed();
}

void ActivityWindow::closeEvent(QCloseEvent* event)
{
    if (!m_unloaded)
        form_unload();
    event->accept();
    deleteIfClosed();
}

void ActivityWindow::deleteIfClosed()
{
    if (m_unloaded && m_waits == 0)
        deleteLater();
}

} // namespace quorvane
