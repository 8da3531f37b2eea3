#include "sound/spoken_words.h"

#include "core/prompts.h"
#include "core/session.h"
#include "core/speech.h"
#include "sound/mp3_encoder.h"
#include "sound/texts.h"
#include "store/paths.h"
#include "store/speech_voices.h"

#include <QFileInfo>

namespace quorvane {

namespace {

// Tells a failure of voice in language once per session.
void tellOnce(Session& session, const QString& voice, const QString& language, const QString& reason)
{
    if (session.speech_failures_told.contains(voice))
        return;
    session.speech_failures_told.append(voice);
    session.prompts.message(sound_texts::speechUnavailable(language, reason));
}

} // namespace

QString speaking_voice(Session& session, const QString& language)
{
    if (!session.speak_missing_words || !session.speech().installed())
        return {};
    const QString voice = chosen_voice(session.languages_folder, language);
    if (voice.isEmpty() || session.speech_failures_told.contains(voice))
        return {};
    if (!session.speech().hasVoice(voice)) {
        tellOnce(session, voice, language, sound_texts::voiceMissing(voice));
        return {};
    }
    return voice;
}

std::optional<QByteArray> spoken_pcm(Session& session, const QString& language, const QString& voice,
                                     const QString& text)
{
    QString error;
    std::optional<QByteArray> pcm = session.speech().synthesize(voice, text, &error);
    if (!pcm)
        tellOnce(session, voice, language, error);
    return pcm;
}

std::optional<QByteArray> spoken_mp3(Session& session, const QString& language, const QString& text)
{
    if (text.isEmpty())
        return std::nullopt;
    const QString voice = speaking_voice(session, language);
    if (voice.isEmpty())
        return std::nullopt;
    const std::optional<QByteArray> pcm = spoken_pcm(session, language, voice, text);
    if (!pcm)
        return std::nullopt;
    QString error;
    std::optional<QByteArray> mp3 = encodeMp3(*pcm, kSpeechRate, &error);
    if (!mp3)
        tellOnce(session, voice, language, error);
    return mp3;
}

bool would_synthesize(Session& session, const QString& soundNumber, const QString& language, const QString& text)
{
    const QString& folder = session.languages_folder;
    return !text.isEmpty() && !soundNumber.isEmpty() &&
           !QFileInfo::exists(paths::releasedRecording(folder, language, soundNumber)) &&
           !QFileInfo::exists(paths::newRecording(folder, language, soundNumber)) &&
           !speaking_voice(session, language).isEmpty();
}

QString spoken_name(const QString& voice, const QString& text)
{
    return QStringLiteral("speech:") + voice + u':' + text;
}

} // namespace quorvane
