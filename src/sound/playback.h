#pragma once

#include <QString>

namespace quorvane {

class Session;

// Plays (or, while an MP3 file is being compiled, appends to out_file.mp3) the recording of a
// sound number in a language, and shows "File # " and the number on the main window. An empty
// sound number does nothing.
void say_word(Session& session, const QString& soundNumber, const QString& language);

// Plays one file and waits: for speed below 1.5 a fixed 0.8 s and then speed seconds, otherwise
// until the sound ends and then speed seconds. A .str recording is played through a temporary
// WAV file, which is deleted at the end (path then names it).
void play_sound_file(Session& session, QString& path);

// Waits on the session's clock, handling window events, until the time is up or stop_flag or
// skip_flag is "yes". A zero or negative wait handles no events.
void wait_seconds(Session& session, float seconds);

// Appends the whole source file and CR LF to the target file (created when missing). Errors are
// swallowed.
void append_file(const QString& source, const QString& target);

} // namespace quorvane
