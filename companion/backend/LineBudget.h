#pragma once

#include <cstddef>
#include <utility>

#include "companion/backend/RateLimit.h"

namespace stagehopper::companion {

/// How many lines one kind of event may cost, so that it cannot push everything else out of a log
/// of bounded size.
/// Thread: one at a time.
class LineBudget {
public:
    LineBudget(std::size_t maxPerSecond, std::size_t maxPerHour)
        : second_(maxPerSecond, std::chrono::seconds(1)),
          hour_(maxPerHour, std::chrono::hours(1)) {}

    /// Counts one more, written or left out.
    bool allow(TimePoint now) {
        if (second_.isFull(now) || hour_.isFull(now)) {
            ++leftOut_;
            return false;
        }
        second_.allow(now);
        hour_.allow(now);
        return true;
    }

    /// How many were left out since it was last asked.
    std::size_t takeLeftOut() { return std::exchange(leftOut_, 0); }

private:
    RateLimit second_;
    RateLimit hour_;
    std::size_t leftOut_ = 0;
};

}  // namespace stagehopper::companion
