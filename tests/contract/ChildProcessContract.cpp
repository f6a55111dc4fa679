// Programs that we run, the same on every port.

#include <gmock/gmock.h>

#include <atomic>
#include <csignal>

#include "platform/ChildProcess.h"
#include "platform/Dispatch.h"
#include "tests/contract/PortTest.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;

class ChildProcessContract : public PortTest {
protected:
    /// The calls of a termination handler. The handlers run on other threads, perhaps after the
    /// test.
    struct Exits {
        std::atomic<int> count{0};
        std::atomic<int> lastStatus{-1};
    };

    [[nodiscard]] platform::TerminationHandler counting() const {
        return [exits = exits](std::int32_t status) {
            exits->lastStatus = status;
            ++exits->count;
        };
    }
    std::shared_ptr<platform::ChildProcess> make(const std::filesystem::path& executable,
                                                 bool capturesOutput = false) {
        return port.childProcesses.makeChildProcess(
            {.executable = executable, .capturesOutput = capturesOutput});
    }
    bool untilExits(int count) {
        return runUntilOnThread([this, count] { return exits->count >= count; });
    }
    /// Polls, because no event on the main thread announces a change on another thread.
    bool runUntilOnThread(const std::function<bool()>& done) {
        const auto look = port.dispatch.repeatMain(2ms, [] {});
        return harness->runUntil(done);
    }

    std::shared_ptr<Exits> exits = std::make_shared<Exits>();
};

TEST_F(ChildProcessContract, AnExitIsDeliveredOnceWithItsStatus) {
    const auto process = make(harness->programThatExits(7));
    const auto launched = process->launch(counting());
    ASSERT_TRUE(launched) << launched.reason();
    ASSERT_TRUE(untilExits(1));
    EXPECT_EQ(exits->lastStatus, 7);
    EXPECT_EQ(process->terminationStatus(), 7);
    runFor(50ms);
    EXPECT_EQ(exits->count, 1);
}

TEST_F(ChildProcessContract, NothingRunsBeforeTheLaunch) {
    const auto process = make(harness->programThatExits(7));
    process->terminate();
    process->waitUntilExit();
    EXPECT_EQ(process->readOutputToEnd(), "");
    EXPECT_EQ(process->terminationStatus(), 0);
    EXPECT_TRUE(process->launch(counting()));
    EXPECT_TRUE(untilExits(1));
}

TEST_F(ChildProcessContract, AfterARefusedLaunchThereIsAReasonAndEveryCallDoesNothing) {
    for (const auto& path :
         {harness->notAProgram(), harness->temporaryDirectory() / "nothing here"}) {
        const auto process = make(path, true);
        const auto outcome = process->launch(counting());
        EXPECT_FALSE(outcome) << path;
        EXPECT_NE(outcome.reason(), "");
        process->terminate();
        process->waitUntilExit();
        EXPECT_EQ(process->readOutputToEnd(), "");
        EXPECT_EQ(process->terminationStatus(), 0);
    }
    runFor(50ms);
    EXPECT_EQ(exits->count, 0);
}

TEST_F(ChildProcessContract, TheOutputIsReadToItsEnd) {
    const auto process = make(harness->programThatWrites("one\ntwo"), true);
    ASSERT_TRUE(process->launch(counting()));
    EXPECT_EQ(process->readOutputToEnd(), "one\ntwo");
    process->waitUntilExit();
    EXPECT_EQ(process->terminationStatus(), 0);
}

TEST_F(ChildProcessContract, OutputThatIsNotCapturedIsNotKept) {
    const auto process = make(harness->programThatWrites("one\n"));
    ASSERT_TRUE(process->launch(counting()));
    process->waitUntilExit();
    EXPECT_EQ(process->readOutputToEnd(), "");
}

TEST_F(ChildProcessContract, AskingToEndEndsTheProgram) {
    const auto process = make(harness->programThatRunsUntilTerminated());
    ASSERT_TRUE(process->launch(counting()));
    runFor(50ms);
    EXPECT_EQ(exits->count, 0);
    EXPECT_EQ(process->terminationStatus(), 0);
    process->terminate();
    process->waitUntilExit();
    EXPECT_EQ(process->terminationStatus(), SIGTERM);
    ASSERT_TRUE(untilExits(1));
    EXPECT_EQ(exits->lastStatus, SIGTERM);
}

TEST_F(ChildProcessContract, AskingAnEndedProgramToEndDoesNothing) {
    const auto process = make(harness->programThatExits(3));
    ASSERT_TRUE(process->launch(counting()));
    process->waitUntilExit();
    process->terminate();
    EXPECT_EQ(process->terminationStatus(), 3);
}

TEST_F(ChildProcessContract, WaitingForAnEndedProgramReturnsEachTime) {
    const auto process = make(harness->programThatExits(0));
    ASSERT_TRUE(process->launch(counting()));
    process->waitUntilExit();
    process->waitUntilExit();
    EXPECT_EQ(process->terminationStatus(), 0);
}

TEST_F(ChildProcessContract, DroppingTheHandleKeepsTheProgramRunningAndItsExitIsStillReported) {
    auto process = make(harness->programThatExits(5));
    ASSERT_TRUE(process->launch(counting()));
    process.reset();
    ASSERT_TRUE(untilExits(1));
    EXPECT_EQ(exits->lastStatus, 5);
}

TEST_F(ChildProcessContract, AHandlerMayUseItsProcess) {
    const auto process = make(harness->programThatExits(9));
    const auto seen = std::make_shared<std::atomic<int>>(-1);
    const std::weak_ptr<platform::ChildProcess> weak = process;
    ASSERT_TRUE(process->launch([seen, weak](std::int32_t) {
        const auto alive = weak.lock();
        alive->waitUntilExit();
        alive->terminate();
        *seen = alive->terminationStatus();
    }));
    EXPECT_TRUE(runUntilOnThread([&seen] { return *seen != -1; }));
    EXPECT_EQ(*seen, 9);
}

}  // namespace
}  // namespace stagehopper
