// Queues and timers, the same on every port.

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "platform/Clock.h"
#include "platform/Dispatch.h"
#include "tests/contract/PortTest.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using platform::Duration;
using testing::ElementsAre;

class DispatchContract : public PortTest {
protected:
    platform::Dispatch& dispatch = port.dispatch;
    std::vector<int> order;

    [[nodiscard]] bool untilOrderHas(std::size_t count) {
        return harness->runUntil([this, count] { return order.size() >= count; });
    }
};

TEST_F(DispatchContract, PostedTasksRunInTheOrderOfPosting) {
    for (int i = 0; i < 5; ++i) dispatch.asyncMain([this, i] { order.push_back(i); });
    ASSERT_TRUE(untilOrderHas(5));
    EXPECT_THAT(order, ElementsAre(0, 1, 2, 3, 4));
}

TEST_F(DispatchContract, ATaskNeverRunsInsideThePostingCall) {
    dispatch.asyncMain([this] {
        dispatch.asyncMain([this] { order.push_back(2); });
        order.push_back(1);
    });
    EXPECT_TRUE(order.empty());
    ASSERT_TRUE(untilOrderHas(2));
    EXPECT_THAT(order, ElementsAre(1, 2));
}

TEST_F(DispatchContract, TasksFromAnotherThreadRunOnTheMainThreadInOrder) {
    const auto mainThread = std::this_thread::get_id();
    std::vector<std::thread::id> threads;
    {
        const std::jthread poster([&] {
            for (int i = 0; i < 100; ++i) {
                dispatch.asyncMain([&, i] {
                    order.push_back(i);
                    threads.push_back(std::this_thread::get_id());
                });
            }
        });
    }
    ASSERT_TRUE(untilOrderHas(100));
    EXPECT_TRUE(std::ranges::is_sorted(order));
    EXPECT_THAT(threads, testing::Each(mainThread));
}

TEST_F(DispatchContract, GlobalWorkMayPostToTheMainQueue) {
    dispatch.asyncGlobal(platform::QualityOfService::userInitiated,
                         [this] { dispatch.asyncMain([this] { order.push_back(1); }); });
    EXPECT_TRUE(untilOrderHas(1));
}

TEST_F(DispatchContract, DelayedTasksRunInTheOrderOfTheirTimes) {
    const auto late = dispatch.afterMain(60ms, [this] { order.push_back(3); });
    const auto soon = dispatch.afterMain(30ms, [this] { order.push_back(2); });
    dispatch.asyncMain([this] { order.push_back(1); });
    ASSERT_TRUE(untilOrderHas(3));
    EXPECT_THAT(order, ElementsAre(1, 2, 3));
}

TEST_F(DispatchContract, ADelayedTaskIsNotEarly) {
    const auto start = port.clock.now();
    platform::Date ran;
    const auto item = dispatch.afterMain(50ms, [&] {
        ran = port.clock.now();
        order.push_back(1);
    });
    ASSERT_TRUE(untilOrderHas(1));
    EXPECT_GE(ran - start, 49ms);
}

TEST_F(DispatchContract, ACanceledTaskNeverRuns) {
    const auto item = dispatch.afterMain(10ms, [this] { order.push_back(1); });
    item->cancel();
    runFor(40ms);
    EXPECT_TRUE(order.empty());
}

TEST_F(DispatchContract, ADroppedTaskNeverRuns) {
    {
        const auto item = dispatch.afterMain(10ms, [this] { order.push_back(1); });
    }
    runFor(40ms);
    EXPECT_TRUE(order.empty());
}

TEST_F(DispatchContract, ATaskMayCancelAnotherThatIsAlreadyDue) {
    std::unique_ptr<platform::WorkItem> second;
    const auto first = dispatch.afterMain(10ms, [&] {
        order.push_back(1);
        second->cancel();
    });
    second = dispatch.afterMain(10ms, [this] { order.push_back(2); });
    port.clock.sleep(30ms);  // both are due before either runs
    runFor(20ms);
    EXPECT_THAT(order, ElementsAre(1));
}

TEST_F(DispatchContract, ATaskMayDropItsOwnHandle) {
    std::unique_ptr<platform::WorkItem> item;
    const auto kept = std::make_shared<int>(7);
    item = dispatch.afterMain(1ms, [&, kept] {
        item.reset();
        order.push_back(*kept);
    });
    ASSERT_TRUE(untilOrderHas(1));
    EXPECT_THAT(order, ElementsAre(7));
}

TEST_F(DispatchContract, CancelingATaskThatHasRunIsHarmless) {
    const auto item = dispatch.afterMain(1ms, [this] { order.push_back(1); });
    ASSERT_TRUE(untilOrderHas(1));
    item->cancel();
    runFor(10ms);
    EXPECT_THAT(order, ElementsAre(1));
}

TEST_F(DispatchContract, DelayedTasksWithoutAHandleRunInTheOrderOfTheirTimes) {
    dispatch.asyncMainAfter(30ms, [this] { order.push_back(3); });
    dispatch.asyncMainAfter(10ms, [this] { order.push_back(2); });
    dispatch.asyncMain([this] { order.push_back(1); });
    ASSERT_TRUE(untilOrderHas(3));
    EXPECT_THAT(order, ElementsAre(1, 2, 3));
}

TEST_F(DispatchContract, ADelayedTaskWithoutAHandleIsNotEarly) {
    const auto start = port.clock.now();
    platform::Date ran;
    dispatch.asyncMainAfter(50ms, [&] {
        ran = port.clock.now();
        order.push_back(1);
    });
    ASSERT_TRUE(untilOrderHas(1));
    EXPECT_GE(ran - start, 49ms);
}

TEST_F(DispatchContract, GlobalWorkMayDelayATask) {
    dispatch.asyncGlobal(platform::QualityOfService::standard,
                         [this] { dispatch.asyncMainAfter(1ms, [this] { order.push_back(1); }); });
    EXPECT_TRUE(untilOrderHas(1));
}

TEST_F(DispatchContract, ATimerRepeatsFirstAfterOneInterval) {
    const auto start = port.clock.now();
    platform::Date first;
    const auto timer = dispatch.repeatMain(20ms, [&] {
        if (order.empty()) first = port.clock.now();
        order.push_back(1);
    });
    ASSERT_TRUE(untilOrderHas(3));
    EXPECT_GE(first - start, 19ms);
}

TEST_F(DispatchContract, ATimerMayBeDroppedInsideItsOwnRound) {
    std::unique_ptr<platform::Timer> timer;
    const auto kept = std::make_shared<int>(7);
    timer = dispatch.repeatMain(5ms, [&, kept] {
        timer.reset();
        order.push_back(*kept);
    });
    ASSERT_TRUE(untilOrderHas(1));
    runFor(30ms);
    EXPECT_THAT(order, ElementsAre(7));
}

TEST_F(DispatchContract, AnInvalidatedTimerStops) {
    const auto timer = dispatch.repeatMain(5ms, [this] { order.push_back(1); });
    ASSERT_TRUE(untilOrderHas(1));
    timer->invalidate();
    const auto rounds = order.size();
    runFor(30ms);
    EXPECT_EQ(order.size(), rounds);
}

TEST_F(DispatchContract, MissedRoundsAreSkipped) {
    std::vector<platform::Date> rounds;
    const auto timer = dispatch.repeatMain(40ms, [&] {
        if (rounds.empty()) port.clock.sleep(200ms);
        rounds.push_back(port.clock.now());
    });
    ASSERT_TRUE(harness->runUntil([&] { return rounds.size() >= 4; }));
    // Repeated rounds would follow at once.
    EXPECT_GE(rounds[3] - rounds[1], 40ms);
}

}  // namespace
}  // namespace stagehopper
