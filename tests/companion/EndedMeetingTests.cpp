// What becomes of the host's socket when its meeting is over. Refused, it would come back every
// second for as long as there is no other meeting.
#include <gmock/gmock.h>

#include "tests/companion/Room.h"

namespace stagehopper::companion {
namespace {

using namespace std::chrono_literals;

class EndedMeetingTest : public RoomTest {
protected:
    void endMeeting() {
        ASSERT_EQ(ownPageRequest(port_, "DELETE", "/v1/meetings/" + code_).status, 204);
    }
    /// Longer than a host waits before it connects again.
    static void expectQuiet(RoomClient& host) { EXPECT_FALSE(host.closed(1500ms)); }
    std::string waitingLine() const { return "waiting room=" + code_ + " user=overlay-native"; }
};

TEST_F(EndedMeetingTest, TheHostsSocketStaysOpenAndSilent) {
    RoomClient host = join("overlay-native-3F2A9C1B");
    RoomClient phone = join("phone-1");
    endMeeting();
    EXPECT_EQ(phone.closed(5s)->code, 1000);
    ASSERT_TRUE(host.next("ended", 5s));
    EXPECT_TRUE(backend_.logs(waitingLine(), 1s));
    expectQuiet(host);
    EXPECT_EQ(request(port_, "GET", "/v1/meetings/active").body, R"({"meetings":[]})");
}

TEST_F(EndedMeetingTest, AHostThatComesBackToItWaits) {
    endMeeting();
    RoomClient host = join("overlay-native-3F2A9C1B");
    EXPECT_EQ(host.status(), 101);
    EXPECT_TRUE(backend_.logs(waitingLine(), 1s));
    expectQuiet(host);
}

TEST_F(EndedMeetingTest, WhatAWaitingHostSaysReachesNobody) {
    RoomClient host = join("overlay-native-3F2A9C1B");
    endMeeting();
    ASSERT_TRUE(host.next("ended", 5s));
    host.send(step("a"));
    expectQuiet(host);
}

TEST_F(EndedMeetingTest, EightHostsWait) {
    endMeeting();
    std::vector<RoomClient> hosts;
    for (int i = 0; i < 8; ++i) hosts.push_back(join("overlay-native-" + std::to_string(i)));
    EXPECT_EQ(join("overlay-native-8").closed(5s)->code, 1000);
    hosts.pop_back();
    EXPECT_TRUE(becomesTrue(5s, [&] { return !join("overlay-native-8").closed(100ms); }))
        << "one has left";
}

TEST_F(EndedMeetingTest, AWaitingHostHearsOfTheBackendsEnd) {
    endMeeting();
    RoomClient host = join("overlay-native-3F2A9C1B");
    backend_.terminate();
    EXPECT_EQ(host.closed(5s)->code, 1001);
}

}  // namespace
}  // namespace stagehopper::companion
