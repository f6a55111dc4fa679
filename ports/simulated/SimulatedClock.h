#pragma once

#include <atomic>
#include <cstdint>
#include <functional>

#include "platform/Clock.h"

namespace stagehopper::simulated {

/// Time that passes only on request. Any thread.
///
/// Two clocks, as in a real machine: elapsed time, which drives the timers and only increases, and
/// the wall clock, which the user may set.
class SimulatedClock final : public platform::Clock {
public:
    platform::Date now() override;
    /// Blocks the caller and everything else for this time: elapsed time jumps. Only a sleep on a
    /// global queue lets other work continue.
    void sleep(std::chrono::microseconds duration) override;

    [[nodiscard]] std::chrono::nanoseconds elapsed() const;
    void passTime(std::chrono::nanoseconds duration);
    /// The user sets the wall clock forward or, with a negative duration, back.
    void userSetsClock(std::chrono::nanoseconds by);
    /// Puts a piece of global work to sleep. Returns false if the caller is not one.
    std::function<bool(std::chrono::nanoseconds)> sleepOnGlobalQueue;

private:
    std::atomic<std::int64_t> elapsed_{0};
    std::atomic<std::int64_t> wallOffset_{0};
};

}  // namespace stagehopper::simulated
