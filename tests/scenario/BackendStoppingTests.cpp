// Stopping the backend: by the user, and when the program quits.

#include <gmock/gmock.h>

#include "tests/scenario/BackendFixture.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::IsEmpty;
using testing::SizeIs;

using BackendStopping = BackendTest;

TEST_F(BackendStopping, StoppingEndsTheBackendAndStartsNoOther) {
    stage.installServingBackend(3000);
    stage.launch();
    stage.pagePosts("CMD:stopBundledBackend");
    stage.desktop.advance(10s);
    EXPECT_FALSE(child().running);
    EXPECT_THAT(starts(), SizeIs(1));
    EXPECT_THAT(stage.systemLines(), IsEmpty());
}

TEST_F(BackendStopping, StoppingDoesNotBlockTheMainThread) {
    stage.installBackend({.endsWithin = platform::Duration{5}});
    stage.launch();
    stage.pagePosts("CMD:stopBundledBackend");
    EXPECT_TRUE(child().askedToEnd);
    EXPECT_TRUE(child().running);
    stage.pagePosts("DBG:still here");
    EXPECT_THAT(stage.lines(), Contains("panel_debug still here"));
    stage.desktop.advance(5s);
    EXPECT_FALSE(child().running);
}

TEST_F(BackendStopping, StoppingWithoutABackendIsRememberedWithoutALine) {
    stage.desktop.network.serve(3000);
    stage.launch();
    stage.installServingBackend(3001);
    stage.pagePosts("CMD:stopBundledBackend");
    stage.desktop.network.stopServing(3000);
    stage.desktop.advance(10s);
    EXPECT_THAT(stage.systemLines(), IsEmpty());
    EXPECT_THAT(starts(), IsEmpty());
}

TEST_F(BackendStopping, AStopIsRememberedAfterFailedStarts) {
    stage.installBackend({.launchError = "Exec format error"});
    stage.launch();
    stage.pagePosts("CMD:stopBundledBackend");
    stage.installServingBackend(3000);
    stage.desktop.advance(10s);
    EXPECT_THAT(starts(), IsEmpty());
    EXPECT_THAT(stage.systemLines(), IsEmpty());
}

TEST_F(BackendStopping, StoppingDropsAPendingRetry) {
    stage.installBackend({.exitsAfter = platform::Duration{0}, .exitStatus = 1});
    stage.launch();
    stage.pagePosts("CMD:stopBundledBackend");
    stage.desktop.advance(10s);
    EXPECT_THAT(starts(), SizeIs(1));
}

TEST_F(BackendStopping, ABackendThatWeDidNotStartIsNeverStopped) {
    stage.desktop.network.serve(3000);
    stage.launch();
    stage.pagePosts("CMD:stopBundledBackend");
    stage.desktop.userPressesMenuItem("退出 Stagehopper");
    EXPECT_THAT(stage.desktop.journal.effectsSince(0),
                testing::Not(Contains("process asked to end: StagehopperBackend-arm64")));
}

TEST_F(BackendStopping, StartingAfterAStopBeginsAFreshSeries) {
    stage.installBackend({.exitsAfter = platform::Duration{0}, .exitStatus = 1});
    stage.launch();
    stage.desktop.advance(10s);
    stage.pagePosts("CMD:stopBundledBackend");
    stage.forget();
    stage.pagePosts("CMD:startBundledBackend");
    stage.desktop.advance(10s);
    EXPECT_THAT(starts(), SizeIs(6));
    EXPECT_EQ(stage.systemLines().front(), startedOnce);
    EXPECT_EQ(stage.systemLines().back(), "bundled backend exited; max launch attempts reached");
}

TEST_F(BackendStopping, StartingAfterTheLastAttemptBeginsAFreshSeriesWithoutAStop) {
    stage.installBackend({.exitsAfter = platform::Duration{0}, .exitStatus = 1});
    stage.launch();
    stage.desktop.advance(10s);
    ASSERT_EQ(stage.systemLines().back(), "bundled backend exited; max launch attempts reached");
    stage.forget();
    stage.pagePosts("CMD:startBundledBackend");
    stage.desktop.advance(10s);
    ASSERT_THAT(starts(), SizeIs(6));
    EXPECT_EQ(stage.systemLines().front(), startedOnce);
}

TEST_F(BackendStopping, StartingWhileOneAnswersOnlyAllowsItToBeRestarted) {
    stage.installServingBackend(3000);
    stage.launch();
    const auto mark = stage.desktop.journal.mark();
    stage.pagePosts("CMD:startBundledBackend");
    EXPECT_THAT(stage.desktop.journal.effectsSince(mark), IsEmpty());
    EXPECT_THAT(starts(), SizeIs(1));
}

TEST_F(BackendStopping, StartingRevokesAStopWhileTheOldBackendStillAnswers) {
    stage.installServingBackend(3000);
    stage.desktop.processes.programs[backend].endsWithin = platform::Duration{2};
    stage.launch();
    stage.pagePosts("CMD:stopBundledBackend");
    stage.pagePosts("CMD:startBundledBackend");
    stage.desktop.advance(10s);
    // The stop was revoked before the exit, so the backend is restarted.
    EXPECT_THAT(starts(), SizeIs(2));
    EXPECT_TRUE(child().running);
}

TEST_F(BackendStopping, ABackendThatWasStartedDuringAStopIsEndedAtQuit) {
    stage.installBackend({.endsWithin = platform::Duration{5}});
    stage.launch();
    stage.pagePosts("CMD:stopBundledBackend");
    stage.installServingBackend(3000);
    stage.pagePosts("CMD:startBundledBackend");
    ASSERT_THAT(starts(), SizeIs(2));
    // The first has ended and its stop is complete; the second must be kept.
    stage.desktop.advance(10s);
    EXPECT_FALSE(starts()[0]->running);
    EXPECT_TRUE(starts()[1]->running);
    stage.desktop.userPressesMenuItem("退出 Stagehopper");
    EXPECT_FALSE(starts()[1]->running);
}

TEST_F(BackendStopping, QuittingWaitsForTheBackendToExit) {
    stage.installServingBackend(3000);
    stage.desktop.processes.programs[backend].endsWithin = platform::Duration{3};
    stage.launch();
    const auto before = now();
    stage.desktop.userPressesMenuItem("退出 Stagehopper");
    EXPECT_FALSE(child().running);
    EXPECT_EQ(now() - before, 3s);
}

TEST_F(BackendStopping, AnExitWhileTheProgramEndsCausesNoRestart) {
    stage.installServingBackend(3000);
    stage.launch();
    stage.desktop.application.turnsAtTheEndFor = 10s;
    stage.desktop.userPressesMenuItem("退出 Stagehopper");
    EXPECT_THAT(stage.systemLines(), IsEmpty());
    EXPECT_THAT(starts(), SizeIs(1));
}

TEST_F(BackendStopping, AMessageAfterTheStartOfShutDownStartsNoBackend) {
    stage.installServingBackend(3000);
    stage.launch();
    stage.desktop.application.turnsAtTheEndFor = 10s;
    stage.desktop.panelPage().posts("bridge", "CMD:startBundledBackend");
    stage.desktop.userPressesMenuItem("退出 Stagehopper");
    EXPECT_THAT(starts(), SizeIs(1));
}

TEST_F(BackendStopping, QuittingDuringARestartDelayStartsNothing) {
    stage.installBackend({.exitsAfter = platform::Duration{0}, .exitStatus = 1});
    stage.launch();
    stage.desktop.application.turnsAtTheEndFor = 10s;
    stage.desktop.userPressesMenuItem("退出 Stagehopper");
    EXPECT_THAT(starts(), SizeIs(1));
    EXPECT_TRUE(stage.desktop.application.terminated());
}

TEST_F(BackendStopping, QuittingDuringAStopWaitsForTheSameEnd) {
    stage.installServingBackend(3000);
    stage.desktop.processes.programs[backend].endsWithin = platform::Duration{3};
    stage.launch();
    stage.pagePosts("CMD:stopBundledBackend");
    stage.desktop.advance(1s);
    stage.desktop.userPressesMenuItem("退出 Stagehopper");
    EXPECT_FALSE(child().running);
}

}  // namespace
}  // namespace stagehopper
