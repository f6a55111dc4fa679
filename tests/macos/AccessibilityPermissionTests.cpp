// The permission to look into other programs: asked for once, and only when the user acts.

#include <gmock/gmock.h>

#include "resources/AccessibilityHintScript.h"
#include "tests/macos/MacStage.h"

namespace stagehopper {

namespace {

using recording::expectInOrder;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class MacPermission : public MacStage {
protected:
    MacPermission() {
        world.accessibility.trusted = false;
        world.servers.serve(3000);
        launch();
        forget();
    }
    void userSwitchesSlideControlOn() { pagePosts("CMD:enableSlideControl"); }
};

TEST_F(MacPermission, ThePromptComesWithThePanelInFront) {
    userSwitchesSlideControlOn();
    expectInOrder({"[<NSWindow 1> makeKeyAndOrderFront:nil]", "[<NSApplication 1> activate]",
                   "AXIsProcessTrustedWithOptions({\"kAXTrustedCheckOptionPrompt\": @YES})"});
    EXPECT_EQ(world.accessibility.prompts, 1);
    EXPECT_EQ(queueOf("AXIsProcessTrustedWithOptions"), "main");
}

TEST_F(MacPermission, ThePromptIsRaisedOncePerRun) {
    userSwitchesSlideControlOn();
    advance(60);
    userSwitchesSlideControlOn();
    EXPECT_THAT(lines("AXIsProcessTrustedWithOptions"), SizeIs(1));
}

TEST_F(MacPermission, ThePanelShowsTheHintWithoutWaiting) {
    userSwitchesSlideControlOn();
    EXPECT_THAT(panelPage().evaluated, ElementsAre(std::string(accessibilityHintScript)));
    EXPECT_THAT(lines("evaluateJavaScript:"),
                ElementsAre(testing::AllOf(testing::StartsWith("[<WKWebView 1> "),
                                           testing::EndsWith(" completionHandler:nil]"))));
}

TEST_F(MacPermission, TheHintIsShownAtMostOnceInFourSeconds) {
    userSwitchesSlideControlOn();
    advance(3.9);
    userSwitchesSlideControlOn();
    EXPECT_THAT(panelPage().evaluated, SizeIs(1));
    EXPECT_THAT(diagnostics("blocked_no_accessibility"), SizeIs(1));
    advance(0.2);
    userSwitchesSlideControlOn();
    EXPECT_THAT(panelPage().evaluated, SizeIs(2));
}

TEST_F(MacPermission, WithTrustNothingIsAsked) {
    world.accessibility.trusted = true;
    userSwitchesSlideControlOn();
    EXPECT_THAT(lines("AXIsProcessTrustedWithOptions"), IsEmpty());
    EXPECT_THAT(panelPage().evaluated, IsEmpty());
    EXPECT_THAT(diagnostics("accessibility_check"), SizeIs(1));
}

TEST_F(MacPermission, TheSettingsAreOpenedByTheirAddress) {
    pagePosts("CMD:openAccessibilitySettings");
    EXPECT_THAT(lines("openURL:"),
                ElementsAre("[<NSWorkspace 1> openURL:<x-apple.systempreferences:"
                            "com.apple.preference.security?Privacy_Accessibility>]"));
    EXPECT_THAT(world.programs.opened,
                ElementsAre("x-apple.systempreferences:com.apple.preference.security?"
                            "Privacy_Accessibility"));
}

}  // namespace

}  // namespace stagehopper
