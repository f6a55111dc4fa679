#pragma once

#include <memory>
#include <string>

#include "ports/macos/cocoa/objc/Runtime.h"

namespace stagehopper::recording {

struct LaunchedTask;

/// "pipe", "null device", or "inherited" for nil: what a task was given as one of its streams.
[[nodiscard]] std::string describeStream(cocoa::id stream);

/// From now on that task writes into the pipe; nothing happens when `stream` is no pipe.
void setWriter(cocoa::id stream, std::shared_ptr<LaunchedTask> task);

}  // namespace stagehopper::recording
