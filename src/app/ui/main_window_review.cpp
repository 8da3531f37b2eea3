#include "app/ui/main_window.h"

#include "core/clock.h"
#include "core/prompts.h"
#include "core/session.h"
#include "flash/texts.h"
#include "flash/ui/flash_window.h"
#include "review/review_log.h"
#include "review/settings.h"
#include "review/texts.h"
#include "review/ui/progress_window.h"
#include "store/word_files.h"
#include "widgets/controls.h"
#include "widgets/list_box.h"

#include <QLabel>
#include <QLayout>
#include <QPushButton>

namespace quorvane {

namespace {
constexpr int kPoints = 8;
}

void MainWindow::buildReview(QLayout* buttons)
{
    review_due = controls::button(centralWidget(), QStringLiteral("review_due"), review_texts::kReviewDueCaption,
                                  controls::font(controls::kSansSerif, kPoints, true));
    due_lbl = controls::label(centralWidget(), QStringLiteral("due_lbl"), QString(),
                              controls::font(controls::kSansSerif, kPoints));
    review_due->setMinimumHeight(30);
    due_lbl->setAlignment(Qt::AlignCenter);
    buttons->addWidget(review_due);
    buttons->addWidget(due_lbl);
}

void MainWindow::update_due_label()
{
    showDueCount(false);
}

void MainWindow::showDueCount(bool arraysFresh)
{
    guarded([this, arraysFresh] {
        Session& s = *m_session;
        if (s.current_list.isEmpty() || s.unknown_file.isEmpty()) {
            due_lbl->clear();
            return;
        }
        const int due = review::due_count(review::review_book(s), review::unknown_entries(s, arraysFresh),
                                          review::day_of(s.clock.dateTime()), s.desired_retention);
        due_lbl->setText(review_texts::dueCaption(due));
    });
}

void MainWindow::review_due_click()
{
    guarded([this] {
        Session& s = *m_session;
        if (s.shown_file.isEmpty()) {
            s.prompts.message(flash_texts::kSelectListFirst);
            return;
        }
        // The cards play the word arrays: the list is opened again so that they hold its unknown
        // words as the file has them now.
        const auto rows = lists_list->findItems(s.current_list, Qt::MatchExactly);
        if (rows.isEmpty())
            return;
        select_row(lists_list, lists_list->row(rows.first()));
        const QList<int> queue =
            review::review_queue(review::review_book(s), review::unknown_entries(s, true),
                                 review::day_of(s.clock.dateTime()), s.desired_retention, s.new_words_per_day);
        if (queue.isEmpty()) {
            s.prompts.message(review_texts::kNothingDue);
            return;
        }
        hide();
        flashWindow()->review(queue);
    });
}

void MainWindow::Progress_click()
{
    guarded([this] {
        auto* progress = new ProgressWindow(*m_session, this);
        progress->show();
    });
}

void MainWindow::review_settings_click()
{
    guarded([this] {
        if (review::ask_review_settings(*m_session))
            update_due_label();
    });
}

} // namespace quorvane
