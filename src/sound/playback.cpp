#include "sound/playback.h"
#include "store/paths.h"
#include "store/text_files.h"

#include "core/clock.h"
#include "core/flags.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/sound_error_text.h"
#include "core/sound_library.h"
#include "core/speech.h"
#include "sound/sound_files.h"
#include "sound/spoken_words.h"
#include "sound/texts.h"

#include <QFile>
#include <QFileInfo>

namespace quorvane {

namespace {

constexpr float kMissingFileWait = 1.0f;
constexpr float kShortPauseWait = 0.8f;
constexpr float kEndPollWait = 0.01f;
// Below this speed the end of a sound is not awaited, so the next word may overlap it.
constexpr float kAwaitEndSpeed = 1.5f;

using flags::kYes;

bool endsWith3(const QString& path, const char* last)
{
    return path.right(3) == QLatin1String(last);
}

// Waits for the end of the sound on channel, then the speed pause; a stop ends both at once.
void awaitEndOfSound(Session& session)
{
    while (session.sound.isPlaying(session.sound_channel)) {
        wait_seconds(session, kEndPollWait);
        if (session.stop_flag == kYes)
            return;
    }
    wait_seconds(session, session.speed);
}

void playAndWait(Session& session, int sample);
void waitAsForMissingFile(Session& session);

void playFileAndWait(Session& session, QString& path)
{
    if (session.recording_active == kYes)
        return;
    if (!QFileInfo::exists(path)) {
        waitAsForMissingFile(session);
        return;
    }
    if (endsWith3(path, "str")) {
        if (!session.record_window_playing)
            return;
        path = str_to_wav(path);
    }

    playAndWait(session, session.sound.sampleLoad(kFreeIndex, path, kPlaybackSampleMode, 0, 0));
}

// Plays a loaded sample (0: its load failed) and waits: the pause after the word happens whatever
// failed, and each failure is shown.
void playAndWait(Session& session, int sample)
{
    if (sample == 0)
        session.prompts.message(sound_texts::openFailed(sound_error_text(session.sound.getError())));
    session.sound_channel = session.sound.playSound(kFreeIndex, sample);
    if (session.sound_channel == 0)
        session.prompts.message(sound_texts::playFailed(sound_error_text(session.sound.getError())));

    if (kAwaitEndSpeed > session.speed) {
        wait_seconds(session, kShortPauseWait);
        wait_seconds(session, session.speed);
    } else {
        awaitEndOfSound(session);
    }
}

void waitAsForMissingFile(Session& session)
{
    wait_seconds(session, kMissingFileWait);
    wait_seconds(session, session.speed);
}

// Says a word without a recording with voice: captured as an MP3 piece while an MP3 file is being
// made, otherwise played as a recording would be. A word spoken is no missing sound.
void saySynthesized(Session& session, const QString& language, const QString& voice, const QString& text)
{
    if (session.mp3_words_left >= 1) {
        const std::optional<QByteArray> mp3 = spoken_mp3(session, language, text);
        if (mp3)
            session.missing_sound_count = 0;
        if (mp3 && !capture_bytes(session, *mp3))
            return;
        for (int i = 0; i < session.silence_count; ++i) {
            if (!capture_piece(session, paths::silenceFile()))
                return;
        }
        return;
    }
    if (session.recording_active == kYes)
        return;
    const std::optional<QByteArray> pcm = spoken_pcm(session, language, voice, text);
    if (!pcm) {
        waitAsForMissingFile(session);
        return;
    }
    // A spoken word is heard: it does not count towards the missing recordings that stop the small card.
    session.missing_sound_count = 0;
    playAndWait(session, session.sound.sampleLoadPcm(spoken_name(voice, text), *pcm, kSpeechRate));
}

} // namespace

void say_word(Session& session, const QString& soundNumber, const QString& language, const QString& text)
{
    if (soundNumber.isEmpty())
        return;
    ChosenSound chosen = choose_sound_file(session, soundNumber, language);
    // Recordings come first; a word without one is spoken when a voice speaks its language.
    if (!text.isEmpty() && !QFileInfo::exists(chosen.path)) {
        if (const QString voice = speaking_voice(session, language); !voice.isEmpty()) {
            session.mainView().show_sound_caption(sound_texts::synthesizedCaption(soundNumber));
            saySynthesized(session, language, voice, text);
            return;
        }
    }
    session.mainView().show_sound_caption(sound_texts::fileNumberCaption(soundNumber));
    // MP3 capture takes released recordings only; a new recording chosen meanwhile is played.
    if (session.mp3_words_left >= 1 && chosen.extension == QLatin1String(".mp3")) {
        if (!capture_piece(session, chosen.path))
            return;
        for (int i = 0; i < session.silence_count; ++i) {
            if (!capture_piece(session, paths::silenceFile()))
                return;
        }
        return;
    }
    play_sound_file(session, chosen.path);
}

void play_sound_file(Session& session, QString& path)
{
    playFileAndWait(session, path);
    // Whatever happened, a WAV file is the temporary copy of a new recording: it goes.
    if (endsWith3(path, "wav"))
        QFile::remove(path);
}

void wait_seconds(Session& session, float seconds)
{
    // Kept: a wait across midnight is not corrected; it lasts until the timer passes the end again
    // or a flag ends it.
    const double end = session.clock.timer() + static_cast<double>(seconds);
    while (session.clock.timer() < end && session.stop_flag != kYes && session.skip_flag != kYes)
        session.clock.processEvents();
}

bool append_file(const QString& source, const QString& target, QString* error)
{
    QFile in(source);
    if (!in.open(QIODevice::ReadOnly))
        return true;
    return appendPiece(in.readAll(), target, error);
}

bool appendPiece(const QByteArray& piece, const QString& target, QString* error)
{
    const QByteArray bytes = piece + QByteArrayLiteral("\r\n");
    QFile out(target);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Append) || out.write(bytes) != bytes.size() || !out.flush()) {
        if (error)
            *error = out.errorString();
        return false;
    }
    return true;
}

QString mp3_capture_file()
{
    // Not the name a rewrite of out_file.mp3 uses beside it, which finish_mp3_capture makes.
    return paths::mp3OutputFile() + QStringLiteral(".capture.tmp");
}

bool capture_piece(Session& session, const QString& piece)
{
    QFile in(piece);
    // A piece that cannot be read is left out.
    return !in.open(QIODevice::ReadOnly) || capture_bytes(session, in.readAll());
}

bool capture_bytes(Session& session, const QByteArray& piece)
{
    QString error;
    if (appendPiece(piece, mp3_capture_file(), &error))
        return true;
    // The capture ends here; what was captured before stays in out_file.mp3.
    session.mp3_words_left = 0;
    QFile::remove(mp3_capture_file());
    session.prompts.message(sound_texts::captureNotWritten(mp3_capture_file(), error));
    return false;
}

void finish_mp3_capture(Session& session, const QByteArray& tag)
{
    QFile capture(mp3_capture_file());
    if (!capture.open(QIODevice::ReadOnly))
        return;
    const QByteArray bytes = tag + capture.readAll();
    capture.close();
    QString error;
    if (!writeBytes(paths::mp3OutputFile(), bytes, &error))
        session.prompts.message(sound_texts::captureNotWritten(paths::mp3OutputFile(), error));
    if (session.mp3_words_left <= 0)
        capture.remove();
}

} // namespace quorvane
