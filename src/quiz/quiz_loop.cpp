#include "quiz/quiz_loop.h"

#include "core/basic.h"
#include "core/clock.h"
#include "core/flags.h"
#include "core/prompts.h"
#include "core/random_index.h"
#include "core/session.h"
#include "quiz/results_file.h"
#include "quiz/texts.h"
#include "review/review_log.h"
#include "sound/playback.h"
#include "sound/spoken_words.h"
#include "store/paths.h"
#include "store/word_files.h"

#include <QFileInfo>
#include <QObject>
#include <QScopeGuard>

namespace quorvane {

namespace {

using flags::kNo;
using flags::kQuit;
using flags::kYes;

constexpr int kCountdownSteps = 20;
constexpr float kGraceWait = 0.5f;
constexpr int kChoiceCount = 6;
constexpr int kSecondsPerDay = 86400;

enum class Step { next, end };

// One test: the set-up of "Begin Test" and then one question after the other, each drawn, asked,
// counted down and judged in the order the window has always followed.
class QuizRun
{
public:
    QuizRun(Session& session, QuizView& view, QuizState& state, QObject* viewObject)
        : m_session(session), m_view(view), m_state(state), m_watch(view, viewObject)
    {
    }

    // Steps of "Begin Test" up to the first question; false when the set-up is refused.
    bool setUp()
    {
        Session& s = m_session;
        s.stop_flag = kQuit;
        m_view.showFeedback(QString(), false);
        const auto questions = basic::toInteger(basic::leadingNumber(m_view.questionsText()));
        // Only zero is refused: a negative count runs until stopped, as designed.
        if (!questions || *questions == 0) {
            s.prompts.message(quiz_texts::kQuestionsRefused);
            return false;
        }
        m_state.num_questions = *questions;
        m_view.showAnswerBox(m_view.kind() != TestKind::multipleChoice);
        m_state.seconds_per_question = static_cast<float>(basic::leadingNumber(m_view.secondsText()));
        if (m_state.seconds_per_question == 0.0f) {
            s.prompts.message(quiz_texts::kSecondsRefused);
            return false;
        }
        loadSource();
        if (s.wordCount() <= 0) {
            s.prompts.message(quiz_texts::kEmptySource);
            return false;
        }
        choosePresentation();
        m_state.start_time = s.clock.dateTime();
        m_state.start_timer = s.clock.timer();
        s.stop_flag = kNo;
        return true;
    }

    void askQuestions()
    {
        while (question() == Step::next) {
        }
    }

private:
    bool gone() const { return m_watch.gone(); }

    // A source that cannot be read is said here; the empty source that follows is said by the set-up.
    void loadSource()
    {
        Session& s = m_session;
        QString error;
        bool read = true;
        switch (m_view.sourceRow()) {
        case 0:
            read = create_array_of_words(s, s.list_file, &error);
            m_state.list_label = s.current_list;
            break;
        case 1:
            read = create_array_of_words(s, s.unknown_file, &error);
            m_state.list_label = quiz_texts::unknownsOnly(s.current_list);
            break;
        case 2:
            read = create_array_of_words(s, s.master_file, &error);
            m_state.list_label = quiz_texts::kMasterSource;
            break;
        default:
            break;
        }
        if (!read)
            s.prompts.message(error);
    }

    void choosePresentation()
    {
        static const QString shows[] = {kYes, kNo, kYes};
        static const QString plays[] = {kNo, kYes, kYes};
        const int row = m_view.presentationRow();
        if (row >= 0 && row < 3) {
            m_state.show_text = shows[row];
            m_state.play_sound = plays[row];
        }
        if (m_view.kind() == TestKind::spelling) {
            m_state.show_text = kNo;
            m_state.play_sound = kYes;
        }
    }

    int drawIndex() { return static_cast<int>(random_index(m_session, 0, m_session.wordCount() - 1)); }

    bool hasRecording(const QString& soundNumber) const
    {
        const QString& folder = m_session.languages_folder;
        const QString& language = m_session.current_language;
        return QFileInfo::exists(paths::newWavRecording(folder, language, soundNumber)) ||
               QFileInfo::exists(paths::newMp3Recording(folder, language, soundNumber)) ||
               QFileInfo::exists(paths::releasedRecording(folder, language, soundNumber));
    }

    // One question, from its draw to its judgement.
    Step question()
    {
        Session& s = m_session;
        QuizState& q = m_state;
        if (s.stop_flag == kQuit || gone())
            return Step::end;
        int index = 0;
        for (;;) {
            m_view.clearTypedText();
            m_view.showWord(QString());
            // Drawn with replacement: a word may come twice, even twice in a row.
            index = drawIndex();
            q.question_word = s.words.value(index);
            if (q.show_text == kYes)
                m_view.showWord(q.question_word);
            q.expected_answer = s.translations.value(index);
            if (q.play_sound != kYes || hasRecording(s.sound_numbers.value(index)) ||
                would_synthesize(s, s.sound_numbers.value(index), s.current_language, q.question_word))
                break;
            // OK draws another word, not counted; Cancel ends the test with its results.
            if (!s.prompts.okCancel(quiz_texts::kSoundMissing)) {
                finish_test(s, m_view, q);
                return Step::end;
            }
            if (gone())
                return Step::end;
        }
        ++q.question_number;
        m_view.showRemaining(quiz_texts::remaining(q.question_number, q.num_questions));
        q.correct_position = static_cast<qint16>(random_index(s, 1, kChoiceCount));
        if (m_view.kind() == TestKind::multipleChoice) {
            m_view.showChoices(draw_choices(s, q.expected_answer, q.correct_position));
        }
        if (countdown(s.sound_numbers.value(index), s.words.value(index)) == Step::end)
            return Step::end;
        const bool right = judge(s.translations.value(index));
        review::log_grade(s, index, right ? review::good : review::again, review::kSourceTest);
        if (q.question_number == q.num_questions) {
            finish_test(s, m_view, q);
            return Step::end;
        }
        return Step::next;
    }

    Step countdown(const QString& soundNumber, const QString& word)
    {
        Session& s = m_session;
        m_view.showCountdown(QString(kCountdownSteps, u'='));
        if (m_state.play_sound == kYes)
            say_word(s, soundNumber, s.current_language, word);
        for (int t = kCountdownSteps - 1; t >= 1; --t) {
            if (gone())
                return Step::end;
            m_view.showCountdown(QString(t, u'='));
            wait_seconds(s, m_state.seconds_per_question / kCountdownSteps);
            if (gone() || s.stop_flag == kQuit)
                return Step::end;
            if (s.stop_flag == kYes)
                return Step::next;
        }
        wait_seconds(s, kGraceWait);
        if (gone() || s.stop_flag == kQuit)
            return Step::end;
        // Unfinished typing is judged as it stands; in multiple choice the previous answer stays.
        if (s.stop_flag != kYes && m_view.kind() != TestKind::multipleChoice)
            m_state.typed_answer = m_view.typedText();
        return Step::next;
    }

    bool judge(const QString& translation)
    {
        Session& s = m_session;
        QuizState& q = m_state;
        s.stop_flag = kNo;
        m_view.clearTypedText();
        const QString feedback = q.question_word + QStringLiteral(" = ") + translation;
        const TestKind kind = m_view.kind();
        // Only the expected answer is folded: a typed accent is judged wrong, as designed.
        if (kind == TestKind::spelling)
            q.expected_answer = fold_accents(q.question_word);
        bool right = false;
        if (kind == TestKind::multipleChoice) {
            right = q.typed_answer == q.expected_answer;
        } else if (typed_answer_found(q.typed_answer, q.expected_answer)) {
            right = true;
            s.prompts.message(quiz_texts::found(q.typed_answer, q.expected_answer));
        }
        if (right) {
            ++q.correct_count;
            m_view.showFeedback(feedback, false);
        } else {
            m_view.showFeedback(feedback + u'\r' + quiz_texts::kTypedAnswerPrefix + q.typed_answer, true);
        }
        return right;
    }

    Session& m_session;
    QuizView& m_view;
    QuizState& m_state;
    const ViewWatch m_watch;
};

} // namespace

void begin_test(Session& session, QuizView& view, QuizState& state, QObject* viewObject)
{
    if (state.running) {
        session.stop_flag = kQuit;
        state.restart = true;
        return;
    }
    const ViewWatch watch(view, viewObject);
    do {
        state.restart = false;
        QuizRun run(session, view, state, viewObject);
        if (!run.setUp())
            return;
        // The state is running for the life of one test, and stop_flag is "no" however it ends.
        state.running = true;
        const auto ended = qScopeGuard([&session, &state] {
            state.running = false;
            session.stop_flag = kNo;
        });
        run.askQuestions();
    } while (!watch.gone() && state.restart);
}

QStringList draw_choices(Session& session, const QString& expected, int correctPosition)
{
    QStringList choices;
    for (int k = 1; k <= kChoiceCount; ++k) {
        if (k == correctPosition)
            choices.append(expected);
        else
            choices.append(
                session.translations.value(static_cast<int>(random_index(session, 0, session.wordCount() - 1))));
    }
    return choices;
}

void give_answer(Session& session, QuizState& state, const QString& answer)
{
    state.typed_answer = answer;
    session.stop_flag = kYes;
}

void stop_test(Session& session, QuizView& view, QuizState& state)
{
    session.stop_flag = kQuit;
    --state.question_number;
    finish_test(session, view, state);
}

void exit_test(Session& session)
{
    session.stop_flag = kQuit;
}

void finish_test(Session& session, QuizView& view, QuizState& state)
{
    double elapsed = session.clock.timer() - state.start_timer;
    if (elapsed < 0)
        elapsed += kSecondsPerDay;
    const QString duration = duration_text(elapsed);
    const int percent = score_percent(state.correct_count, state.question_number);
    TestResult result;
    result.student = session.user_name;
    result.language = session.current_language;
    result.source = state.list_label;
    result.asked = state.question_number;
    result.percent = percent;
    result.duration = duration;
    result.kind = view.kind();
    result.presentationRow = view.presentationRow();
    result.start = us_date_time(state.start_time);
    QString error;
    if (!append_test_result(results_line(result), &error))
        session.prompts.message(quiz_texts::resultsNotWritten(paths::testResultsFile(), error));

    view.showWord(quiz_texts::summary(duration, state.correct_count, state.question_number, percent));
    view.clearTypedText();
    view.showChoices(QStringList(kChoiceCount, QString()));
    view.showRemaining(QString());
    view.showCountdown(QString());
    state.play_sound.clear();
    state.show_text.clear();
}

} // namespace quorvane
