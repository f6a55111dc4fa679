// Finding, starting and restarting a backend.

#include <gmock/gmock.h>

#include "tests/scenario/BackendFixture.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

using BackendSupervision = BackendTest;

TEST_F(BackendSupervision, ABackendThatAnswersIsUsedAndNoneIsStarted) {
    stage.installServingBackend(3000);
    stage.desktop.network.serve(3017);
    launch();
    EXPECT_THAT(starts(), IsEmpty());
    EXPECT_THAT(stage.systemLines(), IsEmpty());
    EXPECT_THAT(stage.lines(), Contains("app_launched backend auto-start requested"));
}

TEST_F(BackendSupervision, PortsAreProbedInOrderUpToTheFirstThatAnswers) {
    stage.desktop.network.serve(3017);
    stage.desktop.application.setDelegate(stage.app);
    launch();
    const auto& requests = stage.desktop.network.requests();
    ASSERT_GE(requests.size(), 18U);
    for (std::size_t i = 0; i < 18; ++i) {
        EXPECT_EQ(requests[i], "http://127.0.0.1:" + std::to_string(3000 + i) + "/health");
    }
    // Discovery starts at the first port again.
    EXPECT_EQ(requests[18], "http://127.0.0.1:3000/health");
}

TEST_F(BackendSupervision, TheBackendGetsItsPortsItsFolderAndItsParent) {
    stage.installServingBackend(3000);
    stage.desktop.host.variables = {{"HOME", "/home/user"}, {"PORT", "8080"}, {"PORT_EXTRA", "1"}};
    stage.desktop.host.pid = 4711;
    launch();
    const auto& options = child().options;
    EXPECT_EQ(options.executable, backend);
    EXPECT_THAT(options.arguments, ElementsAre("--ppid=4711"));
    EXPECT_EQ(
        options.environment,
        (platform::Environment{{"HOME", "/home/user"}, {"PORT", "3000"}, {"PORT_EXTRA", "50"}}));
    EXPECT_EQ(options.currentDirectory, "/app/Resources");
    EXPECT_FALSE(options.capturesOutput);
}

TEST_F(BackendSupervision, AMissingBackendIsReportedOnceForEachRequestAndNotRetried) {
    launch();
    stage.desktop.advance(10s);
    EXPECT_THAT(stage.systemLines(),
                ElementsAre("bundled backend not found at "
                            "/app/Resources/StagehopperBackend-arm64 (build with: cd backend && "
                            "npm run pkg:mac:…)"));
    stage.pagePosts("CMD:startBundledBackend");
    EXPECT_THAT(stage.systemLines(), SizeIs(2));
}

TEST_F(BackendSupervision, AFileThatIsNotExecutableCountsAsMissing) {
    stage.installServingBackend(3000);
    stage.desktop.files.setExecutable(backend, false);
    launch();
    EXPECT_THAT(stage.systemLines(), ElementsAre(HasSubstr("not found at /app/Resources/")));
    EXPECT_THAT(starts(), IsEmpty());
}

TEST_F(BackendSupervision, AFolderInItsPlaceIsTreatedLikeAProgramThatCannotBeStarted) {
    stage.desktop.files.put(std::string(backend) + "/readme", "");
    stage.desktop.processes.programs[backend].launchError = "Permission denied";
    launch();
    stage.desktop.advance(30s);
    EXPECT_THAT(stage.systemLines(),
                AllOf(SizeIs(3), Each("failed to start bundled backend: Permission denied")));
}

TEST_F(BackendSupervision, ABackendThatExitsAtOnceIsStartedThreeTimesASecondApart) {
    stage.installBackend({.exitsAfter = platform::Duration{0}, .exitStatus = 7});
    std::vector<std::chrono::nanoseconds> times;
    stage.desktop.processes.programs[backend].onStart = [&] { times.push_back(now()); };
    launch();
    stage.desktop.advance(30s);
    EXPECT_THAT(times, ElementsAre(0s, 1s, 2s));
    EXPECT_THAT(stage.systemLines(),
                ElementsAre("started bundled backend StagehopperBackend-arm64 (attempt 1/3)",
                            "bundled backend exited (status 7), will retry (1/3)",
                            "started bundled backend StagehopperBackend-arm64 (attempt 2/3)",
                            "bundled backend exited (status 7), will retry (2/3)",
                            "started bundled backend StagehopperBackend-arm64 (attempt 3/3)",
                            "bundled backend exited; max launch attempts reached"));
}

TEST_F(BackendSupervision, ABackendThatRanForHoursGetsNoMoreAttempts) {
    stage.installServingBackend(3000);
    launch();
    for (int i = 0; i < 3; ++i) {
        stage.desktop.advance(4h);
        stage.desktop.processes.exits(child(), 0);
        stage.desktop.runReady();
    }
    EXPECT_THAT(starts(), SizeIs(3));
    EXPECT_EQ(stage.systemLines().back(), "bundled backend exited; max launch attempts reached");
}

TEST_F(BackendSupervision, ABackendThatCannotBeStartedIsTriedThreeTimes) {
    stage.installBackend({.launchError = "Exec format error"});
    launch();
    stage.desktop.advance(30s);
    // There is no line about the limit: no process has exited.
    EXPECT_THAT(stage.systemLines(),
                AllOf(SizeIs(3), Each("failed to start bundled backend: Exec format error")));
}

TEST_F(BackendSupervision, AFailedStartIsTriedAgainAfterASecond) {
    stage.installBackend({.launchError = "Exec format error"});
    launch();
    stage.desktop.advance(999ms);
    EXPECT_THAT(stage.systemLines(), SizeIs(1));
    stage.installServingBackend(3000);
    stage.desktop.advance(1ms);
    EXPECT_THAT(starts(), SizeIs(1));
    EXPECT_EQ(stage.systemLines().back(),
              "started bundled backend StagehopperBackend-arm64 (attempt 2/3)");
}

TEST_F(BackendSupervision, ARetryIsDroppedIfAnotherBackendHasStarted) {
    stage.installServingBackend(3000);
    stage.launch();
    stage.desktop.processes.exits(child(), 1);
    stage.desktop.runReady();
    stage.desktop.network.serve(3044);
    stage.forget();
    stage.desktop.advance(10s);
    EXPECT_THAT(starts(), SizeIs(1));
    EXPECT_THAT(stage.systemLines(), IsEmpty());
}

TEST_F(BackendSupervision, AnExitIsIgnoredWhileAnotherBackendServes) {
    stage.installServingBackend(3000);
    stage.launch();
    stage.desktop.network.serve(3044);
    stage.desktop.processes.exits(child(), 1);
    stage.desktop.advance(10s);
    EXPECT_THAT(stage.systemLines(), IsEmpty());
    EXPECT_THAT(starts(), SizeIs(1));
}

TEST_F(BackendSupervision, AServerThatAnswersWithAnErrorOrNoContentIsNotABackend) {
    stage.desktop.network.serve(3000).answers["/health"] = {500, "oops"};
    stage.desktop.network.serve(3001).answers["/health"] = {204, ""};
    stage.installServingBackend(3002);
    launch();
    EXPECT_THAT(starts(), SizeIs(1));
}

}  // namespace
}  // namespace stagehopper
