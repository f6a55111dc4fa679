#pragma once

#include <string>

#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Classes.h"

/// Looks up defined behaviours; see Behaviors.h.
namespace stagehopper::recording::behaviours {

/// The class's own behaviour, or the inherited one; null if there is none.
[[nodiscard]] const Behaviour* find(cocoa::Class ofClass, MessageKind kind,
                                    const std::string& selector);
[[nodiscard]] bool isQuiet(cocoa::Class ofClass);

}  // namespace stagehopper::recording::behaviours
