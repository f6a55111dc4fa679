#include "companion/backend/access/RoomEntry.h"

#include <gtest/gtest.h>

#include "tests/companion/FakeConnection.h"

namespace stagehopper::companion {
namespace {

using namespace std::chrono_literals;

constexpr unsigned joined = 101;

class RoomEntryTest : public testing::Test {
protected:
    std::string query(const std::string& userId, const std::string& role = "guest") const {
        return "roomCode=" + meeting_->identity().roomCode + "&userId=" + userId + "&role=" + role +
               "&displayName=x&cursorColor=%23000000";
    }
    std::string withSecret(const std::string& query) const {
        return query + "&secret=" + meeting_->identity().secret;
    }
    unsigned enter(const std::string& query, Trust trust) {
        const auto result =
            enterRoom({.query = query, .trust = trust, .address = "10.0.0.1", .now = now_},
                      meetings_, failedLogins_);
        const auto* refusal = std::get_if<EntryRefusal>(&result);
        return refusal == nullptr ? joined : refusal->status;
    }

    Meetings meetings_;
    std::shared_ptr<Meeting> meeting_ = meetings_.create("Physics", 1790000000000);
    FailedLogins failedLogins_;
    TimePoint now_;
};

TEST_F(RoomEntryTest, ClientsOnThisMachineNeedNoSecret) {
    EXPECT_EQ(enter(query("overlay-native-1"), Trust::localProgram), joined);
    EXPECT_EQ(enter(query("panel-1", "host"), Trust::ownPage), joined);
    EXPECT_EQ(enter(query("overlay-1"), Trust::ownPage), joined);
}

TEST_F(RoomEntryTest, AProgramMayOnlyBeAGuest) {
    EXPECT_EQ(enter(query("overlay-native-1", "host"), Trust::localProgram), 403U);
}

TEST_F(RoomEntryTest, APhoneNeedsTheSecret) {
    EXPECT_EQ(enter(withSecret(query("phone-1")), Trust::network), joined);
    EXPECT_EQ(enter(query("phone-1"), Trust::network), 403U);
    EXPECT_EQ(enter(query("phone-1") + "&secret=", Trust::network), 403U);
    EXPECT_EQ(enter(withSecret(query("phone-1")) + "x", Trust::network), 403U);
}

TEST_F(RoomEntryTest, APhoneMayOnlyBeAGuestWithAnUnreservedId) {
    EXPECT_EQ(enter(withSecret(query("phone-1", "host")), Trust::network), 403U);
    EXPECT_EQ(enter(withSecret(query("overlay-1")), Trust::network), 403U);
    EXPECT_EQ(enter(withSecret(query("panel-1")), Trust::network), 403U);
}

TEST_F(RoomEntryTest, TheSecretOfAnotherMeetingIsRefused) {
    const auto other = meetings_.create("Chemistry", 1790000000001);
    EXPECT_EQ(enter(query("phone-1") + "&secret=" + other->identity().secret, Trust::network),
              403U);
}

TEST_F(RoomEntryTest, AMalformedQueryAFullRoomAndAnUnknownRoomAreRefused) {
    EXPECT_EQ(enter("x", Trust::ownPage), 400U);
    EXPECT_EQ(enter(query("a b"), Trust::ownPage), 400U);
    for (int i = 0; i < 200; ++i) {
        meeting_->join({"", "p" + std::to_string(i), "", Role::guest, "#000000", {}},
                       std::make_shared<FakeConnection>());
    }
    EXPECT_EQ(enter(query("late"), Trust::ownPage), 503U);
    const std::string ended = query("phone-1");
    meetings_.end(meeting_->identity().roomCode);
    EXPECT_EQ(enter(ended, Trust::ownPage), 404U);
}

TEST_F(RoomEntryTest, AHostMayReconnectToAMeetingThatIsOver) {
    const std::string host = query("overlay-native-1");
    meetings_.end(meeting_->identity().roomCode);
    EXPECT_EQ(enter(host, Trust::localProgram), joined);
    EXPECT_EQ(enter(host, Trust::ownPage), 404U) << "pages stop at the end of the meeting";
    EXPECT_EQ(enter(query("other"), Trust::localProgram), 404U);
}

TEST_F(RoomEntryTest, GuessingRoomCodesBlocksTheAddress) {
    std::string unknown = withSecret(query("phone-1"));
    unknown.replace(unknown.find('=') + 1, 6, "ZZZZZZ");
    for (int i = 0; i < 10; ++i) EXPECT_EQ(enter(unknown, Trust::network), 404U);
    EXPECT_EQ(enter(unknown, Trust::network), 429U);
    EXPECT_EQ(enter(withSecret(query("phone-1")), Trust::network), 429U);
    now_ += 60s;
    EXPECT_EQ(enter(withSecret(query("phone-1")), Trust::network), joined);
}

TEST_F(RoomEntryTest, GuessingSecretsBlocksTheAddressEvenWithTheRightOne) {
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(enter(query("phone-1") + "&secret=guess", Trust::network), 403U);
    }
    EXPECT_EQ(enter(withSecret(query("phone-1")), Trust::network), 429U);
    EXPECT_EQ(enter(query("overlay-native-1"), Trust::localProgram), joined)
        << "others are not blocked";
    now_ += 60s;
    EXPECT_EQ(enter(withSecret(query("phone-1")), Trust::network), joined);
}

}  // namespace
}  // namespace stagehopper::companion
