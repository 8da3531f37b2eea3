#pragma once

#include "flash/ui/flash_card_window.h"

namespace quorvane {

// The small flash card, qvplay2: stays above every other window so that words can play in a
// corner. Its texts keep one size and always show; it has no MP3 functions and no exit button
// (its frame closes it). Say Both is its default.
class SmallFlashWindow : public FlashCardWindow
{
    Q_OBJECT
public:
    explicit SmallFlashWindow(Session& session, QWidget* parent = nullptr);

private:
    void buildLayout();
};

} // namespace quorvane
