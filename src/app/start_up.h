#pragma once

#include <QStringList>

namespace quorvane {

class Session;

// Asks the student's first name and makes the student's folders: sets user_name (as typed;
// Cancel gives "") and user_folder (the program folder, "users", the name, each followed by the
// separator). Folders that cannot be made are passed over silently, kept so: the first move of a
// word says what could not be written.
void ask_user_name(Session& session);

// Locks the student's folder (user_folder) for this session: one copy of the program per student.
// The lock lasts as long as the main window attached to the session (with none, as long as the
// process); the lock of a process that has ended is taken over. False when another session or
// process holds it; a lock that cannot be made at all (a read-only disk) is passed over, since
// the first write says what is wrong.
bool lock_student_folder(Session& session);

// The start of a run, before the languages are listed: checks that the sound library is there
// (if not, returns false with error saying so, doing nothing more), starts it (a failure is said
// in a message box, and the run goes on without sound), asks the student's name, locks the
// student's folder (another copy open for the same student gives false with error saying so,
// before any of the student's files is touched), removes the rewrites a killed run left in the
// program folder and sets languages_folder.
bool start_up(Session& session, QString* error);

// The installed languages, in the order the folder lists them.
QStringList installed_languages(const Session& session);

} // namespace quorvane
