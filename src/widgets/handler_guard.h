#pragma once

#include <functional>

namespace quorvane {

class Prompts;

// Runs a window's handler so that no exception reaches the event loop: a table overflow or any
// other failure shows one message box with its text, and the program stays up.
void runHandler(Prompts& prompts, const std::function<void()>& handler);

} // namespace quorvane
