// WebSocket connections to servers that do odd things.

#include <gmock/gmock.h>

#include "ports/linux/network/BeastUrlSession.h"
#include "tests/drivers/servers/LoopbackServer.h"
#include "tests/linux/network/Outcomes.h"

namespace stagehopper {
namespace {

using linux_port::BeastUrlSession;
using testing::ElementsAre;
using testing::StartsWith;

/// A client of a server that runs `script` once it has accepted the WebSocket.
class Connected {
public:
    explicit Connected(LoopbackServer::Script script)
        : server_([script = std::move(script)](Peer& peer) {
              const auto request = peer.readRequest();
              if (!request) return;
              peer.acceptWebSocket(*request);
              script(peer);
          }) {
        task->resume();
    }

private:
    LoopbackServer server_;
    BeastUrlSession session_;

public:
    Outcomes outcomes;
    std::shared_ptr<platform::WebSocketTask> task =
        session_.makeWebSocketTask("ws://" + server_.authority() + "/ws");

    /// What comes of so many receives.
    std::vector<std::string> received(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) task->receive(outcomes.message());
        return outcomes.first(count);
    }
};

TEST(WebSocketMessages, ThoseThatComeWithTheHandshakeAreNotLost) {
    Connected client([](Peer& peer) {
        peer.send(Frame{Frame::text, "hello"});
        peer.finish();
        peer.readUntilGone();
    });
    EXPECT_THAT(client.received(2), ElementsAre("text hello", StartsWith("error: ")));
}

TEST(WebSocketMessages, ArriveWholeWhateverTheirFrames) {
    const std::string large = '<' + std::string(65'534, 'x') + '>';
    const std::string most(1'048'576, 'x');
    const std::string bytes("\xff\x00\xfe", 3);
    struct Case {
        const char* what;
        std::vector<Frame> frames;
        std::string expected;
    };
    const Case cases[] = {
        {"64 KiB", {{Frame::text, large}}, "text " + large},
        {"the limit, 1 MiB", {{Frame::binary, most}}, "binary " + most},
        // The letter itself is cut in two; a ping comes in between.
        {"fragments",
         {{Frame::text, "gr\xc3", false},
          {Frame::ping, "?"},
          {Frame::continuation, "\xbc\xc3\x9f", false},
          {Frame::continuation, "e", true}},
         "text gr\xc3\xbc\xc3\x9f"
         "e"},
        {"bytes that are not text", {{Frame::binary, bytes}}, "binary " + bytes},
        {"an empty text", {{Frame::text, ""}}, "text "},
        {"behind an unsolicited pong",
         {{Frame::pong, "7"}, {Frame::text, "and on"}},
         "text and on"},
    };
    for (const auto& [what, frames, expected] : cases) {
        Connected client([&sent = frames](Peer& peer) {
            for (const auto& frame : sent) peer.send(frame);
            peer.readUntilGone();
        });
        EXPECT_THAT(client.received(1), ElementsAre(expected)) << what;
    }
}

TEST(WebSocketFaults, AFaultyMessageIsAnErrorThoughTheServerNeverCloses) {
    const std::pair<const char*, Frame> cases[] = {
        {"a byte beyond the limit", {Frame::binary, std::string(1'048'577, 'x')}},
        {"2 MiB", {Frame::text, std::string(2'097'152, 'x')}},
        {"a text with invalid UTF-8", {Frame::text, "\xff\xfe"}},
        {"an unknown kind of frame", {3, "x"}},
    };
    for (const auto& [fault, frame] : cases) {
        Connected client([&sent = frame](Peer& peer) {
            peer.send(sent);
            peer.readUntilGone();
        });
        EXPECT_THAT(client.received(1), ElementsAre(StartsWith("error: "))) << fault;
    }
}

TEST(WebSocketFaults, AFrameThatBreaksOffIsAnError) {
    Connected client([](Peer& peer) {
        peer.send(
            "\x81\x0a"
            "five!");
        peer.finish();
        peer.readUntilGone();
    });
    EXPECT_THAT(client.received(1), ElementsAre(StartsWith("error: ")));
}

TEST(WebSocketFaults, AServerThatCrashesIsAnErrorForPendingCalls) {
    Collected<int> pinged;
    Collected<int> mayCrash;
    Connected client([&](Peer& peer) {
        if (peer.readFrame()) pinged.add(1);
        if (mayCrash.await(1)) peer.reset();
    });
    client.task->receive(client.outcomes.message());
    client.task->sendPing(client.outcomes.pong());
    ASSERT_TRUE(pinged.await(1));
    EXPECT_THAT(client.outcomes.lines().all(), testing::IsEmpty());
    mayCrash.add(1);
    EXPECT_THAT(client.outcomes.first(2), ElementsAre("error: Connection reset by peer",
                                                      "no pong: Connection reset by peer"));
}

TEST(WebSocketFaults, ACloseNamesItsCode) {
    for (const int code : {1000, 1001, 4001}) {
        Connected client([code](Peer& peer) {
            peer.send(Frame{Frame::close, closePayload(code)});
            peer.readUntilGone();
        });
        EXPECT_THAT(client.received(1), ElementsAre("error: The server closed the connection (" +
                                                    std::to_string(code) + ")"));
    }
}

TEST(WebSocketFaults, ACloseIsAnsweredAndReportedThoughTheServerStaysConnected) {
    Collected<int> answers;
    Connected client([&answers](Peer& peer) {
        peer.send(Frame{Frame::close, ""});
        const auto answer = peer.readFrame();
        answers.add(answer && answer->opcode == Frame::close ? 1 : 0);
        peer.readUntilGone();
    });
    EXPECT_THAT(client.received(1), ElementsAre("error: The server closed the connection (1005)"));
    ASSERT_TRUE(answers.await(1));
    EXPECT_THAT(answers.all(), ElementsAre(1));
}

TEST(WebSocketPings, TheServersPingsAreAnsweredWithoutAReceive) {
    Collected<std::string> answers;
    Connected client([&answers](Peer& peer) {
        peer.send(Frame{Frame::ping, "are you there"});
        const auto answer = peer.readFrame();
        if (answer && answer->opcode == Frame::pong) answers.add(answer->payload);
        peer.readUntilGone();
    });
    ASSERT_TRUE(answers.await(1));
    EXPECT_THAT(answers.all(), ElementsAre("are you there"));
}

TEST(WebSocketPings, OnePongAnswersAllThatCameBefore) {
    Connected client([](Peer& peer) {
        peer.readFrame();
        peer.readFrame();
        const auto last = peer.readFrame();
        if (last) peer.send(Frame{Frame::pong, last->payload});
        peer.readUntilGone();
    });
    for (int i = 0; i < 3; ++i) client.task->sendPing(client.outcomes.pong());
    EXPECT_THAT(client.outcomes.first(3), ElementsAre("pong", "pong", "pong"));
}

}  // namespace
}  // namespace stagehopper
