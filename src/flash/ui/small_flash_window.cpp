#include "flash/ui/small_flash_window.h"

#include "flash/texts.h"
#include "widgets/window_geometry.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace quorvane {

SmallFlashWindow::SmallFlashWindow(Session& session, QWidget* parent)
    : FlashCardWindow(session, CardStyle::small, parent)
{
    setObjectName(QStringLiteral("qvplay2"));
    setWindowTitle(flash_texts::kSmallTitle);
    setWindowFlag(Qt::WindowStaysOnTopHint);
    buildLayout();
    keepWindowGeometry(this);
}

void SmallFlashWindow::buildLayout()
{
    auto* card = new QFrame(this);
    card->setObjectName(QStringLiteral("card"));
    card->setStyleSheet(QStringLiteral("QFrame#card { background: white; border: 1px solid #b8c2d6; "
                                       "border-radius: 6px; }"));
    auto* face = new QVBoxLayout(card);
    face->setContentsMargins(10, 8, 10, 8);
    face->addWidget(word_lbl, 1);
    face->addWidget(word_lbl2, 1);

    auto* counters = new QHBoxLayout;
    counters->addWidget(num_lbl);
    counters->addStretch(1);
    counters->addWidget(repeat_lbl);
    counters->addSpacing(12);
    counters->addWidget(speed_lbl);

    auto* buttons = new QGridLayout;
    buttons->setSpacing(4);
    const QList<QPushButton*> order = {resume,    pause,      next_word,  change_speed,    change_repeat,
                                       interlace, speak_both, say_bottom, i_know_this_word};
    for (int i = 0; i < order.size(); ++i) {
        order[i]->setMinimumHeight(26);
        // The last button takes the whole last row.
        if (order[i] == i_know_this_word)
            buttons->addWidget(order[i], i / 4, i % 4, 1, 4);
        else
            buttons->addWidget(order[i], i / 4, i % 4);
    }

    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(8, 8, 8, 8);
    page->setSpacing(6);
    page->addWidget(card, 1);
    page->addLayout(counters);
    page->addLayout(buttons);
    resize(400, 270);
}

} // namespace quorvane
