#pragma once

#include <QString>

#include <optional>

namespace quorvane {

class Session;

// What an export wrote.
struct ExportSummary
{
    int entries = 0;
    int recordings = 0;
    int recordingsLeftOut = 0;
    QString recordingsFolder; // "" when no recordings were asked for
};

// A list's entries as CSV text: a header naming the columns, then word, translation, sound number
// and audio path, in UTF-8, fields with a separator, a quote, a line break or blanks at an end
// quoted. Lines end CR LF.
QString csvField(const QString& field);

// Writes the current list (entries of the list file with a sound number; the new list's header
// line left out) to path: KVTML 2 when its extension is .kvtml, CSV otherwise. When recordingsFolder
// is not empty, each entry's recording (the released MP3, else the new recording converted) is
// written there as <word>.mp3 (a second word of the same name "<word> (2).mp3"), and the audio
// column or sound element names it relative to path's folder; without it the audio column names
// the recording where it lies. Every file goes through the store's atomic writes. Nothing, with
// error set, when the list cannot be read or a file cannot be written.
std::optional<ExportSummary> export_list(const Session& session, const QString& path, const QString& recordingsFolder,
                                         QString* error);

// The recordings folder offered for an export to path: beside it, "<name>_audio".
QString recordingsFolderFor(const QString& path);

// The File > Export Word List... work behind the main window's export_word_list: asks whether to
// write the recordings too, exports, and tells the result in one box.
void export_word_list(Session& session, const QString& path);

} // namespace quorvane
