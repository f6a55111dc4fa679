// The ways out, and what is done on each in which order.

#include <gmock/gmock.h>

#include "tests/macos/MacStage.h"

namespace stagehopper {

namespace {

using recording::expectInOrder;
using testing::IsEmpty;
using testing::SizeIs;

using MacQuit = MacStage;

TEST_F(MacQuit, EverythingIsEndedInAFixedOrder) {
    // A backend, a room, a ping, and a link to restore.
    installBackend({.onStart = [this] { serveMeeting(3000, "AB12"); },
                    .onEnd = [this] { world.servers.stopServing(3000); }});
    world.tasks.programs["/sbin/ifconfig"] = {.output = "status: inactive",
                                              .exitsAfter = platform::Duration{0}};
    world.tasks.programs["/usr/bin/osascript"] = {};
    launch();
    advance(5);
    pagePosts("CMD:requestAwdlBeforeMeeting");
    advance(2);
    ASSERT_EQ(world.servers.openSockets(), 1U);
    forget();
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

TEST_F(MacQuit, AShownOverlayIsHidden) {
    launch();
    pagePosts("CMD:showOverlay");
    forget();
    drop();
    EXPECT_THAT(lines("[<NSPanel 1> orderOut:nil]"), SizeIs(1));
    EXPECT_EQ(world.windows.visible(), 0U);
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
