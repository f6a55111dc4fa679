#include <gtest/gtest.h>

#include <vector>

#include "companion/backend/limits/ConnectionLimits.h"
#include "companion/backend/limits/FailedLogins.h"
#include "companion/backend/limits/LineBudget.h"
#include "companion/backend/limits/RateLimit.h"
#include "companion/backend/room/OutgoingQueue.h"

namespace stagehopper::companion {
namespace {

using namespace std::chrono_literals;

SharedText text(const std::string& words) {
    return std::make_shared<const std::string>(words);
}

std::vector<std::string> drained(OutgoingQueue& queue) {
    std::vector<std::string> all;
    while (!queue.empty()) all.push_back(*queue.pop());
    return all;
}

TEST(RateLimit, AnEventBeyondTheLimitOfTheWindowIsRefused) {
    RateLimit limit(3, 2s);
    const TimePoint start;
    EXPECT_TRUE(limit.allow(start));
    EXPECT_TRUE(limit.allow(start + 1s));
    EXPECT_TRUE(limit.allow(start + 1900ms));
    EXPECT_FALSE(limit.allow(start + 1999ms));
    EXPECT_TRUE(limit.allow(start + 2s)) << "the first has left the window";
    EXPECT_FALSE(limit.allow(start + 2999ms));
    EXPECT_TRUE(limit.allow(start + 3s));
}

TEST(FailedLogins, AfterTenAnAddressIsBlockedForTheRestOfTheMinute) {
    FailedLogins logins;
    const TimePoint start;
    for (int i = 0; i < 10; ++i) {
        EXPECT_FALSE(logins.isBlocked("10.0.0.1", start + i * 1s));
        logins.record("10.0.0.1", start + i * 1s);
    }
    EXPECT_TRUE(logins.isBlocked("10.0.0.1", start + 59s));
    EXPECT_FALSE(logins.isBlocked("10.0.0.2", start + 59s)) << "another address";
    EXPECT_FALSE(logins.isBlocked("10.0.0.1", start + 60s));
}

TEST(OutgoingQueue, KeepsTheOrder) {
    OutgoingQueue queue;
    for (const char* words : {"a", "b", "c"}) EXPECT_TRUE(queue.push(text(words)));
    EXPECT_EQ(drained(queue), (std::vector<std::string>{"a", "b", "c"}));
}

TEST(OutgoingQueue, KeepsOnlyTheNewestMessageOfATopic) {
    OutgoingQueue queue;
    EXPECT_TRUE(queue.push(text("ann 1"), "pointer ann"));
    EXPECT_TRUE(queue.push(text("step")));
    EXPECT_TRUE(queue.push(text("bob 1"), "pointer bob"));
    EXPECT_TRUE(queue.push(text("ann 2"), "pointer ann"));
    EXPECT_EQ(drained(queue), (std::vector<std::string>{"ann 2", "step", "bob 1"}));
}

TEST(OutgoingQueue, IsFullAt256) {
    OutgoingQueue queue;
    EXPECT_TRUE(queue.push(text("x"), "pointer ann"));
    for (int i = 1; i < 256; ++i) ASSERT_TRUE(queue.push(text("step")));
    EXPECT_FALSE(queue.push(text("step")));
    EXPECT_TRUE(queue.push(text("y"), "pointer ann")) << "replaces a message";
    queue.pop();
    EXPECT_TRUE(queue.push(text("step")));
}

Peer fromNetwork(const std::string& address) {
    return {.address = address};
}
const Peer ownProgram{.address = "127.0.0.1", .isLoopback = true};
const Peer otherUser{.address = "127.0.0.2", .isLoopback = true, .isOtherUser = true};

std::size_t taken(ConnectionLimits& limits, const Peer& peer, std::vector<Quotas::Permit>& held) {
    std::size_t count = 0;
    while (auto permit = limits.take(peer)) {
        held.push_back(std::move(*permit));
        ++count;
    }
    return count;
}

TEST(ConnectionLimits, ANetworkAddressHasSixtyFour) {
    ConnectionLimits limits;
    std::vector<Quotas::Permit> held;
    EXPECT_EQ(taken(limits, fromNetwork("10.0.0.1"), held), 64U);
    EXPECT_TRUE(limits.take(fromNetwork("10.0.0.2")));
    EXPECT_TRUE(limits.take(ownProgram));
    held.pop_back();
    EXPECT_TRUE(limits.take(fromNetwork("10.0.0.1"))) << "one was released";
}

TEST(ConnectionLimits, TheNetworkAndThisMachineCannotLockEachOtherOut) {
    ConnectionLimits limits;
    std::vector<Quotas::Permit> held;
    for (int i = 0; i < 15; ++i) {
        EXPECT_EQ(taken(limits, fromNetwork("10.0.0." + std::to_string(i)), held), 64U);
    }
    EXPECT_FALSE(limits.take(fromNetwork("10.0.1.1")));
    EXPECT_EQ(taken(limits, ownProgram, held), 256U);
    held.clear();
    EXPECT_EQ(taken(limits, ownProgram, held), 256U);
    EXPECT_TRUE(limits.take(fromNetwork("10.0.1.1")));
}

TEST(ConnectionLimits, OtherUsersOfThisMachineShareSixtyFour) {
    ConnectionLimits limits;
    std::vector<Quotas::Permit> held;
    EXPECT_EQ(taken(limits, otherUser, held), 64U);
    EXPECT_EQ(taken(limits, ownProgram, held), 192U);
}

TEST(LineBudget, AFloodCausesOneLineASecondAndSixtyAnHour) {
    LineBudget budget(1, 60);
    const TimePoint start;
    std::size_t written = 0;
    // Ten events a second for an hour.
    for (int i = 0; i < 36000; ++i) written += budget.allow(start + i * 100ms) ? 1U : 0U;
    EXPECT_EQ(written, 60U);
    EXPECT_EQ(budget.takeLeftOut(), 35940U);
    EXPECT_EQ(budget.takeLeftOut(), 0U);
    EXPECT_TRUE(budget.allow(start + 1h));
    EXPECT_FALSE(budget.allow(start + 1h + 999ms));
}

}  // namespace
}  // namespace stagehopper::companion
