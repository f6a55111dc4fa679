// Slide events before the step: repeats, direction, trust.

#include <gmock/gmock.h>

#include <thread>

#include "tests/scenario/Programs.h"
#include "tests/scenario/Stage.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class SlideIntake : public testing::Test {
protected:
    SlideIntake() {
        stage.desktop.addProgram(keynote(40).window("deck.key"));
        stage.launch();
    }
    void event(std::string_view direction, std::string_view seq) {
        stage.app->consumeSlideEvent(direction, seq, "test");
        stage.desktop.runReady();
    }
    [[nodiscard]] std::size_t steps() const { return stage.lines("completed").size(); }

    Stage stage;
};

TEST_F(SlideIntake, TheSameTagAfterLessThanTwoSecondsIsDropped) {
    const auto start = stage.desktop.clock.now();
    event("next", "7");
    stage.forget();
    stage.desktop.advanceTo(start + 1999ms);
    event("next", "7");
    EXPECT_THAT(stage.lines(), ElementsAre("duplicate_dropped direction=next seq=7 source=test"));
}

TEST_F(SlideIntake, TheSameTagAfterTwoSecondsIsAcceptedAndBecomesTheReference) {
    const auto start = stage.desktop.clock.now();
    event("next", "7");
    stage.desktop.advanceTo(start + 2s);
    event("next", "7");
    stage.desktop.advanceTo(start + 3900ms);
    event("next", "7");
    EXPECT_EQ(steps(), 2U);
    EXPECT_THAT(stage.lines("duplicate_dropped"), SizeIs(1));
}

TEST_F(SlideIntake, ADroppedRepeatDoesNotMoveTheReferenceTime) {
    const auto start = stage.desktop.clock.now();
    event("next", "7");
    stage.desktop.advanceTo(start + 1500ms);
    event("next", "7");
    stage.desktop.advanceTo(start + 2500ms);
    event("next", "7");
    EXPECT_EQ(steps(), 2U);
    EXPECT_THAT(stage.lines("duplicate_dropped"), SizeIs(1));
}

TEST_F(SlideIntake, EventsWithoutATagAreNeverRepeats) {
    event("next", "");
    event("next", "");
    EXPECT_EQ(steps(), 2U);
    EXPECT_THAT(stage.lines("native_bridge_received"),
                ElementsAre("native_bridge_received direction=next seq=- source=test",
                            "native_bridge_received direction=next seq=- source=test"));
}

TEST_F(SlideIntake, EventsWithoutATagLeaveTheReferenceAlone) {
    event("next", "7");
    event("next", "");
    event("next", "7");
    EXPECT_THAT(stage.lines("duplicate_dropped"), SizeIs(1));
}

TEST_F(SlideIntake, OnlyTheLastTagIsRememberedAndItIsComparedExactly) {
    for (const char* tag : {"A", "B", "A", "a", "a "}) event("next", tag);
    EXPECT_EQ(steps(), 5U);
}

TEST_F(SlideIntake, ARepeatFromAnotherChannelIsDropped) {
    stage.app->consumeSlideEvent("next", "7", "panel");
    stage.app->consumeSlideEvent("next", "7", "native_ws");
    stage.desktop.runReady();
    EXPECT_EQ(steps(), 1U);
    EXPECT_THAT(stage.lines("duplicate_dropped"),
                ElementsAre("duplicate_dropped direction=next seq=7 source=native_ws"));
}

TEST_F(SlideIntake, ADirectionInCapitalsWithBlanksAroundIsAccepted) {
    event(" NEXT\n", "1");
    EXPECT_EQ(steps(), 1U);
    EXPECT_THAT(stage.lines("key_sent"),
                ElementsAre("key_sent strategy=keynote_arrows keycodes_next/prev=124/123 sent=124 "
                            "dir=next dispatch=pid"));
}

TEST_F(SlideIntake, AnyOtherDirectionIsLoggedAsReceivedAndThenRejectedUntrimmed) {
    for (const std::string raw :
         {"", " ", "previous", "nextt", "ne xt", "next prev", " Forward "}) {
        stage.forget();
        event(raw, "");
        EXPECT_THAT(stage.lines(),
                    ElementsAre("native_bridge_received direction=" + raw + " seq=- source=test",
                                "blocked_invalid_direction raw=" + raw));
    }
}

TEST_F(SlideIntake, WithoutTrustNothingIsSentAndNoPromptIsRaised) {
    stage.desktop.accessibility.trusted = false;
    stage.forget();
    event("next", "1");
    EXPECT_THAT(stage.lines(),
                ElementsAre("native_bridge_received direction=next seq=1 source=test",
                            "blocked_no_accessibility AXIsProcessTrusted=false (waiting for user "
                            "to quit/relaunch)"));
    EXPECT_THAT(stage.desktop.program(40).keys(), IsEmpty());
    EXPECT_EQ(stage.desktop.accessibility.prompts, 0);
}

TEST_F(SlideIntake, AnInvalidDirectionIsRejectedBeforeTheTrustIsAsked) {
    stage.desktop.accessibility.trusted = false;
    stage.forget();
    event("sideways", "1");
    EXPECT_THAT(stage.lines(),
                ElementsAre("native_bridge_received direction=sideways seq=1 source=test",
                            "blocked_invalid_direction raw=sideways"));
}

TEST_F(SlideIntake, AStepIsTakenAfterTheCallNeverInsideIt) {
    stage.app->consumeSlideEvent("next", "1", "test");
    EXPECT_THAT(stage.lines("exec_context"), IsEmpty());
    stage.desktop.runReady();
    EXPECT_THAT(stage.lines("exec_context"), SizeIs(1));
}

TEST_F(SlideIntake, StepsAreTakenInTheOrderOfArrival) {
    for (const char* direction : {"next", "prev", "sideways", "next"}) {
        stage.app->consumeSlideEvent(direction, "", "test");
    }
    stage.desktop.runReady();
    EXPECT_THAT(stage.desktop.program(40).keysDown(), ElementsAre(124, 123, 124));
}

TEST_F(SlideIntake, AStepStillQueuedWhenTheControllerIsGoneIsDropped) {
    stage.app->consumeSlideEvent("next", "1", "test");
    stage.app.reset();
    stage.desktop.runReady();
    EXPECT_THAT(stage.desktop.program(40).keys(), IsEmpty());
}

}  // namespace
}  // namespace stagehopper
