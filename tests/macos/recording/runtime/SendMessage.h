#pragma once

#include <span>
#include <string_view>

#include "ports/macos/cocoa/objc/Runtime.h"
#include "tests/macos/facts/Fact.h"
#include "tests/macos/recording/runtime/Value.h"

namespace stagehopper::recording {

/// A message as its handle declares it.
struct DeclaredMessage {
    macos_facts::Kind kind;
    std::string_view selector;
    /// Of the method: "v@:q".
    std::string_view types;
    /// Of the result: "v".
    std::string_view result;
};

/// Takes the place of objc_msgSend: checks and records the message, counts references and calls the
/// class's behavior. Only the running work may call this.
Value sendMessage(const DeclaredMessage& message, cocoa::id receiver,
                  std::span<const Value> arguments);

}  // namespace stagehopper::recording
