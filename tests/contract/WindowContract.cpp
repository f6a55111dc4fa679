// Windows, pages and the pages' posts, the same on every port.

#include <gmock/gmock.h>

#include "platform/Application.h"
#include "platform/Dispatch.h"
#include "platform/UserInterface.h"
#include "tests/contract/PortTest.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using testing::ElementsAre;

class WindowContract : public PortTest {
protected:
    WindowContract() {
        configuration.messageHandlers["bridge"] = recorder;
        view = port.userInterface.makeWebView({0, 0, {300, 200}}, configuration);
        window = port.userInterface.makeWindow(
            {{0, 0, {300, 200}}, platform::windowTitled | platform::windowClosable});
        window->setTitle("Contract");
        window->setContentView(view);
        window->makeKeyAndOrderFront();
        harness->loadEmptyPage(*view);
    }
    [[nodiscard]] bool untilTexts(std::size_t count) {
        return harness->runUntil([this, count] { return recorder->texts.size() >= count; });
    }

    std::shared_ptr<MessageRecorder> recorder = std::make_shared<MessageRecorder>();
    platform::WebViewConfiguration configuration;
    std::shared_ptr<platform::WebView> view;
    std::shared_ptr<platform::Window> window;
};

TEST_F(WindowContract, TextsArriveInTheOrderOfPosting) {
    for (int i = 0; i < 20; ++i) harness->pagePosts(*view, "bridge", std::to_string(i));
    ASSERT_TRUE(untilTexts(20));
    for (std::size_t i = 0; i < 20; ++i) EXPECT_EQ(recorder->texts[i], std::to_string(i));
    EXPECT_THAT(recorder->names, testing::Each("bridge"));
}

TEST_F(WindowContract, AValueThatIsNotATextArrivesWithoutText) {
    harness->pagePostsNumber(*view, "bridge");
    ASSERT_TRUE(untilTexts(1));
    EXPECT_THAT(recorder->texts, ElementsAre("(no text)"));
}

TEST_F(WindowContract, TextsKeepEveryCharacter) {
    const auto text = "a\0b\n\"\\ é 下一张 😀"s;
    harness->pagePosts(*view, "bridge", text);
    harness->pagePosts(*view, "bridge", "");
    ASSERT_TRUE(untilTexts(2));
    EXPECT_THAT(recorder->texts, ElementsAre(text, ""));
}

TEST_F(WindowContract, APostToAnUnknownHandlerIsNotDelivered) {
    harness->pagePosts(*view, "elsewhere", "lost");
    harness->pagePosts(*view, "bridge", "found");
    ASSERT_TRUE(untilTexts(1));
    runFor(50ms);
    EXPECT_THAT(recorder->texts, ElementsAre("found"));
}

TEST_F(WindowContract, NothingArrivesAfterTheViewWasDropped) {
    harness->pagePosts(*view, "bridge", "too late");
    window.reset();
    view.reset();
    runFor(200ms);
    EXPECT_TRUE(recorder->texts.empty());
}

TEST_F(WindowContract, AHandlerMayDropTheViewThatCalledIt) {
    recorder->onMessage = [this] {
        window.reset();
        view.reset();
    };
    harness->pagePosts(*view, "bridge", "first");
    harness->pagePosts(*view, "bridge", "second");
    ASSERT_TRUE(untilTexts(1));
    runFor(200ms);
    EXPECT_THAT(recorder->texts, ElementsAre("first"));
}

TEST_F(WindowContract, AViewHoldsItsHandlers) {
    const std::weak_ptr<MessageRecorder> observed = recorder;
    configuration.messageHandlers.clear();
    recorder.reset();
    EXPECT_FALSE(observed.expired());
    window.reset();
    view.reset();
    EXPECT_TRUE(harness->runUntil([&observed] { return observed.expired(); }));
}

/// Records the windows that are about to close, and then runs a test's action.
class Closing final : public platform::WindowDelegate {
public:
    void windowWillClose(const platform::Window* window) override {
        windows.push_back(window);
        if (onClose) onClose();
    }
    std::vector<const platform::Window*> windows;
    std::function<void()> onClose;
};

TEST_F(WindowContract, TheDelegateIsCalledOnceWhenTheUserClosesTheWindow) {
    const auto delegate = std::make_shared<Closing>();
    window->setDelegate(delegate);
    harness->userCloses(*window);
    ASSERT_TRUE(harness->runUntil([&delegate] { return !delegate->windows.empty(); }));
    const auto* closed = window.get();
    window.reset();
    runFor(50ms);
    EXPECT_THAT(delegate->windows, ElementsAre(closed));
}

TEST_F(WindowContract, TheDelegateIsCalledWhenAWindowIsDropped) {
    const auto delegate = std::make_shared<Closing>();
    window->setDelegate(delegate);
    window.reset();
    EXPECT_EQ(delegate->windows.size(), 1U);
}

TEST_F(WindowContract, ADestroyedDelegateIsNotCalledForAWindow) {
    auto delegate = std::make_shared<Closing>();
    const std::weak_ptr<Closing> observed = delegate;
    window->setDelegate(delegate);
    delegate.reset();
    ASSERT_TRUE(observed.expired());
    harness->userCloses(*window);
    runFor(50ms);
}

TEST_F(WindowContract, TheDelegateMayDropTheWindowThatCloses) {
    const auto delegate = std::make_shared<Closing>();
    delegate->onClose = [this] { window.reset(); };
    window->setDelegate(delegate);
    harness->userCloses(*window);
    ASSERT_TRUE(harness->runUntil([&delegate] { return !delegate->windows.empty(); }));
    runFor(50ms);
    EXPECT_EQ(delegate->windows.size(), 1U);
}

TEST_F(WindowContract, TheWindowsDelegateIsCalledBeforeTheApplications) {
    const auto application = std::make_shared<RecordingDelegate>();
    const auto delegate = std::make_shared<Closing>();
    int askedBefore = -1;
    delegate->onClose = [&] { askedBefore = application->asked; };
    std::unique_ptr<platform::WorkItem> close;
    application->onLaunch = [&] {
        close = port.dispatch.afterMain(1ms, [this] { harness->userCloses(*window); });
    };
    window->setDelegate(delegate);
    port.application.setDelegate(application);
    EXPECT_EQ(port.application.run(), 0);
    EXPECT_EQ(askedBefore, 0);
    EXPECT_EQ(application->asked, 1);
}

TEST_F(WindowContract, ClosingTheLastWindowAsksTheDelegateAndQuits) {
    const auto delegate = std::make_shared<RecordingDelegate>();
    std::unique_ptr<platform::WorkItem> close;
    delegate->onLaunch = [&] {
        close = port.dispatch.afterMain(1ms, [this] { harness->userCloses(*window); });
    };
    port.application.setDelegate(delegate);
    EXPECT_EQ(port.application.run(), 0);
    EXPECT_EQ(delegate->asked, 1);
    EXPECT_EQ(delegate->told, 1);
}

}  // namespace
}  // namespace stagehopper
