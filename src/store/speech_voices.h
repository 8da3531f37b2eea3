#pragma once

#include <QString>

namespace quorvane {

// The file that names the voice of a language: <language folder>/voice_<language>.dat, one line
// holding an eSpeak NG voice name ("es", "en-us" ...).
QString voice_file(const QString& languagesFolder, const QString& language);

// The eSpeak NG voice for a common language folder name ("spanish": "es", "mandarin": "cmn");
// empty when the name is not in the table.
QString table_voice(const QString& languageName);

// The voice that speaks a language's words: the voice file's first line (blanks trimmed) when it
// holds one, otherwise the table's voice for the folder name; empty when neither gives one.
QString chosen_voice(const QString& languagesFolder, const QString& language);

} // namespace quorvane
