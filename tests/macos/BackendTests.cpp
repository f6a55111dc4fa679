// The backend as the system sees it: a task that is configured, started, watched and ended.

#include <gmock/gmock.h>

#include "tests/macos/MacStage.h"

namespace stagehopper {

namespace {

using recording::expectInOrder;
using testing::Contains;
using testing::DoubleNear;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

class MacBackend : public MacStage {
protected:
    auto& task() { return world.tasks.last(backend); }
    auto starts() { return world.tasks.launched(backend); }
    /// "[<NSTask 3> terminate]" of the task that runs the backend.
    [[nodiscard]] static std::string taskName() {
        const auto configured = lines("StagehopperBackend-arm64");
        for (const auto& line : configured) {
            const auto end = line.find(" setExecutableURL:");
            if (end != std::string::npos) return line.substr(1, end - 1);
        }
        return "no task";
    }
};

TEST_F(MacBackend, IsConfiguredThenStarted) {
    installServingBackend(3000);
    world.systemInfo.environment["PORT"] = "8080";
    launch();
    const auto receiver = "[" + taskName() + " ";
    expectInOrder({
        receiver + "setExecutableURL:<file://" + backend + ">]",
        receiver + "setArguments:(\"--ppid=4711\")]",
        receiver + "setCurrentDirectoryURL:<file://" + resources + "/>]",
        receiver + "setTerminationHandler:^block]",
        receiver + "launchAndReturnError:<pointer>]",
    });
    EXPECT_EQ(queueOf(receiver + "launch"), "main");
    EXPECT_THAT(task().environment,
                testing::UnorderedElementsAre(Pair("HOME", "/Users/presenter"),
                                              Pair("PATH", "/usr/bin:/bin:/usr/sbin:/sbin"),
                                              Pair("PORT", "3000"), Pair("PORT_EXTRA", "50")));
    for (const auto& stream : {task().input, task().output, task().error}) {
        EXPECT_EQ(stream, "null device");
    }
}

TEST_F(MacBackend, TheReplyToAProbeArrivesOnTheSessionsQueueWhileTheMainThreadWaits) {
    world.servers.serve(3000).answersAfter = platform::Duration{0.2};
    launch();
    EXPECT_EQ(queueOf("statusCode]"), "session");
    // One probe before the backend, one before the discovery.
    EXPECT_THAT(timeOf("backend auto-start requested"), DoubleNear(0.2, 1e-6));
    EXPECT_THAT(timeOf("nativeSlideDiscovery started"), DoubleNear(0.4, 1e-6));
}

TEST_F(MacBackend, ANonHttpReplyIsNotABackend) {
    world.servers.serve(3000);
    world.network.notHttp.insert("http://127.0.0.1:3000/health");
    installServingBackend(3001);
    launch();
    EXPECT_THAT(starts(), SizeIs(1));
}

TEST_F(MacBackend, ItsExitIsReportedOnTheTasksThreadAndHandledOnTheMainQueue) {
    installServingBackend(3000);
    launch();
    forget();
    world.tasks.exits(task(), 7);
    runUntilIdle();
    EXPECT_EQ(queueOf("terminationStatus]"), "task");
    expectInOrder({"terminationStatus]", "dispatch_async_f(main)",
                   "NSLog(\"Stagehopper: bundled backend "
                   "exited (status 7), will retry (1/3)\")",
                   "dispatch_after_f(1 s, main)"});
    EXPECT_EQ(queueOf("NSLog(\"Stagehopper: bundled backend exited"), "main");
}

TEST_F(MacBackend, TheSystemsReasonForAFailedStartIsInTheLog) {
    installBackend({.launchError = "The file “StagehopperBackend-arm64” is damaged."});
    launch();
    EXPECT_THAT(world.systemLog, Contains("Stagehopper: failed to start bundled backend: The file "
                                          "“StagehopperBackend-arm64” is damaged."));
}

TEST_F(MacBackend, TheUsersStopIsCarriedOutInTheBackground) {
    installServingBackend(3000);
    world.tasks.programs[backend].endsWithin = platform::Duration{5};
    launch();
    const auto receiver = "[" + taskName() + " ";
    forget();
    pagePosts("CMD:stopBundledBackend");
    expectInOrder({"dispatch_async_f(global user-initiated)", receiver + "terminate]"});
    EXPECT_EQ(queueOf(receiver + "terminate]"), "global user-initiated");
    EXPECT_TRUE(task().running) << "the main thread goes on meanwhile";
    forget();
    advance(5);
    EXPECT_FALSE(task().running);
    EXPECT_EQ(queueOf("dispatch_async_f(main)"), "global user-initiated");
}

TEST_F(MacBackend, ABackendThatHasEndedIsNotTerminatedAgain) {
    installServingBackend(3000);
    launch();
    const auto receiver = "[" + taskName() + " ";
    world.tasks.exits(task(), 0);
    runUntilIdle();
    pagePosts("CMD:stopBundledBackend");
    EXPECT_THAT(lines(receiver + "terminate]"), IsEmpty());
}

TEST_F(MacBackend, QuittingEndsItAndWaitsOnTheMainThread) {
    installServingBackend(3000);
    world.tasks.programs[backend].endsWithin = platform::Duration{3};
    launch();
    const auto receiver = "[" + taskName() + " ";
    const auto before = recording::queues::now();
    userQuits();
    EXPECT_EQ(queueOf(receiver + "terminate]"), "main");
    EXPECT_THAT(recording::queues::now() - before, DoubleNear(3, 1e-6));
    EXPECT_TRUE(world.application.terminated());
}

TEST_F(MacBackend, QuittingDuringTheUsersStopWaitsForTheSameExit) {
    installServingBackend(3000);
    world.tasks.programs[backend].endsWithin = platform::Duration{3};
    launch();
    const auto receiver = "[" + taskName() + " ";
    const auto before = recording::queues::now();
    pagePosts("CMD:stopBundledBackend");
    advance(1);
    recording::queues::inTheWorld(1, [this] {
        EXPECT_FALSE(world.application.terminated());
        panelPage().posts("bridge", "CMD:startBundledBackend");
    });
    userQuits();
    EXPECT_THAT(recording::queues::now() - before, DoubleNear(3, 1e-6));
    EXPECT_TRUE(world.application.terminated());
    EXPECT_THAT(starts(), SizeIs(1)) << "a message of the page during the wait started another";
    EXPECT_EQ(queueOf(receiver + "terminate]"), "main");
}

TEST_F(MacBackend, ItsExitAfterTheControllersEndDoesNothing) {
    installServingBackend(3000);
    launch();
    dropController();
    forget();
    world.tasks.exits(task(), 1);
    advance(10);
    EXPECT_THAT(lines("dispatch_async_f(main)"), IsEmpty());
    EXPECT_THAT(starts(), SizeIs(1));
}

}  // namespace

}  // namespace stagehopper
