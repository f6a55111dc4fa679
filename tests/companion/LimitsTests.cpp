#include <gtest/gtest.h>

#include <vector>

#include "companion/backend/ConnectionCounts.h"
#include "companion/backend/OutgoingQueue.h"
#include "companion/backend/RateLimit.h"
#include "companion/backend/WrongSecrets.h"

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

TEST(RateLimit, OneTooManyWithinTheWindowIsRefused) {
    RateLimit limit(3, 2s);
    const Moment start;
    EXPECT_TRUE(limit.allow(start));
    EXPECT_TRUE(limit.allow(start + 1s));
    EXPECT_TRUE(limit.allow(start + 1900ms));
    EXPECT_FALSE(limit.allow(start + 1999ms));
    EXPECT_TRUE(limit.allow(start + 2s)) << "the first has left the window";
    EXPECT_FALSE(limit.allow(start + 2999ms));
    EXPECT_TRUE(limit.allow(start + 3s));
}

TEST(WrongSecrets, AfterTenAnAddressWaitsUntilTheMinuteIsOver) {
    WrongSecrets secrets;
    const Moment start;
    for (int i = 0; i < 10; ++i) {
        EXPECT_FALSE(secrets.mustWait("10.0.0.1", start + i * 1s));
        secrets.count("10.0.0.1", start + i * 1s);
    }
    EXPECT_TRUE(secrets.mustWait("10.0.0.1", start + 59s));
    EXPECT_FALSE(secrets.mustWait("10.0.0.2", start + 59s)) << "another address";
    EXPECT_FALSE(secrets.mustWait("10.0.0.1", start + 60s));
}

TEST(OutgoingQueue, KeepsTheOrder) {
    OutgoingQueue queue;
    for (const char* words : {"a", "b", "c"}) EXPECT_TRUE(queue.push(text(words)));
    EXPECT_EQ(drained(queue), (std::vector<std::string>{"a", "b", "c"}));
}

TEST(OutgoingQueue, KeepsOnlyTheNewestOfATopic) {
    OutgoingQueue queue;
    queue.push(text("ann 1"), "pointer ann");
    queue.push(text("step"));
    queue.push(text("bob 1"), "pointer bob");
    queue.push(text("ann 2"), "pointer ann");
    EXPECT_EQ(drained(queue), (std::vector<std::string>{"ann 2", "step", "bob 1"}));
}

TEST(OutgoingQueue, IsFullAt256) {
    OutgoingQueue queue;
    queue.push(text("x"), "pointer ann");
    for (int i = 1; i < 256; ++i) ASSERT_TRUE(queue.push(text("step")));
    EXPECT_FALSE(queue.push(text("step")));
    EXPECT_TRUE(queue.push(text("y"), "pointer ann")) << "replaces, so it needs no place";
    queue.pop();
    EXPECT_TRUE(queue.push(text("step")));
}

TEST(ConnectionCounts, AnAddressOfTheNetworkHasSixtyFour) {
    ConnectionCounts counts;
    std::vector<ConnectionCounts::Permit> permits;
    for (int i = 0; i < 64; ++i) permits.push_back(std::move(*counts.take("10.0.0.1")));
    EXPECT_FALSE(counts.take("10.0.0.1"));
    EXPECT_TRUE(counts.take("10.0.0.2"));
    EXPECT_TRUE(counts.take("127.0.0.1"));
    permits.pop_back();
    EXPECT_TRUE(counts.take("10.0.0.1")) << "one has been given back";
}

TEST(ConnectionCounts, TheNetworkCannotLockOutThisMachine) {
    ConnectionCounts counts;
    std::vector<ConnectionCounts::Permit> permits;
    for (int i = 0; i < 960; ++i) {
        permits.push_back(std::move(*counts.take("10.0.0." + std::to_string(i / 60))));
    }
    EXPECT_FALSE(counts.take("10.0.1.1"));
    for (int i = 0; i < 64; ++i) permits.push_back(std::move(*counts.take("127.0.0.1")));
    EXPECT_FALSE(counts.take("127.0.0.1")) << "1,024 in all";
}

}  // namespace
}  // namespace stagehopper::companion
