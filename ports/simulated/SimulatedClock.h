#pragma once

#include <atomic>
#include <cstdint>
#include <functional>

#include "platform/Clock.h"

namespace stagehopper::simulated {

/// Time that passes only when it is told to. Any thread.
///
/// Two clocks in one, as in a real machine: elapsed time, which timers follow and which only goes
/// forwards, and the wall clock, which the user may set.
class SimulatedClock final : public platform::Clock {
public:
    platform::Date now() override;
    /// The caller is blocked that long, and so is everything else: elapsed time jumps. Only who
    /// sleeps on a global queue lets the others go on.
    void sleep(std::chrono::microseconds duration) override;

    [[nodiscard]] std::chrono::nanoseconds elapsed() const;
    void passTime(std::chrono::nanoseconds duration);
    /// The user sets the wall clock forwards, or, with a negative duration, backwards.
    void userSetsClock(std::chrono::nanoseconds by);
    /// Makes a piece of global work sleep, and says whether the caller was one.
    std::function<bool(std::chrono::nanoseconds)> sleepOnGlobalQueue;

private:
    std::atomic<std::int64_t> elapsed_{0};
    std::atomic<std::int64_t> wallOffset_{0};
};

}  // namespace stagehopper::simulated
