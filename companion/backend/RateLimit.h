#pragma once

#include <chrono>
#include <cstddef>
#include <deque>

namespace stagehopper::companion {

using TimePoint = std::chrono::steady_clock::time_point;

/// At most so many within any window of that length.
/// Thread: one at a time.
class RateLimit {
public:
    RateLimit(std::size_t max, std::chrono::milliseconds window) : max_(max), window_(window) {}

    /// Counts one more, unless it is one too many.
    bool allow(TimePoint now) {
        if (isFull(now)) return false;
        if (counted_.size() == max_) counted_.pop_front();
        counted_.push_back(now);
        return true;
    }

    /// `max_` are kept: while the oldest of them is in the window, one more is too many.
    bool isFull(TimePoint now) const {
        return counted_.size() == max_ && now - counted_.front() < window_;
    }

    bool isEmpty(TimePoint now) const {
        return counted_.empty() || now - counted_.back() >= window_;
    }

private:
    std::size_t max_;
    std::chrono::milliseconds window_;
    std::deque<TimePoint> counted_;
};

}  // namespace stagehopper::companion
