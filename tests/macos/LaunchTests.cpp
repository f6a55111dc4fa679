// The messages to the system while the program starts, and those that must be absent.

#include <gmock/gmock.h>

#include "ports/webkit/FrameMark.h"
#include "resources/PanelScript.h"
#include "tests/macos/MacStage.h"
#include "tests/macos/recording/appkit/Menus.h"
#include "tests/macos/recording/runtime/Behaviors.h"

namespace stagehopper {

namespace {

using recording::expectInOrder;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class MacLaunch : public MacStage {
protected:
    MacLaunch() { world.servers.serve(3000); }

    [[nodiscard]] static cocoa::id mainMenu() {
        return recording::propertyObject(recording::sharedApplication(), "mainMenu");
    }
};

TEST_F(MacLaunch, WithoutAnApplicationObjectTheProgramStops) {
    world.application.exists = false;
    EXPECT_DEATH(make(), "there is no NSApplication");
}

TEST_F(MacLaunch, SendsItsMessagesInOrder) {
    launch();
    expectInOrder({
        "[<NSApplication 1> setDelegate:<AppController 1>]",
        "<- [<AppController 1> applicationDidFinishLaunching:<NSNotification 2>]",
        "NSLog(\"[slide_nav] app_launched Stagehopper starting up\")",
        "[<NSApplication 1> setActivationPolicy:0]",
        "[<NSApplication 1> setMainMenu:<NSMenu 1>]",
        "[<WKWebView 1> initWithFrame:{0,0,0,0} configuration:<WKWebViewConfiguration 1>]",
        "[<NSWindow 1> makeKeyAndOrderFront:nil]",
        "allowingReadAccessToURL:<file:///Applications/Stagehopper.app/Contents/Resources/>]",
        "dataTaskWithURL:<http://127.0.0.1:3000/health> completionHandler:^block]",
        "NSLog(\"[slide_nav] app_launched backend auto-start requested\")",
        "[NSTimer timerWithTimeInterval:4 repeats:YES block:^block]",
        "[<NSRunLoop 1> addTimer:<NSTimer 1> forMode:\"NSRunLoopCommonModes\"]",
        "NSLog(\"[slide_nav] app_launched nativeSlideDiscovery started\")",
        "[<NSApplication 1> activate]",
        "setExecutableURL:<file:///usr/sbin/netstat>]",
        "setExecutableURL:<file:///sbin/ping>]",
        "awdl_on_meeting_start; accessibility_on_toggle\")",
        "[<NSNotificationCenter 1> addObserver:<AppController 1> "
        "selector:@selector(screenDidChange) "
        "name:\"NSApplicationDidChangeScreenParametersNotification\" object:nil]",
    });
}

TEST_F(MacLaunch, RunsOnTheMainThread) {
    launch();
    for (const auto& entry : recording::journal().entries()) {
        // The answers of the probes come elsewhere, and so does the end of a tool.
        const bool isAnswer = entry.queue == "session" || entry.queue == "task";
        EXPECT_TRUE(isAnswer || entry.queue == "main") << entry.line() << " on " << entry.queue;
    }
}

TEST_F(MacLaunch, ThePanelWindowIsConfiguredBeforeItIsShown) {
    launch();
    EXPECT_THAT(
        lines("[<NSWindow 1> "),
        ElementsAre("[<NSWindow 1> initWithContentRect:{0,0,520,680} styleMask:15 backing:2 "
                    "defer:NO]",
                    "[<NSWindow 1> setReleasedWhenClosed:NO]", "[<NSWindow 1> setRestorable:NO]",
                    "[<NSWindow 1> setTitle:\"Stagehopper\"]",
                    "[<NSWindow 1> setMinSize:{380,480}]",
                    "[<NSWindow 1> setContentView:<WKWebView 1>]", "[<NSWindow 1> center]",
                    "[<NSWindow 1> setDelegate:<AppController 1>]",
                    "[<NSWindow 1> makeKeyAndOrderFront:nil]"));
}

TEST_F(MacLaunch, ThePanelsPageCanPostToTheBridgeAndHasItsScript) {
    launch();
    expectInOrder({
        "[<WKUserContentController 1> addScriptMessageHandler:<BridgeHandler 1> name:\"bridge\"]",
        "[<WKUserContentController 1> addUserScript:<WKUserScript 2>]",
        "[<WKWebViewConfiguration 1> setUserContentController:<WKUserContentController 1>]",
        "[<WKWebView 1> initWithFrame:{0,0,0,0} configuration:<WKWebViewConfiguration 1>]",
        "[<WKWebView 1> setNavigationDelegate:<PageGuard 1>]",
    });
    EXPECT_THAT(panelPage().controller().handlers, ElementsAre(testing::Key("bridge")));
    ASSERT_THAT(panelPage().controller().scripts, SizeIs(2));
    // By the first one the backend's page knows, in its frame, that the view is ours.
    EXPECT_EQ(panelPage().controller().scripts[0].source, webkit_ports::frameMarkScript);
    EXPECT_EQ(panelPage().controller().scripts[0].injectionTime, 0);
    EXPECT_FALSE(panelPage().controller().scripts[0].mainFrameOnly);
    EXPECT_EQ(panelPage().controller().scripts[1].source, panelScript);
    EXPECT_EQ(panelPage().controller().scripts[1].injectionTime, 0);
    EXPECT_TRUE(panelPage().controller().scripts[1].mainFrameOnly);
    EXPECT_THAT(lines("<WKPreferences 1> set"),
                ElementsAre("[<WKPreferences 1> setInactiveSchedulingPolicy:2]"));
    EXPECT_THAT(lines("DataStore"), ElementsAre("[WKWebsiteDataStore nonPersistentDataStore]",
                                                "[<WKWebViewConfiguration 1> "
                                                "setWebsiteDataStore:<WKWebsiteDataStore 1>]"));
    EXPECT_EQ(panelPage().file, std::string(resources) + "/panel.html");
    EXPECT_EQ(panelPage().readAccess, resources);
}

TEST_F(MacLaunch, TheMenuBarHasTwoMenus) {
    launch();
    EXPECT_THAT(recording::menuLines(mainMenu()),
                ElementsAre("", "  关于 Stagehopper orderFrontStandardAboutPanel:", "  ---",
                            "  退出 Stagehopper [q] terminate:", "编辑", "  剪切 [x] cut:",
                            "  复制 [c] copy:", "  粘贴 [v] paste:", "  全选 [a] selectAll:"));
    // The actions find their receiver along the responders.
    EXPECT_THAT(lines("setTarget:"), IsEmpty());
}

TEST_F(MacLaunch, ComesToTheFrontOnSystemsBeforeTheNewMessage) {
    world.application.missing = {"activate"};
    launch();
    EXPECT_THAT(lines("[<NSApplication 1> activate"),
                ElementsAre("[<NSApplication 1> activateIgnoringOtherApps:YES]"));
}

TEST_F(MacLaunch, IsNotSlowedDownInTheBackgroundUntilItsEnd) {
    launch();
    ASSERT_THAT(world.systemInfo.activities, SizeIs(1));
    // NSActivityUserInitiatedAllowingIdleSystemSleep.
    EXPECT_EQ(world.systemInfo.activities[0].options, 0x00FFFFFFUL & ~(1UL << 20U));
    EXPECT_FALSE(world.systemInfo.activities[0].reason.empty());
    EXPECT_NE(world.systemInfo.activities[0].token.get(), nullptr);
    drop();
    EXPECT_THAT(world.systemInfo.activities, IsEmpty());
}

TEST_F(MacLaunch, TheSystemLogsNoWarning) {
    launch();
    EXPECT_THAT(world.systemLog, testing::Not(Contains(testing::HasSubstr("WARNING"))));
}

TEST_F(MacLaunch, LowerCaseDoesNotFollowTheUsersLanguage) {
    world.systemInfo.userIsTurkish = true;
    launch();
    EXPECT_EQ(services().platform(files).text.lowercased("SLIDE İ"), "slide İ");
}

TEST_F(MacLaunch, OtherProgramsHaveOneSecondToAnswerAQuestion) {
    launch();
    EXPECT_THAT(lines("AXUIElementSetMessagingTimeout"), SizeIs(1));
    EXPECT_EQ(world.accessibility.timeLimit, 1.0);
}

TEST_F(MacLaunch, WithoutABundleThePagesAreLookedForBesideTheExecutable) {
    world.systemInfo.bundleIdentifier.reset();
    world.systemInfo.resourceDirectory.reset();
    world.systemInfo.arguments = {"/opt/stagehopper/Stagehopper"};
    files.put("/opt/stagehopper/Stagehopper", "");
    files.put("/opt/stagehopper/Resources/panel.html", "");
    launch();
    EXPECT_EQ(panelPage().file, "/opt/stagehopper/Resources/panel.html");
}

TEST_F(MacLaunch, EachLineOfTheLogFileBeginsWithTheUsersTime) {
    launch();
    EXPECT_THAT(
        files.contents(logFile),
        testing::StartsWith("[09:26:53] [slide_nav] app_launched Stagehopper starting up\n"));
}

}  // namespace

}  // namespace stagehopper
