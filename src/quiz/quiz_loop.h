#pragma once

#include "core/view_watch.h"
#include "quiz/judging.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

class QObject;

namespace quorvane {

class Session;

// The variables of one test window. They live as long as the window and start at zero or empty;
// a second test in the same window goes on counting from where the last one stopped.
struct QuizState
{
    qint16 num_questions = 0;
    qint16 question_number = 0;
    qint16 correct_position = 0;
    qint16 correct_count = 0;
    QString expected_answer;
    float seconds_per_question = 0.0f;
    QString typed_answer;
    QString play_sound;
    QString show_text;
    QString question_word;
    QString list_label;
    QDateTime start_time;
    // The clock's timer when the test began: the duration is measured on the session's clock.
    double start_timer = 0.0;
    // True while a test runs in this window; restart asks the running test to end and a new one
    // to begin once it has unwound.
    bool running = false;
    bool restart = false;
};

// What a test reads from and shows on its window. Implemented by the test window. Calls come only
// between two waits of the test, never once unloaded() is true or the window is gone.
class QuizView : public WatchedView
{
public:
    // The set-up as the student has left it, read when asked (the kind may change mid-test).
    virtual QString questionsText() const = 0;
    virtual QString secondsText() const = 0;
    virtual int sourceRow() const = 0;
    virtual int presentationRow() const = 0;
    virtual TestKind kind() const = 0;
    // What Text1 holds now.
    virtual QString typedText() const = 0;

    virtual void showAnswerBox(bool visible) = 0;
    virtual void clearTypedText() = 0;
    // test_word: the word asked, or the summary at the end.
    virtual void showWord(const QString& text) = 0;
    virtual void showRemaining(const QString& text) = 0;
    virtual void showCountdown(const QString& bar) = 0;
    // The captions of c1 .. c6.
    virtual void showChoices(const QStringList& captions) = 0;
    // previous_word, on the normal background or, for a wrong answer, on orange.
    virtual void showFeedback(const QString& text, bool wrong) = 0;
};

// "Begin Test": checks the set-up, loads the word source and asks questions until the last one,
// a stop, an exit or the window's closing. Runs inside the calling handler and yields only inside
// the clock's waits, where the answer handlers run. Called while a test runs, it ends that test
// (nothing written) and begins again once it has unwound. viewObject is watched for deletion.
void begin_test(Session& session, QuizView& view, QuizState& state, QObject* viewObject);

// A choice button or Enter in Text1: records the answer for the running question to judge.
void give_answer(Session& session, QuizState& state, const QString& answer);

// "Stop Test": the unfinished question is not counted, and the results are written at once.
void stop_test(Session& session, QuizView& view, QuizState& state);

// "Exit": the running test ends at its next check, without results.
void exit_test(Session& session);

// Appends the results line to test_results.txt (a failure is said in a message box and the
// window stays usable), shows the summary in test_word and empties the question area.
void finish_test(Session& session, QuizView& view, QuizState& state);

// The six captions of a multiple-choice question: expected at correctPosition (1 .. 6), and at every
// other place the translation of a word drawn on its own from the word arrays, so two choices may
// be equal, or equal the right one. The generator follows the clock's timer.
QStringList draw_choices(Session& session, const QString& expected, int correctPosition);

} // namespace quorvane
