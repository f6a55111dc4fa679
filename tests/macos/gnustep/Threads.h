#pragma once

#include <functional>

namespace stagehopper::cocoa::gnustep {

/// Runs the task once on the main thread, from its run loop, in the order of the calls. Any thread.
void runOnMainThread(std::function<void()> work);

/// Runs the task once on a new thread that Foundation knows. Does not wait for its end.
void runOnNewThread(std::function<void()> work);

}  // namespace stagehopper::cocoa::gnustep
