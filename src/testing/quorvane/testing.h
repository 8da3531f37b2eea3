#pragma once

// Test doubles for the seams of Quorvane: scripted boxes, a virtual clock and a sound library
// that plays nothing but records what it was asked to play.

#include "core/clock.h"
#include "core/main_view.h"
#include "core/prompts.h"
#include "core/sound_library.h"
#include "core/speech.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <functional>
#include <map>
#include <stdexcept>

class QWidget;

namespace quorvane {

class Session;

QWidget* start(const QString& programFolder, Prompts* prompts = nullptr, SoundLibrary* sound = nullptr,
               Clock* clock = nullptr, SpeechSynthesizer* speech = nullptr);
Session& sessionOf(QWidget* window);

struct ShownBox
{
    QString kind; // "message", "okCancel", "yesNo" or "input"
    QString text;
    QString title;
};

// Records every box and answers okCancel/yesNo (bool) and input (QString) from a script, in
// order. A box that finds no answer left fails the running test.
class ScriptedPrompts : public Prompts
{
public:
    explicit ScriptedPrompts(QVariantList answers = {});
    void push(const QVariant& answer);

    void message(const QString& text, const QString& title = QString()) override;
    bool okCancel(const QString& text, const QString& title = QString()) override;
    bool yesNo(const QString& text, const QString& title = QString()) override;
    QString input(const QString& prompt, const QString& title = QString(),
                  const QString& defaultText = QString()) override;

    QList<ShownBox> shown;
    QVariantList answers;

    // The texts of the boxes shown so far, in order.
    QStringList texts() const;
    // Every box shown so far as "kind|title|text".
    QStringList boxes() const;

private:
    QVariant next(const ShownBox& box);
};

// Thrown by FakeClock::processEvents() past its limit, so that a loop that never ends stops at
// once; the running test has already failed by then.
class RunawayLoop : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// Virtual time: every processEvents() moves it on by step seconds, runs the actions that have
// fallen due and lets Qt handle pending events. A drill of minutes runs in milliseconds.
class FakeClock : public Clock
{
public:
    explicit FakeClock(double start = 36000.0, double step = 0.01);
    double timer() override { return now; }
    void processEvents() override;
    // Runs action once, delay seconds of virtual time from now.
    void at(double delay, std::function<void()> action);
    // date plus the virtual seconds passed since the clock was made.
    QDateTime dateTime() override;
    // Moves virtual time on by seconds at once (days, for a test of what falls due) and runs the
    // actions that fall due; it does not count against limit.
    void jump(double seconds);

    double now;
    double step;
    long processed = 0; // number of processEvents() calls so far
    // The virtual seconds processEvents() may pass in all. Past them it fails the running test
    // (once) and throws RunawayLoop at every call, so a loop that never ends fails in a second
    // or two instead of spinning until the test run's timeout.
    double limit = 3600.0;
    // The local date and time at the clock's start.
    QDateTime date{QDate(2026, 1, 5), QTime(10, 0)};

private:
    void runDueActions();

    double m_passed = 0.0;
    double m_elapsed = 0.0; // every virtual second, jumps included
    bool m_overrun = false;
    std::multimap<double, std::function<void()>> m_actions;
};

// A sound library that plays nothing. Each sound lasts durations.value(path, 1.0) seconds on
// the session's clock; recording "records" silence, or the bytes of microphone when set.
class FakeSound : public SoundLibrary
{
public:
    FakeSound();

    bool available() override { return !missing; }
    bool init(int mixrate, int maxchannels, unsigned flags) override;
    void close() override;
    int getError() override { return error; }

    int sampleLoad(int index, const QString& path, unsigned mode, int offset, int length) override;
    // Records name as the sample's path ("speech:<voice>:<text>" for a spoken word).
    int sampleLoadPcm(const QString& name, const QByteArray& pcm16Mono, int frequency) override;
    int sampleAlloc(int index, int length, unsigned mode, int defaultFrequency, int defaultVolume, int defaultPan,
                    int defaultPriority) override;
    void sampleFree(int sample) override;
    int sampleGetLength(int sample) override;
    QByteArray sampleRead(int sample, int offset, int length) override;

    int playSound(int channel, int sample) override;
    bool isPlaying(int channel) override;

    bool recordStartSample(int sample, bool loop) override;
    bool recordStop() override;
    int recordGetPosition() override;

    void useClock(Clock& clock) override { m_clock = &clock; }

    QStringList played;                              // the paths played, in order
    std::function<void(const QString& path)> onPlay; // runs as each sound starts
    QHash<QString, double> durations;                // seconds per path; 1.0 when not listed
    int initError = 0;                               // init fails with this code when not 0
    bool missing = false;                            // available() fails: the library cannot start
    int loadError = 0;                               // sampleLoad fails with this code when not 0
    int playError = 0;                               // playSound fails with this code when not 0
    QByteArray microphone;                           // what recording captures; silence when empty
    bool initialised = false;
    QList<int> initArguments; // mixrate, maxchannels, flags of the last init
    int error = 0;

private:
    double now() const;

    struct Sample
    {
        QString path;
        QByteArray data;
        int length = 0; // frames
    };
    QHash<int, Sample> m_samples;
    int m_nextSample = 1;
    struct Channel
    {
        double endsAt = 0.0;
    };
    QHash<int, Channel> m_channels;
    int m_nextChannel = 1;
    int m_recordSample = 0;
    double m_recordStarted = 0.0;
    int m_recordStoppedAt = -1;
    Clock* m_clock = nullptr;
};

// A main view that records what the core asks of it.
class RecordingMainView : public MainView
{
public:
    void show_sound_caption(const QString& caption) override { captions.append(caption); }
    void show_word_count(const QString&) override {}
    void display_words() override { ++displayed; }
    void refresh_known_list() override {}
    void show_main_window() override {}
    QStringList captions;
    int displayed = 0;
};

// A synthesizer without eSpeak NG: the voices listed exist; a text comes out as half a second of
// a tone (or fails with failure when that is set); spoken lists "<voice>:<text>" of every call.
class FakeSpeech : public SpeechSynthesizer
{
public:
    bool hasVoice(const QString& voice) override { return voices.contains(voice); }
    std::optional<QByteArray> synthesize(const QString& voice, const QString& text, QString* error) override;

    QStringList voices;
    QString failure;
    QStringList spoken;
};

// The visible top-level widget with that objectName, or null.
QWidget* window(const QString& name);

} // namespace quorvane
