#pragma once

#include "widgets/activity_window.h"

class QChartView;
class QLabel;
class QListWidget;
class QPushButton;

namespace quorvane {

// The progress window, progress (Tools > Progress): the student's test scores over time, one line
// per kind of test; the words moved to known per week; the most missed words of the language with
// their miss counts. Drawn once from test_results.txt and the review log when it opens. Closing it
// leaves the main window as it is.
class ProgressWindow : public ActivityWindow
{
    Q_OBJECT
public:
    ProgressWindow(Session& session, QWidget* parent);

    QChartView* scores_chart;
    QChartView* known_chart;
    QListWidget* missed_list;
    QLabel* Label1;
    QLabel* damaged_lbl;
    QPushButton* save_png;
    QPushButton* close_btn;

public slots:
    // Asks for a file name and saves a picture of the window there as PNG.
    void save_png_click();
    void close_btn_click();

private:
    void drawScores();
    void drawKnownPerWeek();
    void listMissed();
};

} // namespace quorvane
