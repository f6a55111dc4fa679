#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ports/macos/cocoa/objc/Runtime.h"
#include "tests/macos/recording/runtime/Behaviors.h"

// Reads and creates values of Foundation for the stand-ins. Any queue.

namespace stagehopper::recording {

// --- what is in one; empty or zero for nil and for objects of other classes ---------------------
[[nodiscard]] std::string textOf(cocoa::id string);
[[nodiscard]] std::string addressOf(cocoa::id url);
/// The path of a file URL; empty for others.
[[nodiscard]] std::string pathOf(cocoa::id url);
[[nodiscard]] std::vector<cocoa::id> elementsOf(cocoa::id array);
/// A dictionary of strings.
[[nodiscard]] std::map<std::string, std::string> textTableOf(cocoa::id dictionary);
/// The value for a text key; nil if absent.
[[nodiscard]] cocoa::id valueUnder(cocoa::id dictionary, std::string_view key);
[[nodiscard]] bool truthOf(cocoa::id number);

// --- new ones -----------------------------------------------------------------------------------
[[nodiscard]] Retained makeString(std::string text);
/// A string with an unpaired surrogate among these UTF-16 units, which UTF-8 cannot represent.
[[nodiscard]] Retained makeStringWithoutUtf8(std::u16string units);
[[nodiscard]] Retained makeData(std::string bytes);
/// The path only for a file URL.
[[nodiscard]] Retained makeUrl(std::string address, std::string path = {});
[[nodiscard]] Retained makeTruth(bool value);
[[nodiscard]] Retained makeNumber(std::int64_t value);
[[nodiscard]] Retained makeError(std::string localizedDescription);
[[nodiscard]] Retained makeArray(const std::vector<Retained>& elements);

// --- new ones as the answer of a message --------------------------------------------------------
[[nodiscard]] inline cocoa::id makeString(Call& call, std::string text) {
    return call.made(makeString(std::move(text)));
}
[[nodiscard]] inline cocoa::id makeArray(Call& call, const std::vector<Retained>& elements) {
    return call.made(makeArray(elements));
}

/// Hands the object to the current pool, as for an object that is returned through a pointer.
cocoa::id leaveToPool(const Retained& object);

// --- notifications ------------------------------------------------------------------------------
/// For a delegate, as the argument of a delegate message.
[[nodiscard]] Retained makeNotification(std::string_view name, cocoa::id object);

/// Posts a notification of the system to the default center, at once and on the current queue: each
/// observer of that name, and of that object or of all objects, gets its message.
void postNotification(std::string_view name, cocoa::id object = nullptr);

}  // namespace stagehopper::recording
