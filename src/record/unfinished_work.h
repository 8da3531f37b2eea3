#pragma once

#include <QString>

namespace quorvane {

// Run once at start, before the languages are listed: finishes or undoes what a killed copy of the
// program left half done in the languages folder. A new language whose build was complete is moved
// into place and one that was not is removed; a language's committed word edit is completed and an
// uncommitted one rolled back (under the language's lock, so a copy that is still running is
// waited for); the files a killed rewrite or archiver left in a language's folder and recording
// folders are removed.
void finish_unfinished_work(const QString& languagesFolder);

} // namespace quorvane
