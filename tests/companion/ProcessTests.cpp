// The start and the end of the backend.
#include <gtest/gtest.h>

#include "tests/companion/BackendProcess.h"
#include "tests/companion/RawClient.h"
#include "tests/companion/RoomClient.h"

namespace stagehopper::companion {
namespace {

using namespace std::chrono_literals;

TEST(BackendProcess, ListensOnTheFirstPortIfItIsFree) {
    const std::uint16_t first = BackendProcess::unusedPort();
    BackendProcess backend({.parent = {}, .firstPort = first});
    EXPECT_EQ(backend.port(), first);
    EXPECT_EQ(request(first, "GET", "/health").status, 200);
}

TEST(BackendProcess, ListensOnTheNextPortIfOneIsTaken) {
    BackendProcess other;
    ASSERT_NE(other.port(), 0);
    BackendProcess backend({.parent = {}, .firstPort = other.port()});
    EXPECT_GT(backend.port(), other.port());
    EXPECT_EQ(request(backend.port(), "GET", "/health").status, 200);
    EXPECT_EQ(request(other.port(), "GET", "/health").status, 200);
}

TEST(BackendProcess, ExitsWithStatusOneIfAllPortsAreTaken) {
    BackendProcess other;
    ASSERT_NE(other.port(), 0);
    BackendProcess backend({.parent = {}, .firstPort = other.port(), .extraPorts = 0});
    EXPECT_EQ(backend.exitStatus(5s), 1);
}

TEST(BackendProcess, ReusesThePortOfABackendThatHasJustEnded) {
    BackendProcess first;
    const std::uint16_t port = first.port();
    ASSERT_EQ(request(port, "GET", "/health").status, 200);
    first.terminate();
    ASSERT_EQ(first.exitStatus(5s), 0);
    BackendProcess second({.parent = {}, .firstPort = port});
    EXPECT_EQ(second.port(), port);
}

TEST(BackendProcess, EndsWithItsParent) {
    FakeParent parent;
    BackendProcess backend({.parent = parent.id()});
    ASSERT_NE(backend.port(), 0);
    EXPECT_FALSE(backend.exitStatus(600ms)) << "the parent is alive";
    parent.kill();
    EXPECT_EQ(backend.exitStatus(1500ms), 0);
}

TEST(BackendProcess, EndsWithTheParentThatStartedIt) {
    BackendProcess backend({.parent = {}, .behindParent = true});
    const std::uint16_t port = backend.port();
    ASSERT_EQ(request(port, "GET", "/health").status, 200);
    backend.kill();
    EXPECT_TRUE(becomesTrue(1500ms, [&] { return request(port, "GET", "/health").status == 0; }));
    EXPECT_TRUE(backend.logs("ending parent gone", 1s));
}

TEST(BackendProcess, ClosesItsConnectionsAndEndsWithinASecondAfterASignal) {
    BackendProcess backend;
    const auto made =
        nlohmann::json::parse(ownPageRequest(backend.port(), "POST", "/v1/meetings").body);
    RoomClient client({.port = backend.port(),
                       .query = "roomCode=" + made["roomCode"].get<std::string>() +
                                "&userId=a&role=guest&displayName=a&cursorColor=%23000000",
                       .origin = {}});
    ASSERT_TRUE(client.next("welcome", 5s));
    RawClient silent(backend.port());
    backend.terminate();
    const auto closed = client.closed(1s);
    ASSERT_TRUE(closed);
    EXPECT_EQ(closed->code, 1001);
    EXPECT_EQ(closed->reason, "shutting down");
    EXPECT_EQ(backend.exitStatus(1s), 0);
}

TEST(BackendProcess, EndsWithinASecondEvenIfAClientDoesNotReplyToTheClose) {
    BackendProcess backend;
    const auto made =
        nlohmann::json::parse(ownPageRequest(backend.port(), "POST", "/v1/meetings").body);
    RawClient deaf(backend.port());
    const std::string host = "127.0.0.1:" + std::to_string(backend.port());
    deaf.send(
        "GET /ws?roomCode=" + made["roomCode"].get<std::string>() +
        "&userId=deaf&role=guest&displayName=&cursorColor=%23000000 HTTP/1.1\r\nHost: " + host +
        "\r\nUpgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Version: 13\r\n"
        "Sec-WebSocket-Key: AAAAAAAAAAAAAAAAAAAAAA==\r\n\r\n");
    ASSERT_NE(deaf.readUntil("welcome", 5s).find("101 Switching"), std::string::npos);
    backend.terminate();
    EXPECT_EQ(backend.exitStatus(1s), 0);
}

}  // namespace
}  // namespace stagehopper::companion
