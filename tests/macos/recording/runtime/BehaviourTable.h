#pragma once

#include <string>

#include "tests/macos/recording/runtime/Behaviours.h"
#include "tests/macos/recording/runtime/Classes.h"

/// Looking up what was defined; see Behaviours.h.
namespace stagehopper::recording::behaviours {

/// The class's own or inherited; null when there is none.
[[nodiscard]] const Behaviour* find(cocoa::Class ofClass, MessageKind kind,
                                    const std::string& selector);
[[nodiscard]] bool isQuiet(cocoa::Class ofClass);

}  // namespace stagehopper::recording::behaviours
