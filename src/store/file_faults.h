#pragma once

// Test-only fault injection for the writers of store/text_files: every rewrite, append and MP3
// output goes through them, so making one of their steps fail shows what a full or broken disk
// does to each operation. Not used by the program itself.
namespace quorvane::file_faults {

// The steps of a write: handing the bytes to the file, syncing them to the disk (a flush), and
// renaming a rewritten file into place.
enum class Step { write, flush, rename };

// Makes the nth step of that kind from now (1: the next one) fail with the error code (an errno
// value such as ENOSPC). A failing write writes half of its bytes first, as a full disk does.
void failAt(Step step, int nth, int errorCode);
// Clears the fault and the counts.
void reset();
// How many steps of that kind ran (or failed) since the last reset.
int count(Step step);

} // namespace quorvane::file_faults
