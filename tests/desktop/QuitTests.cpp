// Every way to end the program ends it well, whatever it is doing, and leaves nothing behind.

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>

#include "tests/desktop/RemotePanel.h"
#include "tests/drivers/desktop/FileWriting.h"
#include "tests/drivers/desktop/Processes.h"
#include "tests/drivers/presentations/Presentation.h"

namespace stagehopper::desktop {
namespace {

constexpr std::chrono::seconds endLimit{10};

class Quitting : public testing::Test {
protected:
    void expectAGoodEnd(RemotePanel& panel) {
        const auto group = panel->program().pid();
        const auto status = panel->program().waitForExit(endLimit);
        ASSERT_TRUE(status) << "it still runs";
        EXPECT_EQ(*status, 0) << panel->output();
        EXPECT_TRUE(waitFor([group] { return !isGroupAlive(group); }, endLimit))
            << "a process of it stayed behind";
    }

    VirtualDesktop desktop_;
};

TEST_F(Quitting, ByControlQ) {
    RemotePanel panel(desktop_);
    desktop_.windows().activate(panel->panel());
    desktop_.user().strike({XK_Control_L, XK_q});
    expectAGoodEnd(panel);
}

TEST_F(Quitting, ByClosingThePanel) {
    RemotePanel panel(desktop_);
    desktop_.windows().requestClose(panel->panel());
    expectAGoodEnd(panel);
}

TEST_F(Quitting, ByATerminationSignal) {
    RemotePanel panel(desktop_);
    panel->program().signal(SIGTERM);
    expectAGoodEnd(panel);
}

TEST_F(Quitting, WhileThePagePostsWithoutEnd) {
    RemotePanel panel(desktop_);
    const auto mark = panel->mark();
    panel.run("setInterval(() => { for (let i = 0; i < 50; ++i) post('DBG:' + i) }, 1)");
    ASSERT_TRUE(panel->logs("panel_debug 49", mark));
    desktop_.windows().requestClose(panel->panel());
    expectAGoodEnd(panel);
}

TEST_F(Quitting, WhileStepsAreQueued) {
    const auto presentation = openInEvince(desktop_);
    RemotePanel panel(desktop_);
    const auto mark = panel->mark();
    // Each step holds its key for 50 ms: these are far more than can be done before the end.
    panel.run("for (let i = 0; i < 200; ++i) electronAPI.sendPptSlide('next', i, 'test')");
    ASSERT_TRUE(panel->logs("key_sent", mark)) << panel->output();
    desktop_.windows().requestClose(panel->panel());
    expectAGoodEnd(panel);
    EXPECT_LT(panel->program().output().count("completed"), 200U)
        << "what was still queued should have been dropped";
}

/// A backend that takes three seconds to end.
constexpr const char* slowBackend = R"(#!/bin/sh
trap 'sleep 3; exit 0' TERM
while :; do sleep 0.1; done
)";

TEST_F(Quitting, ByClosingThePanelClearsTheScreenBeforeASlowBackendHasEnded) {
    const auto pages = writeRemotePage(desktop_);
    writeFile(pages / "overlay.html", "<!doctype html><title>overlay</title>");
    const auto backend = pages / "StagehopperBackend-arm64";
    writeFile(backend, slowBackend);
    std::filesystem::permissions(backend, std::filesystem::perms::owner_all);
    RemotePanel panel(desktop_, pages);
    const auto process = panel->program().pid();
    ASSERT_TRUE(panel->logs("(attempt 1/3)", 0)) << panel->output();
    panel.run("electronAPI.showOverlay()");
    const auto overlays = [&] { return desktop_.windows().unmanagedOf(process).size(); };
    ASSERT_TRUE(waitFor([&] { return overlays() == 1; }, endLimit));

    desktop_.windows().requestClose(panel->panel());
    EXPECT_TRUE(
        waitFor([&] { return overlays() == 0 && desktop_.windows().ofProcess(process).empty(); },
                endLimit));
    EXPECT_FALSE(panel->program().waitForExit(std::chrono::seconds(0)))
        << "the windows stayed as long as the backend";
    expectAGoodEnd(panel);
}

TEST_F(Quitting, ByAKillLeavesNoPing) {
    RemotePanel panel(desktop_);
    const auto pings = [this] {
        const auto all = processesWithEnvironment(desktop_.folder().native());
        return std::ranges::count(all, "ping", programName);
    };
    if (!std::filesystem::exists("/usr/bin/ping")) GTEST_SKIP() << "this machine has no ping";
    ASSERT_TRUE(waitFor([&] { return pings() == 1; }, endLimit));
    panel->program().signal(SIGKILL);
    EXPECT_TRUE(waitFor([&] { return pings() == 0; }, endLimit));
}

TEST_F(Quitting, ASecondStartEndsByItselfAndRaisesTheFirst) {
    RemotePanel panel(desktop_);
    const auto other = desktop_.start({(programFolder() / "stagehopper_typing_window").native()});
    desktop_.windows().activate(desktop_.windows().waitForTitle("Typing window", endLimit));
    const auto second = desktop_.start({(programFolder() / "stagehopper").native()});
    EXPECT_EQ(second->waitForExit(endLimit), 0);
    EXPECT_TRUE(waitFor([&] { return desktop_.windows().active() == panel->panel(); }, endLimit));
    panel->program().signal(SIGTERM);
    expectAGoodEnd(panel);
}

}  // namespace
}  // namespace stagehopper::desktop
