#pragma once

#include <QtGlobal>

namespace quorvane {

class Session;

// A whole number from low to high inclusive. The generator is seeded from the session's clock at
// every call, so two calls within the same tick of the timer give the same number. A range too
// wide for 32-bit arithmetic throws std::overflow_error.
double random_index(Session& session, qint32 low, qint32 high);

} // namespace quorvane
