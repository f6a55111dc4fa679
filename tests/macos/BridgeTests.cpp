// From the panel's page to the controller, and what the page's end means.

#include <gmock/gmock.h>

#include "tests/macos/MacStage.h"
#include "tests/macos/recording/foundation/Foundation.h"

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
    void pagePostsOther(recording::Retained body) {
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

TEST_F(MacBridge, ATextWithHalfASurrogatePairIsInTheSystemsLogAndNotInTheFile) {
    pagePostsOther(recording::makeStringWithoutUtf8(u"DBG:é\xD83D!"));
    EXPECT_THAT(diagnostics(), ElementsAre("panel_debug é\uFFFD\uFFFD\uFFFD!"));
    pagePosts("DBG:whole");
    EXPECT_THAT(files.contents(logFile), testing::EndsWith("panel_debug whole\n"));
    EXPECT_THAT(files.contents(logFile), testing::Not(testing::HasSubstr("é")));
}

TEST_F(MacBridge, AnEmptyTextDoesNothing) {
    pagePosts("");
    EXPECT_THAT(world.systemLog, IsEmpty());
}

TEST_F(MacBridge, ANumberABooleanAndAListDoNothing) {
    pagePostsOther(recording::makeNumber(17));
    pagePostsOther(recording::makeTruth(true));
    pagePostsOther(recording::makeArray({recording::makeString("CMD:showOverlay")}));
    EXPECT_THAT(world.systemLog, IsEmpty());
    EXPECT_THAT(lines("didReceiveScriptMessage:"), SizeIs(3));
    EXPECT_THAT(lines("NSPanel"), IsEmpty());
}

TEST_F(MacBridge, AMessageToAnUnknownHandlerIsIgnored) {
    panelPage().posts("other", "DBG:hello");
    runUntilIdle();
    EXPECT_THAT(world.systemLog, IsEmpty());
}

TEST_F(MacBridge, MessagesFromAFrameInThePageAreIgnored) {
    panelPage().postsFromFrame("bridge", "CMD:showOverlay");
    panelPage().postsFromFrame("bridge", "DBG:from a frame");
    runUntilIdle();
    EXPECT_THAT(world.systemLog, IsEmpty());
    EXPECT_THAT(lines("NSPanel"), IsEmpty());
}

TEST_F(MacBridge, AFileDroppedOnThePageDoesNotReplaceIt) {
    const auto page = panelPage().file;
    for (const auto* address :
         {"file:///Users/me/slides.html", "https://example.org/", "http://127.0.0.1:3000/phone"}) {
        panelPage().userDrops(address);
        runUntilIdle();
        EXPECT_EQ(panelPage().file, page);
    }
}

TEST_F(MacBridge, ThePageMayNavigateToItself) {
    const auto page = panelPage().file;
    panelPage().userDrops("file://" + page + "#top");
    runUntilIdle();
    EXPECT_EQ(panelPage().file, "file://" + page + "#top");
}

TEST_F(MacBridge, AFrameShowsTheBackendsPageAndNoWindowIsOpened) {
    EXPECT_TRUE(panelPage().frameMayGoTo("http://127.0.0.1:3000/link"));
    EXPECT_FALSE(panelPage().mayOpenWindow("http://127.0.0.1:3000/link"));
}

TEST_F(MacBridge, APageWhoseProcessDiedIsLoadedAgainAfterAPause) {
    panelPage().processDies();
    runUntilIdle();
    EXPECT_EQ(panelPage().loads, 1);
    advance(0.6);
    EXPECT_EQ(panelPage().loads, 2);
    EXPECT_TRUE(panelPage().alive);
    EXPECT_THAT(world.systemLog,
                ElementsAre("Stagehopper: the page panel.html ended and is loaded again"));
    pagePosts("DBG:back again");
    EXPECT_THAT(diagnostics(), ElementsAre("panel_debug back again"));
}

TEST_F(MacBridge, APageThatDiesTooOftenStaysEmpty) {
    for (int death = 1; death <= 4; ++death) {
        panelPage().processDies();
        advance(1);
    }
    EXPECT_EQ(panelPage().loads, 4);
    EXPECT_FALSE(panelPage().alive);
    EXPECT_EQ(world.systemLog.back(),
              "Stagehopper: the page panel.html ended too often and stays empty");
}

TEST_F(MacBridge, APageThatDiesOnceAMinuteIsAlwaysLoadedAgain) {
    for (int death = 1; death <= 6; ++death) {
        panelPage().processDies();
        advance(30);
    }
    EXPECT_TRUE(panelPage().alive);
}

TEST_F(MacBridge, TheOverlaysPageIsAlsoLoadedAgain) {
    pagePosts("CMD:showOverlay");
    world.pages.at(1).processDies();
    advance(0.6);
    EXPECT_EQ(world.pages.at(1).loads, 2);
    EXPECT_EQ(panelPage().loads, 1);
}

TEST_F(MacBridge, MessagesOfThePageAfterTheControllersEndAreIgnored) {
    panelPage().posts("bridge", "DBG:too late");
    dropController();
    runUntilIdle();
    EXPECT_THAT(world.systemLog, IsEmpty());
}

}  // namespace

}  // namespace stagehopper
