#include "record/record_session.h"

#include "core/flags.h"
#include "core/prompts.h"
#include "core/session.h"
#include "record/texts.h"
#include "sound/playback.h"
#include "sound/recording.h"
#include "store/paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QObject>
#include <QScopeGuard>

#include <filesystem>
#include <optional>
#include <system_error>

namespace quorvane {

namespace {

using flags::kNo;
using flags::kYes;

constexpr float kCountdownStep = 0.6f;
constexpr float kFastCountdown = 0.7f;
constexpr float kSpeakLead = 0.13f;
constexpr float kFirstSessionSeconds = 1.4f;
constexpr float kSecondsBetweenSessions = 1.0f;
constexpr int kRate = 22050;
constexpr qint16 kChannels = 1;
constexpr qint16 kBytesPerSample = 2;
// Every this many words the list is scrolled so that the word stands near the top.
constexpr int kScrollRound = 10;
constexpr int kScrollRows = 11;
// A stopped many-word session goes back this many rows, from beyond this row, so that the last
// words recorded are in view.
constexpr int kStepBack = 2;

// Makes a folder of recordings with its parents; false, with error naming it and the cause (a file
// in the way of new_str, a full disk), when it cannot be made.
bool makeFolder(const QString& folder, QString* error)
{
    std::error_code code;
    std::filesystem::create_directories(std::filesystem::path(QFile::encodeName(folder).toStdString()), code);
    if (!code && QFileInfo(folder).isDir())
        return true;
    *error =
        record_texts::folderNotMade(folder, code ? QString::fromLocal8Bit(code.message()) : record_texts::kNotAFolder);
    return false;
}

// One run of the session driver.
class RecordingSession
{
public:
    RecordingSession(Session& session, RecordState& state, RecordView& view, QObject* viewObject)
        : m_session(session), m_state(state), m_view(view), m_watch(view, viewObject)
    {
    }

    void run()
    {
        Session& s = m_session;
        s.recording_active = kYes;
        if (m_state.selected_list_kind.isEmpty()) {
            s.prompts.message(record_texts::kSelectListFirst);
            return;
        }
        m_kind = m_state.selected_list_kind;
        for (;;) {
            Round round = Round::finish;
            try {
                round = recordOne();
            } catch (...) {
                // Once the first word is recorded, any error ends the session through its finish;
                // before that it is told by the window's handler, the session finished all the same.
                if (!m_errorsFinish) {
                    m_failed = true;
                    finish();
                    throw;
                }
            }
            if (round == Round::refused)
                return;
            if (round == Round::finish)
                break;
        }
        finish();
    }

private:
    enum class Round { next, finish, refused };

    bool gone() const { return m_watch.gone(); }
    bool stopped() const { return m_session.stop_flag == kYes || gone(); }

    Round recordOne()
    {
        Session& s = m_session;
        if (gone())
            return Round::finish;
        m_index = m_view.selectedRow(m_kind);
        if (m_index == -1) {
            s.prompts.message(record_texts::kSelectWordFirst);
            return Round::refused;
        }
        m_state.current_sound_number = m_state.lists.of(m_kind).sound_numbers.value(m_index);
        if (m_round == kScrollRound) {
            m_round = 0;
            if (!m_view.selectRow(m_kind, m_index + kScrollRows))
                return Round::finish;
            m_view.selectRow(m_kind, m_view.selectedRow(m_kind) - kScrollRows);
        }
        ++m_round;
        m_view.showFileNumber(record_texts::fileNumber(m_state.current_sound_number));
        m_view.colourSession(SessionColour::orange);

        if (m_state.fast_method != kYes || m_state.record_single == kYes || m_firstWord) {
            m_firstWord = false;
            m_view.showCountdown(record_texts::kCountdownTwo);
            if (stopped())
                return Round::finish;
            wait_seconds(s, kCountdownStep);
            if (stopped())
                return Round::finish;
            m_view.showCountdown(record_texts::kCountdownOne);
            wait_seconds(s, kCountdownStep);
        } else {
            m_view.showCountdown(record_texts::kCountdownOne);
            wait_seconds(s, kFastCountdown);
        }
        if (stopped())
            return Round::finish;
        m_view.showCountdown(record_texts::kCountdownSpeak);
        m_view.colourSession(SessionColour::yellow);
        wait_seconds(s, kSpeakLead);
        if (stopped())
            return Round::finish;

        const QString target =
            paths::newRecording(s.languages_folder, s.current_language, m_state.current_sound_number);
        // The old take stays until the new one is stored whole.
        QString error;
        if (!makeFolder(QFileInfo(target).path(), &error))
            return failed(error);
        if (m_state.record_seconds == 0.0f)
            m_state.record_seconds = kFirstSessionSeconds;
        const std::optional<QByteArray> stored =
            record_word(s, target, kRate, m_state.record_seconds, kChannels, kBytesPerSample, &error);
        if (!stored)
            return failed(error);
        if (gone())
            return Round::finish;
        const TakeLevel level = take_level(*stored, kRate);
        m_view.showTake(record_texts::takeLevel(level.seconds, level.peakDbfs, level.silent));
        m_view.colourSession(SessionColour::orange);
        m_view.showCountdown(QString());
        if (m_state.record_single == kYes)
            return Round::finish;

        m_errorsFinish = true;
        if (!m_view.selectRow(m_kind, m_index + 1))
            return Round::finish;
        return Round::next;
    }

    // A take that could not be stored: told, naming the file and the cause, and the session ends
    // on the word, so that it can be recorded again.
    Round failed(const QString& error)
    {
        m_failed = true;
        m_session.prompts.message(error);
        return Round::finish;
    }

    void finish()
    {
        Session& s = m_session;
        if (!gone() && !m_failed) {
            // Selections that fail here are of no account.
            if (m_state.record_single == kYes)
                m_view.selectRow(m_kind, m_index + 1);
            else if (s.stop_flag == kYes && m_index > kStepBack)
                m_view.selectRow(m_kind, m_index - kStepBack);
        }
        m_state.record_single = kNo;
        if (!gone()) {
            m_view.showCountdown(QString());
            m_view.colourSession(SessionColour::idle);
        }
        s.stop_flag = kNo;
        s.recording_active = kNo;
    }

    Session& m_session;
    RecordState& m_state;
    RecordView& m_view;
    const ViewWatch m_watch;
    QString m_kind;
    int m_index = -1;
    int m_round = 0;
    bool m_firstWord = true;
    bool m_errorsFinish = false;
    bool m_failed = false;
};

} // namespace

void start_recording(Session& session, RecordState& state, RecordView& view, QObject* viewObject, float seconds,
                     bool single)
{
    state.record_single = single ? kYes : kNo;
    state.record_seconds = seconds;
    misc_rec(session, state, view, viewObject);
}

void misc_rec(Session& session, RecordState& state, RecordView& view, QObject* viewObject)
{
    // record_single is "no" and record_seconds 1.0 when the session ends, however it ends.
    const auto reset = qScopeGuard([&state] {
        state.record_single = kNo;
        state.record_seconds = kSecondsBetweenSessions;
    });
    RecordingSession(session, state, view, viewObject).run();
}

QString toggle_record_speed(Session& session, RecordState& state)
{
    if (state.fast_method == kYes) {
        session.prompts.message(record_texts::kSlowerMessage);
        state.fast_method = kNo;
        return record_texts::kFastCaption;
    }
    session.prompts.message(record_texts::kFasterMessage);
    state.fast_method = kYes;
    return record_texts::kSlowCaption;
}

ChosenRow choose_row(RecordState& state, const QString& kind, int row)
{
    const RecordArrays& arrays = state.lists.of(kind);
    ChosenRow chosen;
    chosen.word = arrays.words.value(row);
    chosen.translation = arrays.translations.value(row);
    chosen.font = edit_box_font(chosen.word);
    state.selected_list_kind = kind;
    state.current_sound_number = arrays.sound_numbers.value(row);
    chosen.fileCaption = record_texts::fileNumber(state.current_sound_number);
    return chosen;
}

void play_chosen(Session& session, const RecordState& state, const QString& word)
{
    // record_window_playing is true only while the clicked entry plays.
    session.record_window_playing = true;
    const auto played = qScopeGuard([&session] { session.record_window_playing = false; });
    say_word(session, state.current_sound_number, session.current_language, word);
}

} // namespace quorvane
