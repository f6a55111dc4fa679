#include "slidechannel/MeetingRanking.h"

#include <gtest/gtest.h>

#include <limits>

namespace stagehopper {
namespace {

const ActiveMeetingParticipant phone{"phone-1", "", "guest"};
const ActiveMeetingParticipant host{"panel-1", "", "host"};
const ActiveMeetingParticipant overlay{"overlay-native-1F3A9C0B", "", "guest"};

ActiveMeetingSummary meeting(std::string room, double createdAt,
                             std::vector<ActiveMeetingParticipant> participants) {
    return {std::move(room), "", createdAt, std::move(participants)};
}

std::string chosen(std::vector<ActiveMeetingSummary> meetings) {
    const auto meeting = meetingToFollow(std::move(meetings));
    return meeting ? meeting->roomCode : "none";
}

TEST(MeetingRanking, OnlyAGuestThatIsNotAnOverlayIsARemote) {
    EXPECT_TRUE(hasRemote(meeting("", 0, {host, overlay, phone})));
    EXPECT_FALSE(hasRemote(meeting("", 0, {host, overlay})));
    EXPECT_FALSE(hasRemote(meeting("", 0, {})));
    EXPECT_FALSE(hasRemote(meeting("", 0, {{"overlay", "", "guest"}})));
    EXPECT_FALSE(hasRemote(meeting("", 0, {{"overlayish", "", "guest"}})));
}

TEST(MeetingRanking, RolesAndPrefixesAreComparedExactly) {
    EXPECT_TRUE(hasRemote(meeting("", 0, {{"panel-1", "", "Host"}})));
    EXPECT_TRUE(hasRemote(meeting("", 0, {{"panel-1", "", ""}})));
    EXPECT_TRUE(hasRemote(meeting("", 0, {{"Overlay-1", "", "guest"}})));
}

TEST(MeetingRanking, AMeetingWithARemoteBeatsANewerOneWithout) {
    EXPECT_EQ(chosen({meeting("NEW", 2, {host}), meeting("OLD", 1, {phone})}), "OLD");
}

TEST(MeetingRanking, AmongMeetingsWithARemoteTheNewestWins) {
    EXPECT_EQ(
        chosen({meeting("A", 1, {phone}), meeting("B", 3, {phone}), meeting("C", 2, {phone})}),
        "B");
}

TEST(MeetingRanking, AmongMeetingsWithoutARemoteTheNewestWins) {
    EXPECT_EQ(chosen({meeting("A", 1, {overlay}), meeting("B", 3, {host})}), "B");
}

TEST(MeetingRanking, OfEqualMeetingsTheFirstIsChosen) {
    EXPECT_EQ(chosen({meeting("A", 1, {phone}), meeting("B", 1, {phone})}), "A");
    EXPECT_EQ(chosen({meeting("A", 1, {host}), meeting("B", 1, {host})}), "A");
}

TEST(MeetingRanking, TimesThatCannotBeComparedKeepTheOrder) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(chosen({meeting("A", nan, {phone}), meeting("B", nan, {phone})}), "A");
}

TEST(MeetingRanking, AMeetingWithoutParticipantsIsNeverChosen) {
    EXPECT_EQ(chosen({meeting("A", 9, {}), meeting("B", 1, {host})}), "B");
    EXPECT_EQ(chosen({meeting("A", 9, {})}), "none");
    EXPECT_EQ(chosen({}), "none");
}

}  // namespace
}  // namespace stagehopper
