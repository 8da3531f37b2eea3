#pragma once

#include "flash/card_loop.h"

namespace quorvane {

class Session;

// Asks how many times each flash card repeats its word and sets repeat_count; an answer outside
// 1..60, or no number, sets 3 and says so.
void ask_repeat_count(Session& session);

// The settings buttons of the flash-card windows. Each may run while the card loop is on the
// stack: they change only the session's settings and flags, which the loop reads at its next
// play or card.

// Asks the pause after each sound ("Speed Bump"). An entry that is no number changes nothing.
// Below 0.01 or above 11 the speed becomes 0.2 (large) or 0.1 (small) with a message that says
// 10: the bound really is 11, kept. The large window recomputes silence_count from the entry
// before the bound is checked, so a refused entry still sets it (kept); the small one never does.
void change_speed(Session& session, CardStyle kind);
// Ask how many plays of the top word come before its text, or before the bottom text, is shown.
// An entry that is no number changes nothing.
void ask_delay_top(Session& session);
void ask_delay_bottom(Session& session);
// Asks the interlace count (an entry that is no number leaves it) and switches to interlace
// whatever was typed.
void ask_interlace(Session& session, CardStyle kind);
// Say the top word only, or the translation first: both tell the student what they do.
void choose_top_only(Session& session);
void choose_both(Session& session);

} // namespace quorvane
