#pragma once

#include "core/speech.h"

#include <QHash>

#include <list>
#include <utility>

namespace quorvane {

// A synthesizer that remembers what another one said, per (voice, text), for as long as it lives:
// a word heard again is not synthesized again. Bounded: beyond maxBytes of sound the least
// recently used texts are forgotten. Failures are not remembered.
class CachedSpeech : public SpeechSynthesizer
{
public:
    static constexpr qint64 kDefaultMaxBytes = 64 * 1024 * 1024;

    // speech is not owned and must outlive this object.
    explicit CachedSpeech(SpeechSynthesizer& speech, qint64 maxBytes = kDefaultMaxBytes);

    bool hasVoice(const QString& voice) override;
    std::optional<QByteArray> synthesize(const QString& voice, const QString& text, QString* error) override;

    // What the cache holds now.
    qint64 cachedBytes() const { return m_bytes; }
    int cachedCount() const { return int(m_entries.size()); }

private:
    using Key = std::pair<QString, QString>; // voice, text
    struct Entry
    {
        Key key;
        QByteArray pcm;
    };

    SpeechSynthesizer& m_speech;
    const qint64 m_maxBytes;
    qint64 m_bytes = 0;
    std::list<Entry> m_entries; // most recently used first
    QHash<Key, std::list<Entry>::iterator> m_index;
};

} // namespace quorvane
