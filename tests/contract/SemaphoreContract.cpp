// Waiting for another thread, the same on every port.

#include <gmock/gmock.h>

#include "platform/Dispatch.h"
#include "tests/contract/PortTest.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;

class SemaphoreContract : public PortTest {
protected:
    std::shared_ptr<platform::Semaphore> semaphore = port.dispatch.makeSemaphore();
};

TEST_F(SemaphoreContract, WithoutASignalTheWaitEndsAtItsLimitAndNotBefore) {
    const auto start = port.clock.now();
    EXPECT_FALSE(semaphore->wait(30ms));
    EXPECT_GE(port.clock.now() - start, 29ms);
}

TEST_F(SemaphoreContract, AWaitOfZeroReturnsAtOnce) {
    EXPECT_FALSE(semaphore->wait(0s));
    EXPECT_FALSE(semaphore->wait(-1s));
    semaphore->signal();
    EXPECT_TRUE(semaphore->wait(0s));
}

TEST_F(SemaphoreContract, ASignalBeforeTheWaitCounts) {
    semaphore->signal();
    EXPECT_TRUE(semaphore->wait(10s));
    EXPECT_FALSE(semaphore->wait(1ms));
}

TEST_F(SemaphoreContract, SignalsAreCounted) {
    for (int i = 0; i < 3; ++i) semaphore->signal();
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(semaphore->wait(10s));
    EXPECT_FALSE(semaphore->wait(1ms));
}

TEST_F(SemaphoreContract, TheMainThreadMayWaitForGlobalWork) {
    port.dispatch.asyncGlobal(platform::QualityOfService::userInitiated,
                              [shared = semaphore] { shared->signal(); });
    EXPECT_TRUE(semaphore->wait(10s));
}

TEST_F(SemaphoreContract, GlobalWorkMayWaitForTheMainThread) {
    const auto answer = port.dispatch.makeSemaphore();
    bool answered = false;
    port.dispatch.asyncGlobal(platform::QualityOfService::standard, [this, answer, &answered] {
        const bool came = answer->wait(10s);
        port.dispatch.asyncMain([came, &answered] { answered = came; });
    });
    port.dispatch.asyncMain([answer] { answer->signal(); });
    EXPECT_TRUE(harness->runUntil([&answered] { return answered; }));
}

}  // namespace
}  // namespace stagehopper
