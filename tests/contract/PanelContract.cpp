// Auxiliary windows, the same on every port.

#include <gmock/gmock.h>

#include "platform/Application.h"
#include "platform/Dispatch.h"
#include "platform/UserInterface.h"
#include "tests/contract/PortTest.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class PanelContract : public PortTest {
protected:
    PanelContract() {
        platform::WebViewConfiguration configuration;
        configuration.messageHandlers["bridge"] = recorder;
        view = port.userInterface.makeWebView({0, 0, {200, 100}}, configuration);
        view->setDrawsBackground(false);
        panel = port.userInterface.makePanel({
            .contentRect = {10, 20, {200, 100}},
            .styleMask = platform::panelNonactivating,
            .clearBackground = true,
            .opaque = false,
            .hasShadow = false,
            .hidesOnDeactivate = false,
            .levelAboveShielding = 1,
            .collectionBehavior = platform::canJoinAllSpaces | platform::fullScreenAuxiliary,
            .ignoresMouseEvents = true,
        });
        panel->setContentView(view);
        panel->orderFrontRegardless();
        harness->loadEmptyPage(*view);
    }
    bool answers(const std::string& text) {
        harness->pagePosts(*view, "bridge", text);
        return harness->runUntil(
            [this, &text] { return !recorder->texts.empty() && recorder->texts.back() == text; });
    }

    std::shared_ptr<MessageRecorder> recorder = std::make_shared<MessageRecorder>();
    std::shared_ptr<platform::WebView> view;
    std::shared_ptr<platform::Panel> panel;
};

TEST_F(PanelContract, ThePageRunsWhileThePanelIsHidden) {
    panel->orderOut();
    EXPECT_TRUE(answers("hidden"));
    panel->orderFrontRegardless();
    EXPECT_TRUE(answers("back"));
}

TEST_F(PanelContract, ThePageSurvivesANewFrame) {
    panel->setFrame({0, 0, {300, 150}});
    view->setFrame({0, 0, {300, 150}});
    EXPECT_TRUE(answers("larger"));
    panel->setFrame({5, 5, {50, 30}});
    view->setFrame({0, 0, {50, 30}});
    EXPECT_TRUE(answers("smaller"));
}

TEST_F(PanelContract, ThePanelHoldsItsView) {
    const std::weak_ptr<platform::WebView> observed = view;
    view.reset();
    EXPECT_FALSE(observed.expired());
    panel.reset();
    EXPECT_TRUE(observed.expired());
}

TEST_F(PanelContract, AViewOutlivesItsPanel) {
    panel.reset();
    EXPECT_TRUE(answers("alone"));
}

TEST_F(PanelContract, OrderingOutAndInAgainIsHarmless) {
    panel->orderOut();
    panel->orderOut();
    panel->orderFrontRegardless();
    panel->orderFrontRegardless();
    EXPECT_TRUE(answers("still here"));
}

TEST_F(PanelContract, APanelDoesNotKeepTheProgramRunningAfterItsLastWindow) {
    const auto window =
        port.userInterface.makeWindow({{0, 0, {300, 200}}, platform::windowClosable});
    window->makeKeyAndOrderFront();
    const auto delegate = std::make_shared<RecordingDelegate>();
    std::unique_ptr<platform::WorkItem> close;
    delegate->onLaunch = [&] {
        close = port.dispatch.afterMain(1ms, [&] { harness->userCloses(*window); });
    };
    port.application.setDelegate(delegate);
    EXPECT_EQ(port.application.run(), 0);
    EXPECT_EQ(delegate->told, 1);
}

TEST_F(PanelContract, DroppingAPanelDoesNotEndTheProgram) {
    const auto delegate = std::make_shared<RecordingDelegate>();
    std::unique_ptr<platform::WorkItem> drop;
    std::unique_ptr<platform::WorkItem> quit;
    int toldBefore = -1;
    delegate->onLaunch = [&] {
        drop = port.dispatch.afterMain(1ms, [&] { panel.reset(); });
        quit = port.dispatch.afterMain(100ms, [&] {
            toldBefore = delegate->told;
            port.application.terminate();
        });
    };
    port.application.setDelegate(delegate);
    EXPECT_EQ(port.application.run(), 0);
    EXPECT_EQ(toldBefore, 0);
}

}  // namespace
}  // namespace stagehopper
