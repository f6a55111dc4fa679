// From the panel's page to the controller, and what the page's end means.

#include <gmock/gmock.h>

#include "tests/macos/MacStage.h"
#include "tests/macos/recording/foundation/Foundation.h"

namespace stagehopper {

namespace {

using recording::expectInOrder;
using testing::ElementsAre;
using testing::IsEmpty;

class MacBridge : public MacStage {
protected:
    MacBridge() {
        world.servers.serve(3000);
        launch();
        forget();
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
    panelPage().posts("bridge", recording::makeStringWithoutUtf8(u"DBG:é\xD83D!"));
    pagePosts("DBG:whole");
    EXPECT_THAT(diagnostics(),
                ElementsAre("panel_debug é\uFFFD\uFFFD\uFFFD!", "panel_debug whole"));
    EXPECT_THAT(files.contents(logFile), testing::EndsWith("panel_debug whole\n"));
    EXPECT_THAT(files.contents(logFile), testing::Not(testing::HasSubstr("é")));
}

TEST_F(MacBridge, MessagesFromAFrameInThePageAreIgnored) {
    panelPage().postsFromFrame("bridge", "DBG:from a frame");
    runUntilIdle();
    EXPECT_THAT(world.systemLog, IsEmpty());
}

TEST_F(MacBridge, AFileDroppedOnThePageDoesNotReplaceIt) {
    const auto page = panelPage().file;
    for (const auto* address :
         {"file:///Users/me/slides.html", "https://example.org/", "http://127.0.0.1:3000/phone"}) {
        panelPage().userDrops(address);
        runUntilIdle();
        EXPECT_EQ(panelPage().file, page);
    }
    panelPage().userDrops("file://" + page + "#top");
    runUntilIdle();
    EXPECT_EQ(panelPage().file, "file://" + page + "#top");
    EXPECT_TRUE(panelPage().frameMayGoTo("http://127.0.0.1:3000/link"));
    EXPECT_FALSE(panelPage().mayOpenWindow("http://127.0.0.1:3000/link"));
}

TEST_F(MacBridge, APageWhoseProcessDiedIsLoadedAgainAfterAPause) {
    pagePosts("CMD:showOverlay");
    world.systemLog.clear();
    for (const auto page : {0U, 1U}) {
        world.pages.at(page).processDies();
        runUntilIdle();
        EXPECT_EQ(world.pages.at(page).loads, 1);
        advance(0.6);
        EXPECT_EQ(world.pages.at(page).loads, 2);
        EXPECT_TRUE(world.pages.at(page).alive);
    }
    EXPECT_THAT(world.systemLog,
                ElementsAre("Stagehopper: the page panel.html ended and is loaded again",
                            "Stagehopper: the page overlay.html ended and is loaded again"));
}

TEST_F(MacBridge, APageThatDiesTooOftenStaysEmpty) {
    for (int death = 1; death <= 6; ++death) {
        panelPage().processDies();
        advance(30);
        EXPECT_TRUE(panelPage().alive) << "once a minute is not too often";
    }
    for (int death = 1; death <= 4; ++death) {
        panelPage().processDies();
        advance(1);
    }
    EXPECT_FALSE(panelPage().alive);
    EXPECT_EQ(world.systemLog.back(),
              "Stagehopper: the page panel.html ended too often and stays empty");
}

}  // namespace

}  // namespace stagehopper
