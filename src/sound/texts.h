#pragma once

#include <QString>

// The fixed texts of the sound services.
namespace quorvane::sound_texts {

// The caption of the main window's sound label while a sound number is said.
QString fileNumberCaption(const QString& soundNumber);
// A sample that could not be loaded or played, with the library's explanation of its error.
QString openFailed(const QString& errorText);
QString playFailed(const QString& errorText);

// The fixed files of MP3 capture, in the program folder.
QString mp3OutputFile();
QString silenceFile();

// The repeat-count box of the flash cards and its answer to a count out of range.
QString repeatCountPrompt();
QString repeatCountReset();
// A word that could not be moved between a student's unknown and known files.
QString targetNotWritten(const QString& target, const QString& reason);
QString sourceNotWritten(const QString& target, const QString& source, const QString& reason);
// A random range too wide for 32-bit arithmetic.
QString rangeOverflow();

} // namespace quorvane::sound_texts
