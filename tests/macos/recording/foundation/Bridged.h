#pragma once

#include "ports/macos/cocoa/foundation/CoreFoundation.h"
#include "ports/macos/cocoa/objc/Runtime.h"
#include "tests/macos/recording/runtime/Behaviours.h"

// Between Core Foundation's references and objects. Any queue.

namespace stagehopper::recording {

/// Of accessibility elements, which have no class that anybody could send messages to.
inline constexpr const char* elementClass = "AXUIElement";
/// Of events.
inline constexpr const char* eventClass = "CGEvent";

[[nodiscard]] cocoa::id objectOf(cocoa::CFTypeRef object);

/// The answer of a function with Create or Copy in its name: the caller has to release it.
[[nodiscard]] cocoa::CFTypeRef giveToPort(const Retained& object);

}  // namespace stagehopper::recording
