#pragma once

#include "core/view_watch.h"

#include <QString>

#include <optional>

class QObject;

namespace quorvane {

class Session;

// The two flash-card windows run the same card loop with their own defaults and waits: the large
// one sizes its fonts, delays its texts, counts words into an MP3 file and updates the main
// window's word count; the small one stops when recordings keep missing.
enum class CardStyle { large, small };

// What the card loop shows. Implemented by the flash-card windows. The loop calls it only between
// two of its waits, and never again once unloaded() is true or the window is gone.
class CardView : public WatchedView
{
public:
    virtual void showWindow() = 0;
    virtual void showWordsLeft(const QString& text) = 0;
    virtual void showCard(const QString& word, const QString& translation) = 0;
    virtual void showPlay(const QString& repeatText, const QString& speedText) = 0;
    // Only the large window sizes its texts, hides them for the first plays, reports MP3
    // progress and updates the main window's word count.
    virtual void setCardPoints(int points) { (void)points; }
    virtual void showTexts(bool top, bool bottom)
    {
        (void)top;
        (void)bottom;
    }
    virtual void showMp3Progress(const QString& text) { (void)text; }
    virtual void showWordCount(const QString& caption) { (void)caption; }
    // A review run plays, in order, the cards nextReviewCard() hands out (-1: none left) and keeps
    // each one up after its plays until it is graded or skipped.
    virtual bool reviewing() const { return false; }
    virtual int nextReviewCard() { return -1; }
    // A run begins (true) and ends (false), however it ends. Runs nest: Resume or a replay
    // starts one from inside a handler, which may itself run inside a run.
    virtual void showRunning(bool running) { (void)running; }
};

// Plays the shown words as flash cards until stop_flag is "yes", the window is unloaded or
// destroyed (viewObject is watched for that), or the list has fewer than two words. Runs inside
// the calling handler and yields only inside its waits and sounds, so other handlers run between
// its steps and talk to it through the session's flags. missing_sound_count is 0 afterwards,
// however the run ends. False, with error naming the sound number, when a card's sound number
// names no translation: the run ends there.
bool play_cards(Session& session, CardView& view, QObject* viewObject, CardStyle kind, QString* error);

// The point size of a card's two texts: 48 when both are shorter than 20 characters, 24 when both
// are shorter than 76, otherwise 12.
int card_points(const QString& word, const QString& translation);

// Draws the next card of a list of count words: previous_index takes current_index, and
// current_index a random index of 0..count-1 that, from eleven words up, differs from the
// previous one. The clock moves on between draws, since the generator follows the timer.
void draw_card(Session& session, int count);

// The translation's sound number of a card: empty for an empty sound number. Nothing, with error
// naming the sound number, for one that names no slot of the pairing table.
std::optional<QString> card_translation(const Session& session, const QString& soundNumber, QString* error);

} // namespace quorvane
