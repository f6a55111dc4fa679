#pragma once

#include <algorithm>
#include <chrono>
#include <cmath>

#include "platform/Clock.h"

namespace stagehopper::linux_port {

/// A wait that the steady clock can count: no shorter than `minimum`, no longer than a year,
/// because an endless wait would overflow it.
inline std::chrono::steady_clock::duration waitingTime(
    platform::Duration wanted, platform::Duration minimum = platform::Duration::zero()) {
    constexpr platform::Duration maximum = std::chrono::hours(24 * 365);
    if (std::isnan(wanted.count())) wanted = minimum;
    return std::chrono::duration_cast<std::chrono::steady_clock::duration>(
        std::clamp(wanted, minimum, maximum));
}

}  // namespace stagehopper::linux_port
