// WebSocket connections, the same on every port.

#include <gmock/gmock.h>

#include "tests/contract/UrlSessionFixture.h"

namespace stagehopper {
namespace {

using platform::ReceiveResult;
using platform::UrlError;
using platform::WebSocketMessage;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto text = WebSocketMessage::Kind::text;
constexpr auto binary = WebSocketMessage::Kind::binary;

/// A result in one line: its content, or "error".
std::string line(const ReceiveResult& result) {
    if (const auto* error = std::get_if<UrlError>(&result)) return errorIn(*error);
    const auto& message = std::get<WebSocketMessage>(result);
    return (message.kind == text ? "text " : "binary ") + message.bytes;
}

std::string line(const std::optional<UrlError>& error) {
    return error ? errorIn(*error) : "pong";
}

class WebSocketContract : public UrlSessionTest {
protected:
    std::shared_ptr<platform::WebSocketTask> socketTo(const std::string& path) {
        return session.makeWebSocketTask("ws://" + server.authority() + path);
    }
    void receive(platform::WebSocketTask& task) {
        task.receive([came = came](const ReceiveResult& result) { came->add(line(result)); });
    }
    void ping(platform::WebSocketTask& task) {
        task.sendPing(
            [came = came](const std::optional<UrlError>& error) { came->add(line(error)); });
    }
    /// A connection that the server has accepted; the client may not know this yet.
    std::shared_ptr<platform::WebSocketTask> connected() {
        auto task = socketTo("/ws");
        task->resume();
        EXPECT_TRUE(until([this] { return server.socketTargets().size() == 1; }));
        return task;
    }
    /// A connection that has received a text.
    std::shared_ptr<platform::WebSocketTask> greeted() {
        auto task = connected();
        server.sends({text, "hello"});
        receive(*task);
        EXPECT_TRUE(untilCame(1));
        return task;
    }
};

TEST_F(WebSocketContract, NothingIsConnectedBeforeResume) {
    const auto early = socketTo("/early");
    receive(*early);
    ping(*early);
    const auto late = socketTo("/late");
    late->resume();
    ASSERT_TRUE(until([this] { return !server.socketTargets().empty(); }));
    EXPECT_THAT(server.socketTargets(), ElementsAre("/late"));
    EXPECT_THAT(came->all(), IsEmpty());
}

TEST_F(WebSocketContract, TheServerReceivesPathAndQueryUnchanged) {
    const auto task = socketTo("/ws?roomCode=A%20B&role=guest&displayName=");
    task->resume();
    ASSERT_TRUE(until([this] { return !server.socketTargets().empty(); }));
    EXPECT_THAT(server.socketTargets(), ElementsAre("/ws?roomCode=A%20B&role=guest&displayName="));
}

TEST_F(WebSocketContract, TextAndBytesKeepTheirKindAndOrder) {
    const auto task = connected();
    server.sends({text, "eins \xc3\xa4"});
    server.sends({binary, "\x01\x02"});
    for (int i = 0; i < 2; ++i) receive(*task);
    ASSERT_TRUE(untilCame(2));
    EXPECT_THAT(came->all(), ElementsAre("text eins \xc3\xa4", "binary \x01\x02"));
}

TEST_F(WebSocketContract, MessagesAreKeptUntilTheyAreReceived) {
    const auto task = connected();
    for (const char* word : {"one", "two", "three"}) server.sends({text, word});
    for (std::size_t i = 1; i <= 3; ++i) {
        receive(*task);
        ASSERT_TRUE(untilCame(i));
    }
    EXPECT_THAT(came->all(), ElementsAre("text one", "text two", "text three"));
}

TEST_F(WebSocketContract, ACompletionMayStartTheNextReceive) {
    const auto task = connected();
    // Weak: a completion that holds its task would keep itself alive.
    task->receive([this, weak = std::weak_ptr(task)](const ReceiveResult& first) {
        came->add(line(first));
        if (const auto strong = weak.lock()) receive(*strong);
    });
    server.sends({text, "one"});
    server.sends({text, "two"});
    ASSERT_TRUE(untilCame(2));
    EXPECT_THAT(came->all(), ElementsAre("text one", "text two"));
}

TEST_F(WebSocketContract, APingIsAnsweredWithoutAPendingReceive) {
    const auto task = connected();
    ping(*task);
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("pong"));
    EXPECT_EQ(server.pings(), 1);
}

TEST_F(WebSocketContract, EveryPingGetsItsPongOnce) {
    const auto task = connected();
    for (int i = 0; i < 3; ++i) ping(*task);
    ASSERT_TRUE(untilCame(3));
    // A fourth answer to three pings would come before this one.
    server.sends({text, "after"});
    receive(*task);
    ASSERT_TRUE(untilCame(4));
    EXPECT_THAT(came->all(), ElementsAre("pong", "pong", "pong", "text after"));
}

TEST_F(WebSocketContract, APingWithoutPongFailsWithTheConnection) {
    server.ignoresPings();
    const auto task = connected();
    ping(*task);
    ASSERT_TRUE(until([this] { return server.pings() == 1; }));
    EXPECT_THAT(came->all(), IsEmpty());
    server.breaks();
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("error"));
}

TEST_F(WebSocketContract, ARefusedConnectionFailsTheReceive) {
    const auto task = session.makeWebSocketTask("ws://" + harness->refusingAuthority() + "/ws");
    task->resume();
    receive(*task);
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("error"));
}

TEST_F(WebSocketContract, AUrlThatIsNotASocketUrlFailsTheReceive) {
    const auto schemeless = session.makeWebSocketTask("h/ws?role=guest");
    const auto http = session.makeWebSocketTask("http://" + server.authority() + "/ws");
    for (const auto& task : {schemeless, http}) {
        task->resume();
        receive(*task);
    }
    ASSERT_TRUE(untilCame(2));
    EXPECT_THAT(came->all(), ElementsAre("error", "error"));
    EXPECT_THAT(server.socketTargets(), IsEmpty());
}

TEST_F(WebSocketContract, TheSchemeMayBeInCapitals) {
    const auto task = session.makeWebSocketTask("WS://" + server.authority() + "/ws");
    task->resume();
    ASSERT_TRUE(until([this] { return server.socketTargets().size() == 1; }));
}

TEST_F(WebSocketContract, ACloseByTheServerFailsTheReceive) {
    const auto task = connected();
    receive(*task);
    server.closes(1001);
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("error"));
}

TEST_F(WebSocketContract, ABrokenConnectionFailsPendingAndLaterCalls) {
    server.ignoresPings();
    const auto task = connected();
    receive(*task);
    receive(*task);
    ping(*task);
    ASSERT_TRUE(until([this] { return server.pings() == 1; }));
    server.breaks();
    ASSERT_TRUE(untilCame(3));
    receive(*task);
    ping(*task);
    ASSERT_TRUE(untilCame(5));
    EXPECT_THAT(came->all(), ElementsAre("error", "error", "error", "error", "error"));
}

TEST_F(WebSocketContract, MessagesFromBeforeTheEndCanStillBeReceived) {
    const auto task = connected();
    server.sends({text, "last words"});
    server.closes(1000);
    receive(*task);
    receive(*task);
    ASSERT_TRUE(untilCame(2));
    EXPECT_THAT(came->all(), ElementsAre("text last words", "error"));
}

TEST_F(WebSocketContract, CancelingSendsTheCodeAndFailsPendingCalls) {
    const auto task = greeted();
    receive(*task);
    task->cancel(1001);
    ASSERT_TRUE(untilCame(2));
    EXPECT_THAT(came->all(), ElementsAre("text hello", "error"));
    ASSERT_TRUE(until([this] { return server.closeCode().has_value(); }));
    EXPECT_EQ(server.closeCode(), 1001);
}

TEST_F(WebSocketContract, ACanceledTaskStaysCanceled) {
    const auto canceled = socketTo("/canceled");
    canceled->cancel(1000);
    canceled->resume();
    receive(*canceled);
    ASSERT_TRUE(untilCame(1));
    const auto task = connected();
    EXPECT_THAT(came->all(), ElementsAre("error"));
    EXPECT_THAT(server.socketTargets(), ElementsAre("/ws"));
}

TEST_F(WebSocketContract, DroppingATaskClosesItsConnectionAndFailsPendingCalls) {
    auto task = greeted();
    receive(*task);
    task.reset();
    ASSERT_TRUE(untilCame(2));
    EXPECT_THAT(came->all(), ElementsAre("text hello", "error"));
    EXPECT_TRUE(until([this] { return server.closeCode().has_value(); }));
}

}  // namespace
}  // namespace stagehopper
