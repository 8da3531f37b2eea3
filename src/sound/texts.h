#pragma once

#include <QString>

// The fixed texts of the sound services.
namespace quorvane::sound_texts {

// The caption of the main window's sound label while a sound number is said.
QString fileNumberCaption(const QString& soundNumber);
// A sample that could not be loaded or played, with the library's explanation of its error.
QString openFailed(const QString& errorText);
QString playFailed(const QString& errorText);

// A piece of an MP3 capture that could not be written.
QString captureNotWritten(const QString& path, const QString& reason);

// A take that could not be stored, naming its file and the cause; the cipher's own failure.
QString takeNotStored(const QString& path, const QString& reason);
inline const QString kCipherUnavailable = QStringLiteral("the cipher of recordings is not available");

} // namespace quorvane::sound_texts
