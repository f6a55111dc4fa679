#pragma once

#include <string>

#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Classes.h"

/// Looks up defined behaviors; see Behaviors.h.
namespace stagehopper::recording::behaviors {

/// The class's own behavior, or the inherited one; null if there is none.
[[nodiscard]] const Behavior* find(cocoa::Class ofClass, MessageKind kind,
                                   const std::string& selector);
[[nodiscard]] bool isQuiet(cocoa::Class ofClass);

}  // namespace stagehopper::recording::behaviors
