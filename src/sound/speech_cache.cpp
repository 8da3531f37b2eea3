#include "sound/speech_cache.h"

namespace quorvane {

CachedSpeech::CachedSpeech(SpeechSynthesizer& speech, qint64 maxBytes) : m_speech(speech), m_maxBytes(maxBytes) {}

bool CachedSpeech::hasVoice(const QString& voice)
{
    return m_speech.hasVoice(voice);
}

std::optional<QByteArray> CachedSpeech::synthesize(const QString& voice, const QString& text, QString* error)
{
    const Key key{voice, text};
    if (const auto found = m_index.constFind(key); found != m_index.constEnd()) {
        m_entries.splice(m_entries.begin(), m_entries, *found);
        return m_entries.front().pcm;
    }
    std::optional<QByteArray> pcm = m_speech.synthesize(voice, text, error);
    if (!pcm || pcm->size() > m_maxBytes)
        return pcm;
    m_entries.push_front({key, *pcm});
    m_index.insert(key, m_entries.begin());
    m_bytes += pcm->size();
    while (m_bytes > m_maxBytes) {
        m_bytes -= m_entries.back().pcm.size();
        m_index.remove(m_entries.back().key);
        m_entries.pop_back();
    }
    return pcm;
}

} // namespace quorvane
