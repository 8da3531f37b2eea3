#pragma once

namespace quorvane {

class Session;

// Asks the student's first name and makes the student's folders: sets user_name (as typed;
// Cancel gives "") and user_folder (the program folder, "users", the name, each followed by the
// separator). Folders that cannot be made are passed over silently.
void ask_user_name(Session& session);

} // namespace quorvane
