#include "app/main_window.h"

#include "core/prompts.h"
#include "core/session.h"
#include "quiz/results_file.h"
#include "quiz/test_results_window.h"
#include "quiz/test_window.h"
#include "quiz/texts.h"

#include <QDate>

namespace quorvane {

namespace {

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
            s.prompts.message(quiz_texts::listRequired());
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
        const auto results = read_test_results();
        if (!results) {
            s.prompts.message(quiz_texts::noResultsYet());
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
            s.prompts.message(quiz_texts::selectListFirst());
            return;
        }
        hide();
        auto* test = new TestWindow(s, this);
        test->form_load();
        test->show();
        test->raise();
    });
}

} // namespace quorvane
