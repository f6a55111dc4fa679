#pragma once

#include <string_view>

#include "tests/macos/facts/Fact.h"
#include "tests/macos/recording/runtime/Retained.h"
#include "tests/macos/recording/runtime/Value.h"

/// Who owns what that crosses between the port and the system. Whoever has its turn.
namespace stagehopper::recording::memory {

/// retain, release, autorelease.
[[nodiscard]] bool isReferenceMessage(std::string_view selector);
/// Those and alloc: any thread may send them, and the journal leaves them out.
[[nodiscard]] bool isMemoryMessage(std::string_view selector);

Value countReference(std::string_view referenceMessage, cocoa::id receiver);
/// A block takes no other messages.
Value performOnBlock(std::string_view message, cocoa::id block);

/// Gives the sender of a message its reference to the answer, if the message's name says so, or
/// adds the answer to the current pool. One that was made for this message needs a pool; one that
/// exists anyhow, a shared instance, need not be autoreleased.
void handAnswerOver(const macos_facts::MethodFact& fact, cocoa::id receiver, cocoa::id answer,
                    bool isNew);

/// Into the current pool. When there is none it is kept until the test ends, and is a problem if
/// the real object would need one.
void autorelease(Retained reference, bool needsPool);

}  // namespace stagehopper::recording::memory
