// The program's life from launch to end, the same on every port.

#include <gmock/gmock.h>

#include "platform/Application.h"
#include "platform/Dispatch.h"
#include "tests/contract/PortHarness.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class ApplicationContract : public testing::Test {
protected:
    std::unique_ptr<PortHarness> harness = makePortHarness();
    platform::Platform port = harness->platform();
};

/// Quits right after launch.
class Quitter final : public platform::ApplicationDelegate {
public:
    explicit Quitter(platform::Platform platform) : platform_(std::move(platform)) {}
    void applicationDidFinishLaunching() override {
        events.push_back("launched");
        if (afterLaunch) afterLaunch();
        platform_.dispatch.asyncMain([this] { platform_.application.terminate(); });
    }
    bool applicationShouldTerminateAfterLastWindowClosed() override { return true; }
    void applicationWillTerminate() override { events.push_back("will terminate"); }

    std::function<void()> afterLaunch;
    std::vector<std::string> events;

private:
    platform::Platform platform_;
};

TEST_F(ApplicationContract, RunReturnsZeroAfterOneCallOfTheDelegate) {
    const auto delegate = std::make_shared<Quitter>(port);
    delegate->afterLaunch = [this] {
        port.dispatch.asyncMain([this] {
            port.application.terminate();
            port.application.terminate();
        });
    };
    port.application.setDelegate(delegate);
    EXPECT_EQ(port.application.run(), 0);
    EXPECT_THAT(delegate->events, ElementsAre("launched", "will terminate"));
}

TEST_F(ApplicationContract, WorkStillQueuedAtTheEndIsDropped) {
    const auto delegate = std::make_shared<Quitter>(port);
    std::unique_ptr<platform::WorkItem> later;
    std::vector<int> order;
    delegate->afterLaunch = [&] {
        port.dispatch.asyncMain([&] {
            port.application.terminate();
            port.dispatch.asyncMain([&order] { order.push_back(1); });
        });
        port.dispatch.asyncMain([&order] { order.push_back(2); });
        later = port.dispatch.afterMain(0ms, [&order] { order.push_back(3); });
    };
    port.application.setDelegate(delegate);
    EXPECT_EQ(port.application.run(), 0);
    EXPECT_TRUE(order.empty());
}

TEST_F(ApplicationContract, ADestroyedDelegateIsNotCalled) {
    auto delegate = std::make_shared<Quitter>(port);
    port.application.setDelegate(delegate);
    delegate.reset();
    const auto quit = port.dispatch.afterMain(1ms, [this] { port.application.terminate(); });
    EXPECT_EQ(port.application.run(), 0);
}

}  // namespace
}  // namespace stagehopper
