// The ways out, and what is done on each in which order.

#include <gmock/gmock.h>

#include "tests/macos/MacStage.h"
#include "tests/scenario/Programs.h"

namespace stagehopper {

namespace {

using recording::expectInOrder;
using simulated::item;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class MacQuit : public MacStage {
protected:
    /// With everything that can be under way: a backend, a room, a ping, a link to restore.
    void launchEverything() {
        serveMeetingsAtStart();
        world.tasks.programs["/sbin/ifconfig"] = {.output = "status: inactive",
                                                  .exitsAfter = platform::Duration{0}};
        world.tasks.programs["/usr/bin/osascript"] = {};
        launch();
        advance(5);
        pagePosts("CMD:requestAwdlBeforeMeeting");
        advance(2);
        ASSERT_EQ(world.servers.openSockets(), 1U);
        forget();
    }

    platform::Duration backendEndsWithin_{0.01};

private:
    void serveMeetingsAtStart() {
        installBackend({.endsWithin = backendEndsWithin_,
                        .onStart = [this] { serveMeeting(3000, "AB12"); },
                        .onEnd = [this] { world.servers.stopServing(3000); }});
    }
};

TEST_F(MacQuit, EverythingIsEndedInAFixedOrder) {
    launchEverything();
    userQuits();
    expectInOrder({
        "<- [<AppController 1> applicationWillTerminate:<NSNotification 3>]",
        // The discovery's, then the ping loop's.
        "[<NSTimer 1> invalidate]",
        "[<NSTimer 2> invalidate]",
        "NSLog(\"[slide_nav] native_ws_disconnected room=AB12 reason=app_terminating\")",
        "[<NSURLSessionWebSocketTask 1> cancelWithCloseCode:1001 reason:nil]",
        "[<NSTask 1> terminate]",
        // Ping.
        "[<NSTask 3> terminate]",
        "setExecutableURL:<file:///usr/bin/osascript>]",
        "dispatch_async_f(global default)",
    });
    EXPECT_TRUE(world.application.terminated());
}

TEST_F(MacQuit, ThePingIsNotAwaited) {
    world.tasks.programs["/sbin/ping"].endsWithin = platform::Duration{9};
    launch();
    const auto before = recording::queues::now();
    userQuits();
    EXPECT_TRUE(world.application.terminated());
    EXPECT_EQ(recording::queues::now(), before);
}

TEST_F(MacQuit, NothingHappensWhileTheBackendTakesItsTimeToEnd) {
    backendEndsWithin_ = platform::Duration{3};
    launchEverything();
    world.programs.start(powerPoint(812)
                             .window("Talk.pptx")
                             .menu("Slide Show", {item("Next Slide"), item("Previous Slide")}));
    world.programs.front = 812;
    const auto pressed = [this] { return world.programs.program(812).pressed().size(); };
    recording::queues::inTheWorld(1, [this] {
        panelPage().posts("bridge", "CMD:startBundledBackend");
        panelPage().posts("bridge", "WSCONN:http://127.0.0.1:3001|CD34");
        panelPage().posts("bridge", "PPT:next");
        world.servers.lastConnection(3000).sends(
            R"({"type":"slide_nav","direction":"next","seq":1})");
    });
    std::size_t startsInTheWait = 0;
    std::size_t stepsInTheWait = 0;
    recording::queues::inTheWorld(2.9, [&] {
        ASSERT_FALSE(world.application.terminated());
        startsInTheWait = world.tasks.launched(backend).size();
        stepsInTheWait = pressed();
    });
    userQuits();
    EXPECT_TRUE(world.application.terminated());
    EXPECT_EQ(startsInTheWait, 1U);
    EXPECT_EQ(stepsInTheWait, 0U);
    // A message of the page after that has no receiver.
    advance(10);
    EXPECT_THAT(world.tasks.launched(backend), SizeIs(1));
    EXPECT_THAT(diagnostics("native_ws_connecting"), IsEmpty());
    EXPECT_EQ(pressed(), 0U);
}

TEST_F(MacQuit, ARestartThatWaitsStartsNothingAfterwards) {
    installBackend({.exitsAfter = platform::Duration{0}, .exitStatus = 1});
    launch();
    ASSERT_THAT(world.tasks.launched(backend), SizeIs(1));
    userQuits();
    advance(10);
    EXPECT_THAT(world.tasks.launched(backend), SizeIs(1));
}

TEST_F(MacQuit, TheBackendsExitCausesNoRestart) {
    launchEverything();
    userQuits();
    advance(10);
    EXPECT_THAT(world.tasks.launched(backend), SizeIs(1));
    EXPECT_THAT(world.systemLog,
                testing::Not(Contains(testing::HasSubstr("bundled backend exited"))));
}

TEST_F(MacQuit, NothingIsStartedAfterwards) {
    launchEverything();
    userQuits();
    forget();
    advance(60);
    EXPECT_THAT(lines("resume]"), IsEmpty());
    EXPECT_THAT(lines("launchAndReturnError:"), IsEmpty());
}

TEST_F(MacQuit, TheMenuItemEndsTheProgramThroughTheApplication) {
    launch();
    forget();
    userQuits();
    EXPECT_THAT(lines("applicationWillTerminate:"), SizeIs(1));
    EXPECT_TRUE(world.application.terminated());
}

TEST_F(MacQuit, ClosingThePanelWindowQuits) {
    launch();
    forget();
    userClosesPanel();
    expectInOrder({"<- [<AppController 1> windowWillClose:<NSNotification 3>]",
                   "<- [<AppController 1> applicationShouldTerminateAfterLastWindowClosed:"
                   "<NSApplication 1>]",
                   "<- [<AppController 1> applicationWillTerminate:<NSNotification 4>]"});
    EXPECT_TRUE(world.application.terminated());
    EXPECT_THAT(lines("windowWillClose:"), SizeIs(1));
}

TEST_F(MacQuit, ClosingThePanelWindowQuitsEvenWithTheOverlayShown) {
    launch();
    pagePosts("CMD:showOverlay");
    userClosesPanel();
    EXPECT_TRUE(world.application.terminated());
}

TEST_F(MacQuit, LoggingOutQuits) {
    launchEverything();
    world.application.systemQuits();
    advance(1);
    EXPECT_TRUE(world.application.terminated());
    EXPECT_EQ(world.tasks.running(), 1U) << "but for the prompt that restores the link";
}

TEST_F(MacQuit, AClosedPanelWindowGetsNoFurtherMessages) {
    launch();
    world.accessibility.trusted = false;
    userClosesPanel();
    forget();
    pagePosts("CMD:enableSlideControl");
    EXPECT_THAT(lines("makeKeyAndOrderFront:"), IsEmpty());
    drop();
    EXPECT_THAT(lines("[<NSWindow 1> close]"), IsEmpty());
}

TEST_F(MacQuit, TheLoopEndsWithStatusZero) {
    recording::queues::inTheWorld(2, [this] { world.application.systemQuits(); });
    EXPECT_EQ(run(), 0);
    EXPECT_TRUE(world.application.launched());
    EXPECT_TRUE(world.application.terminated());
}

TEST_F(MacQuit, TheProgramCanEndItself) {
    launch();
    forget();
    services().application().terminate();
    EXPECT_THAT(lines("terminate:"), Contains("[<NSApplication 1> terminate:nil]"));
    EXPECT_TRUE(world.application.terminated());
}

TEST_F(MacQuit, AShownOverlayIsHidden) {
    launch();
    pagePosts("CMD:showOverlay");
    forget();
    drop();
    EXPECT_THAT(lines("[<NSPanel 1> orderOut:nil]"), SizeIs(1));
    EXPECT_EQ(world.windows.visible(), 0U);
}

TEST_F(MacQuit, TheSystemMaySlowItDownAgain) {
    launch();
    ASSERT_THAT(world.systemInfo.activities, SizeIs(1));
    drop();
    EXPECT_THAT(world.systemInfo.activities, IsEmpty());
    EXPECT_THAT(lines("endActivity:"), SizeIs(1));
}

TEST_F(MacQuit, TheSystemHoldsNoneOfOurObjects) {
    launch();
    forget();
    drop();
    expectInOrder({"[<NSWindow 1> setDelegate:nil]"});
    EXPECT_THAT(lines("removeObserver:<AppController 1>]"), SizeIs(1));
    EXPECT_THAT(lines("[<NSApplication 1> setDelegate:nil]"), SizeIs(1));
    EXPECT_THAT(lines("removeScriptMessageHandlerForName:\"bridge\"]"), SizeIs(1));
    EXPECT_THAT(lines("[<WKWebView 1> setNavigationDelegate:nil]"), SizeIs(1));
    EXPECT_THAT(lines("[<NSTimer 1> invalidate]"), testing::Not(IsEmpty()));
}

}  // namespace

}  // namespace stagehopper
