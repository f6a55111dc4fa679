#pragma once

#include <cstdint>

namespace stagehopper {

/// What decides whether the backend may be started again.
struct LaunchState {
    bool terminating = false;
    bool userStopped = false;
    /// Launches in this series so far.
    std::int64_t attempts = 0;
    std::int64_t maxAttempts = 0;
};

enum class Relaunch {
    allowed,
    /// This program is terminating, or the user has stopped the backend.
    unwanted,
    /// The series has had all its launches.
    exhausted,
};

/// Whether the backend may be started, for the first time or again.
Relaunch mayRelaunch(const LaunchState& state);

}  // namespace stagehopper
