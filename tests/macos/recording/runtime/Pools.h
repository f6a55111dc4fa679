#pragma once

#include "tests/macos/recording/runtime/Retained.h"

/// The autorelease pools of each thread. Any queue.
namespace stagehopper::recording::pools {

/// Whether the current work runs inside a pool.
[[nodiscard]] bool exists();
/// Keeps the reference until the innermost pool ends; without a pool, until the test ends.
void add(Retained reference);
/// Drops references that were added without a pool.
void clear();

}  // namespace stagehopper::recording::pools
