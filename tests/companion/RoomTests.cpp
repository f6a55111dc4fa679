// The messages between the clients of a room, over real sockets.
#include <gmock/gmock.h>

#include "companion/backend/system/LocalAddresses.h"
#include "tests/companion/Room.h"

namespace stagehopper::companion {
namespace {

using namespace std::chrono_literals;
using nlohmann::json;

TEST_F(RoomTest, AStepReachesTheHostAndIsAcknowledged) {
    RoomClient native = join("overlay-native-3F2A9C1B");
    RoomClient phone = join("phone-1");
    ASSERT_EQ(native.next(5s)->at("type"), "welcome");
    ASSERT_EQ(phone.next(5s)->at("participants").size(), 2U);
    phone.send(step("tap-1"));
    const json expected = {{"type", "slide_nav"},
                           {"direction", "next"},
                           {"seq", createdAt_},
                           {"userId", "guest-2"},
                           {"id", "tap-1"}};
    EXPECT_EQ(native.next("slide_nav", 5s), expected);
    EXPECT_EQ(phone.next("slide_nav", 5s), expected);
}

TEST_F(RoomTest, TheEndOfTheMeetingReachesItsClients) {
    RoomClient phone = join("phone-1");
    ASSERT_TRUE(phone.next("welcome", 5s));
    ASSERT_EQ(ownPageRequest(port_, "DELETE", "/v1/meetings/" + code_).status, 204);
    EXPECT_TRUE(phone.next("ended", 5s));
    const auto closed = phone.closed(5s);
    ASSERT_TRUE(closed);
    EXPECT_EQ(closed->code, 1000);
    EXPECT_EQ(closed->reason, "ended");
}

TEST_F(RoomTest, ADisconnectedClientIsRemovedForTheOthers) {
    RoomClient panel = join("panel-1");
    {
        RoomClient phone = join("phone-1");
        ASSERT_EQ(panel.next("participants", 5s)->at("participants").size(), 2U);
    }
    EXPECT_EQ(panel.next("participants", 5s)->at("participants").size(), 1U);
    const auto active = json::parse(request(port_, "GET", "/v1/meetings/active").body);
    EXPECT_EQ(active["meetings"][0]["participants"].size(), 1U);
}

TEST_F(RoomTest, EachRefusalHasItsStatus) {
    const auto status = [&](const std::string& asked, const std::optional<std::string>& origin) {
        const int refused = RoomClient({.port = port_, .query = asked, .origin = origin}).status();
        if (!origin) {
            EXPECT_EQ(request(port_, "GET", "/ws?" + asked).status, refused)
                << "the request without an upgrade";
        }
        return refused;
    };
    EXPECT_EQ(status("nonsense", {}), 400);
    EXPECT_EQ(status("roomCode=ZZZZZZ" + query("a").substr(15), {}), 404);
    EXPECT_EQ(status(query("a", "host"), {}), 403);
    EXPECT_EQ(status(query("a"), "http://evil.example"), 403);
    EXPECT_EQ(status(query("a"), "null"), 403);
    EXPECT_EQ(request(port_, "GET", "/ws?" + query("a")).status, 426);
}

TEST_F(RoomTest, APhoneNeedsTheSecretAndGuessingBlocksIt) {
    const auto addresses = likelyFirst(localAddresses());
    if (addresses.empty()) GTEST_SKIP() << "this machine has no network address";
    const auto status = [&](const std::string& secret) {
        return RoomClient({.port = port_,
                           .query = query("phone-1") + "&secret=" + secret,
                           .origin = "http://" + addresses.front() + ":" + std::to_string(port_),
                           .address = addresses.front()})
            .status();
    };
    EXPECT_EQ(status(secret_), 101);
    for (int i = 0; i < 10; ++i) EXPECT_EQ(status("guess"), 403);
    EXPECT_EQ(status(secret_), 429);
    EXPECT_EQ(join("overlay-native-1").status(), 101) << "others are not blocked";
    EXPECT_EQ(backend_.log().find(secret_), std::string::npos);
}

struct Offense {
    std::string name;
    std::string message;
    bool binary;
    int code;
    std::string reason;
};

class OffenseTest : public RoomTest, public testing::WithParamInterface<Offense> {};

TEST_P(OffenseTest, ClosesOnlyTheOffender) {
    RoomClient other = join("other");
    RoomClient offender = join("offender");
    const Offense& offense = GetParam();
    offense.binary ? offender.sendBinary(offense.message) : offender.send(offense.message);
    const auto closed = offender.closed(5s);
    ASSERT_TRUE(closed);
    EXPECT_EQ(closed->code, offense.code);
    EXPECT_EQ(closed->reason, offense.reason);
    other.send(step("still"));
    EXPECT_TRUE(other.next("slide_nav", 5s));
    EXPECT_TRUE(backend_.logs("user=guest-2 peer=127.0.0.1 reason=" + offense.reason, 1s));
}

INSTANTIATE_TEST_SUITE_P(
    Each, OffenseTest,
    testing::Values(Offense{"binary", "x", true, 1003, "text only"},
                    Offense{"noJson", "x", false, 1008, "bad message"},
                    Offense{"unknownType", R"({"type":"x"})", false, 1008, "bad message"},
                    Offense{"oneByteTooLarge", std::string(4097, ' '), false, 1009, ""},
                    Offense{"noUtf8", "{\"type\":\"\xff\"}", false, 1007, ""}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(RoomTest, AMessageOfFourKibibytesIsAccepted) {
    RoomClient phone = join("phone-1");
    const std::string message = step("a");
    ASSERT_TRUE(phone.send(message + std::string(4096 - message.size(), ' ')));
    EXPECT_TRUE(phone.next("slide_nav", 5s));
}

TEST_F(RoomTest, TooManyMessagesCloseTheirSender) {
    RoomClient phone = join("phone-1");
    // Sending fails as soon as the connection is closing.
    for (int i = 0; i < 300 && phone.send(step(std::to_string(i))); ++i) {
    }
    const auto closed = phone.closed(5s);
    ASSERT_TRUE(closed);
    EXPECT_EQ(closed->code, 1008);
    EXPECT_EQ(closed->reason, "too many messages");
}

TEST_F(RoomTest, ABrokenFrameClosesOnlyItsSender) {
    RawClient broken(port_);
    joinRaw(broken, "broken");
    ASSERT_NE(broken.readUntil("welcome", 5s), "");
    broken.send("\xff\xff\xff\xff garbage that is no frame");
    EXPECT_TRUE(broken.ends(5s));
    RoomClient other = join("other");
    EXPECT_TRUE(other.next("welcome", 5s));
}

TEST_F(RoomTest, DataBeforeTheEndOfTheHandshakeIsRefused) {
    RawClient hasty(port_);
    joinRaw(hasty, "hasty", "words");
    EXPECT_THAT(hasty.readAll(5s), testing::StartsWith("HTTP/1.1 400 "));
}

}  // namespace
}  // namespace stagehopper::companion
