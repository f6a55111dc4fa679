// The key that a step sends, and the program that receives it.

#include <gmock/gmock.h>

#include "presentation/SlideDirection.h"
#include "presentation/SlideTargetChoice.h"
#include "tests/scenario/LaunchedStage.h"
#include "tests/scenario/Programs.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using simulated::item;
using testing::ElementsAre;
using testing::IsEmpty;

using SlideKeyDelivery = LaunchedStage;

TEST_F(SlideKeyDelivery, AKeyIsHeldForFiftyMilliseconds) {
    stage.desktop.addProgram(keynote(40).window("deck.key"));
    stepAfresh("next");
    const auto keys = stage.desktop.program(40).keys();
    ASSERT_EQ(keys.size(), 2U);
    EXPECT_TRUE(keys[0].down);
    EXPECT_FALSE(keys[1].down);
    EXPECT_EQ(keys[0].key, keys[1].key);
    EXPECT_EQ(keys[1].at - keys[0].at, 50ms);
}

TEST_F(SlideKeyDelivery, KeynoteInFrontWithoutTheItemGetsTheRightArrow) {
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

TEST_F(SlideKeyDelivery, AKeyThatCannotBeMadeIsLoggedAndTheTargetStillRemembered) {
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

TEST_F(SlideKeyDelivery, AProgramThatRefusesAKeyIsReportedAndNoProgramGetsTheKey) {
    stage.desktop.addProgram(
        keynote(40).window("deck.key").refusesKeys("its window is not on the screen"));
    stage.desktop.addProgram(safari(31).window("News"));
    stage.desktop.bringToFront(31);
    stage.step("next");  // Safari is in front and becomes the target
    stage.desktop.quitProgram(31);
    stepAfresh("next");
    EXPECT_THAT(stage.lines("key_undelivered"),
                ElementsAre("key_undelivered strategy=keynote_arrows pid=40 reason=its window is "
                            "not on the screen"));
    EXPECT_THAT(stage.desktop.program(40).keys(), IsEmpty());
}

TEST_F(SlideKeyDelivery, AKeyThatIsRefusedWithoutAReasonIsReportedAsUndelivered) {
    stage.desktop.addProgram(keynote(40).window("deck.key").refusesKeys(""));
    stage.step("next");
    EXPECT_THAT(
        stage.lines("key_undelivered"),
        ElementsAre("key_undelivered strategy=keynote_arrows pid=40 reason=unknown reason"));
    EXPECT_THAT(stage.desktop.program(40).keys(), IsEmpty());
}

TEST_F(SlideKeyDelivery, AnUnprofiledTargetIsSteppedByArrowsToTheFocus) {
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

TEST_F(SlideKeyDelivery, AnUnprofiledTargetInFrontHasNoMenuTitlesAndGetsArrows) {
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

}  // namespace
}  // namespace stagehopper
