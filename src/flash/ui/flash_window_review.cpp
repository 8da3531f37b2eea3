#include "flash/ui/flash_window.h"

#include "core/flags.h"
#include "core/prompts.h"
#include "core/session.h"
#include "review/review_log.h"
#include "review/texts.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace quorvane {

namespace {

constexpr int kGradePoints = 12;
constexpr int kGradeHeight = 40;

QString entryKey(const Session& session, int index)
{
    return session.sound_numbers.value(index) + u'\t' + session.words.value(index);
}

} // namespace

void FlashWindow::buildReviewButtons()
{
    again = makeButton(QStringLiteral("again"), review_texts::kAgainCaption, kGradePoints);
    got_it = makeButton(QStringLiteral("got_it"), review_texts::kGotItCaption, kGradePoints);
    again->setToolTip(review_texts::kAgainTip);
    got_it->setToolTip(review_texts::kGotItTip);
    auto* row = new QHBoxLayout;
    for (QPushButton* button : {again, got_it}) {
        button->setMinimumHeight(kGradeHeight);
        button->hide();
        row->addWidget(button);
    }
    // Right under the card.
    static_cast<QVBoxLayout*>(layout())->insertLayout(1, row);
    connect(again, &QPushButton::clicked, this, &FlashWindow::again_click);
    connect(got_it, &QPushButton::clicked, this, &FlashWindow::got_it_click);
}

void FlashWindow::review(const QList<int>& entries)
{
    m_reviewKeys.clear();
    for (int index : entries)
        m_reviewKeys.append(entryKey(m_session, index));
    m_reviewing = true;
    m_reviewDone = false;
    again->show();
    got_it->show();
    QPointer<FlashWindow> self(this);
    Session& session = m_session;
    playwords();
    if (self && !self->unloaded() && self->m_reviewDone) {
        session.prompts.message(review_texts::kReviewDone);
        if (self && !self->unloaded())
            self->close();
    }
}

int FlashWindow::nextReviewCard()
{
    // A word moved away meanwhile ("Mark Word As Known") is no longer in the arrays: passed over.
    while (!m_reviewKeys.isEmpty()) {
        const QString key = m_reviewKeys.takeFirst();
        for (int i = 0; i < m_session.wordCount(); ++i) {
            if (entryKey(m_session, i) == key) {
                m_graded = false;
                return i;
            }
        }
    }
    m_reviewDone = true;
    return -1;
}

void FlashWindow::grade(int grade)
{
    guarded([this, grade] {
        // A card is graded once; the grade ends its turn.
        if (!m_reviewing || m_graded)
            return;
        m_graded = true;
        review::log_grade(m_session, m_session.current_index, grade, review::kSourceCard);
        m_session.skip_flag = flags::kYes;
    });
}

void FlashWindow::again_click()
{
    grade(review::again);
}

void FlashWindow::got_it_click()
{
    grade(review::good);
}

void FlashWindow::keyPressEvent(QKeyEvent* event)
{
    if (m_reviewing && event->key() == Qt::Key_1)
        again_click();
    else if (m_reviewing && event->key() == Qt::Key_2)
        got_it_click();
    else
        FlashCardWindow::keyPressEvent(event);
}

} // namespace quorvane
