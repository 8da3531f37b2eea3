#include "app/ui/main_window.h"

#include "core/prompts.h"
#include "core/session.h"
#include "quiz/results_file.h"
#include "quiz/texts.h"
#include "quiz/ui/test_results_window.h"
#include "quiz/ui/test_window.h"
#include "store/word_files.h"

#include <QDate>
#include <QEvent>

namespace quorvane {

namespace {

// Puts the word arrays back as they were when the test window closes: a test reads the words it
// asks into them, and the main window's rows must name the entries they show again.
class ArraysPutBack : public QObject
{
public:
    ArraysPutBack(Session& session, MainWindow& main, QWidget* test)
        : QObject(test), m_session(session),
          m_main(main), m_arrays{session.words, session.translations, session.sound_numbers}, m_file(session.words_file)
    {
        test->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        // The test window always accepts its close; no close reaches it while it is being deleted
        // with the main window.
        if (event->type() == QEvent::Close && !m_done) {
            m_done = true;
            m_session.words = m_arrays.words;
            m_session.translations = m_arrays.translations;
            m_session.sound_numbers = m_arrays.sound_numbers;
            m_session.words_file = m_file;
            m_main.display_words();
        }
        return false;
    }

private:
    Session& m_session;
    MainWindow& m_main;
    const WordArrays m_arrays;
    const QString m_file;
    bool m_done = false;
};

// A results window on report_text, beside the main window, which stays in view.
void openResultsWindow(Session& session, QWidget* parent)
{
    auto* results = new TestResultsWindow(session, parent);
    results->form_load();
    results->show();
    results->raise();
}

} // namespace

void MainWindow::print_list_click()
{
    guarded([this] {
        Session& s = *m_session;
        if (s.shown_file.isEmpty()) {
            s.prompts.message(quiz_texts::kListRequired);
            return;
        }
        s.report_text = list_report(s, QDate::currentDate());
        openResultsWindow(s, this);
    });
}

void MainWindow::show_test_results_click()
{
    guarded([this] {
        Session& s = *m_session;
        QString error;
        const auto results = read_test_results(&error);
        if (!results) {
            s.prompts.message(error.isEmpty() ? quiz_texts::kNoResultsYet : error);
            return;
        }
        s.report_text = *results;
        openResultsWindow(s, this);
    });
}

void MainWindow::test_me_click()
{
    guarded([this] {
        Session& s = *m_session;
        // Only a chosen list name is needed: the test picks its own file of that list.
        if (s.current_list.isEmpty()) {
            s.prompts.message(quiz_texts::kSelectListFirst);
            return;
        }
        hide();
        auto* test = new TestWindow(s, this);
        new ArraysPutBack(s, *this, test);
        test->form_load();
        test->show();
        test->raise();
    });
}

} // namespace quorvane
