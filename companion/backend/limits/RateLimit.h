#pragma once

#include <chrono>
#include <cstddef>
#include <deque>

namespace stagehopper::companion {

using TimePoint = std::chrono::steady_clock::time_point;

/// Allows at most `max` events in any window of the given length. One thread at a time.
class RateLimit {
public:
    RateLimit(std::size_t max, std::chrono::milliseconds window) : max_(max), window_(window) {}

    /// Counts one event. False if that exceeds the limit; the event is then not counted.
    bool allow(TimePoint now) {
        if (isFull(now)) return false;
        if (counted_.size() == max_) counted_.pop_front();
        counted_.push_back(now);
        return true;
    }

    /// Whether the limit is reached: the oldest of the last `max_` events is still in the window.
    [[nodiscard]] bool isFull(TimePoint now) const {
        return counted_.size() == max_ && now - counted_.front() < window_;
    }

    [[nodiscard]] bool isEmpty(TimePoint now) const {
        return counted_.empty() || now - counted_.back() >= window_;
    }

private:
    std::size_t max_;
    std::chrono::milliseconds window_;
    std::deque<TimePoint> counted_;
};

}  // namespace stagehopper::companion
