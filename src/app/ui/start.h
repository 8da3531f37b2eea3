#pragma once

#include <QString>

class QWidget;

namespace quorvane {

class Session;
class Prompts;
class SoundLibrary;
class Clock;
class SpeechSynthesizer;

// Starts Quorvane without entering the event loop: makes the QApplication when there is none,
// makes programFolder the current directory when it is not empty, builds the session and the
// main window, runs its load handler, shows it and returns it. Null services mean the real ones
// (owned by the window); the caller keeps ownership of what it passes.
QWidget* start(const QString& programFolder, Prompts* prompts = nullptr, SoundLibrary* sound = nullptr,
               Clock* clock = nullptr, SpeechSynthesizer* speech = nullptr);

// The session of any window of the program: that of the main window it belongs to.
Session& sessionOf(QWidget* window);

} // namespace quorvane
