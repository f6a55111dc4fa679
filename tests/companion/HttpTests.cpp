// The backend's HTTP responses, including those to hostile requests.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <regex>

#include "companion/backend/system/LocalAddresses.h"
#include "tests/companion/BackendProcess.h"
#include "tests/companion/RawClient.h"

namespace stagehopper::companion {
namespace {

using namespace std::chrono_literals;
using nlohmann::json;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class HttpTest : public testing::Test {
protected:
    /// Other clients are still served.
    void expectServing() { EXPECT_EQ(request(port_, "GET", "/health").status, 200); }

    BackendProcess backend_;
    std::uint16_t port_ = backend_.port();
    std::string host_ = "127.0.0.1:" + std::to_string(port_);
};

TEST_F(HttpTest, AMeetingIsCreatedListedFoundAndEnded) {
    const HttpReply made = ownPageRequest(port_, "POST", "/v1/meetings", R"({"roomName":"Übung"})");
    ASSERT_EQ(made.status, 201);
    const json record = json::parse(made.body);
    EXPECT_EQ(record["roomName"], "Übung");

    const HttpReply active = request(port_, "GET", "/v1/meetings/active");
    ASSERT_EQ(active.status, 200);
    EXPECT_EQ(json::parse(active.body)["meetings"][0]["roomCode"], record["roomCode"]);
    EXPECT_THAT(active.body, Not(HasSubstr(record["secret"].get<std::string>())));

    const HttpReply current = ownPageRequest(port_, "POST", "/v1/meetings/current");
    EXPECT_EQ(current.status, 200);
    EXPECT_EQ(json::parse(current.body), record);

    const std::string path = "/v1/meetings/" + record["roomCode"].get<std::string>();
    EXPECT_EQ(ownPageRequest(port_, "DELETE", path).status, 204);
    EXPECT_EQ(ownPageRequest(port_, "DELETE", path).status, 404);
    EXPECT_EQ(ownPageRequest(port_, "POST", "/v1/meetings/current").status, 404);
    EXPECT_THAT(backend_.log(), Not(HasSubstr(record["secret"].get<std::string>())));
}

TEST_F(HttpTest, OneConnectionServesManyRequests) {
    RawClient client(port_);
    for (int i = 0; i < 3; ++i) {
        client.send("GET /health HTTP/1.1\r\nHost: " + host_ + "\r\n\r\n");
        EXPECT_THAT(client.readUntil("backend\"}", 5s), StartsWith("HTTP/1.1 200"));
    }
}

TEST_F(HttpTest, EveryResponseHasTheSecurityHeaders) {
    for (const char* path : {"/health", "/link", "/phone", "/nothing"}) {
        const HttpReply reply = request(port_, "GET", path);
        EXPECT_THAT(reply.header, HasSubstr("X-Content-Type-Options: nosniff")) << path;
        EXPECT_THAT(reply.header, HasSubstr("Cache-Control: no-store")) << path;
        EXPECT_THAT(reply.header, HasSubstr("Referrer-Policy: no-referrer")) << path;
        EXPECT_THAT(reply.header, Not(HasSubstr("Access-Control-"))) << path;
    }
    EXPECT_THAT(request(port_, "GET", "/phone").header, HasSubstr("X-Frame-Options: DENY"));
    EXPECT_THAT(request(port_, "GET", "/link").header, Not(HasSubstr("X-Frame-Options")));
    EXPECT_THAT(request(port_, "GET", "/link").header,
                HasSubstr("connect-src 'self' ws://" + host_));
}

TEST_F(HttpTest, AWebPageIsRefused) {
    for (const char* origin : {"http://evil.example", "null", "file://"}) {
        EXPECT_EQ(request(port_, "GET", "/v1/meetings/active", {{"Origin", origin}}).status, 403);
        EXPECT_EQ(request(port_, "POST", "/v1/meetings", {{"Origin", origin}}).status, 403);
        EXPECT_EQ(request(port_, "GET", "/health", {{"Origin", origin}}).status, 403);
    }
    EXPECT_EQ(
        request(port_, "GET", "/v1/meetings/active", {{"Sec-Fetch-Site", "cross-site"}}).status,
        403);
    EXPECT_EQ(request(port_, "GET", "/health", {{"Sec-Fetch-Site", "cross-site"}}).status, 200);
    EXPECT_EQ(request(port_, "POST", "/v1/meetings").status, 403) << "no changes without an origin";
    const HttpReply preflight =
        request(port_, "OPTIONS", "/v1/meetings",
                {{"Origin", "http://evil.example"}, {"Access-Control-Request-Method", "POST"}});
    EXPECT_EQ(preflight.status, 403);
    expectServing();
}

TEST_F(HttpTest, APhoneMayLoadItsPageButNeitherListNorCreate) {
    const auto addresses = likelyFirst(localAddresses());
    if (addresses.empty()) GTEST_SKIP() << "this machine has no network address";
    const std::string& address = addresses.front();
    const auto ask = [&](const std::string& method, const std::string& path) {
        const std::string origin = "http://" + address + ":" + std::to_string(port_);
        return request(port_, method, path, {{"Origin", origin}}, {}, address).status;
    };
    EXPECT_EQ(ask("GET", "/phone"), 200);
    EXPECT_EQ(ask("GET", "/health"), 403);
    EXPECT_EQ(ask("GET", "/link"), 403);
    EXPECT_EQ(ask("GET", "/v1/meetings/active"), 403);
    EXPECT_EQ(ask("POST", "/v1/meetings"), 403);
    EXPECT_EQ(ask("POST", "/v1/meetings/current"), 403);
    EXPECT_EQ(request(port_, "GET", "/v1/meetings/active", {{"Host", host_}}, {}, address).status,
              421)
        << "a Host header does not make a request local";
}

TEST_F(HttpTest, APhoneMayLoadEveryFileThatItsPageNames) {
    const auto addresses = likelyFirst(localAddresses());
    if (addresses.empty()) GTEST_SKIP() << "this machine has no network address";
    const auto load = [&](const std::string& path) {
        return request(port_, "GET", path, {}, {}, addresses.front());
    };
    const std::string page = load("/phone").body;
    const std::regex named("(?:src|href)=\"([^\"]+)\"");
    std::vector<std::string> files;
    for (std::sregex_iterator each(page.begin(), page.end(), named), end; each != end; ++each) {
        files.push_back((*each)[1]);
        EXPECT_EQ(load(files.back()).status, 200) << files.back();
    }
    EXPECT_THAT(files, testing::Contains("/phone.js"));
}

TEST_F(HttpTest, NoPathLeadsToOtherFiles) {
    for (const char* path :
         {"/../../../etc/passwd", "/%2e%2e/%2e%2e/etc/passwd", "/link.html/..",
          "/StagehopperBackend-arm64", "/panel.html", "//etc/passwd", "/phone%00.js"}) {
        EXPECT_EQ(request(port_, "GET", path).status, 404) << path;
    }
    expectServing();
}

TEST_F(HttpTest, GarbageIsABadRequest) {
    for (const std::string& bytes :
         {std::string("\x16\x03\x01\x02\x00\x01\r\n\r\n", 10), std::string("hello\r\n\r\n"),
          std::string("GET /health HTTP/9.9\r\n\r\n"),
          std::string("GET /health HTTP/1.1\r\nHost : x\r\n\r\n"),
          std::string("GET /health HTTP/1.1\r\nno colon\r\n\r\n"),
          std::string("POST /v1/meetings HTTP/1.1\r\nContent-Length: -1\r\n\r\n"),
          "GET /health HTTP/1.1\r\nHost: " + host_ + "\r\nHost: " + host_ + "\r\n\r\n"}) {
        RawClient client(port_);
        client.send(bytes);
        EXPECT_THAT(client.readAll(5s), StartsWith("HTTP/1.1 400 ")) << bytes;
    }
    EXPECT_TRUE(backend_.logs("status=400", 1s));
    expectServing();
}

TEST_F(HttpTest, ARequestWithoutAHostIsMisdirected) {
    RawClient client(port_);
    client.send("GET /health HTTP/1.0\r\n\r\n");
    EXPECT_THAT(client.readAll(5s), StartsWith("HTTP/1.1 421 "));
}

TEST_F(HttpTest, HalfARequestIsDroppedAndLogged) {
    RawClient client(port_);
    client.send("GET /health HTTP/1.1\r\nHos");
    client.finishSending();
    EXPECT_TRUE(client.ends(5s));
    EXPECT_TRUE(backend_.logs("request_unfinished", 1s));
    expectServing();
}

TEST_F(HttpTest, AHeaderOfTwoMebibytesIsRefused) {
    RawClient client(port_);
    client.send("GET /health HTTP/1.1\r\nHost: " + host_ + "\r\nX: ");
    client.send(std::string(2 * 1024 * 1024, 'a'));
    EXPECT_THAT(client.readAll(5s), StartsWith("HTTP/1.1 431 "));
    expectServing();
}

TEST_F(HttpTest, ALargeBodyIsRefused) {
    EXPECT_EQ(ownPageRequest(port_, "POST", "/v1/meetings", std::string(4097, ' ')).status, 413);
    EXPECT_EQ(ownPageRequest(port_, "POST", "/v1/meetings", std::string(4094, ' ') + "{}").status,
              201);
    RawClient client(port_);
    client.send("POST /v1/meetings HTTP/1.1\r\nHost: " + host_ +
                "\r\nTransfer-Encoding: chunked\r\n\r\n1001\r\n" + std::string(4097, ' ') +
                "\r\n0\r\n\r\n");
    EXPECT_THAT(client.readAll(5s), StartsWith("HTTP/1.1 413 "));
}

TEST_F(HttpTest, ANetworkAddressMayOpenSixtyFourConnections) {
    const auto addresses = likelyFirst(localAddresses());
    if (addresses.empty()) GTEST_SKIP() << "this machine has no network address";
    std::vector<std::unique_ptr<RawClient>> held;
    for (int i = 0; i < 64; ++i) {
        held.push_back(std::make_unique<RawClient>(port_, addresses.front()));
    }
    const auto phone = [&] {
        return request(port_, "GET", "/phone", {}, {}, addresses.front()).status;
    };
    EXPECT_EQ(phone(), 503);
    expectServing();
    held.pop_back();
    EXPECT_TRUE(desktop::waitFor([&] { return phone() == 200; }, 5s)) << "one has disconnected";
}

}  // namespace
}  // namespace stagehopper::companion
