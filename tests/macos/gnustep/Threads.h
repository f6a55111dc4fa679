#pragma once

#include <functional>

namespace stagehopper::cocoa::gnustep {

/// Runs it once on the main thread, from its run loop, after what came before. Any thread.
void runOnMainThread(std::function<void()> work);

/// Runs it once, on a thread of its own that Foundation knows. Nobody waits for its end.
void runOnNewThread(std::function<void()> work);

}  // namespace stagehopper::cocoa::gnustep
