#include "core/random_index.h"

#include "core/basic.h"
#include "core/clock.h"
#include "core/session.h"

#include <bit>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace quorvane {

namespace {

// One draw of a generator seeded with the timer's value: the same timer value always gives the
// same draw. splitmix64 mixes every bit of the seed into the result.
float drawFromSeed(double timer)
{
    std::uint64_t z = std::bit_cast<std::uint64_t>(timer) + 0x9E3779B97F4A7C15ULL;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    z ^= z >> 31;
    // 24 bits fill a float's mantissa exactly, so the result is below 1 without rounding up.
    constexpr float kScale = 1.0f / 16777216.0f;
    return static_cast<float>(z >> 40) * kScale;
}

} // namespace

double random_index(Session& session, qint32 low, qint32 high)
{
    // Reseeded at every call on purpose: callers rely on nothing more than a fresh-looking
    // number, and two calls within one tick of the timer give the same one.
    const float r = drawFromSeed(session.clock.timer());
    const qint64 span = qint64(high) + 1 - qint64(low);
    if (span > std::numeric_limits<qint32>::max() || span < std::numeric_limits<qint32>::min())
        throw std::overflow_error("Overflow: the range of the random number is too wide.");
    return basic::wholePart(double(r) * double(span) + double(low));
}

} // namespace quorvane
