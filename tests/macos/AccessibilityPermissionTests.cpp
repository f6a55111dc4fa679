// The permission to look into other programs: asked for once, and only when the user acts.

#include <gmock/gmock.h>

#include "resources/AccessibilityHintScript.h"
#include "tests/macos/MacStage.h"

namespace stagehopper {

namespace {

using recording::expectInOrder;
using testing::ElementsAre;

class MacPermission : public MacStage {
protected:
    MacPermission() {
        world.accessibility.trusted = false;
        world.servers.serve(3000);
        launch();
        forget();
    }
};

TEST_F(MacPermission, ThePromptComesWithThePanelInFront) {
    pagePosts("CMD:enableSlideControl");
    expectInOrder({"[<NSWindow 1> makeKeyAndOrderFront:nil]", "[<NSApplication 1> activate]",
                   "AXIsProcessTrustedWithOptions({\"kAXTrustedCheckOptionPrompt\": @YES})"});
    EXPECT_EQ(queueOf("AXIsProcessTrustedWithOptions"), "main");
    // The hint in the page is not awaited.
    EXPECT_THAT(panelPage().evaluated, ElementsAre(std::string(accessibilityHintScript)));
    EXPECT_THAT(lines("evaluateJavaScript:"),
                ElementsAre(testing::EndsWith(" completionHandler:nil]")));
}

TEST_F(MacPermission, TheSettingsAreOpenedByTheirAddress) {
    pagePosts("CMD:openAccessibilitySettings");
    EXPECT_THAT(lines("openURL:"),
                ElementsAre("[<NSWorkspace 1> openURL:<x-apple.systempreferences:"
                            "com.apple.preference.security?Privacy_Accessibility>]"));
}

}  // namespace

}  // namespace stagehopper
