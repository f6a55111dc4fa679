#pragma once

#include <string>
#include <vector>

#include "tests/macos/recording/runtime/Journal.h"

/// The recording as a whole. Main thread.
namespace stagehopper::recording {

/// Leaks of the port: objects, blocks, queues and semaphores that it still holds references to.
/// Call this after everything of the port is destroyed.
[[nodiscard]] std::vector<std::string> leaked();

/// Restores the state before the first test, except for classes, behaviors and constants. Ends
/// waiting work, and drops work that has not begun.
void reset();

}  // namespace stagehopper::recording
