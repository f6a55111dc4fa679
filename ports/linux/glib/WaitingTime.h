#pragma once

#include <algorithm>
#include <chrono>
#include <cmath>

#include "platform/Clock.h"

namespace stagehopper::linux_port {

/// A wait that the steady clock can count: no shorter than `shortest`, no longer than a year, for
/// an endless one would overflow it.
inline std::chrono::steady_clock::duration waitingTime(
    platform::Duration wanted, platform::Duration shortest = platform::Duration::zero()) {
    constexpr platform::Duration longest = std::chrono::hours(24 * 365);
    if (std::isnan(wanted.count())) wanted = shortest;
    return std::chrono::duration_cast<std::chrono::steady_clock::duration>(
        std::clamp(wanted, shortest, longest));
}

}  // namespace stagehopper::linux_port
