// Timers, delayed work and semaphores, where the application itself leaves corners out.

#include <gmock/gmock.h>

#include <memory>

#include "ports/macos/dispatch/MacDispatch.h"
#include "tests/macos/MacStage.h"

namespace stagehopper {

namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::SizeIs;

class MacQueues : public MacStage {
protected:
    macos_port::MacDispatch dispatch;

private:
    std::unique_ptr<cocoa::AutoreleasePool> pool_ = std::make_unique<cocoa::AutoreleasePool>();
};

TEST_F(MacQueues, ATimerMayDropItselfWhileItsTaskRuns) {
    std::unique_ptr<platform::Timer> timer;
    const auto calls = std::make_shared<int>(0);
    timer = dispatch.repeatMain(platform::Duration{1}, [&timer, calls] {
        timer.reset();
        // What the task holds is still there.
        ++*calls;
    });
    advance(5);
    EXPECT_EQ(*calls, 1);
    EXPECT_EQ(calls.use_count(), 1);
}

TEST_F(MacQueues, AnInvalidatedTimerLeavesTheRunLoopAtOnce) {
    const auto calls = std::make_shared<int>(0);
    const auto timer = dispatch.repeatMain(platform::Duration{1}, [calls] { ++*calls; });
    advance(2.5);
    EXPECT_EQ(*calls, 2);
    timer->invalidate();
    EXPECT_THAT(lines("[<NSTimer 1> invalidate]"), SizeIs(1));
    EXPECT_EQ(calls.use_count(), 1);
    advance(5);
    EXPECT_EQ(*calls, 2);
}

TEST_F(MacQueues, DelayedWorkMayDropItselfWhileItRuns) {
    std::unique_ptr<platform::WorkItem> item;
    const auto calls = std::make_shared<int>(0);
    item = dispatch.afterMain(platform::Duration{1}, [&item, calls] {
        item.reset();
        ++*calls;
    });
    advance(5);
    EXPECT_EQ(*calls, 1);
}

TEST_F(MacQueues, CanceledAndDroppedWorkDoesNotRun) {
    int calls = 0;
    const auto canceled = dispatch.afterMain(platform::Duration{1}, [&calls] { ++calls; });
    auto dropped = dispatch.afterMain(platform::Duration{1}, [&calls] { ++calls; });
    canceled->cancel();
    dropped.reset();
    advance(5);
    EXPECT_EQ(calls, 0);
    EXPECT_THAT(lines("dispatch_after_f"),
                ElementsAre("dispatch_after_f(1 s, main)", "dispatch_after_f(1 s, main)"));
}

TEST_F(MacQueues, AWaitReturnsWhetherTheSignalCameInTime) {
    const auto semaphore = dispatch.makeSemaphore();
    const auto before = recording::queues::now();
    EXPECT_FALSE(semaphore->wait(platform::Duration{0.35}));
    EXPECT_THAT(recording::queues::now() - before, DoubleNear(0.35, 1e-6));
    dispatch.asyncGlobal(platform::QualityOfService::standard,
                         [semaphore] { semaphore->signal(); });
    EXPECT_TRUE(semaphore->wait(platform::Duration{0.35}));
    EXPECT_THAT(recording::queues::now() - before, DoubleNear(0.35, 1e-6));
}

}  // namespace

}  // namespace stagehopper
