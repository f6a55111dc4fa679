// The program's life from launch to end, the same on every port.

#include <gmock/gmock.h>

#include "platform/Application.h"
#include "platform/Dispatch.h"
#include "tests/contract/PortTest.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;

class ApplicationContract : public PortTest {
protected:
    /// Runs the application with a delegate that does this at the launch and then quits.
    void runWith(const std::function<void()>& atLaunch) {
        delegate->onLaunch = [this, atLaunch] {
            atLaunch();
            port.dispatch.asyncMain([this] { port.application.terminate(); });
        };
        port.application.setDelegate(delegate);
        EXPECT_EQ(port.application.run(), 0);
    }

    std::shared_ptr<RecordingDelegate> delegate = std::make_shared<RecordingDelegate>();
};

TEST_F(ApplicationContract, RunReturnsZeroAfterOneCallOfTheDelegate) {
    runWith([this] {
        port.dispatch.asyncMain([this] {
            port.application.terminate();
            port.application.terminate();
        });
    });
    EXPECT_EQ(delegate->launched, 1);
    EXPECT_EQ(delegate->told, 1);
}

TEST_F(ApplicationContract, WorkStillQueuedAtTheEndIsDropped) {
    std::unique_ptr<platform::WorkItem> later;
    std::vector<int> order;
    runWith([&] {
        port.dispatch.asyncMain([&] {
            port.application.terminate();
            port.dispatch.asyncMain([&order] { order.push_back(1); });
        });
        port.dispatch.asyncMain([&order] { order.push_back(2); });
        later = port.dispatch.afterMain(0ms, [&order] { order.push_back(3); });
    });
    EXPECT_TRUE(order.empty());
}

TEST_F(ApplicationContract, ADestroyedDelegateIsNotCalled) {
    port.application.setDelegate(delegate);
    delegate.reset();
    const auto quit = port.dispatch.afterMain(1ms, [this] { port.application.terminate(); });
    EXPECT_EQ(port.application.run(), 0);
}

}  // namespace
}  // namespace stagehopper
