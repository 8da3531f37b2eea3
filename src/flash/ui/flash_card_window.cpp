#include "flash/ui/flash_card_window.h"

#include "core/flags.h"
#include "core/prompts.h"
#include "core/session.h"
#include "flash/card_settings.h"
#include "flash/media_keys.h"
#include "flash/texts.h"
#include "store/word_moves.h"
#include "widgets/controls.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QResizeEvent>

#include <QShortcut>
#include <algorithm>

namespace quorvane {

namespace {

using flags::kYes;

} // namespace

FlashCardWindow::FlashCardWindow(Session& session, CardStyle style, QWidget* parent)
    : ActivityWindow(session, parent), m_style(style)
{
    setFont(controls::font(controls::kArial, 9));

    const bool large = style == CardStyle::large;
    const int buttonPoints = large ? 10 : 8;
    m_wordPoints = large ? 48 : 16;
    word_lbl = makeLabel(QStringLiteral("word_lbl"), m_wordPoints, true);
    word_lbl2 = makeLabel(QStringLiteral("word_lbl2"), m_wordPoints, true);
    for (QLabel* label : {word_lbl, word_lbl2}) {
        label->setAlignment(Qt::AlignCenter);
        label->setWordWrap(true);
        // A text hidden for its first plays keeps its place, so the card does not jump.
        QSizePolicy policy = label->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        label->setSizePolicy(policy);
    }
    word_lbl->setStyleSheet(QStringLiteral("color: #12306b;"));
    word_lbl2->setStyleSheet(QStringLiteral("color: #7a1f1f;"));
    num_lbl = makeLabel(QStringLiteral("num_lbl"), large ? 10 : 8);
    repeat_lbl = makeLabel(QStringLiteral("repeat_lbl"), large ? 10 : 8);
    speed_lbl = makeLabel(QStringLiteral("speed_lbl"), large ? 10 : 8);

    change_repeat = makeButton(QStringLiteral("change_repeat"), flash_texts::kRepeatsCaption, buttonPoints);
    change_speed = makeButton(QStringLiteral("change_speed"), flash_texts::kSpeedCaption, buttonPoints);
    interlace = makeButton(QStringLiteral("interlace"), flash_texts::kInterlaceCaption, buttonPoints);
    say_bottom = makeButton(QStringLiteral("say_bottom"),
                            large ? flash_texts::kTopOnlyCaption : flash_texts::kSmallTopOnlyCaption, buttonPoints);
    speak_both = makeButton(QStringLiteral("speak_both"), flash_texts::kBothCaption, buttonPoints);
    i_know_this_word = makeButton(QStringLiteral("i_know_this_word"), flash_texts::kKnownCaption, buttonPoints);
    next_word = makeButton(QStringLiteral("next_word"), large ? flash_texts::kSkipCaption : flash_texts::kNextCaption,
                           buttonPoints);
    pause = makeButton(QStringLiteral("pause"), flash_texts::kPauseCaption, buttonPoints);
    resume = makeButton(QStringLiteral("resume"), flash_texts::kResumeCaption, buttonPoints);

    connect(change_repeat, &QPushButton::clicked, this, &FlashCardWindow::change_repeat_click);
    connect(change_speed, &QPushButton::clicked, this, &FlashCardWindow::change_speed_click);
    connect(interlace, &QPushButton::clicked, this, &FlashCardWindow::interlace_click);
    connect(say_bottom, &QPushButton::clicked, this, &FlashCardWindow::say_bottom_click);
    connect(speak_both, &QPushButton::clicked, this, &FlashCardWindow::speak_both_click);
    connect(i_know_this_word, &QPushButton::clicked, this, &FlashCardWindow::i_know_this_word_click);
    connect(next_word, &QPushButton::clicked, this, &FlashCardWindow::next_word_click);
    connect(pause, &QPushButton::clicked, this, &FlashCardWindow::pause_click);
    connect(resume, &QPushButton::clicked, this, &FlashCardWindow::resume_click);
    addKeys();
}

void FlashCardWindow::addKeys()
{
    pause->setToolTip(flash_texts::kPauseTip);
    resume->setToolTip(flash_texts::kResumeTip);
    next_word->setToolTip(flash_texts::kSkipTip);
    const auto pauseOrResume = [this] { m_session.stop_flag == kYes ? resume_click() : pause_click(); };
    const QList<std::pair<Qt::Key, std::function<void()>>> keys = {{Qt::Key_Space, pauseOrResume},
                                                                   {Qt::Key_Right, [this] { next_word_click(); }},
                                                                   {Qt::Key_Left, [this] { replay(); }},
                                                                   {Qt::Key_Escape, [this] { close(); }}};
    // A window shortcut is seen before the focused control's own handling of the key.
    for (const auto& [key, action] : keys)
        connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, this, action);
}

void FlashCardWindow::startMediaKeys()
{
    if (m_mediaKeys || unloaded())
        return;
    m_mediaKeys = new MediaKeys(this);
    // The first run has begun by now.
    m_mediaKeys->setRunning(m_runs > 0);
    connect(m_mediaKeys, &MediaKeys::pauseRequested, this, &FlashCardWindow::pause_click);
    connect(m_mediaKeys, &MediaKeys::stopRequested, this, &FlashCardWindow::pause_click);
    connect(m_mediaKeys, &MediaKeys::resumeRequested, this, &FlashCardWindow::resume_click);
    connect(m_mediaKeys, &MediaKeys::skipRequested, this, &FlashCardWindow::next_word_click);
    connect(m_mediaKeys, &MediaKeys::replayRequested, this, &FlashCardWindow::replay);
    connect(m_mediaKeys, &MediaKeys::quitRequested, this, &QWidget::close);
    connect(m_mediaKeys, &MediaKeys::raiseRequested, this, [this] {
        showNormal();
        raise();
        activateWindow();
    });
}

QPushButton* FlashCardWindow::makeButton(const QString& name, const QString& caption, int points)
{
    QPushButton* button = controls::button(this, name, caption, controls::font(controls::kArial, points));
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

QLabel* FlashCardWindow::makeLabel(const QString& name, int points, bool bold)
{
    return controls::label(this, name, QString(), controls::font(controls::kArial, points, bold));
}

void FlashCardWindow::showWindow()
{
    show();
    raise();
    startMediaKeys();
}

void FlashCardWindow::showWordsLeft(const QString& text)
{
    num_lbl->setText(text);
}

void FlashCardWindow::showCard(const QString& word, const QString& translation)
{
    word_lbl->setText(word);
    word_lbl2->setText(translation);
    if (m_mediaKeys)
        m_mediaKeys->showCard(word, translation);
}

void FlashCardWindow::showPlay(const QString& repeatText, const QString& speedText)
{
    repeat_lbl->setText(repeatText);
    speed_lbl->setText(speedText);
}

void FlashCardWindow::showRunning(bool running)
{
    m_runs += running ? 1 : -1;
    if (m_mediaKeys)
        m_mediaKeys->setRunning(m_runs > 0);
}

void FlashCardWindow::playwords()
{
    // The window may be deleted while the loop runs (closed, then its deferred deletion reached
    // from a nested wait): the loop watches it, and nothing of this object is touched afterwards.
    Session& session = m_session;
    guarded([this, &session] {
        QString error;
        if (!play_cards(session, *this, this, m_style, &error))
            session.prompts.message(error);
    });
}

void FlashCardWindow::replay()
{
    m_session.replay_flag = kYes;
    m_session.current_index = m_session.previous_index;
    playwords();
}

void FlashCardWindow::change_repeat_click()
{
    guarded([this] {
        ask_repeat_count(m_session);
        // The new count applies from the next card, so the card in play is skipped on purpose.
        m_session.skip_flag = kYes;
    });
}

void FlashCardWindow::change_speed_click()
{
    guarded([this] { quorvane::change_speed(m_session, m_style); });
}

void FlashCardWindow::interlace_click()
{
    guarded([this] { ask_interlace(m_session, m_style); });
}

void FlashCardWindow::say_bottom_click()
{
    guarded([this] { choose_top_only(m_session); });
}

void FlashCardWindow::speak_both_click()
{
    guarded([this] { choose_both(m_session); });
}

void FlashCardWindow::i_know_this_word_click()
{
    guarded([this] {
        QString error;
        if (!move_to_known(m_session, m_session.current_index, &error) && !error.isEmpty())
            m_session.prompts.message(error);
        m_session.mainView().refresh_known_list();
        m_session.skip_flag = kYes;
    });
}

void FlashCardWindow::next_word_click()
{
    m_session.skip_flag = kYes;
}

void FlashCardWindow::pause_click()
{
    m_session.stop_flag = kYes;
}

void FlashCardWindow::resume_click()
{
    // While the cards play the flag is "no" and Resume does nothing; once paused it starts a run
    // with a fresh draw.
    if (m_session.stop_flag == kYes)
        playwords();
}

void FlashCardWindow::unloading()
{
    if (m_mediaKeys)
        m_mediaKeys->withdraw();
    m_session.stop_flag = kYes;
}

void FlashCardWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_firstSize.isEmpty())
        m_firstSize = event->size();
    const double scale = std::min(double(event->size().width()) / m_firstSize.width(),
                                  double(event->size().height()) / m_firstSize.height());
    const int points = std::max(m_wordPoints, int(m_wordPoints * scale));
    for (QLabel* label : {word_lbl, word_lbl2}) {
        QFont font = label->font();
        font.setPointSize(points);
        label->setFont(font);
    }
}

} // namespace quorvane
