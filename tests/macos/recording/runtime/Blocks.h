#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ports/macos/cocoa/objc/Runtime.h"
#include "tests/macos/recording/runtime/Heap.h"

/// Blocks as they lie in memory, by clang's description of them. Only those that were copied to the
/// heap are counted. Whoever has its turn.
namespace stagehopper::recording::blocks {

/// Whether a live one is there.
[[nodiscard]] bool isLive(const void* block);
/// Whether one was there, and has been freed.
[[nodiscard]] bool wasFreed(const void* block);
/// Of a live one: "v@?@@".
[[nodiscard]] std::string_view signatureOf(const void* block);
[[nodiscard]] void* invokeFunctionOf(const void* block);

/// Copies one from the stack; one more reference to one of the heap.
void* copy(const void* block, Holder holder);
void release(const void* block, Holder holder);

/// One line for each block to which the port still holds references.
[[nodiscard]] std::vector<std::string> heldByPort();
void clear();

}  // namespace stagehopper::recording::blocks
