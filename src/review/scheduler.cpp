#include "review/scheduler.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quorvane::review {

namespace {

// The published default weights of version 5 of the scheduler.
constexpr std::array<double, 19> w = {0.40255, 1.18385, 3.173,  15.69105, 7.1949, 0.5345, 1.4604,
                                      0.0046,  1.54575, 0.1192, 1.01925,  1.9395, 0.11,   0.29605,
                                      2.2698,  0.2315,  2.9898, 0.51655,  0.6621};
constexpr double kDecay = -0.5;
const double kFactor = std::pow(0.9, 1.0 / kDecay) - 1.0;
constexpr int kLongestInterval = 36500;
constexpr double kLeastStability = 0.01;

double clampDifficulty(double d)
{
    return std::clamp(d, 1.0, 10.0);
}

double initialDifficulty(int grade)
{
    return w[4] - std::exp(w[5] * (grade - 1)) + 1.0;
}

double nextDifficulty(double d, int grade)
{
    const double damped = d - w[6] * (grade - 3) * (10.0 - d) / 9.0;
    return clampDifficulty(w[7] * clampDifficulty(initialDifficulty(easy)) + (1.0 - w[7]) * damped);
}

} // namespace

double retrievability(double days, double stability)
{
    return std::pow(1.0 + kFactor * days / stability, kDecay);
}

int interval_days(double stability, double desiredRetention)
{
    const double days = stability / kFactor * (std::pow(desiredRetention, 1.0 / kDecay) - 1.0);
    return std::clamp(static_cast<int>(std::lround(days)), 1, kLongestInterval);
}

void apply_review(MemoryState& state, int grade, int day, bool answer)
{
    grade = std::clamp(grade, 1, 4);
    if (answer && grade == again)
        ++state.misses;
    if (state.reviews == 0) {
        state.stability = std::max(w[grade - 1], kLeastStability);
        state.difficulty = clampDifficulty(initialDifficulty(grade));
        state.firstDay = day;
    } else {
        const int elapsed = std::max(0, day - state.lastDay);
        const double s = state.stability;
        const double d = state.difficulty;
        if (elapsed == 0) {
            state.stability = s * std::exp(w[17] * (grade - 3 + w[18]));
        } else {
            const double r = retrievability(elapsed, s);
            if (grade == again) {
                const double forgotten =
                    w[11] * std::pow(d, -w[12]) * (std::pow(s + 1.0, w[13]) - 1.0) * std::exp(w[14] * (1.0 - r));
                state.stability = std::min(s, forgotten);
            } else {
                const double hardFactor = grade == hard ? w[15] : 1.0;
                const double easyFactor = grade == easy ? w[16] : 1.0;
                state.stability = s * (1.0 + std::exp(w[8]) * (11.0 - d) * std::pow(s, -w[9]) *
                                                 (std::exp(w[10] * (1.0 - r)) - 1.0) * hardFactor * easyFactor);
            }
        }
        state.stability = std::max(state.stability, kLeastStability);
        state.difficulty = nextDifficulty(d, grade);
    }
    ++state.reviews;
    state.lastDay = std::max(state.lastDay, day);
}

} // namespace quorvane::review
