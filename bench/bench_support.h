#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace quorvane::bench {

// Runs action after the last benchmark, while the application still exists: for fixtures that
// several benchmarks share and that hold windows.
void atEnd(std::function<void()> action);

// Writes a file of a benchmark's program folder, making its folder; stops the run when it cannot.
void writeFile(const QString& path, const QByteArray& bytes);

// The bench run as a program of its own: "<bench> --draw-main-window FOLDER" starts Quorvane on
// FOLDER as the program does, prints "drawn" once its main window is painted and ends.
inline const QString kDrawMainWindow = QStringLiteral("--draw-main-window");
int drawMainWindow(int argc, char* argv[]);

} // namespace quorvane::bench
