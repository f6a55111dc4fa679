// Without accessibility, and with a target that cannot take a key: nothing is sent, and the log
// says why.

#include <gtest/gtest.h>

#include "tests/desktop/RemotePanel.h"
#include "tests/drivers/presentations/Presentation.h"

namespace stagehopper::desktop {
namespace {

DesktopOptions withoutAccessibility() {
    DesktopOptions options;
    options.accessibility = false;
    return options;
}

TEST(Permission, WithoutAccessibilityAStepIsNotSentAndTheLogGivesTheReason) {
    const VirtualDesktop desktop(withoutAccessibility());
    const auto evince = openInEvince(desktop);
    RemotePanel panel(desktop);
    const auto mark = panel->mark();
    panel.next();
    EXPECT_TRUE(panel->logs(
        "blocked_no_accessibility AXIsProcessTrusted=false (waiting for user to quit/relaunch)",
        mark));
    EXPECT_EQ(panel.value("'still there'"), "still there");
    EXPECT_EQ(panel->program().output().count("key_sent", mark), 0U) << panel->output();
    EXPECT_EQ(evince->currentSlide(), 1);
}

TEST(Permission, WithoutAccessibilityTheUserIsAskedOnceAndThePageIsNotified) {
    const VirtualDesktop desktop(withoutAccessibility());
    RemotePanel panel(desktop);
    panel.run("window._showAccessibilityHint = () => electronAPI.sendDebugLog('hint shown')");
    const auto mark = panel->mark();
    panel.run("electronAPI.enableSlideControl(); electronAPI.enableSlideControl()");
    EXPECT_TRUE(panel->logs("panel_debug hint shown", mark)) << panel->output();
    EXPECT_TRUE(panel->logs("hint_throttled interval_s=4.0", mark)) << panel->output();
    const auto& output = panel->program().output();
    EXPECT_EQ(output.count("accessibility_prompt_requested bringing_panel_forward=true", mark), 1U);
    EXPECT_EQ(output.count("user_hint_shown accessibility_and_restart_hint", mark), 1U);
    EXPECT_EQ(output.count("panel_debug hint shown", mark), 1U);
    // The system's question is a second window of the program.
    EXPECT_TRUE(
        waitFor([&] { return desktop.windows().ofProcess(panel->program().pid()).size() == 2; },
                std::chrono::seconds(10)));
}

TEST(Permission, WithAccessibilityNothingIsAsked) {
    const VirtualDesktop desktop;
    RemotePanel panel(desktop);
    const auto mark = panel->mark();
    panel.run("electronAPI.enableSlideControl()");
    ASSERT_TRUE(panel->logs("accessibility_check", mark));
    EXPECT_EQ(panel->diagnosticsSince(mark),
              (std::vector<std::string>{"accessibility_prompt_on_toggle_on user_initiated=true",
                                        "accessibility_check already_authorized=true"}));
    EXPECT_EQ(desktop.windows().ofProcess(panel->program().pid()).size(), 1U);
}

TEST(Delivery, ToAProgramWhoseOnlyWindowIsHiddenFindsNoTarget) {
    const VirtualDesktop desktop;
    const auto evince = openInEvince(desktop);
    const auto typing = desktop.start({programFolder() / "stagehopper_typing_window"});
    RemotePanel panel(desktop);
    auto mark = panel->mark();
    panel.next();
    ASSERT_TRUE(evince->waitForSlide(2)) << panel->output();
    ASSERT_TRUE(panel->logs("completed ", mark));

    const auto hidden = evince->window();
    desktop.windows().activate(
        desktop.windows().waitForTitle("Typing window", std::chrono::seconds(10)));
    desktop.display().accepts([&] {
        XWithdrawWindow(desktop.display().get(), hidden, DefaultScreen(desktop.display().get()));
    });
    ASSERT_TRUE(waitFor([&] { return desktop.windows().ofProcess(evince->process()).empty(); },
                        std::chrono::seconds(5)));
    mark = panel->mark();
    panel.next();
    EXPECT_TRUE(panel->logs("blocked_no_target", mark)) << panel->output();
    EXPECT_EQ(panel->program().output().count("key_sent", mark), 0U);
    EXPECT_EQ(panel.value("'still there'"), "still there");
    EXPECT_EQ(typing->output().count("key "), 0U);
}

TEST(Delivery, OnAnXServerThatTakesNoKeysFromProgramsIsReportedAsImpossible) {
    DesktopOptions options;
    options.xServerArguments = {"-extension", "XTEST"};
    const VirtualDesktop desktop(options);
    const auto evince = openInEvince(desktop);
    RemotePanel panel(desktop);
    const auto mark = panel->mark();
    panel.next();
    EXPECT_TRUE(panel->logs(
        "key_undelivered strategy=evince_arrows pid=" + std::to_string(evince->process()), mark))
        << panel->output();
    EXPECT_TRUE(panel->logs("completed ", mark));
    EXPECT_EQ(panel.value("'still there'"), "still there");
    EXPECT_EQ(evince->currentSlide(), 1);
}

}  // namespace
}  // namespace stagehopper::desktop
