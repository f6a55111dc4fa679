// The host's connection after the end of its meeting. If it were refused, it would reconnect every
// second until another meeting starts.
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
    /// Waits longer than a host waits before it reconnects.
    static void expectQuiet(RoomClient& host) { EXPECT_FALSE(host.closed(1500ms)); }
    std::string waitingLine() const { return "waiting room=" + code_ + " user=overlay-native"; }
};

TEST_F(EndedMeetingTest, TheHostsConnectionStaysOpenAndSilent) {
    RoomClient host = join("overlay-native-3F2A9C1B");
    RoomClient phone = join("phone-1");
    endMeeting();
    EXPECT_EQ(phone.closed(5s)->code, 1000);
    ASSERT_TRUE(host.next("ended", 5s));
    EXPECT_TRUE(backend_.logs(waitingLine(), 1s));
    expectQuiet(host);
    EXPECT_EQ(request(port_, "GET", "/v1/meetings/active").body, R"({"meetings":[]})");
}

TEST_F(EndedMeetingTest, AHostThatReconnectsWaits) {
    endMeeting();
    RoomClient host = join("overlay-native-3F2A9C1B");
    EXPECT_EQ(host.status(), 101);
    EXPECT_TRUE(backend_.logs(waitingLine(), 1s));
    expectQuiet(host);
}

TEST_F(EndedMeetingTest, MessagesOfAWaitingHostAreIgnored) {
    RoomClient host = join("overlay-native-3F2A9C1B");
    endMeeting();
    ASSERT_TRUE(host.next("ended", 5s));
    host.send(step("a"));
    expectQuiet(host);
}

TEST_F(EndedMeetingTest, ANinthWaitingHostIsClosed) {
    endMeeting();
    std::vector<RoomClient> hosts;
    for (int i = 0; i < 8; ++i) hosts.push_back(join("overlay-native-" + std::to_string(i)));
    EXPECT_EQ(join("overlay-native-8").closed(5s)->code, 1000);
    hosts.pop_back();
    EXPECT_TRUE(desktop::waitFor([&] { return !join("overlay-native-8").closed(100ms); }, 5s))
        << "one has disconnected";
}

TEST_F(EndedMeetingTest, AWaitingHostIsClosedWhenTheBackendEnds) {
    endMeeting();
    RoomClient host = join("overlay-native-3F2A9C1B");
    backend_.terminate();
    EXPECT_EQ(host.closed(5s)->code, 1001);
}

}  // namespace
}  // namespace stagehopper::companion
