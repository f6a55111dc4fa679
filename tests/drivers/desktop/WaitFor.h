#pragma once

#include <chrono>
#include <thread>

namespace stagehopper::desktop {

using Limit = std::chrono::milliseconds;

/// Polls a condition until it holds or the time is up; returns whether it holds. For actions of
/// other programs that send no notification.
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
