#pragma once

#include <QByteArray>
#include <QString>

namespace quorvane {

class Session;

// Plays (or, while an MP3 file is being compiled, captures for out_file.mp3) the recording of a
// sound number in a language, and shows "File # " and the number on the main window. An empty
// sound number does nothing. Without a recording, text (the word as shown) is spoken by the
// language's voice where one speaks it, and the caption says "(synthesized)".
void say_word(Session& session, const QString& soundNumber, const QString& language, const QString& text = QString());

// Plays one file and waits: for speed below 1.5 a fixed 0.8 s and then speed seconds, otherwise
// until the sound ends and then speed seconds. A .str recording is played through a temporary
// WAV file, which is deleted at the end (path then names it).
void play_sound_file(Session& session, QString& path);

// Waits on the session's clock, handling window events, until the time is up or stop_flag or
// skip_flag is "yes". A zero or negative wait handles no events.
void wait_seconds(Session& session, float seconds);

// Appends the whole source file and CR LF to the target file (created when missing). A source that
// cannot be read appends nothing (a missing recording is left out); a failed write is false, with
// error set.
bool append_file(const QString& source, const QString& target, QString* error = nullptr);
// Appends piece and CR LF to the target file, as append_file does.
bool appendPiece(const QByteArray& piece, const QString& target, QString* error = nullptr);

// MP3 capture by the running flash cards. The pieces are appended to a file beside out_file.mp3;
// out_file.mp3 is written whole from it at the end of each run of the cards and when the count of
// words to capture reaches 0 (then the file beside it goes). A piece that cannot be written ends
// the capture with a message naming the file: false. The tag, when given, goes before the pieces.
QString mp3_capture_file();
bool capture_piece(Session& session, const QString& piece);
bool capture_bytes(Session& session, const QByteArray& piece);
void finish_mp3_capture(Session& session, const QByteArray& tag = {});

} // namespace quorvane
