#include "core/clock.h"
#include "core/session.h"
#include "sound/espeak_speech.h"
#include "sound/playback.h"
#include "sound/sdl_sound.h"
#include "sound/speech_cache.h"

#include "quorvane/testing.h"

#include <QFile>
#include <QTemporaryDir>

#include <SDL_mixer.h>
#include <benchmark/benchmark.h>

#include <malloc.h>
#include <unistd.h>

using namespace quorvane;

namespace {

// Time to the first sample of a one-word synthesis. eSpeak NG's synchronous mode hands back the
// whole word at once, so this is the time to the last sample too: an upper bound.
void BM_SpeakWordFirstSample(benchmark::State& state)
{
    EspeakSpeech espeak;
    if (!espeak.synthesize("es", "hola", nullptr)) // eSpeak NG and its voice start once, before timing
        state.SkipWithError("eSpeak NG does not speak Spanish here");
    qint64 samples = 0;
    for (auto _ : state) {
        const std::optional<QByteArray> pcm = espeak.synthesize("es", "mariposa", nullptr);
        samples += pcm ? pcm->size() / 2 : 0;
    }
    state.counters["word_s"] = double(samples) / double(state.iterations()) / kSpeechRate;
}

void BM_SpeakWordCached(benchmark::State& state)
{
    EspeakSpeech espeak;
    CachedSpeech cache(espeak);
    cache.synthesize("es", "mariposa", nullptr);
    for (auto _ : state)
        benchmark::DoNotOptimize(cache.synthesize("es", "mariposa", nullptr));
}

// The process's resident memory now, once the allocator has handed back what is free.
double residentMegabytes()
{
    malloc_trim(0);
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0.0;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields[1].toDouble() * double(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0) : 0.0;
}

// 3,000 different words without recordings said one after another through the real engines, as
// the main window says them: what the speech cache and the sound engine hold at the end, and the
// process's peak memory. stop_flag "yes" makes every wait return at once.
void BM_SpeechMemoryOver3000Plays(benchmark::State& state)
{
    QTemporaryDir folder;
    ScriptedPrompts prompts;
    SdlSound sound;
    QtClock clock;
    if (!sound.init(44100, 64, 0))
        qFatal("the sound engine did not start: %d", sound.getError());
    EspeakSpeech espeak;
    CachedSpeech cache(espeak);
    Session session(prompts, sound, clock);
    session.attachSpeech(&cache);
    session.languages_folder = folder.path() + "/languages/";
    session.stop_flag = QStringLiteral("yes");
    session.speed = 0.2f;
    const double residentBefore = residentMegabytes();
    double residentAt1000 = 0.0;
    for (auto _ : state) {
        for (int word = 0; word < 3000; ++word) {
            if (word == 1000)
                residentAt1000 = residentMegabytes() - residentBefore;
            say_word(session, QString::number(10000 + word), QStringLiteral("spanish"),
                     QStringLiteral("palabra %1").arg(word));
            Mix_HaltChannel(-1);
        }
    }
    if (!prompts.shown.isEmpty())
        state.SkipWithError(qPrintable(prompts.shown.first().text));
    state.counters["speech_cache_MB"] = double(cache.cachedBytes()) / (1024.0 * 1024.0);
    state.counters["speech_cache_words"] = cache.cachedCount();
    state.counters["engine_cache_MB"] = double(sound.cachedBytes()) / (1024.0 * 1024.0);
    // Bounded: what the process holds after 1,000 words it still holds after 3,000, not three times as much.
    state.counters["RSS_growth_1000_MB"] = residentAt1000;
    state.counters["RSS_growth_3000_MB"] = residentMegabytes() - residentBefore;
}

} // namespace

BENCHMARK(BM_SpeakWordFirstSample)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SpeakWordCached)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_SpeechMemoryOver3000Plays)->Iterations(1)->Unit(benchmark::kSecond);
