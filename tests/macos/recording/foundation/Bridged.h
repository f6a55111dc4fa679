#pragma once

#include "ports/macos/cocoa/foundation/CoreFoundation.h"
#include "ports/macos/cocoa/objc/Runtime.h"
#include "tests/macos/recording/runtime/Behaviors.h"

// Between Core Foundation's references and objects. Any queue.

namespace stagehopper::recording {

/// The class of accessibility elements, which take no messages.
inline constexpr const char* elementClass = "AXUIElement";
/// The class of events.
inline constexpr const char* eventClass = "CGEvent";

[[nodiscard]] cocoa::id objectOf(cocoa::CFTypeRef object);

/// The result of a function with Create or Copy in its name: the caller must release it.
[[nodiscard]] cocoa::CFTypeRef giveToPort(const Retained& object);

}  // namespace stagehopper::recording
