// Finding the port of a healthy backend.

#include <gmock/gmock.h>

#include "tests/scenario/Stage.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class HealthProbe : public testing::Test {
protected:
    std::chrono::nanoseconds now() { return stage.desktop.clock.elapsed(); }

    Stage stage;
};

TEST_F(HealthProbe, TheFirstPortThatAnswersIsTakenWithoutFurtherProbes) {
    stage.desktop.network.serve(3000);
    EXPECT_EQ(stage.app->firstHealthyLocalBackendBaseURL(), "http://127.0.0.1:3000");
    EXPECT_THAT(stage.desktop.network.requests(), ElementsAre("http://127.0.0.1:3000/health"));
}

TEST_F(HealthProbe, TheLastPortOfTheRangeIsFound) {
    stage.desktop.network.serve(3050);
    EXPECT_EQ(stage.app->firstHealthyLocalBackendBaseURL(), "http://127.0.0.1:3050");
}

TEST_F(HealthProbe, APortBeyondTheRangeIsNeverFound) {
    stage.desktop.network.serve(3051);
    EXPECT_EQ(stage.app->firstHealthyLocalBackendBaseURL(), std::nullopt);
}

TEST_F(HealthProbe, AStatusOf200CountsWithAnIncompleteBody) {
    stage.desktop.network.serve(3000).brokenPaths = {"/health"};
    EXPECT_TRUE(stage.app->healthCheckLocalPort(3000));
}

TEST_F(HealthProbe, AnAnswerWithinThreeTenthsOfASecondCounts) {
    stage.desktop.network.serve(3000).answersAfter = platform::Duration{0.3};
    EXPECT_TRUE(stage.app->healthCheckLocalPort(3000));
    EXPECT_EQ(now(), 300ms);
}

TEST_F(HealthProbe, TheProbeDoesNotWaitForASlowAnswer) {
    stage.desktop.network.serve(3000).answersAfter = platform::Duration{0.4};
    EXPECT_FALSE(stage.app->healthCheckLocalPort(3000));
    EXPECT_EQ(now(), 350ms);
    // It still arrives, after the probe has ended.
    stage.desktop.advance(1s);
}

TEST_F(HealthProbe, AScanOfServersThatNeverAnswerTakesEighteenSeconds) {
    for (int port = 3000; port <= 3050; ++port) {
        stage.desktop.network.serve(port).answersAfter.reset();
    }
    EXPECT_EQ(stage.app->firstHealthyLocalBackendBaseURL(), std::nullopt);
    EXPECT_EQ(now(), 17850ms);
}

TEST_F(HealthProbe, AnInvalidPortIsNotHealthy) {
    EXPECT_FALSE(stage.app->healthCheckLocalPort(-1));
    EXPECT_FALSE(stage.app->healthCheckLocalPort(70000));
}

}  // namespace
}  // namespace stagehopper
