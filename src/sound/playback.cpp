#include "sound/playback.h"
#include "store/paths.h"
#include "store/text_files.h"

#include "core/clock.h"
#include "core/flags.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/sound_library.h"
#include "sound/sound_error_text.h"
#include "sound/sound_files.h"
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

void playAndWait(Session& session, QString& path)
{
    if (session.recording_active == kYes)
        return;
    if (!QFileInfo::exists(path)) {
        wait_seconds(session, kMissingFileWait);
        wait_seconds(session, session.speed);
        return;
    }
    if (endsWith3(path, "str")) {
        if (!session.record_window_playing)
            return;
        path = str_to_wav(path);
    }

    // Failures are shown and playing goes on regardless: the pause after the word still happens.
    const int sample = session.sound.sampleLoad(kFreeIndex, path, kPlaybackSampleMode, 0, 0);
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

} // namespace

void say_word(Session& session, const QString& soundNumber, const QString& language)
{
    if (soundNumber.isEmpty())
        return;
    ChosenSound chosen = choose_sound_file(session, soundNumber, language);
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
    playAndWait(session, path);
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
    const QByteArray bytes = in.readAll() + QByteArrayLiteral("\r\n");
    in.close();
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
    QString error;
    if (append_file(piece, mp3_capture_file(), &error))
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
