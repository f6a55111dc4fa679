// The backend as the system sees it: a task that is configured, started, watched and ended.

#include <gmock/gmock.h>

#include "tests/macos/MacStage.h"

namespace stagehopper {

namespace {

using recording::expectInOrder;
using testing::Contains;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
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
    [[nodiscard]] auto systemLines() {
        auto found = world.systemLog;
        std::erase_if(found, [](const auto& line) { return !line.starts_with("Stagehopper: "); });
        return found;
    }
};

TEST_F(MacBackend, IsConfiguredThenStarted) {
    installServingBackend(3000);
    launch();
    const auto name = taskName();
    const auto receiver = "[" + name + " ";
    expectInOrder({
        receiver + "setExecutableURL:<file://" + backend + ">]",
        receiver + "setArguments:(\"--ppid=4711\")]",
        receiver + "setCurrentDirectoryURL:<file://" + resources + "/>]",
        receiver + "setTerminationHandler:^block]",
        receiver + "launchAndReturnError:<pointer>]",
    });
    EXPECT_EQ(queueOf(receiver + "launch"), "main");
}

TEST_F(MacBackend, GetsItsPortsFolderAndParentProcess) {
    installServingBackend(3000);
    world.systemInfo.environment["PORT"] = "8080";
    launch();
    EXPECT_THAT(task().arguments, ElementsAre("--ppid=4711"));
    EXPECT_THAT(task().environment,
                testing::UnorderedElementsAre(Pair("HOME", "/Users/presenter"),
                                              Pair("PATH", "/usr/bin:/bin:/usr/sbin:/sbin"),
                                              Pair("PORT", "3000"), Pair("PORT_EXTRA", "50")));
    EXPECT_EQ(task().directory, resources);
}

TEST_F(MacBackend, ReadsAndWritesNothing) {
    installServingBackend(3000);
    launch();
    EXPECT_EQ(task().input, "null device");
    EXPECT_EQ(task().output, "null device");
    EXPECT_EQ(task().error, "null device");
}

TEST_F(MacBackend, ARunningBackendIsUsedAndNoneIsStarted) {
    installServingBackend(3001);
    world.servers.serve(3000);
    launch();
    EXPECT_THAT(starts(), IsEmpty());
    EXPECT_THAT(lines("StagehopperBackend"), IsEmpty());
}

TEST_F(MacBackend, TheReplyToAProbeArrivesOnTheSessionsQueueWhileTheMainThreadWaits) {
    world.servers.serve(3000).answersAfter = 0.2;
    launch();
    EXPECT_EQ(queueOf("statusCode]"), "session");
    // One probe before the backend, one before the discovery.
    EXPECT_THAT(timeOf("backend auto-start requested"), DoubleNear(0.2, 1e-6));
    EXPECT_THAT(timeOf("nativeSlideDiscovery started"), DoubleNear(0.4, 1e-6));
    EXPECT_THAT(world.servers.requests,
                ElementsAre("http://127.0.0.1:3000/health", "http://127.0.0.1:3000/health",
                            "http://127.0.0.1:3000/v1/meetings/active"));
}

TEST_F(MacBackend, AProbeTimesOutAfterAThirdOfASecond) {
    world.servers.serve(3000).answersAfter.reset();
    world.servers.serve(3001);
    launch();
    EXPECT_THAT(timeOf("backend auto-start requested"), DoubleNear(0.35, 1e-6));
    // The system's own limit passes after the wait has ended.
    dropController();
    advance(120);
    EXPECT_THAT(starts(), IsEmpty());
}

TEST_F(MacBackend, ANonHttpReplyIsNotABackend) {
    world.servers.serve(3000).answers["/health"] = {.http = false};
    installServingBackend(3001);
    launch();
    EXPECT_THAT(starts(), SizeIs(1));
}

TEST_F(MacBackend, AnHttpErrorIsNotABackend) {
    world.servers.serve(3000).answers["/health"] = {.status = 503};
    installServingBackend(3001);
    launch();
    EXPECT_THAT(starts(), SizeIs(1));
}

TEST_F(MacBackend, ARedirectIsNotABackendWhateverItsTarget) {
    auto& server = world.servers.serve(3000);
    server.answers["/health"] = {.status = 302, .location = "http://127.0.0.1:3000/elsewhere"};
    server.answers["/elsewhere"] = {.status = 200};
    installServingBackend(3001);
    launch();
    EXPECT_THAT(starts(), SizeIs(1));
}

TEST_F(MacBackend, AStatusCountsEvenIfItsBodyBreaksOff) {
    world.servers.serve(3000).answers["/health"] = {.status = 200, .breaksOff = true};
    installServingBackend(3001);
    launch();
    EXPECT_THAT(starts(), IsEmpty());
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

TEST_F(MacBackend, IsStartedThreeTimesASecondApart) {
    installBackend({.exitsAfter = platform::Duration{0}, .exitStatus = 1});
    std::vector<double> times;
    world.tasks.programs[backend].onStart = [&] { times.push_back(recording::queues::now()); };
    launch();
    advance(30);
    EXPECT_THAT(times, ElementsAre(DoubleNear(0, 1e-6), DoubleNear(1, 1e-6), DoubleNear(2, 1e-6)));
    EXPECT_EQ(systemLines().back(),
              "Stagehopper: bundled backend exited; max launch attempts reached");
}

TEST_F(MacBackend, TheSystemsReasonForAFailedStartIsInTheLog) {
    installBackend({.launchError = "The file “StagehopperBackend-arm64” is damaged."});
    launch();
    EXPECT_THAT(systemLines(), ElementsAre("Stagehopper: failed to start bundled backend: The file "
                                           "“StagehopperBackend-arm64” is damaged."));
}

TEST_F(MacBackend, ATaskThatNeverStartedGetsNoQuestions) {
    installBackend({.launchError = "no"});
    launch();
    const auto receiver = "[" + taskName() + " ";
    pagePosts("CMD:stopBundledBackend");
    userQuits();
    EXPECT_THAT(lines(receiver + "terminate"), IsEmpty());
    EXPECT_THAT(lines(receiver + "terminationStatus"), IsEmpty());
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
    // The main thread goes on meanwhile.
    EXPECT_TRUE(task().running);
    pagePosts("DBG:still here");
    EXPECT_THAT(diagnostics("panel_debug"), ElementsAre("panel_debug still here"));
    advance(4.9);
    EXPECT_TRUE(task().running);
    forget();
    advance(0.1);
    EXPECT_FALSE(task().running);
    EXPECT_EQ(queueOf("dispatch_async_f(main)"), "global user-initiated");
    EXPECT_THAT(starts(), SizeIs(1));
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
    forget();
    const auto before = recording::queues::now();
    userQuits();
    EXPECT_EQ(queueOf(receiver + "terminate]"), "main");
    EXPECT_THAT(recording::queues::now() - before, DoubleNear(3, 1e-6));
    EXPECT_FALSE(task().running);
    EXPECT_TRUE(world.application.terminated());
    EXPECT_THAT(systemLines(), IsEmpty());
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

TEST_F(MacBackend, ARetryAfterTheControllersEndDoesNothing) {
    installBackend({.exitsAfter = platform::Duration{0}, .exitStatus = 1});
    launch();
    dropController();
    advance(10);
    EXPECT_THAT(starts(), SizeIs(1));
}

}  // namespace

}  // namespace stagehopper
