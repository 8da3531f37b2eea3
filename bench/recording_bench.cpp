#include "core/clock.h"
#include "core/session.h"
#include "record/record_session.h"
#include "sound/recording.h"
#include "sound/sdl_sound.h"

#include "quorvane/testing.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <sys/resource.h>

#include <cmath>
#include <cstdio>

using namespace quorvane;

namespace {

constexpr int kRate = 22050;

// A microphone whose 1.4 s take is over as soon as it starts: record_word then does only what follows
// the end of a recording (stop, read, silence cut, cipher, write beside, sync, rename).
class FinishedMicrophone : public FakeSound
{
public:
    int recordGetPosition() override { return 30870; }
};

// 0.3 s of quiet, a spoken-like 0.8 s tone, quiet to the end of 1.4 s.
QByteArray take()
{
    QByteArray bytes(30870 * 2, '\0');
    for (int i = kRate * 3 / 10; i < kRate * 11 / 10; ++i) {
        const auto value = static_cast<qint16>(std::lround(9000 * std::sin(2 * M_PI * 220 * i / kRate)));
        bytes[2 * i] = static_cast<char>(value & 0xFF);
        bytes[2 * i + 1] = static_cast<char>((value >> 8) & 0xFF);
    }
    return bytes;
}

void BM_RecordingEndToStrWritten(benchmark::State& state)
{
    QTemporaryDir folder;
    ScriptedPrompts prompts;
    FinishedMicrophone sound;
    FakeClock clock;
    sound.useClock(clock);
    sound.microphone = take();
    Session session(prompts, sound, clock);
    const QString path = folder.filePath("01436.str");
    for (auto _ : state)
        benchmark::DoNotOptimize(record_word(session, path, kRate, 1.4f, 1, 2));
}

double cpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

// A record window that shows nothing.
class QuietView : public RecordView
{
public:
    explicit QuietView(RecordState& state) : m_state(state) {}
    bool unloaded() const override { return false; }
    int selectedRow(const QString&) const override { return m_row; }
    bool selectRow(const QString& kind, int row) override
    {
        if (row < 0 || row >= m_state.lists.of(kind).count)
            return false;
        m_row = row;
        choose_row(m_state, kind, row);
        return true;
    }
    void showFileNumber(const QString&) override {}
    void showCountdown(const QString&) override {}
    void colourSession(SessionColour) override {}
    void showTake(const QString&) override {}

private:
    RecordState& m_state;
    int m_row = 0;
};

// CPU time per second of a many-word session of three 1 s words on the real clock and the real engine
// (capturing from SDL's dummy driver).
void BM_RecordingSessionCpu(benchmark::State& state)
{
    QTemporaryDir folder;
    ScriptedPrompts prompts;
    SdlSound sound;
    QtClock clock;
    Session session(prompts, sound, clock);
    session.languages_folder = folder.path() + "/";
    session.current_language = QStringLiteral("spanish");
    RecordState record;
    for (const char* number : {"01000", "01001", "01002"}) {
        record.lists.without.words.append(QStringLiteral("word"));
        record.lists.without.translations.append(QStringLiteral("translation"));
        record.lists.without.sound_numbers.append(QString::fromLatin1(number));
    }
    record.lists.without.count = 3;
    record.selected_list_kind = kWithoutSounds;
    QuietView view(record);
    QObject guard;
    for (auto _ : state) {
        QElapsedTimer wall;
        const double cpuBefore = cpuSeconds();
        wall.start();
        start_recording(session, record, view, &guard, 1.0f, false);
        const double wallSeconds = wall.nsecsElapsed() / 1e9;
        const double perSecond = (cpuSeconds() - cpuBefore) / wallSeconds;
        state.counters["cpu_s_per_s"] = perSecond;
        std::printf("recording session of 3 words: %.3f s wall, %.4f CPU s per wall s (%.2f %% of a core)\n",
                    wallSeconds, perSecond, 100.0 * perSecond);
    }
}

} // namespace

BENCHMARK(BM_RecordingEndToStrWritten)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RecordingSessionCpu)->Iterations(1)->Unit(benchmark::kSecond);
