#pragma once

#include <chrono>

namespace stagehopper::platform {

/// Wall-clock time. The user or the network may set it forward and back.
using Date = std::chrono::system_clock::time_point;
using Duration = std::chrono::duration<double>;

/// Any thread.
class Clock {
public:
    virtual ~Clock() = default;
    virtual Date now() = 0;
    /// Blocks the calling thread.
    virtual void sleep(std::chrono::microseconds duration) = 0;
};

}  // namespace stagehopper::platform
