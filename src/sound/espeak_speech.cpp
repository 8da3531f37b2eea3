#include "sound/espeak_speech.h"

#include "sound/texts.h"

#include <espeak-ng/speak_lib.h>

#include <QHash>
#include <QtEndian>

namespace quorvane {

namespace {

// The synthesis under way: eSpeak NG's synchronous mode calls back on the calling thread before
// espeak_Synth returns, so one pointer is enough.
QByteArray* g_output = nullptr;

int collectSamples(short* samples, int count, espeak_EVENT*)
{
    if (g_output && samples && count > 0) {
        const qsizetype start = g_output->size();
        g_output->resize(start + 2 * qsizetype(count));
        for (int i = 0; i < count; ++i)
            qToLittleEndian<qint16>(samples[i], g_output->data() + start + 2 * i);
    }
    return 0;
}

enum class State { notStarted, running, failed };

// eSpeak NG's own state is process-wide; so is what we know of it.
struct Engine
{
    State state = State::notStarted;
    QString startError;
    QString voice;              // the voice selected last
    QHash<QString, bool> known; // voice name -> whether eSpeak NG accepts it
};

Engine& engine()
{
    static Engine instance;
    return instance;
}

bool started(QString* error)
{
    Engine& e = engine();
    if (e.state == State::notStarted) {
        // Buffers of 20 ms; a missing espeak-ng-data is an error returned, never an exit.
        const int rate = espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, 20, nullptr, espeakINITIALIZE_DONT_EXIT);
        if (rate == kSpeechRate) {
            espeak_SetSynthCallback(collectSamples);
            e.state = State::running;
        } else {
            e.startError = rate < 0 ? sound_texts::kSpeechDataMissing : sound_texts::speechRateUnexpected(rate);
            e.state = State::failed;
        }
    }
    if (e.state == State::failed && error)
        *error = e.startError;
    return e.state == State::running;
}

bool selectVoice(const QString& voice, QString* error)
{
    Engine& e = engine();
    if (voice == e.voice)
        return true;
    const bool accepted = espeak_SetVoiceByName(voice.toUtf8().constData()) == EE_OK;
    e.known.insert(voice, accepted);
    if (!accepted) {
        if (error)
            *error = sound_texts::voiceMissing(voice);
        e.voice.clear(); // eSpeak NG may have dropped the voice it had
        return false;
    }
    e.voice = voice;
    return true;
}

} // namespace

bool EspeakSpeech::hasVoice(const QString& voice)
{
    if (voice.isEmpty() || !started(nullptr))
        return false;
    if (const auto known = engine().known.constFind(voice); known != engine().known.constEnd())
        return *known;
    return selectVoice(voice, nullptr);
}

std::optional<QByteArray> EspeakSpeech::synthesize(const QString& voice, const QString& text, QString* error)
{
    if (!started(error) || !selectVoice(voice, error))
        return std::nullopt;
    const QByteArray utf8 = text.toUtf8();
    QByteArray pcm;
    g_output = &pcm;
    // Plain UTF-8 text: no SSML flag, so "<b>" is spoken rather than read as markup.
    const espeak_ERROR result = espeak_Synth(utf8.constData(), size_t(utf8.size()) + 1, 0, POS_CHARACTER, 0,
                                             espeakCHARS_UTF8, nullptr, nullptr);
    g_output = nullptr;
    if (result != EE_OK) {
        if (error)
            *error = sound_texts::speechFailed(voice, int(result));
        return std::nullopt;
    }
    return pcm;
}

} // namespace quorvane
