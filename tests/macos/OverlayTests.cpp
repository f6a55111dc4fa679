// The overlay's panel and page, message by message.

#include <gmock/gmock.h>

#include "tests/macos/MacStage.h"
#include "tests/macos/recording/runtime/Behaviors.h"

namespace stagehopper {

namespace {

using recording::expectInOrder;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class MacOverlay : public MacStage {
protected:
    MacOverlay() {
        world.servers.serve(3000);
        launch();
    }

    void show() { pagePosts("CMD:showOverlay"); }
    [[nodiscard]] recording::WebPage& page() { return world.pages.newest(); }
    [[nodiscard]] bool exists() {
        for (const auto window : world.windows.all()) {
            if (recording::classNameOf(window) == "NSPanel") return true;
        }
        return false;
    }
};

TEST_F(MacOverlay, IsBuiltInOneOrderAndShownWithoutTakingTheFocus) {
    forget();
    show();
    expectInOrder({
        "[<WKUserContentController 2> addUserScript:<WKUserScript 4>]",
        "[<WKWebViewConfiguration 2> setUserContentController:<WKUserContentController 2>]",
        "[<WKWebView 2> initWithFrame:{0,0,1440,900} configuration:<WKWebViewConfiguration 2>]",
        "[<WKWebView 2> setValue:@NO forKey:\"drawsBackground\"]",
        "[<NSPanel 1> initWithContentRect:{0,0,1440,900} styleMask:128 backing:2 defer:NO]",
        "[<NSPanel 1> setReleasedWhenClosed:NO]",
        "[<NSPanel 1> setRestorable:NO]",
        "[<NSPanel 1> setAnimationBehavior:2]",
        "[<NSPanel 1> setBackgroundColor:clearColor]",
        "[<NSPanel 1> setOpaque:NO]",
        "[<NSPanel 1> setHasShadow:NO]",
        "[<NSPanel 1> setHidesOnDeactivate:NO]",
        "[<NSPanel 1> setLevel:2147483629]",
        "[<NSPanel 1> setCollectionBehavior:257]",
        "[<NSPanel 1> setIgnoresMouseEvents:YES]",
        "[<NSPanel 1> setContentView:<WKWebView 2>]",
        "[<NSPanel 1> orderFrontRegardless]",
        "allowingReadAccessToURL:<file:///Applications/Stagehopper.app/Contents/Resources/>]",
    });
    EXPECT_EQ(page().file, std::string(resources) + "/overlay.html");
    EXPECT_EQ(page().readAccess, resources);
    EXPECT_THAT(lines("makeKey"), IsEmpty());
    EXPECT_THAT(lines("NSApplication"), IsEmpty());
    EXPECT_FALSE(page().drawsBackground());
    EXPECT_THAT(page().controller().handlers, IsEmpty()) << "its page can post nothing";
    ASSERT_THAT(page().controller().scripts, SizeIs(2)) << "the first marks the frames";
    EXPECT_EQ(page().controller().scripts[1].injectionTime, 0);
    EXPECT_TRUE(page().controller().scripts[1].mainFrameOnly);
}

TEST_F(MacOverlay, HidingItAndShowingItAgainOnlyOrdersIt) {
    show();
    forget();
    pagePosts("CMD:hideOverlay");
    show();
    EXPECT_THAT(lines("NSPanel"),
                ElementsAre("[<NSPanel 1> orderOut:nil]", "[<NSPanel 1> orderFrontRegardless]"));
    EXPECT_THAT(lines("initWithFrame:"), IsEmpty());
    EXPECT_EQ(page().loads, 1);
}

TEST_F(MacOverlay, DestroyingItReleasesThePanelAndItsPage) {
    show();
    forget();
    pagePosts("CMD:destroyOverlay");
    expectInOrder({"[<NSPanel 1> orderOut:nil]", "[<NSPanel 1> setContentView:nil]",
                   "[<WKWebView 2> setNavigationDelegate:nil]", "[<WKWebView 2> stopLoading]"});
    EXPECT_FALSE(exists());
    EXPECT_EQ(page().view(), nullptr);
    // One that is shown afterwards is new.
    show();
    EXPECT_THAT(lines(), Contains("[<NSPanel 2> orderFrontRegardless]"));
}

TEST_F(MacOverlay, FollowsTheScreen) {
    show();
    forget();
    world.screens.change({{{0, 0}, {2560, 1440}}});
    runUntilIdle();
    expectInOrder({"<- [<AppController 1> screenDidChange]",
                   "[<NSPanel 1> setFrame:{0,0,2560,1440} display:YES]",
                   "[<WKWebView 2> setFrame:{0,0,2560,1440}]"});
    EXPECT_EQ(queueOf("setFrame:"), "main");
}

TEST_F(MacOverlay, CoversTheMainScreenOrElseTheFirstAndItsPageStartsInTheCorner) {
    world.screens.change({{{10, 20}, {800, 600}}, {{1440, -180}, {1920, 1080}}});
    world.screens.main = 1;
    show();
    EXPECT_THAT(lines("initWithContentRect:{1440,-180,1920,1080}"), SizeIs(1));
    EXPECT_THAT(lines("initWithFrame:{0,0,1920,1080}"), SizeIs(1));
    pagePosts("CMD:destroyOverlay");
    world.screens.main.reset();
    show();
    EXPECT_THAT(lines("initWithContentRect:{10,20,800,600}"), SizeIs(1));
}

}  // namespace

}  // namespace stagehopper
