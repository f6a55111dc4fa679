// What one accepted step does, line by line.

#include <gmock/gmock.h>

#include "presentation/SlideApplications.h"
#include "presentation/SlideDirection.h"
#include "presentation/SlideTargetChoice.h"
#include "tests/scenario/Programs.h"
#include "tests/scenario/Stage.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using simulated::item;
using testing::ElementsAre;
using testing::IsEmpty;

class SlideDispatch : public testing::Test {
protected:
    SlideDispatch() { stage.launch(); }
    void stepAfresh(std::string_view direction) {
        stage.forget();
        stage.step(direction);
    }
    Stage stage;
};

TEST_F(SlideDispatch, PowerPointInFrontIsSteppedByItsMenuAlone) {
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

TEST_F(SlideDispatch, ABackgroundPowerPointGetsAKeyAndIsNotBroughtForward) {
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

TEST_F(SlideDispatch, ATargetBehindAnotherProcessOfItsProductIsInTheBackground) {
    for (const platform::Pid pid : {42, 43}) {
        stage.desktop.addProgram(
            powerPoint(pid).window("deck.pptx").menu("Slide Show", {item("Next Slide")}));
    }
    stage.desktop.bringToFront(42);
    stage.step("next");
    stage.desktop.bringToFront(43);
    stepAfresh("next");
    EXPECT_THAT(stage.lines("menu_path"),
                ElementsAre("menu_path_skipped bundle=com.microsoft.Powerpoint "
                            "reason=background_target"));
    EXPECT_THAT(stage.lines("completed"), ElementsAre("completed path=detected_profiled_background "
                                                      "bundle=com.microsoft.Powerpoint"));
    EXPECT_THAT(stage.desktop.program(42).keysDown(), ElementsAre(121));
    EXPECT_THAT(stage.desktop.program(43).pressed(), IsEmpty());
}

TEST_F(SlideDispatch, TheContextHasTheTitleOfTheFocusedWindow) {
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

TEST_F(SlideDispatch, AFocusedWindowWithoutATitleIsLoggedWithADash) {
    stage.desktop.addProgram(safari(31).window("News").untitledWindow().focusedWindow(1));
    stage.desktop.bringToFront(31);
    stepAfresh("next");
    EXPECT_THAT(stage.lines("exec_context"),
                ElementsAre("exec_context ax=true front=com.apple.Safari "
                            "self=org.stagehopper.Stagehopper title=-"));
}

TEST_F(SlideDispatch, TheContextTellsTheTrustOfThatMoment) {
    stage.desktop.accessibility.trusted = false;
    stage.forget();
    stage.app->resolveSlideTargetAndSend(SlideDirection::next);
    EXPECT_THAT(stage.lines("exec_context"),
                ElementsAre("exec_context ax=false front=nil self=org.stagehopper.Stagehopper "
                            "title=-"));
}

TEST_F(SlideDispatch, AKeyIsHeldForFiftyMilliseconds) {
    stage.desktop.addProgram(keynote(40).window("deck.key"));
    stepAfresh("next");
    const auto keys = stage.desktop.program(40).keys();
    ASSERT_EQ(keys.size(), 2U);
    EXPECT_TRUE(keys[0].down);
    EXPECT_FALSE(keys[1].down);
    EXPECT_EQ(keys[0].key, keys[1].key);
    EXPECT_EQ(keys[1].at - keys[0].at, 50ms);
}

TEST_F(SlideDispatch, AStepIsFinishedBeforeTheNextBegins) {
    stage.desktop.addProgram(keynote(40).window("deck.key"));
    stage.app->consumeSlideEvent("next", "", "test");
    stage.app->consumeSlideEvent("prev", "", "test");
    stage.desktop.runReady();
    const auto keys = stage.desktop.program(40).keys();
    ASSERT_EQ(keys.size(), 4U);
    EXPECT_EQ(keys[1].key, 124);
    EXPECT_FALSE(keys[1].down);
    EXPECT_EQ(keys[2].key, 123);
    EXPECT_GE(keys[2].at, keys[1].at);
}

TEST_F(SlideDispatch, KeynoteInFrontWithoutTheItemGetsTheRightArrow) {
    stage.desktop.addProgram(keynote(40).window("deck.key").menu("Play", {item("Rehearse")}));
    stage.desktop.bringToFront(40);
    stepAfresh("next");
    EXPECT_THAT(stage.lines("key_sent"),
                ElementsAre("key_sent strategy=keynote_arrows keycodes_next/prev=124/123 sent=124 "
                            "dir=next dispatch=pid"));
    EXPECT_THAT(stage.lines("completed"), ElementsAre("completed path=detected_profiled_front "
                                                      "bundle=com.apple.iWork.Keynote"));
    EXPECT_THAT(stage.desktop.program(40).keysDown(), ElementsAre(124));
}

TEST_F(SlideDispatch, PreviewInFrontGetsTheLeftArrowForPrevWithoutAMenuLine) {
    stage.desktop.addProgram(preview(60).window("deck.pdf"));
    stage.desktop.bringToFront(60);
    stepAfresh("prev");
    EXPECT_THAT(stage.lines("menu_path"), IsEmpty());
    EXPECT_THAT(stage.lines("key_sent"),
                ElementsAre("key_sent strategy=preview_arrows keycodes_next/prev=124/123 sent=123 "
                            "dir=prev dispatch=pid"));
    EXPECT_THAT(stage.desktop.program(60).keysDown(), ElementsAre(123));
}

struct KeyCase {
    const char* bundleId;
    const char* window;
    int next;
    int previous;
};

class SlideKeys : public testing::TestWithParam<KeyCase> {};

TEST_P(SlideKeys, AreThoseOfTheProgramsRow) {
    Stage stage;
    stage.desktop.addProgram(
        simulated::program(GetParam().bundleId).pid(70).window(GetParam().window));
    stage.launch();
    stage.step("next");
    stage.step("prev");
    EXPECT_THAT(stage.desktop.program(70).keysDown(),
                ElementsAre(GetParam().next, GetParam().previous));
}

INSTANTIATE_TEST_SUITE_P(Rows, SlideKeys,
                         testing::Values(KeyCase{"com.microsoft.Powerpoint", "deck", 121, 116},
                                         KeyCase{"com.kingsoft.wpsoffice.mac", "deck", 121, 116},
                                         KeyCase{"com.apple.iWork.Keynote", "deck", 124, 123},
                                         KeyCase{"com.apple.Preview", "deck.pdf", 124, 123},
                                         KeyCase{"com.apple.Safari", "deck", 124, 123},
                                         KeyCase{"com.google.Chrome", "deck", 124, 123},
                                         KeyCase{"org.mozilla.firefox", "deck", 124, 123},
                                         KeyCase{"com.microsoft.edgemac", "deck", 124, 123}));

TEST_F(SlideDispatch, WithoutASupportedProgramOnlyTheContextAndTheReasonAreLogged) {
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

TEST_F(SlideDispatch, WhatIsAbsentIsWrittenAsNilOrADash) {
    stage.desktop.host.bundleId = std::nullopt;
    stage.desktop.bringNothingToFront();
    stepAfresh("next");
    EXPECT_THAT(stage.lines(),
                ElementsAre("native_bridge_received direction=next seq=- source=test",
                            "exec_context ax=true front=nil self=nil title=-",
                            "blocked_no_target no_supported_presentation_window front=nil"));
}

TEST_F(SlideDispatch, WithNothingInFrontATargetCountsAsBackground) {
    stage.desktop.addProgram(keynote(40).window("deck.key"));
    stage.desktop.bringNothingToFront();
    stepAfresh("next");
    EXPECT_THAT(stage.lines("completed"), ElementsAre("completed path=detected_profiled_background "
                                                      "bundle=com.apple.iWork.Keynote"));
}

TEST_F(SlideDispatch, AFrontProgramWithoutAnIdentityIsWrittenAsNil) {
    stage.desktop.addProgram(simulated::program().pid(8).window("terminal"));
    stage.desktop.bringToFront(8);
    stepAfresh("next");
    EXPECT_THAT(stage.lines("exec_context"),
                ElementsAre("exec_context ax=true front=nil self=org.stagehopper.Stagehopper "
                            "title=terminal"));
}

TEST_F(SlideDispatch, AKeyThatCannotBeMadeIsLoggedAndTheTargetStillRemembered) {
    stage.desktop.addProgram(keynote(40).window("deck.key"));
    stage.desktop.addProgram(powerPoint(50).window("deck.pptx"));
    stage.desktop.bringToFront(40);
    stage.desktop.keyboard.canMakeEvents = false;
    stepAfresh("next");
    EXPECT_THAT(stage.lines("key_"), ElementsAre("key_dispatch_failed strategy=keynote_arrows"));
    EXPECT_THAT(stage.lines("completed"), ElementsAre("completed path=detected_profiled_front "
                                                      "bundle=com.apple.iWork.Keynote"));
    EXPECT_THAT(stage.desktop.program(40).keys(), IsEmpty());

    stage.desktop.keyboard.canMakeEvents = true;
    stage.desktop.bringToFront(50);
    stage.step("next");
    EXPECT_THAT(stage.desktop.program(40).keysDown(), ElementsAre(124));
}

TEST_F(SlideDispatch, AProgramThatCannotTakeAKeyIsReportedAndNobodyGetsTheKey) {
    stage.desktop.addProgram(
        keynote(40).window("deck.key").refusesKeys("its window is not on the screen"));
    stage.desktop.addProgram(safari(31).window("News"));
    stage.desktop.bringToFront(31);
    stage.step("next");  // Safari is in front, so it becomes the target
    stage.desktop.quitProgram(31);
    stepAfresh("next");
    EXPECT_THAT(stage.lines("key_undelivered"),
                ElementsAre("key_undelivered strategy=keynote_arrows pid=40 reason=its window is "
                            "not on the screen"));
    EXPECT_THAT(stage.desktop.program(40).keys(), IsEmpty());
}

TEST_F(SlideDispatch, AKeyThatIsRefusedWithoutWordsIsReportedAsUndelivered) {
    stage.desktop.addProgram(keynote(40).window("deck.key").refusesKeys(""));
    stage.step("next");
    EXPECT_THAT(
        stage.lines("key_undelivered"),
        ElementsAre("key_undelivered strategy=keynote_arrows pid=40 reason=unknown reason"));
    EXPECT_THAT(stage.desktop.program(40).keys(), IsEmpty());
}

TEST_F(SlideDispatch, AnUnprofiledTargetGetsArrowsWhereTheFocusIs) {
    stage.desktop.addProgram(simulated::program("org.example.Unknown").pid(9).window("deck"));
    stage.desktop.addProgram(safari(31).window("News"));
    stage.desktop.bringToFront(31);
    const auto front = stage.desktop.workspace.frontmostApplication();
    stage.forget();
    stage.app->sendSlideStep({{9, "org.example.Unknown"}, "org.example.Unknown", {"deck"}}, front,
                             SlideDirection::previous);
    EXPECT_THAT(stage.lines(),
                ElementsAre("target_resolved detected_generic bundle=org.example.Unknown "
                            "strategy=generic_arrows_fallback pid=nil title=deck",
                            "menu_path_skipped bundle=org.example.Unknown "
                            "reason=background_target",
                            "key_sent_fallback strategy=generic_arrows_fallback "
                            "keycodes_next/prev=124/123 sent=123 dir=prev dispatch=hid",
                            "completed path=detected_generic bundle=org.example.Unknown"));
    EXPECT_THAT(stage.desktop.program(31).keysDown(), ElementsAre(123));
    EXPECT_THAT(stage.desktop.program(9).keys(), IsEmpty());
}

TEST_F(SlideDispatch, AnUnprofiledTargetInFrontHasNoMenuTitlesAndGetsArrows) {
    stage.desktop.addProgram(simulated::program("org.example.Unknown")
                                 .pid(9)
                                 .window("deck")
                                 .menu("Slide", {item("Next Slide")}));
    stage.desktop.bringToFront(9);
    stage.forget();
    stage.app->sendSlideStep({{9, "org.example.Unknown"}, "org.example.Unknown", {"deck"}},
                             stage.desktop.workspace.frontmostApplication(), SlideDirection::next);
    EXPECT_THAT(stage.lines(),
                ElementsAre("target_resolved detected_generic bundle=org.example.Unknown "
                            "strategy=generic_arrows_fallback pid=nil title=deck",
                            "key_sent_fallback strategy=generic_arrows_fallback "
                            "keycodes_next/prev=124/123 sent=124 dir=next dispatch=hid",
                            "completed path=detected_generic bundle=org.example.Unknown"));
    EXPECT_THAT(stage.desktop.program(9).keysDown(), ElementsAre(124));
    EXPECT_THAT(stage.desktop.program(9).pressed(), IsEmpty());
}

TEST_F(SlideDispatch, ATargetWithoutATitleIsLoggedWithADash) {
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
