#pragma once

#include <string>
#include <vector>

/// The recording as a whole. Main thread.
namespace stagehopper::recording {

/// What the port must not do and did, so far: a message to an object that was freed, a reference
/// released too often, a message that is no fact, a class of the main thread's on another queue ….
[[nodiscard]] const std::vector<std::string>& problems();
/// For tests of what is noted.
[[nodiscard]] std::vector<std::string> takeProblems();

/// What the port would never release any more: objects, blocks, queues and semaphores that it still
/// holds references to. To be asked once everything of the port's has gone.
[[nodiscard]] std::vector<std::string> leaked();

/// Everything but classes, behaviours and constants is as before the first test. Work that waits is
/// ended; work that has not begun never will.
void reset();

}  // namespace stagehopper::recording
