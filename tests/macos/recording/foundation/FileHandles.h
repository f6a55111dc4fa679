#pragma once

#include <memory>
#include <string>

#include "ports/macos/cocoa/objc/Runtime.h"

namespace stagehopper::recording {

struct LaunchedTask;

/// What a task got as one of its streams: "pipe", "null device", or "inherited" for nil.
[[nodiscard]] std::string describeStream(cocoa::id stream);

/// Makes the task the writer of the pipe; does nothing unless `stream` is a pipe.
void setWriter(cocoa::id stream, std::shared_ptr<LaunchedTask> task);

}  // namespace stagehopper::recording
