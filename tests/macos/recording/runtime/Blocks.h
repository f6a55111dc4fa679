#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ports/macos/cocoa/objc/Runtime.h"
#include "tests/macos/recording/runtime/Heap.h"

/// Blocks in memory, with clang's documented layout. Counts only blocks that were copied to the
/// heap. Only the running work may call this.
namespace stagehopper::recording::blocks {

/// Whether this is a live block.
[[nodiscard]] bool isLive(const void* block);
/// Whether a freed block was here.
[[nodiscard]] bool wasFreed(const void* block);
/// Of a live block: "v@?@@".
[[nodiscard]] std::string_view signatureOf(const void* block);
[[nodiscard]] void* invokeFunctionOf(const void* block);

/// Copies a block from the stack, or adds a reference to one on the heap.
void* copy(const void* block, Holder holder);
void release(const void* block, Holder holder);

/// One line for each block to which the port still holds references.
[[nodiscard]] std::vector<std::string> heldByPort();
void clear();

}  // namespace stagehopper::recording::blocks
