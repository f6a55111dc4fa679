#pragma once

#include <cstddef>
#include <utility>

#include "companion/backend/limits/RateLimit.h"

namespace stagehopper::companion {

/// Limits the lines of one kind of event, so that it cannot push all others out of a log of limited
/// size. One thread at a time.
class LineBudget {
public:
    LineBudget(std::size_t maxPerSecond, std::size_t maxPerHour)
        : second_(maxPerSecond, std::chrono::seconds(1)),
          hour_(maxPerHour, std::chrono::hours(1)) {}

    /// Counts one line. False if it must be left out.
    [[nodiscard]] bool allow(TimePoint now) {
        if (second_.isFull(now) || hour_.isFull(now)) {
            ++leftOut_;
            return false;
        }
        second_.allow(now);
        hour_.allow(now);
        return true;
    }

    /// The number of lines left out since the last call.
    std::size_t takeLeftOut() { return std::exchange(leftOut_, 0); }

private:
    RateLimit second_;
    RateLimit hour_;
    std::size_t leftOut_ = 0;
};

}  // namespace stagehopper::companion
