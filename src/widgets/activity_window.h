#pragma once

#include <QWidget>

#include <functional>

namespace quorvane {

class Session;

// What every window of an activity shares (the flash cards, the test and its results, recording,
// the list editor, the progress charts): a top-level window owned by its Qt parent, the main
// window, whose handlers run guarded so that no exception reaches the event loop.
//
// Closing it, by its frame or a button, runs form_unload() once and deletes the window later; a
// handler of it that waits inside a loop or a sound (guardedWait) keeps it alive until the
// outermost such handler has returned. A handler run with guarded() must not touch the window
// after a wait, since a window closed meanwhile may already be gone.
class ActivityWindow : public QWidget
{
    Q_OBJECT
public:
    // Whether closing the window brings the main window back (it hid itself when this one opened).
    enum class MainWindowOnClose { show, leave };

    ActivityWindow(Session& session, QWidget* parent, MainWindowOnClose onClose = MainWindowOnClose::show);

    // True from the moment the window is closed.
    bool unloaded() const { return m_unloaded; }

public slots:
    // Runs when the window closes: marks it unloaded, runs unloading(), shows the main window.
    void form_unload();

protected:
    // What a window does on closing beyond the shared part; runs before the main window shows.
    virtual void unloading() {}
    // Runs a handler so that no exception reaches the event loop.
    void guarded(const std::function<void()>& handler);
    // The same for a handler that uses the window across its waits.
    void guardedWait(const std::function<void()>& handler);
    void closeEvent(QCloseEvent* event) override;

    Session& m_session;

private:
    void deleteIfClosed();

    const MainWindowOnClose m_onClose;
    bool m_unloaded = false;
    // Handlers of guardedWait on the stack, nested ones included.
    int m_waits = 0;
};

} // namespace quorvane
