// The macOS port among the objects of an AppKit that Apple has not written: what it shows, what it
// hears, and what becomes of its children.

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "tests/desktop/KeptDebugLog.h"
#include "tests/drivers/desktop/Processes.h"
#include "tests/macos/gnustep/GnustepProgram.h"
#include "tests/macos/gnustep/OpenMenu.h"

// Last: its macros are words that others use.
#include <X11/Xutil.h>

namespace stagehopper::desktop {
namespace {

using testing::AnyOfArray;
using testing::Each;
using testing::HasSubstr;

constexpr std::chrono::seconds limit{15};

/// Reports that it runs, ends on request, and reports its end.
constexpr const char* patientBackend =
    "trap 'echo asked to end >> calls; exit 0' TERM\n"
    "echo \"$@ PORT=$PORT PORT_EXTRA=$PORT_EXTRA in $PWD\" >> calls\n"
    "while :; do sleep 0.05; done";

/// What the port sends and GNUstep does not understand, or only since we have taught it.
const std::vector<std::string> knownToBeMissing{
    "NSURLSession: in its place NSURLConnection",
    "WKUserContentController: in its place a plain NSObject",
    "WKUserScript: in its place a plain NSObject",
    "WKWebView: in its place a plain NSView",
    "WKWebViewConfiguration: in its place a plain NSObject",
    "WKWebsiteDataStore: in its place a plain NSObject",
    "-[NSApplication setActivationPolicy:]",
    "-[NSFileHandle readDataToEndOfFileAndReturnError:]: supplied",
    "-[NSTask launchAndReturnError:]: supplied",
    "-[NSTask setCurrentDirectoryURL:]: supplied",
    "-[NSTask setExecutableURL:]: supplied",
    "-[NSTask setTerminationHandler:]: supplied",
    "-[NSWindow setAnimationBehavior:]: supplied",
    "-[NSWindow setRestorable:]: supplied",
    "-[WKUserContentController addUserScript:]",
    "-[WKUserScript initWithSource:injectionTime:forMainFrameOnly:]",
    "-[WKWebView setNavigationDelegate:]",
    "-[WKWebView stopLoading]",
    "-[WKWebViewConfiguration preferences]",
    "-[WKWebViewConfiguration setWebsiteDataStore:]",
};

class OnGnustep : public testing::Test {
protected:
    OnGnustep() : desktop_(std::make_unique<VirtualDesktop>(options())) {}

    void TearDown() override {
        EXPECT_THAT(program_->missing(), Each(AnyOfArray(knownToBeMissing)))
            << "a message that no AppKit knows?";
        for (const auto& each : program_->missing()) std::cout << "GNUstep has no " << each << '\n';
        program_.reset();
        const auto folder = desktop_->folder().native();
        desktop_.reset();
        EXPECT_THAT(processesWithEnvironment(folder), testing::IsEmpty());
    }

    void start(const std::string& backendScript, const std::string& page = "") {
        program_ = std::make_unique<GnustepProgram>(*desktop_, page, backendScript);
    }
    [[nodiscard]] std::string output() { return program_->program().output().text(); }
    /// What the backend wrote.
    [[nodiscard]] std::string calls() const {
        std::ifstream file(program_->resources() / "calls");
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void waitForCall(const std::string& text) {
        ASSERT_TRUE(waitFor([&] { return calls().find(text) != std::string::npos; }, limit))
            << "the backend wrote:\n"
            << calls() << output();
    }
    /// After all work that precedes the end.
    void expectAGoodEnd() {
        ASSERT_EQ(program_->program().waitForExit(limit), 0) << output();
        EXPECT_THAT(calls(), HasSubstr("asked to end")) << output();
        const auto group = program_->program().pid();
        EXPECT_TRUE(waitFor([group] { return !isGroupAlive(group); }, limit));
    }

    const KeptDebugLog keptDebugLog_;
    std::unique_ptr<VirtualDesktop> desktop_;
    std::unique_ptr<GnustepProgram> program_;

private:
    static DesktopOptions options() {
        DesktopOptions high;
        // Room for the panel between the menu bar and the lower edge.
        high.xServerArguments = {"-screen", "0", "1280x1024x24"};
        return high;
    }
};

TEST_F(OnGnustep, ShowsThePanelAsTheCoreAsksForIt) {
    start(patientBackend);
    const auto panel = program_->panel();
    const auto& windows = desktop_->windows();
    EXPECT_EQ(windows.titleOf(panel), "Stagehopper");

    const auto area = windows.areaOf(panel);
    ASSERT_TRUE(area);
    EXPECT_EQ(area->width, 520);
    EXPECT_EQ(area->height, 680);
    EXPECT_NEAR(area->x, 1280 - area->x - area->width, 1) << "it is not in the middle";

    const auto attributes = desktop_->display().numbers(panel, "_GNUSTEP_WM_ATTR");
    ASSERT_GE(attributes.size(), 2U);
    constexpr unsigned long titledClosableMiniaturizableResizable = 15;
    EXPECT_EQ(attributes[1], titledClosableMiniaturizableResizable);

    // The smallest size of a window is that of its frame.
    const auto frame = desktop_->display().numbers(panel, "_NET_FRAME_EXTENTS");
    ASSERT_EQ(frame.size(), 4U);
    XSizeHints hints{};
    long supplied = 0;
    ASSERT_NE(XGetWMNormalHints(desktop_->display().get(), panel, &hints, &supplied), 0);
    EXPECT_EQ(hints.min_width + static_cast<int>(frame[0] + frame[1]), 380);
    EXPECT_EQ(hints.min_height + static_cast<int>(frame[2] + frame[3]), 480);
}

TEST_F(OnGnustep, TheMenuQuits) {
    start(patientBackend);
    waitForCall("--ppid=");
    const OpenMenu menu(*desktop_, program_->panel());
    const auto panel = desktop_->windows().areaOf(program_->panel());
    ASSERT_TRUE(panel && waitFor([&] { return isDrawn(*desktop_, *panel); }, limit));
    Picture::of(desktop_->display(), desktop_->display().root())->savePng(PICTURE_FILE);
    menu.clickLastItem();
    expectAGoodEnd();
}

TEST_F(OnGnustep, TheKeyEquivalentQuits) {
    start(patientBackend);
    waitForCall("--ppid=");
    desktop_->windows().activate(program_->panel());
    desktop_->user().strike({XK_Alt_L, XK_q});
    expectAGoodEnd();
}

TEST_F(OnGnustep, ClosingThePanelQuits) {
    start(patientBackend);
    waitForCall("--ppid=");
    desktop_->windows().requestClose(program_->panel());
    expectAGoodEnd();
}

TEST_F(OnGnustep, AChildGetsItsArgumentsItsEnvironmentAndItsFolder) {
    start(patientBackend);
    waitForCall("--ppid=" + std::to_string(program_->program().pid()) +
                " PORT=3000 PORT_EXTRA=50 in " + program_->resources().native());
}

TEST_F(OnGnustep, TheStatusOfAChildComesBack) {
    start("exit 7");
    EXPECT_TRUE(program_->says("bundled backend exited (status 7), will retry (1/3)")) << output();
    // The next attempt comes by way of a timer.
    EXPECT_TRUE(program_->says("(attempt 2/3)")) << output();
}

TEST_F(OnGnustep, WhatThePagePostsIsHeard) {
    start(patientBackend, "post bridge DBG:幻灯片 1\n");
    EXPECT_TRUE(program_->says("panel_debug 幻灯片 1")) << output();
}

TEST_F(OnGnustep, TheOverlayLiesOverTheWholeScreen) {
    start(patientBackend, "post bridge CMD:showOverlay\n");
    const auto& windows = desktop_->windows();
    const auto coversTheScreen = [&](Window window) {
        const auto area = windows.areaOf(window);
        return area && area->x == 0 && area->y == 0 && area->width == 1280 && area->height == 1024;
    };
    Window overlay = None;
    const auto look = [&] {
        const auto all = windows.stacked();
        const auto found = std::ranges::find_if(all, coversTheScreen);
        if (found != all.end()) overlay = *found;
        return overlay != None;
    };
    ASSERT_TRUE(waitFor(look, limit)) << output();
    const auto attributes = desktop_->display().numbers(overlay, "_GNUSTEP_WM_ATTR");
    ASSERT_GE(attributes.size(), 3U);
    constexpr unsigned long nonactivating = 128;
    constexpr unsigned long oneAboveTheShield = 1002;
    EXPECT_EQ(attributes[1], nonactivating);
    EXPECT_EQ(attributes[2], oneAboveTheShield);
}

}  // namespace
}  // namespace stagehopper::desktop
