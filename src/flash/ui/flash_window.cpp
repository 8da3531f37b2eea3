#include "flash/ui/flash_window.h"

#include "core/session.h"
#include "flash/card_settings.h"
#include "flash/mp3_compile.h"
#include "flash/texts.h"
#include "widgets/window_geometry.h"

#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace quorvane {

namespace {
constexpr int kButtonPoints = 10;
constexpr int kButtonHeight = 34;
} // namespace

FlashWindow::FlashWindow(Session& session, QWidget* parent) : FlashCardWindow(session, CardStyle::large, parent)
{
    setObjectName(QStringLiteral("qvplay"));
    setWindowTitle(flash_texts::kLargeTitle);

    mp3_label = makeLabel(QStringLiteral("mp3_label"), 10);
    delay_top = makeButton(QStringLiteral("delay_top"), flash_texts::kDelayTopCaption, kButtonPoints);
    delay_bottom = makeButton(QStringLiteral("delay_bottom"), flash_texts::kDelayBottomCaption, kButtonPoints);
    create_mp3 = makeButton(QStringLiteral("create_mp3"), flash_texts::kCreateMp3Caption, kButtonPoints);
    auto_mp3 = makeButton(QStringLiteral("auto_mp3"), flash_texts::kAutoMp3Caption, kButtonPoints);
    exit_btn = makeButton(QStringLiteral("exit_btn"), flash_texts::kExitCaption, kButtonPoints);

    connect(delay_top, &QPushButton::clicked, this, &FlashWindow::delay_top_click);
    connect(delay_bottom, &QPushButton::clicked, this, &FlashWindow::delay_bottom_click);
    connect(create_mp3, &QPushButton::clicked, this, &FlashWindow::create_mp3_click);
    connect(auto_mp3, &QPushButton::clicked, this, &FlashWindow::auto_mp3_click);
    connect(exit_btn, &QPushButton::clicked, this, &FlashWindow::exit_btn_click);
    exit_btn->setToolTip(flash_texts::kExitTip);
    buildLayout();
    buildReviewButtons();
    keepWindowGeometry(this);
}

void FlashWindow::buildLayout()
{
    // The card: the word above its translation, on a white face.
    auto* card = new QFrame(this);
    card->setObjectName(QStringLiteral("card"));
    card->setStyleSheet(QStringLiteral("QFrame#card { background: white; border: 1px solid #b8c2d6; "
                                       "border-radius: 10px; }"));
    auto* rule = new QFrame(card);
    rule->setFrameShape(QFrame::HLine);
    rule->setStyleSheet(QStringLiteral("color: #d5dbe8;"));
    auto* face = new QVBoxLayout(card);
    face->setContentsMargins(24, 18, 24, 18);
    face->addWidget(word_lbl, 1);
    face->addWidget(rule);
    face->addWidget(word_lbl2, 1);

    auto* counters = new QHBoxLayout;
    counters->addWidget(num_lbl);
    counters->addSpacing(24);
    counters->addWidget(mp3_label);
    counters->addStretch(1);
    counters->addWidget(repeat_lbl);
    counters->addSpacing(24);
    counters->addWidget(speed_lbl);

    // Each group is two rows high; a button alone on its row takes the whole row.
    auto group = [this](const QString& title, const QList<QPushButton*>& buttons, int columns) {
        auto* box = new QGroupBox(title, this);
        auto* layout = new QGridLayout(box);
        for (int i = 0; i < buttons.size(); ++i) {
            buttons[i]->setMinimumHeight(kButtonHeight);
            const bool alone = i == buttons.size() - 1 && i % columns == 0;
            layout->addWidget(buttons[i], i / columns, i % columns, 1, alone ? columns : 1);
        }
        return box;
    };
    auto* controls = new QHBoxLayout;
    controls->addWidget(group(flash_texts::kTimingGroup, {change_repeat, change_speed, delay_top, delay_bottom}, 2), 2);
    controls->addWidget(group(flash_texts::kSpeechGroup, {say_bottom, speak_both, interlace}, 2), 2);
    controls->addWidget(group(flash_texts::kCardsGroup, {i_know_this_word, next_word, pause, resume}, 2), 2);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(group(flash_texts::kMp3Group, {create_mp3, auto_mp3}, 2), 1);
    exit_btn->setMinimumSize(140, kButtonHeight);
    bottom->addWidget(exit_btn, 0, Qt::AlignBottom);

    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(14, 14, 14, 14);
    page->addWidget(card, 1);
    page->addLayout(counters);
    page->addLayout(controls);
    page->addLayout(bottom);
    resize(1000, 640);
}

void FlashWindow::setCardPoints(int points)
{
    for (QLabel* label : {word_lbl, word_lbl2}) {
        QFont font = label->font();
        font.setPointSize(points);
        label->setFont(font);
    }
}

void FlashWindow::showTexts(bool top, bool bottom)
{
    word_lbl->setVisible(top);
    word_lbl2->setVisible(bottom);
}

void FlashWindow::showMp3Progress(const QString& text)
{
    mp3_label->setText(text);
}

void FlashWindow::showWordCount(const QString& caption)
{
    m_session.mainView().show_word_count(caption);
}

void FlashWindow::delay_top_click()
{
    guarded([this] { ask_delay_top(m_session); });
}

void FlashWindow::delay_bottom_click()
{
    guarded([this] { ask_delay_bottom(m_session); });
}

void FlashWindow::create_mp3_click()
{
    guarded([this] { quorvane::create_mp3(m_session); });
}

void FlashWindow::auto_mp3_click()
{
    // The compilation waits briefly every tenth word, and the window may close meanwhile: the
    // files are still finished, the label is left alone.
    QPointer<FlashWindow> self(this);
    Session& session = m_session;
    guarded([&session, self] {
        quorvane::auto_mp3(session, [self](const QString& text) {
            if (self)
                self->mp3_label->setText(text);
        });
    });
}

void FlashWindow::exit_btn_click()
{
    close();
}

} // namespace quorvane
