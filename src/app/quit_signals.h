#pragma once

#include <functional>

class QObject;

namespace quorvane {

// Makes SIGINT and SIGTERM run quit inside the event loop, as the Exit menu item does, so Ctrl+C in
// a terminal or a plain `kill` ends the program with its files closed and the student's lock
// released. The handlers only write a byte to a pipe; a socket notifier owned by owner reads it.
// The sound library is told to leave these two signals alone. False (nothing installed) when the
// pipe cannot be made.
bool install_quit_signals(QObject* owner, std::function<void()> quit);

} // namespace quorvane
