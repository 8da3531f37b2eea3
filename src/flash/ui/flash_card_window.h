#pragma once

#include "flash/card_loop.h"
#include "flash/media_keys.h"
#include "widgets/activity_window.h"

#include <QPointer>

class QLabel;
class QPushButton;

namespace quorvane {

// What the large (qvplay) and the small (qvplay2) flash-card windows share: the card texts, the
// counters, the buttons that change the shared settings, and the card loop itself, playwords().
// The loop runs inside the handler that calls playwords() and yields only inside its waits, so
// every other handler runs between two of its steps and only sets settings or flags.
//
// Closing the window (its frame, or Exit) also sets stop_flag; the window may be deleted while the
// loop still waits inside it, which notices at its next check.
//
// Keys act wherever the focus is in the window: Space pauses and resumes, Right skips, Left
// replays, Escape closes. From the first run until the window closes, the cards are also a media
// player on the session bus (MediaKeys), whose commands run the same handlers.
class FlashCardWindow : public ActivityWindow, public CardView
{
    Q_OBJECT
public:
    FlashCardWindow(Session& session, CardStyle style, QWidget* parent);

    QLabel* word_lbl;
    QLabel* word_lbl2;
    QLabel* num_lbl;
    QLabel* repeat_lbl;
    QLabel* speed_lbl;
    QPushButton* change_repeat;
    QPushButton* change_speed;
    QPushButton* interlace;
    QPushButton* say_bottom;
    QPushButton* speak_both;
    QPushButton* i_know_this_word;
    QPushButton* next_word;
    QPushButton* pause;
    QPushButton* resume;

    // CardView
    void showWindow() override;
    bool unloaded() const override { return ActivityWindow::unloaded(); }
    void showWordsLeft(const QString& text) override;
    void showCard(const QString& word, const QString& translation) override;
    void showPlay(const QString& repeatText, const QString& speedText) override;
    void showRunning(bool running) override;

    // The media-player service; null before the first run.
    MediaKeys* mediaKeys() const { return m_mediaKeys; }

public slots:
    // The card loop; returns when the cards stop. Called by the main window, by Resume and by
    // replay().
    void playwords();
    // Plays the previous card again without drawing, then goes on with the cards.
    void replay();
    void change_repeat_click();
    void change_speed_click();
    void interlace_click();
    void say_bottom_click();
    void speak_both_click();
    void i_know_this_word_click();
    void next_word_click();
    void pause_click();
    void resume_click();

protected:
    void unloading() override;
    // The words grow with the card: larger than the first size, larger type.
    void resizeEvent(QResizeEvent* event) override;
    QPushButton* makeButton(const QString& name, const QString& caption, int points);
    QLabel* makeLabel(const QString& name, int points, bool bold = false);

private:
    void addKeys();
    void startMediaKeys();

    const CardStyle m_style;
    int m_wordPoints = 0;
    QSize m_firstSize;
    QPointer<MediaKeys> m_mediaKeys;
    // Runs of the card loop going on, nested ones included.
    int m_runs = 0;
};

} // namespace quorvane
