// Services of the port by themselves, where the contract leaves corners out.

#include <gmock/gmock.h>

#include <memory>

#include "ports/macos/dispatch/MacDispatch.h"
#include "ports/macos/processes/MacChildProcess.h"
#include "tests/macos/MacStage.h"

namespace stagehopper {

namespace {

using testing::SizeIs;

constexpr const char* tool = "/bin/tool";

class MacService : public MacStage {
    cocoa::AutoreleasePool pool_;
};

TEST_F(MacService, AProcessIsLaunchedOnce) {
    world.tasks.programs[tool] = {.exitsAfter = platform::Duration{1}};
    macos_port::MacChildProcess process({.executable = tool});
    EXPECT_TRUE(process.launch({}));
    EXPECT_FALSE(process.launch({}));
    EXPECT_THAT(lines("launchAndReturnError:"), SizeIs(1));
}

TEST_F(MacService, AProcessMayBeDroppedDuringAWaitForItsExit) {
    world.tasks.programs[tool] = {.exitsAfter = platform::Duration{1}};
    auto process = std::make_unique<macos_port::MacChildProcess>(
        platform::ChildProcessOptions{.executable = tool});
    ASSERT_TRUE(process->launch({}));
    bool passed = false;
    recording::queues::async("global default", [&passed, waited = process.get()] {
        waited->waitUntilExit();
        passed = true;
    });
    runUntilIdle();
    process.reset();
    advance(2);
    EXPECT_TRUE(passed);
}

TEST_F(MacService, AnInvalidatedTimerLeavesTheRunLoopAtOnce) {
    macos_port::MacDispatch dispatch;
    const auto calls = std::make_shared<int>(0);
    const auto timer = dispatch.repeatMain(platform::Duration{1}, [calls] { ++*calls; });
    advance(2.5);
    EXPECT_EQ(*calls, 2);
    timer->invalidate();
    EXPECT_THAT(lines("[<NSTimer 1> invalidate]"), SizeIs(1));
    EXPECT_EQ(calls.use_count(), 1);
    advance(5);
    EXPECT_EQ(*calls, 2);
}

}  // namespace

}  // namespace stagehopper
