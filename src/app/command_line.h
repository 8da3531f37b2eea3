#pragma once

#include <QString>
#include <QStringList>

namespace quorvane {

// What the command line asks for. The parsing is a plain function so that every option and
// every refusal can be checked without starting a window.
struct CommandLine
{
    enum class Action {
        run,   // start the program
        print, // print output on standard output and end with code 0 (--help, --version)
        fail,  // print output on standard error and end with code 2 (a bad option or folder)
    };
    Action action = Action::run;
    QString output;
    // The program folder given with --folder, absolute and checked; empty: the per-user folder.
    QString folder;
    // The student given with --student; the name question is not asked then.
    bool hasStudent = false;
    QString student;
};

// Parses arguments (the program's name first). userFolder is the per-user folder, named in the help.
CommandLine parseCommandLine(const QStringList& arguments, const QString& userFolder);

// Whether folder can be a program folder: an existing folder that can be read and written.
bool usableFolder(const QString& folder, QString* error);

} // namespace quorvane
