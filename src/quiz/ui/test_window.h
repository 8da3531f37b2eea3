#pragma once

#include "quiz/quiz_loop.h"
#include "widgets/activity_window.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace quorvane {

class ListBox;

// The test window, test ("Test"): the set-up of a test, then its questions, each counted down
// while the student picks one of six choices or types an answer. The test runs inside the
// handler of "Begin Test" (begin_test_click) and yields only inside its waits, where the answer
// handlers run; they only record the answer. Made afresh for each test by the main window, with
// it as Qt parent; closed during a test, it is deleted once the test has unwound.
class TestWindow : public ActivityWindow, public QuizView
{
    Q_OBJECT
public:
    TestWindow(Session& session, QWidget* parent);

    QLabel* language_name;
    QLabel* list_name;
    QLabel* user_name;
    QLabel* Label3;
    ListBox* list1;
    QLabel* Label2;
    ListBox* List2;
    QLabel* q_lbl;
    QLineEdit* num_qs;
    QLabel* sec_lbl;
    QLineEdit* num_secs;
    QRadioButton* multiple_choice;
    QRadioButton* spelling;
    QRadioButton* fill_in_blank;
    QPushButton* begin_test;
    QPushButton* stop;
    QPushButton* exit;
    QLabel* test_word;
    QLabel* remaining;
    QLabel* time_remaining;
    QLabel* previous_word;
    QLabel* answer_lbl;
    QLineEdit* Text1;
    QPushButton* c1;
    QPushButton* c2;
    QPushButton* c3;
    QPushButton* c4;
    QPushButton* c5;
    QPushButton* c6;

    const QuizState& state() const { return m_state; }

    // QuizView
    bool unloaded() const override { return ActivityWindow::unloaded(); }
    QString questionsText() const override;
    QString secondsText() const override;
    int sourceRow() const override;
    int presentationRow() const override;
    TestKind kind() const override;
    QString typedText() const override;
    void showAnswerBox(bool visible) override;
    void clearTypedText() override;
    void showWord(const QString& text) override;
    void showRemaining(const QString& text) override;
    void showCountdown(const QString& bar) override;
    void showChoices(const QStringList& captions) override;
    void showFeedback(const QString& text, bool wrong) override;

public slots:
    void form_load();
    void multiple_choice_click();
    void spelling_click();
    void fill_in_blank_click();
    void begin_test_click();
    void stop_click();
    void exit_click();
    // The six choice buttons share one handler; number is 1 .. 6.
    void c_click(int number);
    // Only Enter (13) answers.
    void Text1_keypress(int keyAscii);

private:
    void buildControls();
    void buildLayout();
    void showListChoice(bool visible);

    QuizState m_state;
    QList<QPushButton*> m_choices;
};

} // namespace quorvane
