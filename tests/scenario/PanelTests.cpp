// The panel window, its page, and the texts that the page may post.

#include <gmock/gmock.h>

#include <csignal>

#include "resources/PanelScript.h"
#include "tests/scenario/LaunchedStage.h"
#include "tests/scenario/Programs.h"

namespace stagehopper {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

using Panel = LaunchedStage;

TEST_F(Panel, IsAnOrdinaryWindowInTheMiddleWithTheKeyboard) {
    const auto& window = stage.desktop.panelWindow();
    EXPECT_EQ(window.title, "Stagehopper");
    EXPECT_EQ(window.contentRect, (platform::Rect{0, 0, {520, 680}}));
    EXPECT_EQ(window.minimumSize, (platform::Size{380, 480}));
    EXPECT_EQ(window.styleMask, 15U);
    EXPECT_TRUE(window.centered);
    EXPECT_TRUE(window.key);
    EXPECT_TRUE(window.visible);
}

TEST_F(Panel, ShowsItsPageWhichMayReadItsSiblings) {
    EXPECT_EQ(stage.desktop.panelPage().file(), "/app/Resources/panel.html");
    EXPECT_EQ(stage.desktop.panelPage().readAccess(), "/app/Resources");
    EXPECT_THAT(stage.desktop.panelPage().userScripts(), ElementsAre(std::string(panelScript)));
    EXPECT_THAT(stage.desktop.panelPage().handlerNames(), ElementsAre("bridge"));
}

TEST_F(Panel, ANumberPostedByThePageHasNoEffect) {
    stage.desktop.panelPage().postsNonText("bridge");
    stage.desktop.runReady();
    EXPECT_THAT(stage.lines(), IsEmpty());
}

TEST_F(Panel, ClosingItQuits) {
    stage.desktop.userClosesPanel();
    EXPECT_TRUE(stage.desktop.application.terminated());
}

TEST_F(Panel, ClosingItDropsAQueuedStep) {
    stage.desktop.addProgram(keynote(40).window("deck.key"));
    stage.app->consumeSlideEvent("next", "1", "test");
    stage.desktop.userClosesPanel();
    stage.desktop.runReady();
    EXPECT_THAT(stage.desktop.program(40).keys(), IsEmpty());
}

TEST_F(Panel, APostAfterTheWindowIsGoneIsNotDelivered) {
    auto page = stage.desktop.panelPage();
    stage.desktop.userClosesPanel();
    stage.app.reset();
    page.posts("bridge", "DBG:anybody there?");
    stage.desktop.runReady();
    EXPECT_THAT(stage.lines(), IsEmpty());
}

TEST_F(Panel, OnlyTheEntryPointHoldsTheController) {
    stage.desktop.addProgram(keynote(40).window("deck.key"));
    stage.step("next");
    stage.app->consumeSlideEvent("next", "", "test");
    const std::weak_ptr<AppController> observed = stage.app;
    EXPECT_EQ(observed.use_count(), 1);
    stage.app.reset();
    EXPECT_TRUE(observed.expired());
}

class ResourceDirectory : public testing::Test {
protected:
    ResourceDirectory() {
        stage.desktop.files.remove("/app/Resources/panel.html");
        stage.desktop.host.resourceDirectory = "/bundle";
        stage.desktop.host.commandLine = {"/opt/bin/stagehopper"};
        stage.desktop.host.workingDirectory = "/home/user";
    }
    Stage stage;
};

TEST_F(ResourceDirectory, WithoutAnyArgumentTheProgramStops) {
    stage.desktop.host.resourceDirectory = std::nullopt;
    stage.desktop.host.commandLine = {};
    EXPECT_EXIT(
        {
            // The end is expected, so a sanitizer must not report it and end the program
            // differently.
            std::signal(SIGABRT, SIG_DFL);
            static_cast<void>(stage.app->resourceDir());
        },
        testing::KilledBySignal(SIGABRT), "");
}

TEST_F(ResourceDirectory, IsInTheBundleIfThatHasThePanel) {
    stage.desktop.files.put("/bundle/panel.html", "");
    stage.desktop.files.put("/opt/bin/Resources/panel.html", "");
    EXPECT_EQ(stage.app->resourceDir(), "/bundle");
}

TEST_F(ResourceDirectory, IsBesideTheExecutableIfTheBundleLacksThePanel) {
    stage.desktop.files.put("/bundle/overlay.html", "");
    stage.desktop.files.put("/opt/bin/Resources/panel.html", "");
    EXPECT_EQ(stage.app->resourceDir(), "/opt/bin/Resources");
}

TEST_F(ResourceDirectory, IsBesideTheExecutableWithoutABundle) {
    stage.desktop.host.resourceDirectory = std::nullopt;
    stage.desktop.files.put("/opt/bin/Resources/panel.html", "");
    EXPECT_EQ(stage.app->resourceDir(), "/opt/bin/Resources");
}

TEST_F(ResourceDirectory, FollowsALinkToTheExecutable) {
    stage.desktop.files.put("/opt/stagehopper/stagehopper", "");
    stage.desktop.files.put("/opt/stagehopper/Resources/panel.html", "");
    stage.desktop.files.link("/opt/bin/stagehopper", "/opt/stagehopper/stagehopper");
    EXPECT_EQ(stage.app->resourceDir(), "/opt/stagehopper/Resources");
}

TEST_F(ResourceDirectory, ARelativeProgramPathStartsAtTheWorkingDirectory) {
    stage.desktop.host.commandLine = {"build/stagehopper"};
    stage.desktop.files.put("/home/user/build/Resources/panel.html", "");
    EXPECT_EQ(stage.app->resourceDir(), "/home/user/build/Resources");
}

TEST_F(ResourceDirectory, IsOtherwiseInTheWorkingDirectoryEvenIfMissing) {
    EXPECT_EQ(stage.app->resourceDir(), "/home/user/Resources");
}

using BridgeCommands = LaunchedStage;

TEST_F(BridgeCommands, DebugTextBecomesALine) {
    stage.pagePosts("DBG:hello | world");
    EXPECT_THAT(stage.lines(), ElementsAre("panel_debug hello | world"));
}

TEST_F(BridgeCommands, ASlideStepReachesTheProgram) {
    stage.desktop.addProgram(keynote(40).window("deck.key"));
    stage.pagePosts("PPT:prev|7|panel");
    EXPECT_THAT(stage.lines("native_bridge_received"),
                ElementsAre("native_bridge_received direction=prev seq=7 source=panel"));
    EXPECT_THAT(stage.desktop.program(40).keysDown(), ElementsAre(123));
}

TEST_F(BridgeCommands, UnknownTextsAreIgnoredWithoutALine) {
    const auto mark = stage.desktop.journal.mark();
    for (const auto& text :
         {""s, "CMD:showOverlay "s, "CMD:"s, "cmd:enableSlideControl"s, "CMD:enableSlideControl\n"s,
          "WSCONN:|AB"s, "WSCONN:ws://h/x|"s, "hello"s, "\0"s, "\xFF\xFE"s}) {
        stage.pagePosts(text);
    }
    EXPECT_THAT(stage.desktop.journal.effectsSince(mark), IsEmpty());
}

TEST_F(BridgeCommands, AHugeMessageIsWrittenWhole) {
    const std::string text(10'000'000, 'x');
    stage.pagePosts("DBG:" + text);
    EXPECT_EQ(stage.lines().back().size(), text.size() + "panel_debug "s.size());
}

TEST_F(BridgeCommands, ABurstIsHandledInOrder) {
    for (int i = 0; i < 10'000; ++i) {
        stage.desktop.panelPage().posts("bridge", "DBG:" + std::to_string(i));
    }
    stage.desktop.runReady();
    const auto lines = stage.lines();
    ASSERT_EQ(lines.size(), 10'000U);
    EXPECT_EQ(lines.front(), "panel_debug 0");
    EXPECT_EQ(lines.back(), "panel_debug 9999");
}

}  // namespace
}  // namespace stagehopper
