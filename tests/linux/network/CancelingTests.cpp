// Connections that are canceled or dropped while something is pending.

#include <gmock/gmock.h>

#include "ports/linux/network/BeastUrlSession.h"
#include "tests/drivers/servers/LoopbackServer.h"
#include "tests/linux/network/Outcomes.h"
#include "tests/linux/network/QuietServers.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using linux_port::BeastUrlSession;
using testing::ElementsAre;

constexpr auto canceledText = "error: The connection was cancelled";

TEST(Canceling, WhileConnectingFailsPendingCalls) {
    const CrowdedPort crowded;
    SocketClient client("ws://" + crowded.authority() + "/ws");
    EXPECT_FALSE(client.outcomes.lines().await(1, 20ms));
    client.task->cancel(1000);
    EXPECT_THAT(client.outcomes.first(1), ElementsAre(canceledText));
}

TEST(Canceling, WhileTheHostIsLookedUpFailsPendingCalls) {
    DeafServer deaf;
    SocketClient client("ws://localhost:" + std::to_string(deaf.server.port()));
    client.task->cancel(1000);
    EXPECT_THAT(client.outcomes.first(1), ElementsAre(canceledText));
}

TEST(Canceling, DuringTheHandshakeLeavesTheServer) {
    SilentServer silent;
    SocketClient client("ws://" + silent.server.authority() + "/ws");
    client.task->sendPing(client.outcomes.pong());
    ASSERT_TRUE(silent.asked.await(1));
    client.task->cancel(1000);
    EXPECT_THAT(client.outcomes.first(2),
                ElementsAre(canceledText, "no pong: The connection was cancelled"));
    EXPECT_TRUE(silent.left.await(1));
}

TEST(Canceling, DoesNotWaitLongForAServerThatNeverCloses) {
    DeafServer deaf;
    SocketClient client("ws://" + deaf.server.authority() + "/ws", {.closing = 50ms});
    client.task->receive(client.outcomes.message());
    ASSERT_TRUE(client.outcomes.lines().await(1));
    client.task->cancel(1001);
    EXPECT_THAT(client.outcomes.first(2), ElementsAre("text hello", canceledText));
    ASSERT_TRUE(deaf.frames.await(2));
    EXPECT_THAT(deaf.frames.all(), ElementsAre("close 1001", "end"));
}

TEST(Canceling, TwiceHasTheEffectOfOnce) {
    DeafServer deaf;
    SocketClient client("ws://" + deaf.server.authority() + "/ws", {.closing = 50ms});
    ASSERT_TRUE(client.outcomes.lines().await(1));
    client.task->cancel(1001);
    client.task->cancel(1002);
    ASSERT_TRUE(deaf.frames.await(2));
    EXPECT_THAT(deaf.frames.all(), ElementsAre("close 1001", "end"));
}

TEST(Canceling, FromInsideACompletionFailsTheFollowingCalls) {
    const LoopbackServer server([](Peer& peer) {
        const auto request = peer.readRequest();
        if (!request) return;
        peer.acceptWebSocket(*request);
        peer.send(Frame{Frame::text, "one"});
        peer.send(Frame{Frame::text, "two"});
        peer.readUntilGone();
    });
    BeastUrlSession session({.closing = 50ms});
    Outcomes outcomes;
    auto task = session.makeWebSocketTask("ws://" + server.authority() + "/ws");
    task->receive([weak = std::weak_ptr(task), first = outcomes.message(),
                   second = outcomes.message()](const platform::ReceiveResult& result) {
        first(result);
        if (const auto strong = weak.lock()) {
            strong->cancel(1000);
            strong->receive(second);
        }
    });
    task->resume();
    EXPECT_THAT(outcomes.first(2), ElementsAre("text one", canceledText));
}

TEST(Dropping, ACompletionMayHoldTheLastReference) {
    SilentServer silent;
    BeastUrlSession session({.handshake = 50ms});
    Outcomes outcomes;
    auto task = session.makeWebSocketTask("ws://" + silent.server.authority() + "/ws");
    auto& borrowed = *task;
    borrowed.resume();
    borrowed.receive([task = std::move(task), report = outcomes.message()](
                         const platform::ReceiveResult& result) { report(result); });
    EXPECT_THAT(outcomes.first(1), ElementsAre("error: The connection timed out"));
    EXPECT_TRUE(silent.left.await(1));
}

}  // namespace
}  // namespace stagehopper
