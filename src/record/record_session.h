#pragma once

#include "core/view_watch.h"
#include "record/record_lists.h"

#include <QString>

class QObject;

namespace quorvane {

class Session;

// What the record window holds between its handlers: its lists, the entry clicked last and the
// settings of the duration and speed buttons.
struct RecordState
{
    RecordLists lists;
    // kWithSounds or kWithoutSounds: the pair of lists clicked last; "" before any click.
    QString selected_list_kind;
    QString current_sound_number;
    // Seconds of each recording; 0 until a session has run, when 1.4 is recorded.
    float record_seconds = 0.0f;
    // "yes": the session records one word; otherwise word after word down the list.
    QString record_single;
    // "yes": from the second word of a many-word session the countdown is "1" alone.
    QString fast_method;
};

// The colours of the word box and the countdown: orange while counting down, yellow while the
// speaker should talk, the window's own colours when idle.
enum class SessionColour { orange, yellow, idle };

// What a recording session shows. Implemented by the record window. The session calls it only
// between two of its waits, and never again once unloaded() is true or the window is gone.
class RecordView : public WatchedView
{
public:
    // The selected row of the word list of kind (span_list_w or span_list_wo), -1 for none.
    virtual int selectedRow(const QString& kind) const = 0;
    // Selects a row of that word list as a click would (its click handler runs); false when the row
    // does not exist.
    virtual bool selectRow(const QString& kind, int row) = 0;
    virtual void showFileNumber(const QString& caption) = 0;
    virtual void showCountdown(const QString& text) = 0;
    virtual void colourSession(SessionColour colour) = 0;
    // The length and peak level of the take just stored.
    virtual void showTake(const QString& text) = 0;
};

// A duration button: sets record_single and record_seconds, then runs misc_rec.
void start_recording(Session& session, RecordState& state, RecordView& view, QObject* viewObject, float seconds,
                     bool single);

// Runs a recording session on the selected word, then leaves record_single "no" and
// record_seconds 1.0 however it ended. The session runs inside the calling handler and yields only
// in its waits and recordings, where STOP (stop_flag) and the close box are served. It records the
// selected word, then, unless single, each next word of the same list until stop_flag is "yes",
// the window goes, the list runs out or fewer than 11 rows follow the word on a scrolling round.
// recording_active is "yes" while it runs and "no" after it ends; the two refusals (no list
// clicked, no row selected) leave it "yes", as they always have.
void misc_rec(Session& session, RecordState& state, RecordView& view, QObject* viewObject);

// The record_speed button: says what the next click does, toggles fast_method and returns the
// button's new caption.
QString toggle_record_speed(Session& session, RecordState& state);

// A clicked row of a word list: what the edit boxes show.
struct ChosenRow
{
    QString word;
    QString translation;
    EditBoxFont font{};
    QString fileCaption;
};

// Makes row of the lists of kind the clicked entry (selected_list_kind, current_sound_number).
ChosenRow choose_row(RecordState& state, const QString& kind, int row);

// Plays the clicked entry's recording, a new ".str" one included.
void play_chosen(Session& session, const RecordState& state, const QString& word);

} // namespace quorvane
