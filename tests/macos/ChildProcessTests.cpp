// A task at each moment of its life, where the application itself leaves corners out.

#include <gmock/gmock.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "ports/macos/processes/MacChildProcess.h"
#include "tests/macos/MacStage.h"

namespace stagehopper {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class MacProcess : public MacStage {
protected:
    static constexpr const char* tool = "/bin/tool";

private:
    std::unique_ptr<cocoa::AutoreleasePool> pool_ = std::make_unique<cocoa::AutoreleasePool>();
};

void askEverything(platform::ChildProcess& process) {
    process.terminate();
    process.waitUntilExit();
    EXPECT_EQ(process.readOutputToEnd(), "");
    EXPECT_EQ(process.terminationStatus(), 0);
}

TEST_F(MacProcess, AProcessThatWasNeverLaunchedGetsNoQuestions) {
    macos_port::MacChildProcess process({.executable = tool, .capturesOutput = true});
    forget();
    askEverything(process);
    EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(MacProcess, AProcessWhoseLaunchFailedGetsNoQuestions) {
    macos_port::MacChildProcess process({.executable = tool, .capturesOutput = true});
    const auto outcome = process.launch({});
    EXPECT_FALSE(outcome);
    EXPECT_EQ(outcome.reason(), "The file doesn’t exist.");
    forget();
    askEverything(process);
    EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(MacProcess, IsLaunchedOnce) {
    world.tasks.programs[tool] = {.exitsAfter = platform::Duration{1}};
    macos_port::MacChildProcess process({.executable = tool});
    EXPECT_TRUE(process.launch({}));
    EXPECT_FALSE(process.launch({}));
    EXPECT_THAT(lines("launchAndReturnError:"), SizeIs(1));
}

TEST_F(MacProcess, HasNoStatusWhileItRuns) {
    world.tasks.programs[tool] = {.exitsAfter = platform::Duration{1}, .exitStatus = 7};
    macos_port::MacChildProcess process({.executable = tool});
    ASSERT_TRUE(process.launch({}));
    EXPECT_EQ(process.terminationStatus(), 0);
    EXPECT_THAT(lines("terminationStatus]"), IsEmpty());
    process.waitUntilExit();
    EXPECT_EQ(process.terminationStatus(), 7);
}

TEST_F(MacProcess, SeveralMayWaitForOneExitEvenAfterIt) {
    world.tasks.programs[tool] = {.exitsAfter = platform::Duration{1}};
    macos_port::MacChildProcess process({.executable = tool});
    ASSERT_TRUE(process.launch({}));
    int passed = 0;
    for (int i = 0; i < 3; ++i) {
        recording::queues::async("global default", [&] {
            process.waitUntilExit();
            ++passed;
        });
    }
    advance(0.9);
    EXPECT_EQ(passed, 0);
    advance(0.2);
    EXPECT_EQ(passed, 3);
    process.waitUntilExit();
}

TEST_F(MacProcess, ItsHandleMayBeDroppedDuringAWaitForItsExit) {
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

TEST_F(MacProcess, ItsExitIsReportedEvenIfItsHandleIsGone) {
    world.tasks.programs[tool] = {.exitsAfter = platform::Duration{1}, .exitStatus = 7};
    std::vector<std::int32_t> statuses;
    {
        macos_port::MacChildProcess process({.executable = tool});
        ASSERT_TRUE(process.launch([&](std::int32_t status) { statuses.push_back(status); }));
    }
    advance(2);
    EXPECT_THAT(statuses, ElementsAre(7));
    EXPECT_EQ(queueOf("terminationStatus]"), "task");
}

}  // namespace

}  // namespace stagehopper
