#include "companion/backend/room/JoinRequest.h"

#include <gtest/gtest.h>

#include "companion/backend/room/Names.h"

namespace stagehopper::companion {
namespace {

constexpr const char* hostsOwn =
    "roomCode=K7M2QX&userId=overlay-native-3F2A9C1B&role=guest&displayName=overlay-native"
    "&cursorColor=%23000000";

std::string queryWith(const std::string& name, const std::string& value) {
    std::string query;
    for (const auto& [key, usual] : {std::pair<std::string, std::string>{"roomCode", "K7M2QX"},
                                     {"userId", "phone-1"},
                                     {"role", "guest"},
                                     {"displayName", "Ann"},
                                     {"cursorColor", "%23aabbcc"}}) {
        query += "&" + key + "=" + (key == name ? value : usual);
    }
    return query;
}

TEST(JoinRequest, TheQueryOfTheHostIsParsed) {
    const auto request = parseJoinRequest(hostsOwn);
    ASSERT_TRUE(request);
    EXPECT_EQ(request->roomCode, "K7M2QX");
    EXPECT_EQ(request->joinId, "overlay-native-3F2A9C1B");
    EXPECT_EQ(request->role, Role::guest);
    EXPECT_EQ(request->displayName, "overlay-native");
    EXPECT_EQ(request->cursorColor, "#000000");
    EXPECT_FALSE(request->secret);
}

TEST(JoinRequest, ASecretAndUnknownNamesAreAccepted) {
    const auto request = parseJoinRequest(std::string(hostsOwn) + "&secret=a-_b&later=1");
    ASSERT_TRUE(request);
    EXPECT_EQ(request->secret, "a-_b");
}

TEST(JoinRequest, APlusSignStaysAPlusSign) {
    const auto request = parseJoinRequest(queryWith("displayName", "Ann%20+%2B%C3%84"));
    ASSERT_TRUE(request);
    EXPECT_EQ(request->displayName, "Ann ++Ä");
}

TEST(JoinRequest, EveryValueIsRequired) {
    const std::string query = hostsOwn;
    for (const char* name : {"roomCode=", "userId=", "role=", "displayName=", "cursorColor="}) {
        std::string without = query;
        without.replace(without.find(name), 1, "x");
        EXPECT_FALSE(parseJoinRequest(without)) << name;
    }
    EXPECT_FALSE(parseJoinRequest(""));
}

TEST(JoinRequest, NoNameMayBeRepeated) {
    EXPECT_FALSE(parseJoinRequest(std::string(hostsOwn) + "&role=host"));
    EXPECT_FALSE(parseJoinRequest(std::string(hostsOwn) + "&%72ole=guest"));
}

TEST(JoinRequest, EachValueHasAFormat) {
    const std::string long64(64, 'a');
    EXPECT_TRUE(parseJoinRequest(queryWith("userId", long64)));
    EXPECT_TRUE(parseJoinRequest(queryWith("displayName", "")));
    EXPECT_TRUE(parseJoinRequest(queryWith("role", "host")));
    for (const auto& [name, value] : {std::pair<std::string, std::string>{"userId", long64 + "a"},
                                      {"userId", ""},
                                      {"userId", "a%20b"},
                                      {"userId", "%C3%84"},
                                      {"role", "admin"},
                                      {"role", "HOST"},
                                      {"roomCode", "k7m2qx"},
                                      {"roomCode", "K7M2Q"},
                                      {"roomCode", "K7M2QO"},
                                      {"cursorColor", "%2300000"},
                                      {"cursorColor", "%23gggggg"},
                                      {"cursorColor", "0000000"},
                                      {"displayName", "a%00b"},
                                      {"displayName", "a%0Ab"},
                                      {"displayName", long64 + "a"},
                                      {"displayName", "%FF"},
                                      {"displayName", "%C0%80"},
                                      {"displayName", "%ED%A0%80"},
                                      {"displayName", "%E2%80%AEa"},
                                      {"displayName", "%"},
                                      {"displayName", "%4"},
                                      {"displayName", "%zz"}}) {
        EXPECT_FALSE(parseJoinRequest(queryWith(name, value))) << name << "=" << value;
    }
}

TEST(JoinRequest, TheLengthOfANameCountsCharactersAndNotBytes) {
    std::string name;
    for (int i = 0; i < 64; ++i) name += "%F0%9F%98%80";
    EXPECT_TRUE(parseJoinRequest(queryWith("displayName", name)));
    EXPECT_FALSE(parseJoinRequest(queryWith("displayName", name + "a")));
}

TEST(Names, TheHostsSocketIsNoOverlay) {
    EXPECT_TRUE(isOverlay("overlay-1"));
    EXPECT_FALSE(isOverlay("overlay-native-3F2A9C1B"));
    EXPECT_FALSE(isOverlay("phone-overlay"));
}

TEST(Names, TheNamesOfThisMachinesClientsAreReserved) {
    EXPECT_TRUE(isReserved("overlay-native-3F2A9C1B"));
    EXPECT_TRUE(isReserved("panel-1"));
    EXPECT_FALSE(isReserved("phone-1"));
}

}  // namespace
}  // namespace stagehopper::companion
