#pragma once

#include <string_view>

#include "tests/macos/facts/Fact.h"
#include "tests/macos/recording/runtime/Retained.h"
#include "tests/macos/recording/runtime/Value.h"

/// The ownership of objects that cross between the port and the system. Only the running work may
/// call this.
namespace stagehopper::recording::memory {

/// retain, release, autorelease.
[[nodiscard]] bool isReferenceMessage(std::string_view selector);
/// Also alloc. Any thread may send these, and the journal omits them.
[[nodiscard]] bool isMemoryMessage(std::string_view selector);

Value countReference(std::string_view referenceMessage, cocoa::id receiver);
/// A block takes no other messages.
Value performOnBlock(std::string_view message, cocoa::id block);

/// Passes the result of a message to its sender: as a reference if the message's family returns
/// one, else through the current pool. An object created for this message needs a pool; a shared
/// instance does not.
void handAnswerOver(const macos_facts::MethodFact& fact, cocoa::id receiver, cocoa::id answer,
                    bool isNew);

/// Adds to the current pool. Without a pool the object is kept until the test ends, which is a
/// problem if `needsPool`.
void autorelease(Retained reference, bool needsPool);

}  // namespace stagehopper::recording::memory

/// The autorelease pools of each thread. Any queue.
namespace stagehopper::recording::pools {

/// Whether the current work runs inside a pool.
[[nodiscard]] bool exists();
/// Keeps the reference until the innermost pool ends; without a pool, until the test ends.
void add(Retained reference);
/// Drops references that were added without a pool.
void clear();

}  // namespace stagehopper::recording::pools
