#include "backend/Relaunch.h"

#include <gtest/gtest.h>

namespace stagehopper {
namespace {

struct RelaunchCase {
    LaunchState state;
    Relaunch expected;
};

TEST(Relaunch, DependsOnTheEndTheUserAndTheAttempts) {
    constexpr RelaunchCase cases[] = {
        {{false, false, 0, 3}, Relaunch::allowed},   {{false, false, 2, 3}, Relaunch::allowed},
        {{false, false, 3, 3}, Relaunch::exhausted}, {{false, false, 4, 3}, Relaunch::exhausted},
        {{false, false, 0, 0}, Relaunch::exhausted}, {{true, false, 0, 3}, Relaunch::unwanted},
        {{false, true, 0, 3}, Relaunch::unwanted},   {{true, true, 0, 3}, Relaunch::unwanted},
        {{true, false, 3, 3}, Relaunch::unwanted},   {{false, true, 3, 3}, Relaunch::unwanted},
    };
    for (const auto& [state, expected] : cases) {
        EXPECT_EQ(mayRelaunch(state), expected)
            << "terminating " << state.terminating << ", stopped " << state.userStopped
            << ", attempts " << state.attempts << "/" << state.maxAttempts;
    }
}

}  // namespace
}  // namespace stagehopper
