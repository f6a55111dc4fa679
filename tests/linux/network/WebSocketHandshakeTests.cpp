// How a WebSocket connection begins, and how it fails to.

#include <gmock/gmock.h>

#include "ports/linux/network/BeastUrlSession.h"
#include "tests/drivers/servers/LoopbackServer.h"
#include "tests/linux/network/Outcomes.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using linux_port::BeastUrlSession;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

/// What a receive says of a server that answers the handshake with these bytes and ends its half.
std::string outcomeOfHandshake(const std::string& answer) {
    const LoopbackServer server([&answer](Peer& peer) {
        if (!peer.readRequest()) return;
        peer.send(answer);
        peer.finish();
        peer.readUntilGone();
    });
    SocketClient client("ws://" + server.authority() + "/ws");
    const auto lines = client.outcomes.first(1);
    return lines.empty() ? "nothing" : lines.front();
}

TEST(WebSocketHandshake, AsksForTheTargetAndForNothingElse) {
    Collected<std::string> requests;
    const LoopbackServer server(
        [&requests](Peer& peer) { requests.add(peer.readRequest().value_or("none")); });
    BeastUrlSession session;
    const auto task =
        session.makeWebSocketTask("ws://" + server.authority() + "/ws?roomCode=A%20B&x=");
    task->resume();
    ASSERT_TRUE(requests.await(1));
    const auto request = requests.all().front();
    EXPECT_THAT(request, StartsWith("GET /ws?roomCode=A%20B&x= HTTP/1.1\r\n"));
    EXPECT_THAT(request, HasSubstr("\r\nHost: " + server.authority() + "\r\n"));
    EXPECT_THAT(request, HasSubstr("\r\nUser-Agent: Stagehopper\r\n"));
    EXPECT_THAT(request, HasSubstr("\r\nSec-WebSocket-Version: 13\r\n"));
    for (const char* unwanted : {"Origin", "Sec-WebSocket-Protocol", "Sec-WebSocket-Extensions"}) {
        EXPECT_THAT(request, testing::Not(HasSubstr(unwanted)));
    }
}

TEST(WebSocketHandshake, ARefusalNamesTheStatus) {
    EXPECT_EQ(outcomeOfHandshake("HTTP/1.1 403 Forbidden\r\nContent-Length: 0\r\n\r\n"),
              "error: The server refused the connection (403)");
    EXPECT_EQ(outcomeOfHandshake("HTTP/1.1 404 Not Found\r\nContent-Length: 2\r\n\r\nno"),
              "error: The server refused the connection (404)");
}

TEST(WebSocketHandshake, AFaultyAnswerIsAnError) {
    const std::pair<const char*, std::string> cases[] = {
        {"no HTTP", "\x01\x02 nonsense\r\n\r\n"},
        {"a wrong key",
         "HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\n"
         "Connection: Upgrade\r\nSec-WebSocket-Accept: bm8=\r\n\r\n"},
        {"an endless header", "HTTP/1.1 101 Ok\r\nA: " + std::string(1'000'000, 'a')},
        {"nothing", ""},
    };
    for (const auto& [fault, answer] : cases) {
        EXPECT_THAT(outcomeOfHandshake(answer), StartsWith("error: ")) << fault;
    }
}

TEST(WebSocketHandshake, AServerThatNeverAnswersMeetsTheTimeLimit) {
    const LoopbackServer server([](Peer& peer) { peer.readUntilGone(); });
    BeastUrlSession session({.handshake = 50ms});
    Outcomes outcomes;
    const auto task = session.makeWebSocketTask("ws://" + server.authority() + "/ws");
    task->receive(outcomes.message());
    task->resume();
    EXPECT_THAT(outcomes.first(1), ElementsAre("error: The connection timed out"));
}

TEST(WebSocketHandshake, ARefusedConnectionSaysSo) {
    const UnusedPort nobody;
    BeastUrlSession session;
    Outcomes outcomes;
    const auto task = session.makeWebSocketTask("ws://" + nobody.authority() + "/ws");
    task->resume();
    task->sendPing(outcomes.pong());
    EXPECT_THAT(outcomes.first(1), ElementsAre("no pong: Connection refused"));
}

TEST(WebSocketHandshake, AnAddressOfAnotherSchemeIsNotSupported) {
    SocketClient client("https://127.0.0.1/ws");
    EXPECT_THAT(client.outcomes.first(1),
                ElementsAre("error: Connections by https are not supported"));
}

TEST(WebSocketHandshake, APingWaitsForIt) {
    Collected<std::string> steps;
    Collected<int> mayAnswer;
    const LoopbackServer server([&](Peer& peer) {
        const auto request = peer.readRequest();
        if (!request || !mayAnswer.await(1)) return;
        peer.acceptWebSocket(*request);
        const auto ping = peer.readFrame();
        if (ping) peer.send(Frame{Frame::pong, ping->payload});
        peer.readUntilGone();
    });
    BeastUrlSession session;
    Outcomes outcomes;
    const auto task = session.makeWebSocketTask("ws://" + server.authority() + "/ws");
    task->resume();
    task->sendPing(outcomes.pong());
    mayAnswer.add(1);
    EXPECT_THAT(outcomes.first(1), ElementsAre("pong"));
}

}  // namespace
}  // namespace stagehopper
