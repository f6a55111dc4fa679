// Steps of the slides: the questions to the other program, and the keys and presses that it gets.

#include <gmock/gmock.h>

#include "tests/macos/MacStage.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/scenario/Programs.h"

namespace stagehopper {

namespace {

using recording::expectInOrder;
using simulated::item;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class MacSlides : public MacStage {
protected:
    MacSlides() {
        world.servers.serve(3000);
        launch();
    }

    void step(const std::string& direction) { pagePosts("PPT:" + direction); }
    auto& program(platform::Pid pid) { return *world.programs.find(pid); }
    void startPowerPoint() {
        world.programs.start(powerPoint(812)
                                 .window("Talk.pptx")
                                 .menu("Slide Show", {item("Next Slide"), item("Previous Slide")}));
    }
};

TEST_F(MacSlides, TheProgramInFrontIsSteppedByItsMenu) {
    startPowerPoint();
    world.programs.front = 812;
    forget();
    step("next");
    step("prev");
    EXPECT_THAT(program(812).pressed(), ElementsAre("Next Slide", "Previous Slide"));
    EXPECT_THAT(lines("AXUIElementPerformAction"),
                ElementsAre("AXUIElementPerformAction(812, AXPress)",
                            "AXUIElementPerformAction(812, AXPress)"));
    EXPECT_THAT(lines("CGEvent"), IsEmpty());
    EXPECT_EQ(queueOf("AXUIElementPerformAction"), "main");
}

TEST_F(MacSlides, AProgramInTheBackgroundGetsAKeyForFiftyMilliseconds) {
    startPowerPoint();
    forget();
    step("next");
    expectInOrder({"CGEventPostToPid(812, key 121 down)", "usleep(50000)",
                   "CGEventPostToPid(812, key 121 up)"});
    EXPECT_THAT(lines("CGEvent"), SizeIs(2)) << "nothing goes to the focus";
    EXPECT_THAT(timeOf("key 121 up") - timeOf("key 121 down"), DoubleNear(0.05, 1e-9));
    ASSERT_THAT(program(812).keys(), SizeIs(2));
    EXPECT_THAT(program(812).pressed(), IsEmpty());
}

TEST_F(MacSlides, AKeyThatCannotBeMadeIsReportedAndNothingIsPosted) {
    startPowerPoint();
    world.keyboard.works = false;
    forget();
    step("next");
    EXPECT_THAT(diagnostics("key_"),
                ElementsAre("key_dispatch_failed strategy=powerpoint_page_keys"));
    EXPECT_THAT(lines("CGEventPost"), IsEmpty());
    EXPECT_THAT(lines("usleep"), IsEmpty());
}

TEST_F(MacSlides, ANonTextTitleCountsAsAbsent) {
    startPowerPoint();
    world.accessibility.instead["AXTitle"] = recording::makeNumber(7);
    step("next");
    EXPECT_THAT(diagnostics("blocked_no_target"), SizeIs(1));
    world.accessibility.instead["AXTitle"] = recording::makeTruth(true);
    step("next");
    EXPECT_THAT(diagnostics("blocked_no_target"), SizeIs(2));
    world.accessibility.instead.clear();
    world.accessibility.instead["AXWindows"] = recording::makeString("two");
    step("next");
    EXPECT_THAT(diagnostics("blocked_no_target"), SizeIs(3)) << "a list that is none";
}

TEST_F(MacSlides, ANonElementMenuBarIsSkipped) {
    startPowerPoint();
    world.programs.front = 812;
    world.accessibility.instead["AXMenuBar"] = recording::makeNumber(7);
    step("next");
    EXPECT_THAT(diagnostics("menu_path_unavailable"), SizeIs(1));
    EXPECT_THAT(program(812).keysDown(), ElementsAre(121));
}

TEST_F(MacSlides, ADisabledItemIsNotPressed) {
    world.programs.start(
        powerPoint(812).window("Talk.pptx").menu("Slide Show", {item("Next Slide").disabled()}));
    world.programs.front = 812;
    step("next");
    EXPECT_THAT(program(812).pressed(), IsEmpty());
}

TEST_F(MacSlides, AnEntryBehindTheMenuAttributeIsFound) {
    world.programs.start(
        powerPoint(812)
            .window("Talk.pptx")
            .menu("Slide Show", {simulated::oddEntry(),
                                 item("Navigation").withMenuAttribute({item("Next Slide")})}));
    world.programs.front = 812;
    step("next");
    EXPECT_THAT(program(812).pressed(), ElementsAre("Next Slide"));
}

TEST_F(MacSlides, TheNumberOfAFailedPressIsInTheLog) {
    world.programs.start(
        powerPoint(812)
            .window("Talk.pptx")
            .menu("Slide Show",
                  {item("Next Slide").pressResult(platform::AccessibilityError::cannotComplete)}));
    world.programs.front = 812;
    step("next");
    EXPECT_THAT(diagnostics("menu_path_press_failed"), ElementsAre(HasSubstr("err=-25204")));
    EXPECT_THAT(program(812).keysDown(), ElementsAre(121));
}

/// Seconds that the program works on what the press asks for: below the limit of a read, above it,
/// and above that of a press.
class MacSlidesOfASlowProgram : public MacSlides, public testing::WithParamInterface<double> {};

TEST_P(MacSlidesOfASlowProgram, APressIsOneStepWhateverItsDuration) {
    startPowerPoint();
    world.programs.front = 812;
    world.accessibility.pressTakes["Next Slide"] = GetParam();
    step("next");
    EXPECT_THAT(program(812).pressed(), ElementsAre("Next Slide"));
    EXPECT_THAT(program(812).keys(), IsEmpty());
    EXPECT_THAT(diagnostics("menu_path_sent"), SizeIs(1));
    EXPECT_THAT(diagnostics("completed"), ElementsAre(HasSubstr("path=menu")));
}

INSTANTIATE_TEST_SUITE_P(Seconds, MacSlidesOfASlowProgram, testing::Values(0.3, 0.7, 3, 10));

TEST_F(MacSlides, AQuestionAfterASlowPressStillGetsOneSecond) {
    startPowerPoint();
    world.programs.front = 812;
    step("next");
    world.accessibility.hanging.insert(812);
    const auto before = recording::queues::now();
    forget();
    step("next");
    EXPECT_THAT(diagnostics("blocked_no_target"), SizeIs(1));
    // The title of the window in front, and the list of windows.
    EXPECT_THAT(recording::queues::now() - before, DoubleNear(2.0, 1e-6));
}

TEST_F(MacSlides, ModifiersHeldByTheUserAreNotSentWithAStep) {
    constexpr unsigned long long shift = 0x20000;
    constexpr unsigned long long command = 0x100000;
    constexpr unsigned long long ofAnArrow = 0xA00000;
    world.programs.start(keynote(814).window("Talk"));
    world.keyboard.held = shift | command;
    step("next");
    EXPECT_THAT(program(814).keysDown(), ElementsAre(124));
    EXPECT_THAT(world.keyboard.postedFlags, ElementsAre(ofAnArrow, ofAnArrow));
}

TEST_F(MacSlides, TheTitleOfTheFocusedWindowIsInTheLog) {
    world.programs.start(powerPoint(812).window("Talk.pptx").window("Notes.pptx").focusedWindow(0));
    world.programs.front = 812;
    step("next");
    EXPECT_THAT(diagnostics("exec_context"),
                ElementsAre("exec_context ax=true front=com.microsoft.Powerpoint "
                            "self=org.stagehopper.Stagehopper title=Talk.pptx"));
}

}  // namespace

}  // namespace stagehopper
