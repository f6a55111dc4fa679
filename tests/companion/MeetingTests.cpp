#include "companion/backend/room/Meeting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/companion/FakeConnection.h"

namespace stagehopper::companion {
namespace {

using nlohmann::json;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::int64_t createdAt = 1790000000000;

class MeetingTest : public testing::Test {
protected:
    std::shared_ptr<FakeConnection> join(const std::string& userId, Role role = Role::guest) {
        auto connection = std::make_shared<FakeConnection>();
        meeting_.join({"K7M2QX",
                       userId,
                       "name of " + userId.substr(0, userId.rfind('-')),
                       role,
                       "#aabbcc",
                       {}},
                      connection);
        return connection;
    }

    void tap(const FakeConnection& from, const std::string& id,
             Direction direction = Direction::next) {
        meeting_.handle(from, StepMessage{direction, id});
    }

    Meeting meeting_{{"K7M2QX", "Physics", createdAt, "secret"}};
};

TEST_F(MeetingTest, AJoinIsWelcomedOnceAndFirst) {
    join("panel-1", Role::host);
    const auto phone = join("phone-1");
    ASSERT_THAT(phone->sent(), SizeIs(1));
    EXPECT_EQ(phone->sent()[0], json::parse(R"({"type":"welcome","roomCode":"K7M2QX",
        "roomName":"Physics","userId":"guest-2","role":"guest","participants":[
        {"userId":"panel-1","displayName":"name of panel","role":"host","cursorColor":"#aabbcc"},
        {"userId":"guest-2","displayName":"name of phone","role":"guest","cursorColor":"#aabbcc"}
        ]})"));
}

TEST_F(MeetingTest, OthersReceiveTheParticipantsAfterJoinsAndLeaves) {
    const auto panel = join("panel-1");
    const auto phone = join("phone-1");
    ASSERT_THAT(panel->ofType("participants"), SizeIs(1));
    EXPECT_THAT(panel->ofType("participants")[0]["participants"], SizeIs(2));
    meeting_.leave(*phone);
    ASSERT_THAT(panel->ofType("participants"), SizeIs(2));
    EXPECT_THAT(panel->ofType("participants")[1]["participants"], SizeIs(1));
    EXPECT_THAT(meeting_.participants(), SizeIs(1));
}

TEST_F(MeetingTest, PhonesAndTheHostDoNotReceiveTheParticipants) {
    const auto native = join("overlay-native-1");
    const auto phone = join("phone-1");
    const auto overlay = join("overlay-1");
    join("phone-2");
    EXPECT_THAT(overlay->ofType("participants"), SizeIs(1));
    EXPECT_THAT(native->ofType("participants"), IsEmpty());
    EXPECT_THAT(phone->ofType("participants"), IsEmpty());
}

TEST_F(MeetingTest, ASecondLeaveIsIgnored) {
    const auto panel = join("panel-1");
    const auto phone = join("phone-1");
    meeting_.leave(*phone);
    meeting_.leave(*phone);
    EXPECT_THAT(panel->ofType("participants"), SizeIs(2));
}

TEST_F(MeetingTest, AStepReachesAllMembersIncludingItsSender) {
    const auto native = join("overlay-native-1");
    const auto phone = join("phone-1");
    tap(*phone, "a");
    tap(*phone, "b", Direction::previous);
    for (const auto& connection : {native, phone}) {
        const auto steps = connection->ofType("slide_nav");
        ASSERT_THAT(steps, SizeIs(2));
        EXPECT_EQ(steps[0], json({{"type", "slide_nav"},
                                  {"direction", "next"},
                                  {"seq", createdAt},
                                  {"userId", "guest-2"},
                                  {"id", "a"}}));
        EXPECT_EQ(steps[1]["direction"], "prev");
        EXPECT_EQ(steps[1]["seq"], createdAt + 1);
    }
}

TEST_F(MeetingTest, ATapSentAgainAfterAReconnectCausesNoSecondStep) {
    const auto native = join("overlay-native-1");
    const auto before = join("phone-1");
    tap(*before, "a");
    meeting_.leave(*before);
    const auto after = join("phone-1");
    tap(*after, "a");
    EXPECT_THAT(native->ofType("slide_nav"), SizeIs(1));
    ASSERT_THAT(after->ofType("slide_nav"), SizeIs(1)) << "acknowledged nevertheless";
    EXPECT_EQ(after->ofType("slide_nav")[0]["seq"], createdAt);
    tap(*after, "b");
    EXPECT_EQ(after->ofType("slide_nav")[1]["seq"], createdAt + 1) << "no number was skipped";
}

TEST_F(MeetingTest, TwoPhonesMayUseTheSameId) {
    const auto ann = join("phone-ann");
    const auto bob = join("phone-bob");
    tap(*ann, "1");
    tap(*bob, "1");
    EXPECT_THAT(ann->ofType("slide_nav"), SizeIs(2));
}

TEST_F(MeetingTest, PointersReachOnlyOverlays) {
    const auto overlay = join("overlay-1");
    const auto native = join("overlay-native-1");
    const auto panel = join("panel-1", Role::host);
    const auto phone = join("phone-1");
    meeting_.handle(*phone, PointerMessage{0.5, 0.25, true});
    ASSERT_THAT(overlay->ofType("pointer"), SizeIs(1));
    EXPECT_EQ(overlay->ofType("pointer")[0], json({{"type", "pointer"},
                                                   {"userId", "guest-4"},
                                                   {"x", 0.5},
                                                   {"y", 0.25},
                                                   {"visible", true},
                                                   {"color", "#aabbcc"}}));
    for (const auto& other : {native, panel, phone}) {
        EXPECT_THAT(other->ofType("pointer"), IsEmpty());
    }
}

TEST_F(MeetingTest, PointersOfOneUserReplaceEachOtherAndStepsDoNot) {
    const auto overlay = join("overlay-1");
    const auto ann = join("phone-ann");
    const auto bob = join("phone-bob");
    overlay->topics.clear();
    meeting_.handle(*ann, PointerMessage{});
    meeting_.handle(*bob, PointerMessage{});
    meeting_.handle(*ann, PointerMessage{});
    tap(*ann, "a");
    ASSERT_THAT(overlay->topics, SizeIs(4));
    EXPECT_EQ(overlay->topics[0], overlay->topics[2]);
    EXPECT_NE(overlay->topics[0], overlay->topics[1]);
    EXPECT_EQ(overlay->topics[3], "");
}

TEST_F(MeetingTest, ASecondJoinReplacesTheFirst) {
    const auto first = join("phone-1");
    const auto second = join("phone-1");
    ASSERT_TRUE(first->closed);
    EXPECT_EQ(first->closed->code, 4001);
    EXPECT_EQ(first->closed->reason, "joined elsewhere");
    EXPECT_THAT(meeting_.participants(), SizeIs(1));

    tap(*first, "late");
    meeting_.leave(*first);
    EXPECT_THAT(second->ofType("slide_nav"), IsEmpty())
        << "a replaced connection sends nothing more";
    EXPECT_THAT(meeting_.participants(), SizeIs(1))
        << "its leave does not remove the new connection";
}

TEST_F(MeetingTest, TheHostsConnectionStaysOpenAfterTheEnd) {
    const auto native = join("overlay-native-3F2A9C1B");
    meeting_.end();
    EXPECT_EQ(native->sent().back(), json({{"type", "ended"}}));
    EXPECT_TRUE(native->keptOpen);
    EXPECT_FALSE(native->closed);
}

TEST_F(MeetingTest, NoMessageContainsAJoinId) {
    const auto panel = join("panel-0a1b2c3d", Role::host);
    const auto overlay = join("overlay-4e5f6071");
    const auto native = join("overlay-native-3F2A9C1B");
    const auto phone = join("phone-secret");
    tap(*phone, "a");
    meeting_.handle(*phone, PointerMessage{});
    for (const auto& connection : {panel, overlay, native, phone}) {
        for (const json& message : connection->sent()) {
            for (const char* joinId : {"0a1b2c3d", "4e5f6071", "3F2A9C1B", "phone-secret"}) {
                EXPECT_EQ(message.dump().find(joinId), std::string::npos) << message;
            }
        }
    }
}

TEST_F(MeetingTest, APublicIdContainsTheKindOfClient) {
    for (const char* joinId : {"overlay-native-3F2A9C1B", "overlay-1", "panel-1", "phone-1"}) {
        join(joinId);
    }
    std::vector<std::string> shown;
    for (const Participant& one : meeting_.participants()) shown.push_back(one.userId);
    EXPECT_THAT(shown, testing::ElementsAre("overlay-native-1", "overlay-2", "panel-3", "guest-4"));
}

TEST_F(MeetingTest, AReconnectKeepsThePublicIdAndAPublicIdReplacesNoClient) {
    const auto first = join("phone-1");
    const auto second = join("phone-1");
    EXPECT_EQ(second->sent()[0]["userId"], "guest-1");
    const auto impostor = join("guest-1");
    EXPECT_FALSE(second->closed);
    EXPECT_EQ(impostor->sent()[0]["userId"], "guest-2");
}

TEST_F(MeetingTest, TheEndIsSentToAllMembersAndClosesThem) {
    const auto panel = join("panel-1");
    const auto phone = join("phone-1");
    meeting_.end();
    for (const auto& connection : {panel, phone}) {
        EXPECT_EQ(connection->sent().back(), json({{"type", "ended"}}));
        ASSERT_TRUE(connection->closed);
        EXPECT_EQ(connection->closed->code, 1000);
    }
    EXPECT_THAT(meeting_.participants(), IsEmpty());
}

TEST_F(MeetingTest, AFullMeetingAcceptsOnlyReconnects) {
    for (int i = 0; i < 200; ++i) {
        ASSERT_TRUE(meeting_.hasRoomFor("phone-" + std::to_string(i)));
        join("phone-" + std::to_string(i));
    }
    EXPECT_FALSE(meeting_.hasRoomFor("phone-200"));
    EXPECT_TRUE(meeting_.hasRoomFor("phone-7")) << "replaces its earlier connection";
}

TEST_F(MeetingTest, TheOldestTapsAreForgotten) {
    const auto phone = join("phone-1");
    for (int i = 0; i <= 4096; ++i) tap(*phone, std::to_string(i));
    tap(*phone, "4096");
    EXPECT_EQ(phone->sent().back()["seq"], createdAt + 4096) << "a recent tap is known";
    tap(*phone, "0");
    EXPECT_EQ(phone->sent().back()["seq"], createdAt + 4097) << "the oldest tap was forgotten";
}

}  // namespace
}  // namespace stagehopper::companion
