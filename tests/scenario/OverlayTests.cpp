// The overlay: requested by the panel page, above everything, transparent to clicks.

#include <gmock/gmock.h>

#include "resources/OverlayScript.h"
#include "tests/scenario/LaunchedStage.h"

namespace stagehopper {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Overlay : public LaunchedStage {
protected:
    auto& panel() { return stage.desktop.userInterface.panel(); }
    std::size_t panelsMade() { return stage.desktop.userInterface.panels().size(); }
};

TEST_F(Overlay, CoversTheMainScreenTransparentlyAndTakesNoClicks) {
    stage.pagePosts("CMD:showOverlay");
    const auto& options = panel().options;
    EXPECT_EQ(options.contentRect, (platform::Rect{0, 0, {1440, 900}}));
    EXPECT_EQ(options.styleMask, 128U);
    EXPECT_TRUE(options.clearBackground);
    EXPECT_FALSE(options.opaque);
    EXPECT_FALSE(options.hasShadow);
    EXPECT_FALSE(options.hidesOnDeactivate);
    EXPECT_EQ(options.levelAboveShielding, 1);
    EXPECT_EQ(options.collectionBehavior, 257U);
    EXPECT_TRUE(options.ignoresMouseEvents);
    EXPECT_TRUE(panel().visible);
    EXPECT_FALSE(stage.desktop.overlayPage().drawsBackground());
    EXPECT_EQ(stage.desktop.overlayPage().frame(), (platform::Rect{0, 0, {1440, 900}}));
}

TEST_F(Overlay, ShowsItsPageWithItsScriptAndHasNoMessageHandler) {
    stage.pagePosts("CMD:showOverlay");
    const auto page = stage.desktop.overlayPage();
    EXPECT_EQ(page.file(), "/app/Resources/overlay.html");
    EXPECT_EQ(page.readAccess(), "/app/Resources");
    EXPECT_THAT(page.userScripts(), ElementsAre(std::string(overlayScript)));
    EXPECT_THAT(page.handlerNames(), IsEmpty());
    page.posts("bridge", "PPT:next|1|overlay");
    stage.desktop.runReady();
    EXPECT_THAT(stage.lines(), IsEmpty());
}

TEST_F(Overlay, IsShownBeforeItsPageIsLoaded) {
    const auto mark = stage.desktop.journal.mark();
    stage.pagePosts("CMD:showOverlay");
    EXPECT_THAT(stage.desktop.journal.effectsSince(mark),
                ElementsAre("panel ordered front", "page /app/Resources/overlay.html loaded"));
}

TEST_F(Overlay, IsMadeOnlyOnceForSeveralRequests) {
    stage.pagePosts("CMD:showOverlay");
    stage.pagePosts("CMD:showOverlay");
    EXPECT_EQ(panelsMade(), 1U);
    EXPECT_EQ(panel().timesOrderedFront, 2);
}

TEST_F(Overlay, HiddenAndShownAgainIsTheSamePage) {
    stage.pagePosts("CMD:showOverlay");
    const auto page = stage.desktop.overlayPage();
    stage.pagePosts("CMD:hideOverlay");
    EXPECT_FALSE(panel().visible);
    EXPECT_TRUE(page.isOpen());
    const auto mark = stage.desktop.journal.mark();
    stage.pagePosts("CMD:showOverlay");
    EXPECT_TRUE(panel().visible);
    EXPECT_THAT(stage.desktop.journal.effectsSince(mark), ElementsAre("panel ordered front"));
}

TEST_F(Overlay, DestroyedAndShownAgainIsAFreshPage) {
    stage.pagePosts("CMD:showOverlay");
    const auto page = stage.desktop.overlayPage();
    stage.pagePosts("CMD:destroyOverlay");
    EXPECT_FALSE(panel().open);
    EXPECT_FALSE(page.isOpen());
    stage.pagePosts("CMD:showOverlay");
    EXPECT_EQ(panelsMade(), 2U);
    EXPECT_EQ(stage.desktop.overlayPage().file(), "/app/Resources/overlay.html");
}

TEST_F(Overlay, IsOrderedOutBeforeItIsDestroyed) {
    stage.pagePosts("CMD:showOverlay");
    const auto mark = stage.desktop.journal.mark();
    stage.pagePosts("CMD:destroyOverlay");
    EXPECT_THAT(stage.desktop.journal.effectsSince(mark),
                ElementsAre("panel ordered out", "panel closed"));
}

TEST_F(Overlay, WithoutAnOverlayHidingDestroyingAndAScreenChangeDoNothing) {
    const auto mark = stage.desktop.journal.mark();
    stage.pagePosts("CMD:hideOverlay");
    stage.pagePosts("CMD:destroyOverlay");
    stage.pagePosts("CMD:destroyOverlay");
    stage.desktop.screens.change();
    EXPECT_THAT(stage.desktop.journal.effectsSince(mark), IsEmpty());
}

TEST_F(Overlay, FollowsTheMainScreenWithoutLoadingItsPageAgain) {
    stage.pagePosts("CMD:showOverlay");
    stage.desktop.screens.frames = {{0, 0, {1440, 900}}, {1440, 0, {1920, 1080}}};
    stage.desktop.screens.main = stage.desktop.screens.frames.back();
    const auto mark = stage.desktop.journal.mark();
    stage.desktop.screens.change();
    EXPECT_EQ(panel().frame, (platform::Rect{1440, 0, {1920, 1080}}));
    EXPECT_EQ(stage.desktop.overlayPage().frame(), (platform::Rect{0, 0, {1920, 1080}}));
    EXPECT_THAT(stage.desktop.journal.effectsSince(mark), ElementsAre("panel moved"));
}

TEST_F(Overlay, FollowsAScreenChangeAlsoWhileItIsHidden) {
    stage.pagePosts("CMD:showOverlay");
    stage.pagePosts("CMD:hideOverlay");
    stage.desktop.screens.main = platform::Rect{0, 0, {800, 600}};
    stage.desktop.screens.change();
    EXPECT_EQ(panel().frame, (platform::Rect{0, 0, {800, 600}}));
    EXPECT_FALSE(panel().visible);
}

TEST_F(Overlay, KeepsItsFrameWithoutAScreen) {
    stage.pagePosts("CMD:showOverlay");
    stage.desktop.screens.main.reset();
    stage.desktop.screens.frames.clear();
    stage.desktop.screens.change();
    EXPECT_EQ(panel().frame, (platform::Rect{0, 0, {1440, 900}}));
}

TEST_F(Overlay, CoversTheFirstScreenIfNoneIsTheMainScreen) {
    stage.desktop.screens.main.reset();
    stage.desktop.screens.frames = {{0, 0, {1024, 768}}, {1024, 0, {1920, 1080}}};
    stage.pagePosts("CMD:showOverlay");
    EXPECT_EQ(panel().frame, (platform::Rect{0, 0, {1024, 768}}));
}

TEST_F(Overlay, IsNotMadeWithoutAScreenAndNothingIsLogged) {
    stage.desktop.screens.main.reset();
    stage.desktop.screens.frames.clear();
    const auto mark = stage.desktop.journal.mark();
    stage.pagePosts("CMD:showOverlay");
    EXPECT_EQ(panelsMade(), 0U);
    EXPECT_THAT(stage.desktop.journal.effectsSince(mark), IsEmpty());
}

TEST_F(Overlay, IsDestroyedWithThePanelWindow) {
    stage.pagePosts("CMD:showOverlay");
    const auto page = stage.desktop.overlayPage();
    stage.desktop.userClosesPanel();
    EXPECT_FALSE(panel().open);
    EXPECT_FALSE(page.isOpen());
    EXPECT_TRUE(stage.desktop.application.terminated());
}

TEST_F(Overlay, StaysWhenAnotherOrAnUnnamedWindowClosesBesideThePanel) {
    stage.pagePosts("CMD:showOverlay");
    const auto other = stage.desktop.userInterface.makeWindow({});
    stage.app->windowWillClose(other.get());
    stage.app->windowWillClose(nullptr);
    EXPECT_TRUE(panel().open);
}

TEST(OverlayWithoutPanel, GoesWhenAnUnnamedWindowCloses) {
    Stage stage;
    stage.app->showOverlay();
    stage.app->windowWillClose(nullptr);
    EXPECT_FALSE(stage.desktop.userInterface.panel().open);
}

class OverlayConnection : public Overlay {
protected:
    std::vector<std::string> scripts() { return stage.desktop.overlayPage().evaluatedScripts(); }
};

TEST_F(OverlayConnection, IsPassedToThePageHalfASecondLater) {
    stage.pagePosts("CMD:showOverlay");
    stage.pagePosts("WSCONN:ws://h/x|AB");
    stage.desktop.advance(std::chrono::milliseconds(499));
    EXPECT_THAT(scripts(), IsEmpty());
    stage.desktop.advance(std::chrono::milliseconds(1));
    EXPECT_THAT(scripts(), ElementsAre(R"(window._connectOverlay("ws://h/x", "AB"))"));
}

TEST_F(OverlayConnection, ReachesAnOverlayThatIsMadeInTheMeantime) {
    stage.pagePosts("WSCONN:ws://h/x|AB");
    stage.pagePosts("CMD:showOverlay");
    stage.desktop.advance(std::chrono::milliseconds(500));
    EXPECT_THAT(scripts(), ElementsAre(R"(window._connectOverlay("ws://h/x", "AB"))"));
}

TEST_F(OverlayConnection, IsNotRetriedIfThereIsNoOverlayAtThatTime) {
    stage.pagePosts("WSCONN:ws://h/x|AB");
    stage.desktop.advance(std::chrono::milliseconds(500));
    stage.pagePosts("CMD:showOverlay");
    stage.desktop.advance(std::chrono::seconds(3));
    EXPECT_THAT(scripts(), IsEmpty());
}

TEST_F(OverlayConnection, IsDroppedWithTheController) {
    stage.pagePosts("CMD:showOverlay");
    stage.pagePosts("WSCONN:ws://h/x|AB");
    const auto mark = stage.desktop.journal.mark();
    stage.app.reset();
    stage.desktop.advance(std::chrono::seconds(1));
    for (const auto& effect : stage.desktop.journal.effectsSince(mark)) {
        EXPECT_FALSE(effect.starts_with("script")) << effect;
    }
}

TEST_F(OverlayConnection, QuotesAndBackslashesStayInsideTheirText) {
    stage.pagePosts("CMD:showOverlay");
    stage.pagePosts(R"(WSCONN:ws://h/\|A"B\")");
    stage.desktop.advance(std::chrono::milliseconds(500));
    EXPECT_THAT(scripts(), ElementsAre(R"(window._connectOverlay("ws://h/\\", "A\"B\\\""))"));
}

TEST_F(OverlayConnection, ControlCharactersAreNotChanged) {
    stage.pagePosts("CMD:showOverlay");
    stage.pagePosts("WSCONN:ws://h/x|A\nB");
    stage.desktop.advance(std::chrono::milliseconds(500));
    EXPECT_THAT(scripts(), ElementsAre("window._connectOverlay(\"ws://h/x\", \"A\nB\")"));
}

}  // namespace
}  // namespace stagehopper
