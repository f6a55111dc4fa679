#pragma once

#include <string>
#include <vector>

#include "tests/macos/recording/runtime/Problems.h"

/// The recording as a whole. Main thread.
namespace stagehopper::recording {

/// What the port would never release any more: objects, blocks, queues and semaphores that it still
/// holds references to. To be asked once everything of the port's has gone.
[[nodiscard]] std::vector<std::string> leaked();

/// Everything but classes, behaviours and constants is as before the first test. Work that waits is
/// ended; work that has not begun never will.
void reset();

}  // namespace stagehopper::recording
