#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quorvane {

// The rate, channels and sample size of every synthesized sound: 22050 Hz mono signed 16-bit,
// little-endian, as the program's own recordings.
constexpr int kSpeechRate = 22050;

// A speech synthesizer: speaks a text with a named voice. It fills the gaps where a word has no
// recording; real recordings always come first. The real one is EspeakSpeech; calls run on the
// caller's thread and return when the whole text is synthesized.
class SpeechSynthesizer
{
public:
    virtual ~SpeechSynthesizer() = default;

    // False for the stand-in of a machine without speech: its words stay silent without a word said.
    virtual bool installed() const { return true; }

    // Whether voice (a name such as "es" or "en-us") can be used on this machine.
    virtual bool hasVoice(const QString& voice) = 0;
    // The text spoken by voice, as 22050 Hz mono 16-bit PCM. Text is plain text: markup in it is
    // spoken, never interpreted. A missing or broken voice gives nothing, with error set.
    virtual std::optional<QByteArray> synthesize(const QString& voice, const QString& text, QString* error) = 0;
};

// The synthesizer in force while none is attached: it has no voice, so words without a recording
// stay silent, as they do without speech.
class NoSpeech : public SpeechSynthesizer
{
public:
    bool installed() const override { return false; }
    bool hasVoice(const QString&) override { return false; }
    std::optional<QByteArray> synthesize(const QString&, const QString&, QString*) override { return std::nullopt; }
};

} // namespace quorvane
