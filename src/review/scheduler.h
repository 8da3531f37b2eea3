#pragma once

namespace quorvane::review {

// The grades of a review: 1 again (forgotten), 2 hard, 3 good, 4 easy.
enum Grade { again = 1, hard = 2, good = 3, easy = 4 };

// What the scheduler knows of one word after its reviews so far. A word never reviewed has
// reviews == 0 and no meaningful stability or difficulty.
struct MemoryState
{
    double stability = 0.0;  // days until the chance of recall falls to 90 %
    double difficulty = 0.0; // 1 (easy) .. 10 (hard)
    int reviews = 0;
    int firstDay = 0; // Julian day of the first review
    int lastDay = 0;  // Julian day of the latest review
    int misses = 0;   // reviews graded "again" that were answers (a test or a card), not moves
};

// The chance of recall t days after a review of a word of stability s:
//   R(t, S) = (1 + FACTOR * t / S) ^ DECAY, DECAY = -0.5, FACTOR = 0.9 ^ (1 / DECAY) - 1 = 19/81,
// so that R(S, S) = 0.9.
double retrievability(double days, double stability);

// The whole days until the chance of recall falls to desiredRetention:
//   I = S / FACTOR * (r ^ (1 / DECAY) - 1), rounded, at least 1 day and at most 100 years.
int interval_days(double stability, double desiredRetention);

// Applies one review of grade on the Julian day `day` to state. Free Spaced Repetition Scheduler
// (version 5), with its published default weights w0 .. w18:
//   first review:   S0(G) = w[G-1];  D0(G) = w4 - e^(w5 * (G - 1)) + 1, kept in [1, 10]
//   same day again: S' = S * e^(w17 * (G - 3 + w18))
//   recalled:       S' = S * (1 + e^w8 * (11 - D) * S^-w9 * (e^(w10 * (1 - R)) - 1) * h * b),
//                   h = w15 for hard (else 1), b = w16 for easy (else 1)
//   forgotten:      S' = min(S, w11 * D^-w12 * ((S + 1)^w13 - 1) * e^(w14 * (1 - R)))
//   difficulty:     D' = D - w6 * (G - 3) * (10 - D) / 9, then pulled back towards D0(4):
//                   D'' = w7 * D0(4) + (1 - w7) * D', kept in [1, 10]
// R is the chance of recall on the day of the review; a review dated before the latest one counts
// as made on the same day.
void apply_review(MemoryState& state, int grade, int day, bool answer);

} // namespace quorvane::review
