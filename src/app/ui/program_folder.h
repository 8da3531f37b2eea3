#pragma once

#include "core/prompts.h"

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>

namespace quorvane {

class SoundLibrary;
class Clock;

// The sample course that comes with the program whose executable lies in programDir: the
// installed one (programDir/../share/quorvane), else, in a build tree, the folder that the file
// kSampleHint beside the executable names relative to it. Empty when there is none.
QString sampleCourseFolder(const QString& programDir);
inline const QString kSampleHint = QStringLiteral("sample-course-folder.txt");

// Makes folder (which must not exist) a copy of the folder sample. The copy is made in a folder
// beside it (its name followed by ".partial", removed first if a killed run left one) and renamed
// into place once every file is written and synced, so the folder is there whole or not at all.
// progress(done, total) is called after each file. False with error naming the file and the cause.
bool copySampleCourse(const QString& sample, const QString& folder, const std::function<void(int, int)>& progress,
                      QString* error);

// Answers a command line that asks for no window (--help, --version, a bad option or folder):
// prints the answer and returns the exit code; -1 when a window is wanted. Needs no display, only
// a QCoreApplication, so that these answers work where no window can open.
int answerWithoutWindow(const QStringList& arguments, const QString& userFolder);

// Starts Quorvane as its command line asks. Kept by main() for the life of the program; owns
// the main window it starts.
class Launcher
{
public:
    // Null services mean the real ones; the caller keeps ownership of what it passes.
    explicit Launcher(Prompts& prompts, SoundLibrary* sound = nullptr, Clock* clock = nullptr);
    ~Launcher();

    // Reads the command line (arguments, the program's name first). When it asks for no window,
    // or the program folder cannot be used, says why and returns the exit code. Otherwise sets up
    // the program folder (the per-user folder userFolder unless --folder names one; on the first
    // run it gets a copy of the sample course found from programDir, and the user is told where),
    // opens the main window on it and returns -1: the caller then runs the event loop.
    int run(const QStringList& arguments, const QString& programDir, const QString& userFolder);
    QWidget* window() const { return m_window; }

private:
    bool prepareUserFolder(const QString& folder, const QString& programDir, QString* notice);

    Prompts& m_prompts;
    SoundLibrary* m_sound;
    Clock* m_clock;
    std::unique_ptr<Prompts> m_studentPrompts;
    QPointer<QWidget> m_window;
};

} // namespace quorvane
