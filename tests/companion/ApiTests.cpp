#include "companion/backend/http/Api.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <regex>

#include "tests/companion/FakeConnection.h"
#include "tests/drivers/TemporaryFolder.h"

namespace stagehopper::companion {
namespace {

using nlohmann::json;
using testing::SizeIs;

class ApiTest : public testing::Test {
protected:
    ApiTest() {
        std::ofstream(folder_.path() + "/phone.html") << "<p>phone</p>";
        std::ofstream(folder_.path() + "/link.html") << "<p>link</p>";
        std::ofstream(folder_.path() + "/awake.mp4") << "0123456789";
        pages_.emplace(folder_.path());
        api_.emplace(
            meetings_, *pages_, log_,
            Api::Environment{[this] { return now_; }, [this] { return addresses_; }, 3007});
    }

    Response ask(Resource resource, const std::string& path, const std::string& body = {},
                 const std::string& range = {}) {
        Request request;
        request.context.path = path;
        request.context.host = "192.168.1.5:3007";
        request.body = body;
        request.range = range;
        return api_->handle({.reason = {}, .resource = resource, .allowedMethod = {}}, request);
    }
    Response create(const std::string& body) {
        return ask(Resource::meetings, "/v1/meetings", body);
    }

    std::int64_t now_ = 1790000000000;
    std::vector<std::string> addresses_{"192.168.1.5", "10.0.0.5"};
    TemporaryFolder folder_;
    BackendLog log_{""};
    Meetings meetings_;
    std::optional<Pages> pages_;
    std::optional<Api> api_;
};

TEST_F(ApiTest, ThePanelMayRequestHealth) {
    const Response response = ask(Resource::health, "/health");
    EXPECT_EQ(response.status, 200U);
    EXPECT_EQ(json::parse(response.body),
              json({{"status", "ok"}, {"program", "stagehopper-backend"}}));
    EXPECT_EQ(response.headers.at("Cross-Origin-Resource-Policy"), "cross-origin");
}

TEST_F(ApiTest, TheRecordOfANewMeetingContainsLinksForPhones) {
    const Response response = create(R"({"roomName":"Physics"})");
    EXPECT_EQ(response.status, 201U);
    const json record = json::parse(response.body);
    const std::string code = record["roomCode"];
    const std::string secret = record["secret"];
    EXPECT_TRUE(std::regex_match(code, std::regex("[A-HJKMNP-Z2-9]{6}"))) << code;
    EXPECT_TRUE(std::regex_match(secret, std::regex("[A-Za-z0-9_-]{22}"))) << secret;
    EXPECT_EQ(record["roomName"], "Physics");
    EXPECT_EQ(record["createdAt"], 1790000000000);
    ASSERT_THAT(record["links"], SizeIs(2));
    EXPECT_EQ(record["links"][0]["address"], "192.168.1.5");
    EXPECT_EQ(record["links"][0]["url"], "http://192.168.1.5:3007/phone#" + code + "." + secret);
}

TEST_F(ApiTest, WithoutANetworkTheRecordHasNoLinks) {
    addresses_.clear();
    EXPECT_EQ(json::parse(create("").body)["links"], json::array());
}

TEST_F(ApiTest, AMeetingWithoutANameIsNamedAfterItsCode) {
    const json record = json::parse(create("{}").body);
    EXPECT_EQ(record["roomName"], record["roomCode"]);
}

TEST_F(ApiTest, AnInvalidBodyIsRefused) {
    for (const char* body : {"x", "[]", "null", R"({"roomName":1})", "{\"roomName\":\"a\\nb\"}"}) {
        EXPECT_EQ(create(body).status, 400U) << body;
    }
    EXPECT_EQ(create(R"({"roomName":")" + std::string(65, 'a') + "\"}").status, 400U);
    const std::string deep = std::string(2000, '[') + std::string(2000, ']');
    EXPECT_EQ(create(R"({"roomName":)" + deep + "}").status, 400U);
    EXPECT_TRUE(meetings_.all().empty());
}

TEST_F(ApiTest, ASeventeenthMeetingIsRefused) {
    for (int i = 0; i < 16; ++i) EXPECT_EQ(create("").status, 201U);
    EXPECT_EQ(create("").status, 409U);
    meetings_.end(meetings_.all().front()->identity().roomCode);
    EXPECT_EQ(create("").status, 201U);
}

TEST_F(ApiTest, TheCurrentMeetingIsTheNewest) {
    EXPECT_EQ(ask(Resource::currentMeeting, "/v1/meetings/current").status, 404U);
    create(R"({"roomName":"first"})");
    create(R"({"roomName":"second"})");
    const json record = json::parse(ask(Resource::currentMeeting, "/v1/meetings/current").body);
    EXPECT_EQ(record["roomName"], "second");
    EXPECT_EQ(record["createdAt"], 1790000000001) << "unique, although the clock stands still";
}

TEST_F(ApiTest, ActiveMeetingsAreListedWithTheirParticipants) {
    EXPECT_EQ(json::parse(ask(Resource::activeMeetings, "").body),
              json({{"meetings", json::array()}}));
    create(R"({"roomName":"Physics"})");
    meetings_.newest()->join({"", "phone-1", "Ann", Role::guest, "#aabbcc", {}},
                             std::make_shared<FakeConnection>());
    const json active = json::parse(ask(Resource::activeMeetings, "").body);
    EXPECT_EQ(active, json({{"meetings",
                             {{{"roomCode", meetings_.newest()->identity().roomCode},
                               {"roomName", "Physics"},
                               {"createdAt", 1790000000000},
                               {"participants",
                                {{{"userId", "guest-1"},
                                  {"displayName", "Ann"},
                                  {"role", "guest"},
                                  {"cursorColor", "#aabbcc"}}}}}}}}));
}

TEST_F(ApiTest, AMeetingCanBeEndedOnlyOnce) {
    create("");
    const std::string path = "/v1/meetings/" + meetings_.newest()->identity().roomCode;
    EXPECT_EQ(ask(Resource::meeting, path).status, 204U);
    EXPECT_EQ(ask(Resource::meeting, path).status, 404U);
}

TEST_F(ApiTest, TheLinkPageCanBeFramedAndThePhonePageCannot) {
    EXPECT_EQ(ask(Resource::file, "/phone").headers.at("X-Frame-Options"), "DENY");
    EXPECT_FALSE(ask(Resource::file, "/link").headers.contains("X-Frame-Options"));
    EXPECT_EQ(ask(Resource::file, "/link").contentType, "text/html; charset=utf-8");
}

TEST_F(ApiTest, APageMayConnectOnlyToItsOwnServer) {
    EXPECT_THAT(
        ask(Resource::file, "/phone").headers.at("Content-Security-Policy"),
        testing::StartsWith("default-src 'self'; connect-src 'self' ws://192.168.1.5:3007; "));
}

TEST_F(ApiTest, AnAbsentFileIsNotFound) {
    EXPECT_EQ(ask(Resource::file, "/phone.js").status, 404U);
    EXPECT_THAT(pages_->missing(), testing::Contains("phone.js"));
}

TEST_F(ApiTest, AFolderInPlaceOfAFileIsAnAbsentFile) {
    std::filesystem::create_directory(folder_.path() + "/phone.js");
    const Pages pages(folder_.path());
    EXPECT_EQ(pages.at("/phone.js"), nullptr);
    EXPECT_THAT(pages.missing(), testing::Contains("phone.js"));
}

TEST_F(ApiTest, AFileIsReadOnceAtTheStart) {
    std::ofstream(folder_.path() + "/phone.html") << "<p>changed</p>";
    EXPECT_EQ(ask(Resource::file, "/phone").body, "<p>phone</p>");
}

TEST_F(ApiTest, ARangeRequestGetsAPartOfTheVideo) {
    const Response part = ask(Resource::file, "/awake.mp4", {}, "bytes=0-1");
    EXPECT_EQ(part.status, 206U);
    EXPECT_EQ(part.body, "01");
    EXPECT_EQ(part.headers.at("Content-Range"), "bytes 0-1/10");
    EXPECT_EQ(ask(Resource::file, "/awake.mp4", {}, "bytes=7-").body, "789");
    EXPECT_EQ(ask(Resource::file, "/awake.mp4", {}, "bytes=-2").body, "89");
    EXPECT_EQ(ask(Resource::file, "/awake.mp4", {}, "bytes=8-99").body, "89");
    EXPECT_EQ(ask(Resource::file, "/awake.mp4", {}, "bytes=10-").status, 416U);
    EXPECT_EQ(ask(Resource::file, "/awake.mp4", {}, "bytes=-0").status, 416U);
    for (const char* odd : {"bytes=", "bytes=-", "bytes=5-4", "bytes=0-1,3-4", "lines=0-1",
                            "bytes=99999999999999999999-"}) {
        EXPECT_EQ(ask(Resource::file, "/awake.mp4", {}, odd).status, 200U) << odd;
    }
}

TEST_F(ApiTest, ErrorsAreJson) {
    EXPECT_EQ(json::parse(ask(Resource::file, "/x").body), json({{"error", "no such thing"}}));
}

}  // namespace
}  // namespace stagehopper::companion
