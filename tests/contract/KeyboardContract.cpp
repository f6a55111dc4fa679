// Keys to other programs, the same on every port whose system reports an unreachable receiver.

#include <gtest/gtest.h>

#include <limits>

#include "platform/KeyboardEvents.h"
#include "tests/contract/PortHarness.h"

namespace stagehopper {
namespace {

TEST(KeyboardContract, AKeyToAnUnknownProcessIsRefusedWithAReason) {
    const auto harness = makePortHarness();
    auto& keyboard = harness->platform().keyboardEvents;
    const auto event = keyboard.makeKeyboardEvent(platform::virtual_key::pageDown, true);
    ASSERT_NE(event, nullptr);
    const auto outcome = keyboard.postToProcess(std::numeric_limits<platform::Pid>::max(), *event);
    EXPECT_FALSE(outcome);
    EXPECT_NE(outcome.reason(), "");
}

}  // namespace
}  // namespace stagehopper
