#include "core/clock.h"
#include "core/session.h"
#include "sound/playback.h"
#include "sound/sdl_sound.h"

#include "quorvane/testing.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <SDL_mixer.h>
#include <benchmark/benchmark.h>

#include <sys/resource.h>

#include <cstdio>
#include <memory>

using namespace quorvane;

namespace {

constexpr int kMixRate = 44100;
constexpr int kMixChannels = 64;

// The real engine, noting when each playSound call has returned.
class TimedSound : public SdlSound
{
public:
    int playSound(int channel, int sample) override
    {
        const int handle = SdlSound::playSound(channel, sample);
        startedAt = timer.nsecsElapsed();
        return handle;
    }
    QElapsedTimer timer;
    qint64 startedAt = 0;
};

// A program folder holding a one-second MP3 recording made by sox and lame.
struct BenchFolder
{
    BenchFolder()
    {
        const QString wav = dir.filePath("tone.wav");
        run("sox", {"-n", "-r", "22050", "-c", "1", "-b", "16", wav, "synth", "1", "sine", "440"});
        run("lame", {"--quiet", wav, dir.filePath("tone.mp3")});
        QFile in(dir.filePath("tone.mp3"));
        if (!in.open(QIODevice::ReadOnly))
            qFatal("no MP3 was made");
        mp3 = in.readAll();
    }
    static void run(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        process.start(program, arguments);
        if (!process.waitForFinished(60000) || process.exitCode() != 0)
            qFatal("%s failed", qPrintable(program));
    }
    // Writes the recording of a sound number of the language "bench".
    void place(int number) const
    {
        const QString name = QString::number(number).rightJustified(5, '0');
        const QString folder = dir.filePath("languages/bench/" + name.left(2));
        QDir().mkpath(folder);
        QFile out(folder + "/" + name + ".mp3");
        if (!out.open(QIODevice::WriteOnly))
            qFatal("cannot write %s", qPrintable(out.fileName()));
        out.write(mp3);
    }

    QTemporaryDir dir;
    QByteArray mp3;
};

// Time from the call of say_word to the sound started on its channel. stop_flag "yes" makes
// every wait of the call return at once, so the call is all loading and starting.
void sayWordToChannel(benchmark::State& state, bool cached)
{
    BenchFolder folder;
    ScriptedPrompts prompts;
    TimedSound sound;
    QtClock clock;
    if (!sound.init(kMixRate, kMixChannels, 0))
        qFatal("the sound engine did not start: %d", sound.getError());
    Session session(prompts, sound, clock);
    session.languages_folder = folder.dir.path() + "/languages/";
    session.stop_flag = QStringLiteral("yes");
    session.speed = 0.2f;
    sound.timer.start();

    int number = 10000;
    folder.place(number);
    for (auto _ : state) {
        if (!cached)
            folder.place(++number);
        const QString soundNumber = QString::number(number).rightJustified(5, '0');
        const qint64 before = sound.timer.nsecsElapsed();
        say_word(session, soundNumber, QStringLiteral("bench"));
        state.SetIterationTime(double(sound.startedAt - before) / 1e9);
        Mix_HaltChannel(-1);
    }
    if (!prompts.shown.isEmpty())
        state.SkipWithError(qPrintable(prompts.shown.first().text));
    state.counters["cached_samples"] = sound.cachedSampleCount();
    state.counters["cached_MB"] = double(sound.cachedBytes()) / (1024.0 * 1024.0);
}

void BM_SayWordCached(benchmark::State& state)
{
    sayWordToChannel(state, true);
}

void BM_SayWordUncached(benchmark::State& state)
{
    sayWordToChannel(state, false);
}

double cpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

// CPU time the process spends per second of a wait on the real clock; argument 1 with the engine
// open (its mixing thread included), 0 for the clock alone.
void BM_WaitSecondsCpu(benchmark::State& state)
{
    const bool engineOpen = state.range(0) != 0;
    ScriptedPrompts prompts;
    SdlSound sound;
    QtClock clock;
    if (engineOpen && !sound.init(kMixRate, kMixChannels, 0))
        qFatal("the sound engine did not start: %d", sound.getError());
    Session session(prompts, sound, clock);
    for (auto _ : state) {
        QElapsedTimer wall;
        const double cpuBefore = cpuSeconds();
        wall.start();
        wait_seconds(session, 5.0f);
        const double wallSeconds = wall.nsecsElapsed() / 1e9;
        const double perSecond = (cpuSeconds() - cpuBefore) / wallSeconds;
        state.counters["cpu_s_per_s"] = perSecond;
        std::printf("wait_seconds(5), engine %s: %.3f s wall, %.4f CPU s per wall s\n", engineOpen ? "open" : "closed",
                    wallSeconds, perSecond);
    }
}

} // namespace

BENCHMARK(BM_SayWordCached)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SayWordUncached)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(300);
BENCHMARK(BM_WaitSecondsCpu)->Arg(1)->Arg(0)->Iterations(1)->Unit(benchmark::kSecond);
