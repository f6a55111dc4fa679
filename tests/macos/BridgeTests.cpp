// From the panel's page to the controller, and what the page's end means.

#include <gmock/gmock.h>

#include "tests/macos/MacStage.h"
#include "tests/macos/recording/Foundation.h"

namespace stagehopper {

namespace {

using recording::expectInOrder;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class MacBridge : public MacStage {
protected:
    MacBridge() {
        world.servers.serve(3000);
        launch();
        forget();
    }
    void pagePostsOther(recording::Kept body) {
        panelPage().posts("bridge", std::move(body));
        runUntilIdle();
    }
};

TEST_F(MacBridge, ATextReachesTheController) {
    pagePosts("DBG:你好 \"quoted\"");
    EXPECT_THAT(diagnostics(), ElementsAre("panel_debug 你好 \"quoted\""));
    expectInOrder(
        {"<- [<BridgeHandler 1> userContentController:<WKUserContentController 1> "
         "didReceiveScriptMessage:<WKScriptMessage 1>]",
         "[<WKScriptMessage 1> body]"});
    EXPECT_EQ(queueOf("didReceiveScriptMessage:"), "main");
}

TEST_F(MacBridge, AnEmptyTextDoesNothing) {
    pagePosts("");
    EXPECT_THAT(world.systemLog, IsEmpty());
}

TEST_F(MacBridge, ANumberATruthAndAListDoNothing) {
    pagePostsOther(recording::makeNumber(17));
    pagePostsOther(recording::makeTruth(true));
    pagePostsOther(recording::makeArray({recording::makeString("CMD:showOverlay")}));
    EXPECT_THAT(world.systemLog, IsEmpty());
    EXPECT_THAT(lines("didReceiveScriptMessage:"), SizeIs(3));
    EXPECT_THAT(lines("NSPanel"), IsEmpty());
}

TEST_F(MacBridge, AnUnknownHandlerIsNotOurs) {
    panelPage().posts("other", "DBG:hello");
    runUntilIdle();
    EXPECT_THAT(world.systemLog, IsEmpty());
}

TEST_F(MacBridge, APageWhoseProcessDiedIsLoadedAgain) {
    panelPage().processDies();
    runUntilIdle();
    EXPECT_THAT(lines("WKWebView"), testing::Contains("[<WKWebView 1> reload]"));
    EXPECT_EQ(panelPage().reloads, 1);
    EXPECT_TRUE(panelPage().alive);
    pagePosts("DBG:back again");
    EXPECT_THAT(diagnostics(), ElementsAre("panel_debug back again"));
}

TEST_F(MacBridge, TheOverlaysPageIsLoadedAgainToo) {
    pagePosts("CMD:showOverlay");
    world.pages.at(1).processDies();
    runUntilIdle();
    EXPECT_EQ(world.pages.at(1).reloads, 1);
    EXPECT_EQ(panelPage().reloads, 0);
}

TEST_F(MacBridge, WhatThePageSaysAfterTheControllersEndIsNotHeard) {
    panelPage().posts("bridge", "DBG:too late");
    dropController();
    runUntilIdle();
    EXPECT_THAT(world.systemLog, IsEmpty());
}

}  // namespace

}  // namespace stagehopper
