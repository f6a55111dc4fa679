#pragma once

#include <chrono>
#include <cstddef>
#include <deque>

namespace stagehopper::companion {

using Moment = std::chrono::steady_clock::time_point;

/// At most so many within any window of that length.
/// Thread: one at a time.
class RateLimit {
public:
    RateLimit(std::size_t most, std::chrono::milliseconds window) : most_(most), window_(window) {}

    /// Counts one more, unless it is one too many.
    bool allow(Moment now) {
        if (isFull(now)) return false;
        if (counted_.size() == most_) counted_.pop_front();
        counted_.push_back(now);
        return true;
    }

    /// `most_` are kept: while the oldest of them is in the window, one more is too many.
    bool isFull(Moment now) const {
        return counted_.size() == most_ && now - counted_.front() < window_;
    }

    bool isEmpty(Moment now) const { return counted_.empty() || now - counted_.back() >= window_; }

private:
    std::size_t most_;
    std::chrono::milliseconds window_;
    std::deque<Moment> counted_;
};

}  // namespace stagehopper::companion
