#include <gmock/gmock.h>

#include "resources/AccessibilityHintScript.h"
#include "tests/scenario/Stage.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class AccessibilityPermission : public testing::Test {
protected:
    AccessibilityPermission() {
        stage.desktop.accessibility.trusted = false;
        stage.launch();
    }
    void userSwitchesSlideControlOn() { stage.pagePosts("CMD:enableSlideControl"); }

    Stage stage;
};

TEST_F(AccessibilityPermission, IsLoggedThenThePanelComesForwardAndThenTheSystemAsks) {
    const auto mark = stage.desktop.journal.mark();
    userSwitchesSlideControlOn();
    EXPECT_THAT(
        stage.desktop.journal.effectsSince(mark),
        ElementsAre("log: [slide_nav] accessibility_prompt_on_toggle_on user_initiated=true",
                    "log: [slide_nav] accessibility_prompt_requested bringing_panel_forward=true",
                    "window \"Stagehopper\" shown", "application activated",
                    "accessibility prompt shown",
                    "log: [slide_nav] user_hint_shown accessibility_and_restart_hint",
                    "script evaluated: " + std::string(accessibilityHintScript)));
}

TEST_F(AccessibilityPermission, ARequestInTheMiddleOfARequestRaisesNoSecondPrompt) {
    // Coming to the front runs nested system loops, in which the page may ask again.
    bool nested = false;
    stage.desktop.journal.observer = [&](const std::string& effect) {
        if (nested || effect.find("accessibility_prompt_requested") == std::string::npos) return;
        nested = true;
        stage.app->requestAccessibilityIfNeeded();
    };
    stage.app->requestAccessibilityIfNeeded();
    EXPECT_TRUE(nested);
    EXPECT_EQ(stage.desktop.accessibility.prompts, 1);
    EXPECT_EQ(stage.lines("accessibility_prompt_requested").size(), 1U);
}

TEST_F(AccessibilityPermission, ThePromptIsRaisedOncePerRun) {
    userSwitchesSlideControlOn();
    stage.desktop.advance(1h);
    stage.forget();
    userSwitchesSlideControlOn();
    EXPECT_EQ(stage.desktop.accessibility.prompts, 1);
    EXPECT_THAT(stage.lines(), ElementsAre("accessibility_prompt_on_toggle_on user_initiated=true",
                                           "user_hint_shown accessibility_and_restart_hint"));
}

TEST_F(AccessibilityPermission, WithTrustNoPromptIsRaised) {
    stage.desktop.accessibility.trusted = true;
    userSwitchesSlideControlOn();
    EXPECT_THAT(stage.lines(), ElementsAre("accessibility_prompt_on_toggle_on user_initiated=true",
                                           "accessibility_check already_authorized=true"));
    EXPECT_EQ(stage.desktop.accessibility.prompts, 0);
    EXPECT_THAT(stage.desktop.panelPage().evaluatedScripts(), IsEmpty());
}

TEST_F(AccessibilityPermission, RequestingItWithTrustHasNoEffectAndNoLine) {
    stage.desktop.accessibility.trusted = true;
    stage.app->requestAccessibilityIfNeeded();
    EXPECT_THAT(stage.lines(), IsEmpty());
    EXPECT_EQ(stage.desktop.accessibility.prompts, 0);
}

TEST_F(AccessibilityPermission, TheHintIsShownAtMostOnceInFourSeconds) {
    const auto start = stage.desktop.clock.now();
    stage.app->showSlideAccessibilityHintThrottled();
    stage.desktop.advanceTo(start + 3900ms);
    stage.app->showSlideAccessibilityHintThrottled();
    stage.desktop.advanceTo(start + 4100ms);
    stage.app->showSlideAccessibilityHintThrottled();
    EXPECT_THAT(stage.lines(), ElementsAre("user_hint_shown accessibility_and_restart_hint",
                                           "blocked_no_accessibility hint_throttled interval_s=4.0",
                                           "user_hint_shown accessibility_and_restart_hint"));
    EXPECT_EQ(stage.desktop.panelPage().evaluatedScripts().size(), 2U);
}

TEST(AccessibilityHint, WithoutAPanelCountsAsShown) {
    Stage stage;
    stage.app->showSlideAccessibilityHintThrottled();
    stage.app->showSlideAccessibilityHintThrottled();
    EXPECT_THAT(stage.lines(),
                ElementsAre("user_hint_shown accessibility_and_restart_hint",
                            "blocked_no_accessibility hint_throttled interval_s=4.0"));
}

TEST(AccessibilityPrompt, WithoutAPanelIsStillRaised) {
    Stage stage;
    stage.desktop.accessibility.trusted = false;
    stage.app->requestAccessibilityIfNeeded();
    EXPECT_EQ(stage.desktop.accessibility.prompts, 1);
}

TEST_F(AccessibilityPermission, TheSettingsPageIsOpenedOnRequest) {
    const auto mark = stage.desktop.journal.mark();
    stage.pagePosts("CMD:openAccessibilitySettings");
    EXPECT_THAT(stage.desktop.journal.effectsSince(mark),
                ElementsAre("log: [slide_nav] open_accessibility_settings user_initiated=true",
                            "url opened: x-apple.systempreferences:"
                            "com.apple.preference.security?Privacy_Accessibility"));
}

TEST_F(AccessibilityPermission, ASettingsPageThatCannotBeOpenedIsNotReported) {
    stage.desktop.workspace.canOpen = false;
    stage.pagePosts("CMD:openAccessibilitySettings");
    EXPECT_THAT(stage.lines(), ElementsAre("open_accessibility_settings user_initiated=true"));
}

}  // namespace
}  // namespace stagehopper
