#pragma once

#include "platform/Dispatch.h"
#include "ports/macos/cocoa/darwin/GrandCentralDispatch.h"

namespace stagehopper::macos_port {

/// The queue whose tasks the main run loop runs.
[[nodiscard]] cocoa::dispatch_queue_t mainQueue();

/// The time `delay` from now; a negative delay counts as zero. The clock stops while the machine
/// sleeps.
[[nodiscard]] cocoa::dispatch_time_t timeAfter(platform::Duration delay);

/// Runs `task` once on `queue`, in an autorelease pool. An exception that leaves it ends the
/// program. Any thread.
void async(cocoa::dispatch_queue_t queue, platform::Task task);
void asyncAfter(platform::Duration delay, cocoa::dispatch_queue_t queue, platform::Task task);

}  // namespace stagehopper::macos_port
