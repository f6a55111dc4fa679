#include "slidechannel/ActiveMeetings.h"

#include <gtest/gtest.h>

#include <string>

#include "ports/json/NlohmannJson.h"
#include "tests/unit/NestedArrays.h"

namespace stagehopper {
namespace {

const std::string participant = R"({"userId":"u","displayName":"d","role":"guest"})";
const std::string meeting =
    R"({"roomCode":"AB12","roomName":"n","createdAt":1.5,"participants":[)" + participant + "]}";

/// Absent also if the text cannot be decoded.
std::optional<ActiveMeetingsResponse> meetingsIn(std::string_view text) {
    const auto decoded = json_port::NlohmannJson().decoded(text);
    return decoded ? decodeActiveMeetings(*decoded) : std::nullopt;
}

std::string response(const std::string& meetings) {
    return R"({"meetings":[)" + meetings + "]}";
}

/// `text` with its first `from` replaced.
std::string with(std::string text, const std::string& from, const std::string& to) {
    return text.replace(text.find(from), from.size(), to);
}

TEST(ActiveMeetings, EveryFieldIsRead) {
    const ActiveMeetingsResponse expected{{{"AB12", "n", 1.5, {{"u", "d", "guest"}}}}};
    EXPECT_EQ(meetingsIn(response(meeting)), expected);
}

TEST(ActiveMeetings, AnEmptyListIsAResponse) {
    EXPECT_EQ(meetingsIn(response("")), ActiveMeetingsResponse{});
}

TEST(ActiveMeetings, UnknownFieldsAreIgnored) {
    EXPECT_EQ(meetingsIn(R"({"version":2,"meetings":[],"x":null})"), ActiveMeetingsResponse{});
}

TEST(ActiveMeetings, NestingBeyondFoundationsLimitMakesTheResponseAbsent) {
    const auto nested = [](std::size_t levels) {
        return R"({"meetings":[],"x":)" + nestedArrays(levels) + "}";
    };
    EXPECT_TRUE(meetingsIn(nested(511)));
    EXPECT_FALSE(meetingsIn(nested(512)));
    EXPECT_FALSE(meetingsIn(nested(100'000)));
}

TEST(ActiveMeetings, TheCreationTimeMayBeAWholeNumber) {
    const auto decoded = meetingsIn(response(with(meeting, "1.5", "1790000000123")));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->meetings[0].createdAt, 1790000000123.0);
}

TEST(ActiveMeetings, AMeetingMayHaveNoParticipants) {
    const auto decoded = meetingsIn(response(with(meeting, participant, "")));
    ASSERT_TRUE(decoded);
    EXPECT_TRUE(decoded->meetings[0].participants.empty());
}

TEST(ActiveMeetings, AMissingFieldInOneMeetingMakesTheResponseAbsent) {
    for (const char* field :
         {R"("roomCode":"AB12",)", R"("roomName":"n",)", R"("createdAt":1.5,)"}) {
        EXPECT_FALSE(meetingsIn(response(meeting + "," + with(meeting, field, "")))) << field;
    }
    EXPECT_FALSE(
        meetingsIn(response(meeting + R"(,{"roomCode":"A","roomName":"n","createdAt":1})")));
}

TEST(ActiveMeetings, AMissingFieldInOneParticipantMakesTheResponseAbsent) {
    for (const char* field : {R"("userId":"u",)", R"("displayName":"d",)", R"(,"role":"guest")"}) {
        EXPECT_FALSE(meetingsIn(response(with(meeting, field, "")))) << field;
    }
}

TEST(ActiveMeetings, AFieldOfAnotherTypeMakesTheResponseAbsent) {
    for (const auto& [from, to] : {std::pair{R"("AB12")", "5"},
                                   {R"("n")", "null"},
                                   {"1.5", R"("1.5")"},
                                   {"1.5", "true"},
                                   {"1.5", "1e999"},
                                   {R"("u")", "[]"},
                                   {R"("guest")", "{}"}}) {
        EXPECT_FALSE(meetingsIn(response(with(meeting, from, to)))) << to;
    }
}

TEST(ActiveMeetings, NamesAreComparedExactly) {
    EXPECT_FALSE(meetingsIn(response(with(meeting, "roomCode", "roomcode"))));
    EXPECT_FALSE(meetingsIn(response(with(meeting, "roomCode", "room_code"))));
}

TEST(ActiveMeetings, AnInvalidResponseIsAbsent) {
    for (const char* text :
         {"", " ", "null", "[]", "5", "{}", "{\"meetings\":{}}", "{\"meetings\":[5]}",
          "{\"meetings\":[]", "{\"meetings\":[]}x", "{\"meetings\":[\"\xFF\"]}"}) {
        EXPECT_FALSE(meetingsIn(text)) << text;
    }
}

}  // namespace
}  // namespace stagehopper
