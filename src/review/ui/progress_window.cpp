#include "review/ui/progress_window.h"

#include "core/prompts.h"
#include "core/session.h"
#include "quiz/results_file.h"
#include "review/progress.h"
#include "review/review_log.h"
#include "review/texts.h"
#include "store/text_files.h"
#include "widgets/controls.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QBuffer>
#include <QChart>
#include <QChartView>
#include <QDateTimeAxis>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineSeries>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>
#include <QValueAxis>

#include <algorithm>

namespace quorvane {

namespace {

constexpr int kMissedShown = 20;
// The weeks drawn, up to the latest week with a move.
constexpr int kWeeksShown = 12;
constexpr int kPoints = 9;

QChartView* chartView(QWidget* parent, const QString& name, const QString& title)
{
    auto* chart = new QChart;
    chart->setTitle(title);
    chart->legend()->setAlignment(Qt::AlignBottom);
    auto* view = new QChartView(chart, parent);
    view->setObjectName(name);
    view->setRenderHint(QPainter::Antialiasing);
    view->setMinimumSize(420, 260);
    return view;
}

} // namespace

ProgressWindow::ProgressWindow(Session& session, QWidget* parent)
    : ActivityWindow(session, parent, MainWindowOnClose::leave)
{
    setObjectName(QStringLiteral("progress"));
    setWindowTitle(review_texts::kProgressTitle + QStringLiteral(" - ") + session.user_name + QStringLiteral(" - ") +
                   session.current_language);
    const QFont font = controls::font(controls::kArial, kPoints);
    setFont(font);
    scores_chart = chartView(this, QStringLiteral("scores_chart"), review_texts::kScoresTitle);
    known_chart = chartView(this, QStringLiteral("known_chart"), review_texts::kKnownTitle);
    missed_list = new QListWidget(this);
    missed_list->setObjectName(QStringLiteral("missed_list"));
    Label1 = controls::label(this, QStringLiteral("Label1"), review_texts::kMissedTitle,
                             controls::font(controls::kArial, kPoints, true));
    damaged_lbl = controls::label(this, QStringLiteral("damaged_lbl"), QString(), font);
    save_png = controls::button(this, QStringLiteral("save_png"), review_texts::kSavePngCaption, font);
    close_btn = controls::button(this, QStringLiteral("close_btn"), review_texts::kCloseCaption, font);
    connect(save_png, &QPushButton::clicked, this, &ProgressWindow::save_png_click);
    connect(close_btn, &QPushButton::clicked, this, &ProgressWindow::close_btn_click);

    auto* missed = new QVBoxLayout;
    missed->addWidget(Label1);
    missed->addWidget(missed_list, 1);
    auto* grid = new QGridLayout;
    grid->addWidget(scores_chart, 0, 0, 1, 2);
    grid->addWidget(known_chart, 1, 0);
    grid->addLayout(missed, 1, 1);
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(1, 2);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(damaged_lbl, 1);
    buttons->addWidget(save_png);
    buttons->addWidget(close_btn);
    auto* page = new QVBoxLayout(this);
    page->addLayout(grid, 1);
    page->addLayout(buttons);

    guarded([this] {
        drawScores();
        drawKnownPerWeek();
        listMissed();
        const int damaged = review::review_book(m_session).damaged();
        damaged_lbl->setText(damaged > 0 ? review_texts::damagedLines(damaged) : QString());
    });
    resize(1000, 700);
}

void ProgressWindow::drawScores()
{
    QChart* chart = scores_chart->chart();
    // Results that cannot be read are said, and the chart is drawn without them.
    QString error;
    const auto scores = review::test_scores(read_test_results(&error).value_or(QString()), m_session.user_name,
                                            m_session.current_language);
    if (!error.isEmpty())
        m_session.prompts.message(error);
    auto* time = new QDateTimeAxis;
    time->setFormat(QStringLiteral("d MMM"));
    auto* percent = new QValueAxis;
    percent->setRange(0, 100);
    percent->setLabelFormat(QStringLiteral("%d"));
    percent->setTitleText(review_texts::kPercentAxis);
    chart->addAxis(time, Qt::AlignBottom);
    chart->addAxis(percent, Qt::AlignLeft);
    QDateTime first;
    QDateTime last;
    for (auto kind = scores.cbegin(); kind != scores.cend(); ++kind) {
        auto* line = new QLineSeries;
        line->setName(kind.key());
        line->setPointsVisible(true);
        for (const review::ScorePoint& point : kind.value()) {
            line->append(static_cast<qreal>(point.when.toMSecsSinceEpoch()), point.percent);
            if (!first.isValid() || point.when < first)
                first = point.when;
            if (!last.isValid() || point.when > last)
                last = point.when;
        }
        chart->addSeries(line);
        line->attachAxis(time);
        line->attachAxis(percent);
    }
    if (first.isValid())
        time->setRange(first.addSecs(-3600), last.addSecs(3600));
}

void ProgressWindow::drawKnownPerWeek()
{
    QChart* chart = known_chart->chart();
    const QMap<int, int>& weeks = review::review_book(m_session).knownPerWeek();
    auto* moved = new QBarSet(review_texts::kWordsAxis);
    QStringList categories;
    if (!weeks.isEmpty()) {
        const int lastWeek = weeks.lastKey();
        const int firstWeek = std::max(weeks.firstKey(), lastWeek - 7 * (kWeeksShown - 1));
        for (int monday = firstWeek; monday <= lastWeek; monday += 7) {
            categories.append(QDate::fromJulianDay(monday).toString(QStringLiteral("d MMM")));
            moved->append(weeks.value(monday));
        }
    }
    auto* series = new QBarSeries;
    series->append(moved);
    chart->addSeries(series);
    auto* axis = new QBarCategoryAxis;
    axis->append(categories);
    auto* count = new QValueAxis;
    count->setLabelFormat(QStringLiteral("%d"));
    int most = 0;
    for (int value : weeks)
        most = std::max(most, value);
    count->setRange(0, std::max(most, 1));
    count->applyNiceNumbers();
    chart->addAxis(axis, Qt::AlignBottom);
    chart->addAxis(count, Qt::AlignLeft);
    series->attachAxis(axis);
    series->attachAxis(count);
    chart->legend()->hide();
}

void ProgressWindow::listMissed()
{
    missed_list->clear();
    for (const auto& [word, misses] : review::review_book(m_session).mostMissed(kMissedShown))
        missed_list->addItem(review_texts::missedRow(word, misses));
}

void ProgressWindow::save_png_click()
{
    guarded([this] {
        const QString path = m_session.prompts.input(review_texts::kSavePrompt, review_texts::kProgressTitle,
                                                     QStringLiteral("progress.png"));
        if (path.isEmpty())
            return;
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        grab().save(&buffer, "PNG");
        QString error;
        if (writeBytes(path, bytes, &error))
            m_session.prompts.message(review_texts::pictureSaved(path), review_texts::kProgressTitle);
        else
            m_session.prompts.message(review_texts::pictureNotSaved(path, error), review_texts::kProgressTitle);
    });
}

void ProgressWindow::close_btn_click()
{
    close();
}

} // namespace quorvane
