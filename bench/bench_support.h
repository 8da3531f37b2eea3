#pragma once

#include <functional>

namespace quorvane::bench {

// Runs action after the last benchmark, while the application still exists: for fixtures that
// several benchmarks share and that hold windows.
void atEnd(std::function<void()> action);

} // namespace quorvane::bench
