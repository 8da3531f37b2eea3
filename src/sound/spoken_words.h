#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quorvane {

class Session;

// Speech fills the gaps where a word has no recording. These decide whether a word is spoken and
// give its sound; say_word, the flash cards, the test and MP3 compilation all go through them.

// The voice that speaks words of language now: empty when speech is switched off, no voice is
// chosen for the language, or the synthesizer lacks it (told once per session, in a message).
QString speaking_voice(Session& session, const QString& language);

// The sound of text spoken by voice (the speaking voice of language), 22050 Hz mono 16-bit PCM;
// nothing when synthesis fails (told once per voice and session).
std::optional<QByteArray> spoken_pcm(Session& session, const QString& language, const QString& voice,
                                     const QString& text);

// text of language spoken and encoded as an MP3 piece; nothing when the word is not spoken
// (speech off, no voice, empty text) or its synthesis or encoding fails (told once).
std::optional<QByteArray> spoken_mp3(Session& session, const QString& language, const QString& text);

// Whether a word with no recording at all (neither released nor new) is spoken by synthesis.
bool would_synthesize(Session& session, const QString& soundNumber, const QString& language, const QString& text);

// The name a spoken word has in the sound library: "speech:<voice>:<text>".
QString spoken_name(const QString& voice, const QString& text);

} // namespace quorvane
