// The ways out, and what is done on each in which order.

#include <gmock/gmock.h>

#include "tests/macos/MacStage.h"

namespace stagehopper {

namespace {

using recording::expectInOrder;
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

private:
    void serveMeetingsAtStart() {
        installBackend({.onStart = [this] { serveMeeting(3000, "AB12"); },
                        .onEnd = [this] { world.servers.stopServing(3000); }});
    }
};

TEST_F(MacQuit, EverythingIsEndedInOneOrder) {
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
        "[<NSTask 1> waitUntilExit]",
        // Ping.
        "[<NSTask 3> terminate]",
        "setExecutableURL:<file:///usr/bin/osascript>]",
        "dispatch_async_f(global default)",
    });
    EXPECT_TRUE(world.application.terminated());
    EXPECT_THAT(lines("[<NSTask 3> waitUntilExit]"), IsEmpty());
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

TEST_F(MacQuit, ClosingThePanelWindowQuitsAlsoWithTheOverlayUp) {
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

TEST_F(MacQuit, APanelWindowThatWasClosedIsNotTouchedAgain) {
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

TEST_F(MacQuit, AnOverlayThatIsUpGoesFromTheScreen) {
    launch();
    pagePosts("CMD:showOverlay");
    forget();
    drop();
    EXPECT_THAT(lines("[<NSPanel 1> orderOut:nil]"), SizeIs(1));
    EXPECT_EQ(world.windows.visible(), 0U);
}

TEST_F(MacQuit, TheSystemMayLetItSleepAgain) {
    launch();
    ASSERT_THAT(world.machine.activities, SizeIs(1));
    drop();
    EXPECT_THAT(world.machine.activities, IsEmpty());
    EXPECT_THAT(lines("endActivity:"), SizeIs(1));
}

TEST_F(MacQuit, TheSystemForgetsOurObjects) {
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
