#pragma once

#include <QString>

class QWidget;

namespace quorvane {

class Session;
class Prompts;
class SoundLibrary;
class Clock;

// Starts Quorvane without entering the event loop: makes the QApplication when there is none,
// makes programFolder the current directory when it is not empty, builds the session and the
// main window, runs its load handler, shows it and returns it. Null services mean the real ones
// (owned by the window); the caller keeps ownership of what it passes.
QWidget* start(const QString& programFolder, Prompts* prompts = nullptr, SoundLibrary* sound = nullptr,
               Clock* clock = nullptr);

// The session of any window of the program.
Session& sessionOf(QWidget* window);
// Marks a window as belonging to a session, for sessionOf.
void attachSession(QWidget* window, Session& session);

} // namespace quorvane
