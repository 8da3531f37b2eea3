#pragma once

#include "core/speech.h"

namespace quorvane {

// The real synthesizer: eSpeak NG in this process, in its synchronous mode (each call returns
// with the whole text synthesized, on the caller's thread), with voices from the system's
// espeak-ng-data. eSpeak NG is one per process, so every EspeakSpeech shares it: it starts on the
// first call that needs it and stays until the process ends; a start that fails is not tried
// again. Only the thread of the windows uses it.
class EspeakSpeech : public SpeechSynthesizer
{
public:
    bool hasVoice(const QString& voice) override;
    std::optional<QByteArray> synthesize(const QString& voice, const QString& text, QString* error) override;
};

} // namespace quorvane
