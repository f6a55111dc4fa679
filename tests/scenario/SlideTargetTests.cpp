// The choice of the running program to step.

#include <gmock/gmock.h>

#include "tests/scenario/LaunchedStage.h"
#include "tests/scenario/Programs.h"

namespace stagehopper {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class SlideTarget : public LaunchedStage {
protected:
    /// Steps once. Returns the product that was stepped, or "none".
    std::string stepped() {
        stepAfresh("next");
        if (stage.lines("completed").empty()) return "none";
        const auto line = stage.lines("completed").front();
        return line.substr(line.find("bundle=") + 7);
    }
    /// Steps once. Returns the process that was chosen.
    platform::Pid steppedPid() {
        stepAfresh("next");
        if (stage.lines("target_resolved").empty()) return 0;
        const auto line = stage.lines("target_resolved").front();
        return std::stoi(line.substr(line.find("pid=") + 4));
    }
};

TEST_F(SlideTarget, ThisProgramIsNeverItsOwnTarget) {
    stage.desktop.host.bundleId = "com.google.Chrome";
    stage.desktop.addProgram(chrome(30).window("Stagehopper"));
    EXPECT_EQ(stepped(), "none");
}

TEST_F(SlideTarget, AProgramWithoutAnIdentityIsNeverATarget) {
    stage.desktop.addProgram(simulated::program().pid(12).window("deck.pptx"));
    EXPECT_EQ(stepped(), "none");
}

TEST_F(SlideTarget, AnUnknownProgramIsNeverATarget) {
    stage.desktop.addProgram(
        simulated::program("com.microsoft.PowerPoint").pid(12).window("deck.pptx"));
    EXPECT_EQ(stepped(), "none") << "identities are case-sensitive";
}

TEST_F(SlideTarget, AProgramWithBlankOrUnreadableTitlesIsNeverATarget) {
    stage.desktop.addProgram(powerPoint(50).window("").window(" \n\t").untitledWindow());
    EXPECT_EQ(stepped(), "none");
}

TEST_F(SlideTarget, TheLoggedTitleIsTheFirstNonBlankOneTrimmed) {
    stage.desktop.addProgram(powerPoint(50).window(" ").window("  deck.pptx\n").window("other"));
    stage.step("next");
    EXPECT_THAT(stage.lines("target_resolved").front(), HasSubstr("title=deck.pptx"));
}

TEST_F(SlideTarget, PreviewWithATextIsNotATarget) {
    stage.desktop.addProgram(preview(60).window("notes.txt"));
    EXPECT_EQ(stepped(), "none");
}

TEST_F(SlideTarget, PreviewWithAPdfIsATargetInAnyCaseAndWithBlanks) {
    stage.desktop.addProgram(preview(60).window("notes.txt").window("Deck.PDF "));
    EXPECT_EQ(stepped(), "com.apple.Preview");
}

TEST_F(SlideTarget, WpsIsATargetWithAnyTitle) {
    stage.desktop.addProgram(wps(61).window("letter.docx"));
    EXPECT_EQ(stepped(), "com.kingsoft.wpsoffice.mac");
}

TEST_F(SlideTarget, ThePreviousTargetStaysTheTargetWhenAnotherComesToTheFront) {
    stage.desktop.addProgram(powerPoint(50).window("deck.pptx"));
    stage.desktop.addProgram(keynote(40).window("deck.key"));
    stage.desktop.bringToFront(50);
    ASSERT_EQ(stepped(), "com.microsoft.Powerpoint");
    stage.desktop.bringToFront(40);
    EXPECT_EQ(stepped(), "com.microsoft.Powerpoint");
}

TEST_F(SlideTarget, ARestartedPreviousTargetIsFoundByItsProduct) {
    stage.desktop.addProgram(powerPoint(50).window("deck.pptx"));
    stage.desktop.addProgram(keynote(40).window("deck.key"));
    stage.desktop.bringToFront(50);
    ASSERT_EQ(steppedPid(), 50);
    stage.desktop.quitProgram(50);
    stage.desktop.addProgram(powerPoint(51).window("deck.pptx"));
    stage.desktop.bringToFront(40);
    EXPECT_EQ(steppedPid(), 51);
}

TEST_F(SlideTarget, APreviousTargetWithoutTitledWindowsIsNoLongerTheTarget) {
    stage.desktop.addProgram(powerPoint(50).window("deck.pptx"));
    stage.desktop.addProgram(keynote(40).window("deck.key"));
    ASSERT_EQ(stepped(), "com.microsoft.Powerpoint");
    stage.desktop.program(50).closeWindows();
    EXPECT_EQ(stepped(), "com.apple.iWork.Keynote");
}

TEST_F(SlideTarget, AProgramWithUnreadableWindowsIsSkipped) {
    stage.desktop.addProgram(powerPoint(50).window("deck.pptx").unreadable());
    stage.desktop.addProgram(keynote(40).window("deck.key"));
    EXPECT_EQ(stepped(), "com.apple.iWork.Keynote");
}

TEST_F(SlideTarget, WithoutATargetThePreviousOneIsStillRemembered) {
    stage.desktop.addProgram(powerPoint(50).window("deck.pptx"));
    ASSERT_EQ(steppedPid(), 50);
    stage.desktop.quitProgram(50);
    ASSERT_EQ(stepped(), "none");
    stage.desktop.addProgram(keynote(40).window("deck.key"));
    stage.desktop.addProgram(powerPoint(52).window("deck.pptx"));
    stage.desktop.bringToFront(40);
    EXPECT_EQ(steppedPid(), 52);
}

TEST_F(SlideTarget, ARowOfThePortIsATargetLikeTheOthers) {
    Stage withRow({{"org.example.Slides", 2, "example_keys", 121, 116, std::nullopt}});
    withRow.desktop.addProgram(simulated::program("org.example.Slides").pid(9).window("deck"));
    withRow.launch();
    withRow.step("next");
    EXPECT_THAT(withRow.lines("key_sent"),
                testing::ElementsAre("key_sent strategy=example_keys keycodes_next/prev=121/116 "
                                     "sent=121 dir=next dispatch=pid"));
}

}  // namespace
}  // namespace stagehopper
