#pragma once

#include <string_view>

#include "ports/macos/cocoa/objc/Runtime.h"
#include "tests/macos/recording/runtime/Retained.h"

namespace stagehopper::recording {

/// For a delegate, as the argument of a delegate message.
[[nodiscard]] Retained makeNotification(std::string_view name, cocoa::id object);

/// Posts a notification of the system to the default center, at once and on the current queue: each
/// observer of that name, and of that object or of all objects, gets its message.
void postNotification(std::string_view name, cocoa::id object = nullptr);

}  // namespace stagehopper::recording
