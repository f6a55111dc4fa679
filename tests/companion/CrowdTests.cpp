// No client blocks another one: full rooms, slow readers, dead phones.
#include <gmock/gmock.h>

#include <future>

#include "tests/companion/Room.h"

namespace stagehopper::companion {
namespace {

using namespace std::chrono_literals;

TEST_F(RoomTest, AClientThatDoesNotReadIsDroppedAndTheOthersMissNothing) {
    std::vector<RoomClient> others;
    for (int i = 0; i < 199; ++i) {
        others.push_back(join("phone-" + std::to_string(i)));
        ASSERT_EQ(others.back().status(), 101) << i;
        ASSERT_TRUE(others.back().next("welcome", 5s));
    }
    RawClient slow(port_, "127.0.0.1", 4096);
    joinRaw(slow, "slow");
    ASSERT_TRUE(backend_.logs("user=guest-200", 5s));
    // The slow client starts to read when it is dropped, while the others go on.
    auto closed = std::async(std::launch::async, [&] {
        if (!backend_.logs("user=guest-200 peer=127.0.0.1 reason=too slow", 40s))
            return std::string();
        return slow.readUntil("too slow", 10s);
    });
    for (int i = 0; i < 100; ++i) {
        ASSERT_EQ(join("late-" + std::to_string(i)).status(), 503) << "the room takes 200 clients";
    }

    // More than the system and the queue hold for the slow client.
    constexpr std::size_t rounds = 30;
    constexpr std::size_t sendersEachRound = 50;
    std::chrono::steady_clock::duration longest{};
    std::int64_t seq = createdAt_;
    const std::string padding(50, '-');
    for (std::size_t round = 0; round < rounds; ++round) {
        const auto begin = std::chrono::steady_clock::now();
        for (std::size_t sender = 0; sender < sendersEachRound; ++sender) {
            ASSERT_TRUE(others[sender].send(step(padding + std::to_string(round))));
        }
        for (RoomClient& other : others) {
            for (std::size_t at = 0; at < sendersEachRound; ++at) {
                const auto text = other.nextText(5s);
                ASSERT_TRUE(text) << "round " << round;
                const auto due = seq + static_cast<std::int64_t>(at);
                ASSERT_THAT(*text, testing::HasSubstr("\"seq\":" + std::to_string(due)));
            }
        }
        seq += static_cast<std::int64_t>(sendersEachRound);
        longest = std::max(longest, std::chrono::steady_clock::now() - begin);
        if (closed.wait_for(0s) == std::future_status::ready) break;
    }
    EXPECT_THAT(closed.get(), testing::HasSubstr("\x03\xf0too slow"));
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(longest);
    RecordProperty("longest_round_ms", static_cast<int>(milliseconds.count()));
    EXPECT_LT(milliseconds, 10s)
        << "for fifty steps to each of 199 clients, read one client after another";
}

TEST_F(RoomTest, ASilentClientIsDroppedAfterItsTimeout) {
    RawClient halfHeader(port_);
    halfHeader.send("GET /health HTTP/1.1\r\nX: ");
    RawClient deadPhone(port_);
    joinRaw(deadPhone, "dead");
    RoomClient panel = join("panel-1");
    ASSERT_EQ(panel.next("welcome", 5s)->at("participants").size(), 2U);

    const auto begin = std::chrono::steady_clock::now();
    const auto passed = [&] { return std::chrono::steady_clock::now() - begin; };
    // One byte a second does not keep the connection open.
    while (!halfHeader.ends(1s) && passed() < 15s) halfHeader.send("a");
    EXPECT_GT(passed(), 8s);
    EXPECT_LT(passed(), 12s);

    // The panel replies to pings by reading; the dead phone does not read.
    const auto list = panel.next("participants", 35s);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->at("participants").size(), 1U);
    EXPECT_GT(passed(), 25s);
    EXPECT_TRUE(deadPhone.ends(5s));
}

}  // namespace
}  // namespace stagehopper::companion
