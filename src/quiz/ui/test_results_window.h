#pragma once

#include "widgets/activity_window.h"

class QLabel;
class QPlainTextEdit;
class QPrinter;
class QPushButton;

namespace quorvane {

// The results window, test_results ("Test Results"): shows report_text (the test results or a
// word list) and lets the student save it to a file, print it or close the window.
class TestResultsWindow : public ActivityWindow
{
    Q_OBJECT
public:
    TestResultsWindow(Session& session, QWidget* parent);

    QPlainTextEdit* TextBox1;
    QLabel* Label1;
    QPushButton* save_and_exit;
    QPushButton* print_test_results;
    QPushButton* exit_without_save;

    // Prints the text of TextBox1 on printer, paged: the one way the window prints, to the
    // default printer or to any other. False when the printer cannot be started.
    bool printTo(QPrinter& printer);

public slots:
    void form_load();
    void save_and_exit_click();
    void print_test_results_click();
    void exit_without_save_click();
};

} // namespace quorvane
