#pragma once

#include <chrono>
#include <thread>

namespace stagehopper::desktop {

using Limit = std::chrono::milliseconds;

/// Looks at a condition until it holds or the time is up; tells whether it came to hold. For what
/// other programs do, of which nobody sends us notice.
template <class Condition>
[[nodiscard]] bool waitFor(Condition&& condition, Limit limit) {
    constexpr std::chrono::milliseconds betweenLooks{5};
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline) return false;
        std::this_thread::sleep_for(betweenLooks);
    }
    return true;
}

}  // namespace stagehopper::desktop
