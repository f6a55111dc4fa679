#pragma once

#include <algorithm>
#include <string_view>

namespace stagehopper::macos_facts {

/// A message that not every system we support has: the port asks before it sends it. Messages that
/// are not listed here came with macOS 12 or before.
struct NewerMessage {
    std::string_view className;
    std::string_view selector;
    /// The first version of macOS that has it.
    int since = 0;
};

inline constexpr NewerMessage newerMessages[] = {
    {"NSApplication", "activate", 14},
    {"WKPreferences", "setInactiveSchedulingPolicy:", 14},
};

/// Whether a message that the port sends may be absent on that version of macOS.
[[nodiscard]] constexpr bool mayBeAbsent(std::string_view className, std::string_view selector,
                                         int systemVersion) {
    return std::ranges::any_of(newerMessages, [&](const NewerMessage& message) {
        return message.className == className && message.selector == selector &&
               systemVersion < message.since;
    });
}

}  // namespace stagehopper::macos_facts
