#pragma once

namespace stagehopper::recording::queues {

/// Names one piece of work, to cancel it.
using Token = unsigned long;

/// A time that never comes, in seconds.
constexpr double forever = 1e300;

}  // namespace stagehopper::recording::queues
