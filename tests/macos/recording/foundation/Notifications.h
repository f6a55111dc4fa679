#pragma once

#include <string_view>

#include "ports/macos/cocoa/objc/Runtime.h"
#include "tests/macos/recording/runtime/Retained.h"

namespace stagehopper::recording {

/// For a delegate, which gets it as the argument of a message of its own.
[[nodiscard]] Retained makeNotification(std::string_view name, cocoa::id object);

/// The system posts a notification to the default centre, now and on the current queue: each
/// observer of that name, and of that object or of all, gets its message.
void postNotification(std::string_view name, cocoa::id object = nullptr);

}  // namespace stagehopper::recording
