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

TEST(WebSocketMessages, SixtyFourKibibytesArriveWhole) {
    std::string large(65'536, 'x');
    large.front() = '<';
    large.back() = '>';
    Connected client([&large](Peer& peer) {
        peer.send(Frame{Frame::text, large});
        peer.readUntilGone();
    });
    EXPECT_THAT(client.received(1), ElementsAre("text " + large));
}

TEST(WebSocketMessages, OneMebibyteIsTheLimit) {
    const std::string most(1'048'576, 'x');
    Connected client([&most](Peer& peer) {
        peer.send(Frame{Frame::binary, most});
        peer.send(Frame{Frame::binary, most + "x"});
        peer.readUntilGone();
    });
    EXPECT_THAT(client.received(2), ElementsAre("binary " + most, StartsWith("error: ")));
}

TEST(WebSocketMessages, TwoMebibytesAreAnErrorThoughTheServerNeverCloses) {
    Connected client([](Peer& peer) {
        peer.send(Frame{Frame::text, std::string(2'097'152, 'x')});
        peer.readUntilGone();
    });
    EXPECT_THAT(client.received(1), ElementsAre(StartsWith("error: ")));
}

TEST(WebSocketMessages, FragmentsMakeOneMessage) {
    Connected client([](Peer& peer) {
        // The letter itself is cut in two; a ping comes in between.
        peer.send(Frame{Frame::text, "gr\xc3", false});
        peer.send(Frame{Frame::ping, "?"});
        peer.send(Frame{Frame::continuation, "\xbc\xc3\x9f", false});
        peer.send(Frame{Frame::continuation, "e", true});
        peer.readUntilGone();
    });
    EXPECT_THAT(client.received(1), ElementsAre("text gr\xc3\xbc\xc3\x9f"
                                                "e"));
}

TEST(WebSocketMessages, BytesNeedNotBeText) {
    Connected client([](Peer& peer) {
        peer.send(Frame{Frame::binary, std::string("\xff\x00\xfe", 3)});
        peer.readUntilGone();
    });
    EXPECT_THAT(client.received(1), ElementsAre(std::string("binary \xff\x00\xfe", 10)));
}

TEST(WebSocketMessages, AnInvalidTextIsAnErrorThoughTheServerNeverCloses) {
    Connected client([](Peer& peer) {
        peer.send(Frame{Frame::text, "\xff\xfe"});
        peer.readUntilGone();
    });
    EXPECT_THAT(client.received(1), ElementsAre(StartsWith("error: ")));
}

TEST(WebSocketMessages, AnEmptyOneIsAMessage) {
    Connected client([](Peer& peer) {
        peer.send(Frame{Frame::text, ""});
        peer.readUntilGone();
    });
    EXPECT_THAT(client.received(1), ElementsAre("text "));
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

TEST(WebSocketFaults, AFrameOfAnUnknownKindIsAnErrorThoughTheServerNeverCloses) {
    Connected client([](Peer& peer) {
        peer.send("\x83\x01x");
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

TEST(WebSocketPings, AnUnsolicitedPongIsIgnored) {
    Connected client([](Peer& peer) {
        peer.send(Frame{Frame::pong, "7"});
        peer.send(Frame{Frame::text, "and on"});
        peer.readUntilGone();
    });
    EXPECT_THAT(client.received(1), ElementsAre("text and on"));
}

}  // namespace
}  // namespace stagehopper
