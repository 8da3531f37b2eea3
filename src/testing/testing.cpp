#include "quorvane/testing.h"

#include <QApplication>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace quorvane {

namespace {
constexpr int kFakeRate = 22050;
}

// ---- ScriptedPrompts

ScriptedPrompts::ScriptedPrompts(QVariantList answers_) : answers(std::move(answers_)) {}

void ScriptedPrompts::push(const QVariant& answer)
{
    answers.append(answer);
}

QStringList ScriptedPrompts::texts() const
{
    QStringList result;
    for (const ShownBox& box : shown)
        result.append(box.text);
    return result;
}

QStringList ScriptedPrompts::boxes() const
{
    QStringList result;
    for (const ShownBox& box : shown)
        result.append(box.kind + "|" + box.title + "|" + box.text);
    return result;
}

QVariant ScriptedPrompts::next(const ShownBox& box)
{
    shown.append(box);
    if (answers.isEmpty()) {
        ADD_FAILURE() << "No scripted answer left for the " << box.kind.toStdString() << " box \""
                      << box.text.toStdString() << "\"";
        return {};
    }
    return answers.takeFirst();
}

void ScriptedPrompts::message(const QString& text, const QString& title)
{
    shown.append({QStringLiteral("message"), text, title});
}

bool ScriptedPrompts::okCancel(const QString& text, const QString& title)
{
    return next({QStringLiteral("okCancel"), text, title}).toBool();
}

bool ScriptedPrompts::yesNo(const QString& text, const QString& title)
{
    return next({QStringLiteral("yesNo"), text, title}).toBool();
}

QString ScriptedPrompts::input(const QString& prompt, const QString& title, const QString& defaultText)
{
    (void)defaultText;
    return next({QStringLiteral("input"), prompt, title}).toString();
}

// ---- FakeClock

FakeClock::FakeClock(double start, double step_) : now(start), step(step_) {}

void FakeClock::processEvents()
{
    if (m_passed >= limit) {
        const std::string text = "a loop ran past the fake clock's limit of " + QString::number(limit).toStdString() +
                                 " virtual seconds without ending";
        if (!m_overrun)
            ADD_FAILURE() << text;
        m_overrun = true;
        throw RunawayLoop(text);
    }
    ++processed;
    now += step;
    m_passed += step;
    m_elapsed += step;
    runDueActions();
    QCoreApplication::processEvents();
}

void FakeClock::runDueActions()
{
    while (!m_actions.empty() && m_actions.begin()->first <= now + 1e-9) {
        auto action = std::move(m_actions.begin()->second);
        m_actions.erase(m_actions.begin());
        action();
    }
}

QDateTime FakeClock::dateTime()
{
    return date.addMSecs(static_cast<qint64>(std::llround(m_elapsed * 1000.0)));
}

void FakeClock::jump(double seconds)
{
    now += seconds;
    m_elapsed += seconds;
    runDueActions();
}

void FakeClock::at(double delay, std::function<void()> action)
{
    m_actions.emplace(now + delay, std::move(action));
}

// ---- FakeSpeech

std::optional<QByteArray> FakeSpeech::synthesize(const QString& voice, const QString& text, QString* error)
{
    spoken.append(voice + u':' + text);
    if (!failure.isEmpty() || !voices.contains(voice)) {
        if (error)
            *error = failure.isEmpty() ? QStringLiteral("no voice ") + voice : failure;
        return std::nullopt;
    }
    QByteArray pcm(kSpeechRate, '\0'); // half a second of 16-bit samples
    for (qsizetype i = 0; i < pcm.size(); i += 2)
        pcm[i + 1] = char((i / 2) % 50 < 25 ? 0x20 : 0xE0);
    return pcm;
}

// ---- FakeSound

FakeSound::FakeSound() = default;

double FakeSound::now() const
{
    return m_clock ? m_clock->timer() : 0.0;
}

bool FakeSound::init(int mixrate, int maxchannels, unsigned flags)
{
    initArguments = {mixrate, maxchannels, static_cast<int>(flags)};
    if (initError != 0) {
        error = initError;
        return false;
    }
    initialised = true;
    error = 0;
    return true;
}

void FakeSound::close()
{
    initialised = false;
}

int FakeSound::sampleLoad(int index, const QString& path, unsigned mode, int offset, int length)
{
    (void)index;
    (void)mode;
    (void)offset;
    (void)length;
    if (loadError != 0) {
        error = loadError;
        return 0;
    }
    const int handle = m_nextSample++;
    m_samples.insert(handle, {path, {}, static_cast<int>(std::lround(durations.value(path, 1.0) * kFakeRate))});
    error = 0;
    return handle;
}

int FakeSound::sampleLoadPcm(const QString& name, const QByteArray& pcm16Mono, int frequency)
{
    if (loadError != 0) {
        error = loadError;
        return 0;
    }
    const int handle = m_nextSample++;
    m_samples.insert(handle, {name, pcm16Mono, int(pcm16Mono.size() / 2 * kFakeRate / qMax(frequency, 1))});
    error = 0;
    return handle;
}

int FakeSound::sampleAlloc(int index, int length, unsigned mode, int, int, int, int)
{
    (void)index;
    (void)mode;
    const int handle = m_nextSample++;
    m_samples.insert(handle, {QString(), QByteArray(), length});
    error = 0;
    return handle;
}

void FakeSound::sampleFree(int sample)
{
    m_samples.remove(sample);
}

int FakeSound::sampleGetLength(int sample)
{
    if (!m_samples.contains(sample)) {
        error = kSoundInvalidParameter;
        return 0;
    }
    return m_samples.value(sample).length;
}

QByteArray FakeSound::sampleRead(int sample, int offset, int length)
{
    if (!m_samples.contains(sample) || offset < 0 || length < 0) {
        error = kSoundInvalidParameter;
        return {};
    }
    const QByteArray& data = m_samples[sample].data;
    QByteArray result = data.mid(offset, length);
    result.append(QByteArray(length - result.size(), '\0'));
    return result;
}

int FakeSound::playSound(int channel, int sample)
{
    (void)channel;
    if (playError != 0) {
        error = playError;
        return 0;
    }
    if (!m_samples.contains(sample)) {
        error = kSoundInvalidParameter;
        return 0;
    }
    const QString path = m_samples.value(sample).path;
    played.append(path);
    const int handle = m_nextChannel++;
    m_channels.insert(handle, {now() + durations.value(path, 1.0)});
    error = 0;
    if (onPlay)
        onPlay(path);
    return handle;
}

bool FakeSound::isPlaying(int channel)
{
    return m_channels.contains(channel) && now() < m_channels.value(channel).endsAt;
}

bool FakeSound::recordStartSample(int sample, bool loop)
{
    (void)loop;
    if (!m_samples.contains(sample)) {
        error = kSoundInvalidParameter;
        return false;
    }
    m_recordSample = sample;
    m_recordStarted = now();
    m_recordStoppedAt = -1;
    error = 0;
    return true;
}

int FakeSound::recordGetPosition()
{
    if (m_recordStoppedAt >= 0)
        return m_recordStoppedAt;
    if (!m_samples.contains(m_recordSample))
        return 0;
    const int length = m_samples.value(m_recordSample).length;
    const int position = static_cast<int>((now() - m_recordStarted) * kFakeRate);
    return std::clamp(position, 0, length);
}

bool FakeSound::recordStop()
{
    if (!m_samples.contains(m_recordSample)) {
        error = kSoundInvalidParameter;
        return false;
    }
    m_recordStoppedAt = recordGetPosition();
    Sample& sample = m_samples[m_recordSample];
    const qsizetype bytes = qsizetype(m_recordStoppedAt) * 2;
    sample.data = microphone.isEmpty() ? QByteArray(bytes, '\0') : microphone.left(bytes);
    error = 0;
    return true;
}

// ---- window()

QWidget* window(const QString& name)
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->objectName() == name)
            return widget;
    }
    return nullptr;
}

} // namespace quorvane
