#pragma once

#include "tests/macos/recording/runtime/Retained.h"

/// The autorelease pools of each thread. Any queue.
namespace stagehopper::recording::pools {

/// Whether the current queue's work has one around it.
[[nodiscard]] bool exists();
/// Retained until the innermost pool ends; without any, until the test ends.
void add(Retained reference);
/// What was added without a pool.
void clear();

}  // namespace stagehopper::recording::pools
