#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quorvane {

class Session;

// The file the list editor works on and the text its box opens with.
struct ListEditorOpening
{
    QString list_path;
    QString text;
};

// Opening the list editor. With a list chosen: its file and its whole text ("" when the file cannot
// be read). With none: the message saying so, current_list set to "temporary" for the rest of the
// run, and temporary.txt of the language folder, which is not made until it is saved.
ListEditorOpening open_list_editor(Session& session);

// The box's text for a file's bytes: decoded as the word files are, each line end (CR LF, LF or CR)
// one line break of the box, a final line end included.
QString editor_text(const QByteArray& bytes);
// The bytes saved for the box's text: every line break (also the paragraph and line separators a
// text box hands out) written CR LF, then one more CR LF, encoded as the word files are. Kept: a
// text that ended with a line break gains an empty last line.
QByteArray editor_bytes(const QString& text);
// Replaces the file by editor_bytes(text), atomically. False, with error set, on failure.
bool save_list_text(const QString& path, const QString& text, QString* error = nullptr);

// What start_new_list leaves in the window once a name was given.
struct NewListOutcome
{
    QString list_path; // the file a following save writes
    bool clear_text;   // true when the file was made: the box is emptied
    QString caption;   // the language and list, shown in the window
};

// Asks for the name of a new list; nothing when none is given. A name whose file exists gives
// "That file already exits." and keeps that file as the one to save to (a save overwrites it);
// otherwise the file is made empty (a file that cannot be made is said in a message box).
std::optional<NewListOutcome> start_new_list(Session& session);

} // namespace quorvane
