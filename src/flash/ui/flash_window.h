#pragma once

#include "flash/ui/flash_card_window.h"

namespace quorvane {

// The large flash cards, qvplay ("Random Word Play"): big texts sized to fit, texts that can
// wait a number of plays before they show, and MP3 compilation of the list.
class FlashWindow : public FlashCardWindow
{
    Q_OBJECT
public:
    explicit FlashWindow(Session& session, QWidget* parent = nullptr);

    QLabel* mp3_label;
    QPushButton* delay_top;
    QPushButton* delay_bottom;
    QPushButton* create_mp3;
    QPushButton* auto_mp3;
    QPushButton* exit_btn;

    // CardView: the parts only the large window has.
    void setCardPoints(int points) override;
    void showTexts(bool top, bool bottom) override;
    void showMp3Progress(const QString& text) override;
    void showWordCount(const QString& caption) override;

    // Review runs (defined in review/flash_window_review.cpp): the grading buttons, shown only
    // while the cards of review() play.
    QPushButton* again;
    QPushButton* got_it;
    bool reviewing() const override { return m_reviewing; }
    int nextReviewCard() override;

public slots:
    void delay_top_click();
    void delay_bottom_click();
    void create_mp3_click();
    void auto_mp3_click();
    void exit_btn_click();
    // Plays the entries of the word arrays at these indexes as a review run, in order; when the
    // last has been played the window says so and closes.
    void review(const QList<int>& entries);
    void again_click();
    void got_it_click();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildLayout();
    void buildReviewButtons();
    void grade(int grade);

    bool m_reviewing = false;
    bool m_reviewDone = false;
    bool m_graded = true;
    QStringList m_reviewKeys; // sound number and word of each card still to come
};

} // namespace quorvane
