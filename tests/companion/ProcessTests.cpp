// The start and the end of the backend.
#include <gtest/gtest.h>

#include "tests/companion/Room.h"

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
    EXPECT_TRUE(
        desktop::waitFor([&] { return request(port, "GET", "/health").status == 0; }, 1500ms));
    EXPECT_TRUE(backend.logs("ending parent gone", 1s));
}

TEST_F(RoomTest, ASignalClosesItsConnectionsAndEndsTheBackendWithinASecond) {
    RoomClient client = join("a");
    ASSERT_TRUE(client.next("welcome", 5s));
    RawClient silent(port_);
    backend_.terminate();
    const auto closed = client.closed(1s);
    ASSERT_TRUE(closed);
    EXPECT_EQ(closed->code, 1001);
    EXPECT_EQ(closed->reason, "shutting down");
    EXPECT_EQ(backend_.exitStatus(1s), 0);
}

TEST_F(RoomTest, ASignalEndsTheBackendWithinASecondEvenIfAClientDoesNotReplyToTheClose) {
    RawClient deaf(port_);
    joinRaw(deaf, "deaf");
    ASSERT_NE(deaf.readUntil("welcome", 5s).find("101 Switching"), std::string::npos);
    backend_.terminate();
    EXPECT_EQ(backend_.exitStatus(1s), 0);
}

}  // namespace
}  // namespace stagehopper::companion
