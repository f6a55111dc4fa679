// No client can replace another participant with the ids that it can see.
#include <gmock/gmock.h>

#include <map>
#include <set>

#include "tests/companion/Room.h"

namespace stagehopper::companion {
namespace {

using namespace std::chrono_literals;
using nlohmann::json;

class IdentityTest : public RoomTest {
protected:
    RoomClient joinAsOwnPage(const std::string& userId, const std::string& role) {
        return RoomClient(
            {.port = port_, .query = query(userId, role), .origin = backend_.origin()});
    }

    /// Every id in the messages of the room and in the list of meetings.
    std::set<std::string> shownIds(RoomClient& watcher) {
        std::set<std::string> ids;
        const auto addAll = [&ids](const json& participants) {
            for (const auto& participant : participants) ids.insert(participant.at("userId"));
        };
        addAll(json::parse(request(port_, "GET", "/v1/meetings/active").body)
                   .at("meetings")
                   .at(0)
                   .at("participants"));
        while (const auto message = watcher.next(5s)) {
            if (message->contains("participants")) addAll(message->at("participants"));
            if (message->contains("userId")) ids.insert(message->at("userId"));
            if (message->at("type") == "slide_nav") break;
        }
        return ids;
    }
};

TEST_F(IdentityTest, AGuestCannotReplaceOthersWithTheirPublicIds) {
    std::map<std::string, RoomClient> joined;
    joined.emplace("host", join("overlay-native-3F2A9C1B"));
    joined.emplace("panel", joinAsOwnPage("panel-0a1b2c3d", "host"));
    joined.emplace("overlay", joinAsOwnPage("overlay-4e5f6071", "guest"));
    joined.emplace("phone", join("phone-presenter"));
    RoomClient attacker = join("phone-attacker");
    joined.at("phone").send(step("first"));

    const std::set<std::string> ids = shownIds(attacker);
    EXPECT_GE(ids.size(), 5U);
    std::vector<RoomClient> impostors;
    for (const std::string& id : ids) impostors.push_back(join(id));

    attacker.send(step("second"));
    for (auto& [name, client] : joined) {
        auto received = client.next("slide_nav", 5s);
        if (received && received->at("id") == "first") received = client.next("slide_nav", 5s);
        EXPECT_TRUE(received) << name << " was disconnected";
    }
}

TEST_F(IdentityTest, AReconnectReplacesTheOldConnectionOfTheClient) {
    for (const std::string userId : {"overlay-native-3F2A9C1B", "phone-1", "panel-1"}) {
        RoomClient before = join(userId);
        const auto first = before.next("welcome", 5s);
        ASSERT_TRUE(first);
        RoomClient after = join(userId);
        const auto second = after.next("welcome", 5s);
        ASSERT_TRUE(second);
        EXPECT_EQ(before.closed(5s)->code, 4001);
        EXPECT_EQ(first->at("userId"), second->at("userId"))
            << "the same participant for the others";
        const json& all = second->at("participants");
        EXPECT_EQ(std::ranges::count(all, second->at("userId"),
                                     [](const json& one) { return one.at("userId"); }),
                  1);
        after.send(step("after " + userId));
        EXPECT_TRUE(after.next("slide_nav", 5s));
    }
}

}  // namespace
}  // namespace stagehopper::companion
