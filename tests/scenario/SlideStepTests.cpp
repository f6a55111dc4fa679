// The effects of one accepted step, line by line.

#include <gmock/gmock.h>

#include "presentation/SlideApplications.h"
#include "presentation/SlideDirection.h"
#include "presentation/SlideTargetChoice.h"
#include "tests/scenario/LaunchedStage.h"
#include "tests/scenario/Programs.h"

namespace stagehopper {
namespace {

using simulated::item;
using testing::ElementsAre;
using testing::IsEmpty;

using SlideStepping = LaunchedStage;

TEST_F(SlideStepping, PowerPointInFrontIsSteppedByItsMenuAlone) {
    stage.desktop.addProgram(
        powerPoint(42).window("deck.pptx").menu("Slide Show", {item("Next Slide")}));
    stage.desktop.bringToFront(42);
    stepAfresh("next");
    EXPECT_THAT(
        stage.lines(),
        ElementsAre("native_bridge_received direction=next seq=- source=test",
                    "exec_context ax=true front=com.microsoft.Powerpoint "
                    "self=org.stagehopper.Stagehopper title=deck.pptx",
                    "target_resolved detected_profiled_front bundle=com.microsoft.Powerpoint "
                    "strategy=powerpoint_page_keys pid=42 title=deck.pptx",
                    "menu_path_sent bundle=com.microsoft.Powerpoint dir=next title=Next Slide",
                    "completed path=menu bundle=com.microsoft.Powerpoint"));
    EXPECT_THAT(stage.desktop.program(42).keys(), IsEmpty());
}

TEST_F(SlideStepping, ABackgroundPowerPointGetsAKeyAndIsNotBroughtForward) {
    stage.desktop.addProgram(
        powerPoint(42).window("deck.pptx").menu("Slide Show", {item("Next Slide")}));
    stage.desktop.addProgram(safari(31).window("News"));
    stage.desktop.bringToFront(42);
    stage.step("next");
    stage.desktop.bringToFront(31);
    stepAfresh("next");
    EXPECT_THAT(
        stage.lines(),
        ElementsAre(
            "native_bridge_received direction=next seq=- source=test",
            "exec_context ax=true front=com.apple.Safari self=org.stagehopper.Stagehopper "
            "title=News",
            "target_resolved detected_profiled_background bundle=com.microsoft.Powerpoint "
            "strategy=powerpoint_page_keys pid=42 title=deck.pptx",
            "menu_path_skipped bundle=com.microsoft.Powerpoint reason=background_target",
            "key_sent strategy=powerpoint_page_keys keycodes_next/prev=121/116 sent=121 dir=next "
            "dispatch=pid",
            "completed path=detected_profiled_background bundle=com.microsoft.Powerpoint"));
    EXPECT_THAT(stage.desktop.program(42).keysDown(), ElementsAre(121));
    EXPECT_THAT(stage.desktop.program(42).pressed(), ElementsAre("Next Slide"))
        << "only the step taken while it was in front";
    EXPECT_THAT(stage.desktop.program(31).keys(), IsEmpty());
    EXPECT_EQ(stage.desktop.frontPid(), 31);
}

TEST_F(SlideStepping, ATargetBehindAnotherProcessOfItsProductIsInTheBackground) {
    for (const platform::Pid pid : {42, 43}) {
        stage.desktop.addProgram(
            powerPoint(pid).window("deck.pptx").menu("Slide Show", {item("Next Slide")}));
    }
    // The second of the two, so that only the memory of the step before leads to it.
    stage.desktop.bringToFront(43);
    stage.step("next");
    stage.desktop.bringToFront(42);
    stepAfresh("next");
    EXPECT_THAT(stage.lines("menu_path"),
                ElementsAre("menu_path_skipped bundle=com.microsoft.Powerpoint "
                            "reason=background_target"));
    EXPECT_THAT(stage.lines("completed"), ElementsAre("completed path=detected_profiled_background "
                                                      "bundle=com.microsoft.Powerpoint"));
    EXPECT_THAT(stage.desktop.program(43).keysDown(), ElementsAre(121));
    EXPECT_THAT(stage.desktop.program(42).pressed(), IsEmpty());
}

TEST_F(SlideStepping, TheContextHasTheTitleOfTheFocusedWindow) {
    stage.desktop.addProgram(
        safari(31).window("News").window("Mail").window("Slides").focusedWindow(1));
    stage.desktop.bringToFront(31);
    stepAfresh("next");
    EXPECT_THAT(stage.lines("exec_context"),
                ElementsAre("exec_context ax=true front=com.apple.Safari "
                            "self=org.stagehopper.Stagehopper title=Mail"));
    EXPECT_THAT(stage.lines("target_resolved"),
                ElementsAre("target_resolved detected_profiled_front bundle=com.apple.Safari "
                            "strategy=browser_arrows pid=31 title=News"));
}

TEST_F(SlideStepping, AFocusedWindowWithoutATitleIsLoggedWithADash) {
    stage.desktop.addProgram(safari(31).window("News").untitledWindow().focusedWindow(1));
    stage.desktop.bringToFront(31);
    stepAfresh("next");
    EXPECT_THAT(stage.lines("exec_context"),
                ElementsAre("exec_context ax=true front=com.apple.Safari "
                            "self=org.stagehopper.Stagehopper title=-"));
}

TEST_F(SlideStepping, TheContextHasTheCurrentTrust) {
    stage.desktop.accessibility.trusted = false;
    stage.forget();
    stage.app->resolveSlideTargetAndSend(SlideDirection::next);
    EXPECT_THAT(stage.lines("exec_context"),
                ElementsAre("exec_context ax=false front=nil self=org.stagehopper.Stagehopper "
                            "title=-"));
}

TEST_F(SlideStepping, WithoutASupportedProgramOnlyTheContextAndTheReasonAreLogged) {
    stage.desktop.addProgram(simulated::program("com.apple.TextEdit").pid(5).window("notes"));
    stage.desktop.bringToFront(5);
    stepAfresh("next");
    EXPECT_THAT(stage.lines(),
                ElementsAre("native_bridge_received direction=next seq=- source=test",
                            "exec_context ax=true front=com.apple.TextEdit "
                            "self=org.stagehopper.Stagehopper title=notes",
                            "blocked_no_target no_supported_presentation_window "
                            "front=com.apple.TextEdit"));
}

TEST_F(SlideStepping, AbsentValuesAreWrittenAsNilOrADash) {
    stage.desktop.host.bundleId = std::nullopt;
    stage.desktop.bringNothingToFront();
    stepAfresh("next");
    EXPECT_THAT(stage.lines(),
                ElementsAre("native_bridge_received direction=next seq=- source=test",
                            "exec_context ax=true front=nil self=nil title=-",
                            "blocked_no_target no_supported_presentation_window front=nil"));
}

TEST_F(SlideStepping, AFrontProgramWithoutAnIdentityIsWrittenAsNil) {
    stage.desktop.addProgram(simulated::program().pid(8).window("terminal"));
    stage.desktop.bringToFront(8);
    stepAfresh("next");
    EXPECT_THAT(stage.lines("exec_context"),
                ElementsAre("exec_context ax=true front=nil self=org.stagehopper.Stagehopper "
                            "title=terminal"));
}

TEST_F(SlideStepping, ATargetWithoutATitleIsLoggedWithADash) {
    stage.desktop.addProgram(keynote(40));
    stage.forget();
    const auto* row = findSlideApplication("com.apple.iWork.Keynote", {});
    stage.app->sendSlideStep({{40, "com.apple.iWork.Keynote"}, "com.apple.iWork.Keynote", {}, row},
                             std::nullopt, SlideDirection::next);
    EXPECT_THAT(stage.lines("target_resolved"),
                ElementsAre("target_resolved detected_profiled_background "
                            "bundle=com.apple.iWork.Keynote strategy=keynote_arrows pid=40 "
                            "title=-"));
}

}  // namespace
}  // namespace stagehopper
