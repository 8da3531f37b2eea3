#pragma once

#include <QString>

#include <functional>

namespace quorvane {

class Session;

// Asks how many words the running flash cards should capture into out_file.mp3, deletes an old
// out_file.mp3 and says what happens next. The card loop does the capturing: each card counts
// mp3_words_left down and appends a beep, and say_word appends instead of playing while the count
// is above 0. An entry that is no number leaves the count as it was. out_file.mp3 begins with an
// ID3 tag naming the list.
void create_mp3(Session& session);

// Called with the "c words completed" text every tenth word, before the short wait that lets the
// window repaint.
using Mp3Progress = std::function<void(const QString& text)>;

// Writes every word of the shown list into files of 100 words, "100words1.mp3", "100words2.mp3"
// ... in the program folder, after an OK/Cancel box and boxes for the repeats and the silence
// between words (which also sets silence_count). Each word is, as many times as asked, its
// translation's recording, its own recording and the silence pieces, then a beep; every piece is
// followed by CR LF. Missing recordings are left out. Each file is written beside its name and
// renamed into place when whole, its ID3 tag (the list and its word range, track number) before
// the audio; the files written are then listed in order in the playlist 100words.m3u8 (a playlist
// that cannot be written is said after the rest). Ends with the count of files, or with "Action
// has been cancelled". Events are let through after every word: a stop_flag set meanwhile (not one already
// set when it began) ends it with the words done so far written and a message saying so. A file
// that cannot be written ends it with a message naming the file; the files before it stay. A sound
// number that names no translation is told before anything is asked or written.
void auto_mp3(Session& session, const Mp3Progress& progress);

// The released recording of a sound number in a language (empty sound number: a path that
// names no file).
QString recording_path(const Session& session, const QString& soundNumber, const QString& language);

} // namespace quorvane
