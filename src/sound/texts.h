#pragma once

#include <QString>

// The fixed texts of the sound services.
namespace quorvane::sound_texts {

// The caption of the main window's sound label while a sound number is said.
QString fileNumberCaption(const QString& soundNumber);
// The caption while a word without a recording is spoken by the synthesizer.
QString synthesizedCaption(const QString& soundNumber);
inline const QString kSynthesizedMark = QStringLiteral(" (synthesized)");
// The checkable menu item that switches speech for words without recordings.
inline const QString kSpeakMissingWords = QStringLiteral("Speak words without recordings");
// Why the synthesizer cannot speak.
inline const QString kSpeechDataMissing =
    QStringLiteral("the eSpeak NG voice data (package espeak-ng-data) was not found");
QString speechRateUnexpected(int rate);
QString voiceMissing(const QString& voice);
QString speechFailed(const QString& voice, int code);
// Told once per voice and session; the words stay silent.
QString speechUnavailable(const QString& language, const QString& reason);

// A sample that could not be loaded or played, with the library's explanation of its error.
QString openFailed(const QString& errorText);
QString playFailed(const QString& errorText);

// A piece of an MP3 capture that could not be written.
QString captureNotWritten(const QString& path, const QString& reason);

// A take that could not be stored, naming its file and the cause; the cipher's own failure.
QString takeNotStored(const QString& path, const QString& reason);
inline const QString kCipherUnavailable = QStringLiteral("the cipher of recordings is not available");

// Why a recording could not be encoded as MP3.
QString sampleRateInvalid(int sampleRate);
inline const QString kHalfSample = QStringLiteral("the sound data ends in half a sample");
inline const QString kEncoderOutOfMemory = QStringLiteral("the MP3 encoder could not start (out of memory)");
QString formatRefused(int sampleRate);
QString encoderFailed(int code);
QString encoderFailedAtEnd(int code);

} // namespace quorvane::sound_texts
