#include "backend/Relaunch.h"

namespace stagehopper {

Relaunch mayRelaunch(const LaunchState& state) {
    if (state.terminating || state.userStopped) return Relaunch::unwanted;
    return state.attempts < state.maxAttempts ? Relaunch::allowed : Relaunch::exhausted;
}

}  // namespace stagehopper
