// HTTP and WebSocket connections, the same on every port.

#include <gmock/gmock.h>

#include "platform/UrlSession.h"
#include "tests/contract/Collected.h"
#include "tests/contract/ServerHarness.h"

namespace stagehopper {
namespace {

using platform::DataResult;
using platform::ReceiveResult;
using platform::UrlError;
using platform::WebSocketMessage;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto text = WebSocketMessage::Kind::text;
constexpr auto binary = WebSocketMessage::Kind::binary;

/// A result in one line: what is in it, or "error". Ports have words of their own for errors, but
/// none has no words at all.
std::string errorIn(const UrlError& error) {
    return error.localizedDescription.empty() ? "error without words" : "error";
}

std::string line(const DataResult& result) {
    std::string words = result.error ? errorIn(*result.error) : std::string();
    if (!result.response) return words;
    if (!words.empty()) words = ", " + words;
    return std::to_string(result.response->statusCode) + " " + result.response->body + words;
}

std::string line(const ReceiveResult& result) {
    if (const auto* error = std::get_if<UrlError>(&result)) return errorIn(*error);
    const auto& message = std::get<WebSocketMessage>(result);
    return (message.kind == text ? "text " : "binary ") + message.bytes;
}

std::string line(const std::optional<UrlError>& error) {
    return error ? errorIn(*error) : "pong";
}

class UrlSessionContract : public testing::Test {
protected:
    std::unique_ptr<ServerHarness> harness = makeServerHarness();
    platform::UrlSession& session = harness->session();
    StandInServer& server = harness->startServer();
    // Shared with completions that may come late.
    std::shared_ptr<Collected<std::string>> came = std::make_shared<Collected<std::string>>();

    [[nodiscard]] bool until(const std::function<bool()>& done) { return harness->runUntil(done); }
    [[nodiscard]] bool untilCame(std::size_t count) {
        return until([this, count] { return came->size() >= count; });
    }
    void get(const std::string& url) {
        session.startDataTask(url,
                              [came = came](const DataResult& result) { came->add(line(result)); });
    }
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
    /// A connection that the server has taken; the client may not have heard of that yet.
    std::shared_ptr<platform::WebSocketTask> connected() {
        auto task = socketTo("/ws");
        task->resume();
        EXPECT_TRUE(until([this] { return server.socketTargets().size() == 1; }));
        return task;
    }
    /// One that has been used: a text has come.
    std::shared_ptr<platform::WebSocketTask> greeted() {
        auto task = connected();
        server.sends({text, "hello"});
        receive(*task);
        EXPECT_TRUE(untilCame(1));
        return task;
    }
};

TEST_F(UrlSessionContract, ARequestGetsStatusAndBody) {
    server.answers("/health", {200, "fine"});
    get("http://" + server.authority() + "/health");
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("200 fine"));
}

TEST_F(UrlSessionContract, AnyStatusIsAResponse) {
    server.answers("/broken", {500, "oh"});
    get("http://" + server.authority() + "/broken");
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("500 oh"));
}

TEST_F(UrlSessionContract, ARedirectIsAResponseOfItsOwnWhereverItLeads) {
    server.answers("/elsewhere", {200, "fine"});
    server.redirects("/health", "http://" + server.authority() + "/elsewhere");
    get("http://" + server.authority() + "/health");
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("302 "));
}

TEST_F(UrlSessionContract, AStatusCountsThoughItsBodyBreaksOff) {
    server.breaksOff("/health", {200, "half a"});
    get("http://" + server.authority() + "/health");
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("200 , error"));
}

TEST_F(UrlSessionContract, ARefusedRequestIsAnErrorInWords) {
    get("http://" + harness->refusingAuthority() + "/health");
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("error"));
}

TEST_F(UrlSessionContract, AnAddressThatIsNoneIsAnErrorInWords) {
    get("no address");
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("error"));
}

TEST_F(UrlSessionContract, ARequestWithoutAnswerKeepsNoOtherWaiting) {
    server.neverAnswers("/silent");
    server.answers("/health", {200, "fine"});
    get("http://" + server.authority() + "/silent");
    get("http://" + server.authority() + "/health");
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("200 fine"));
}

TEST_F(UrlSessionContract, NothingIsConnectedBeforeResume) {
    const auto early = socketTo("/early");
    receive(*early);
    ping(*early);
    const auto late = socketTo("/late");
    late->resume();
    ASSERT_TRUE(until([this] { return !server.socketTargets().empty(); }));
    EXPECT_THAT(server.socketTargets(), ElementsAre("/late"));
    EXPECT_THAT(came->all(), IsEmpty());
}

TEST_F(UrlSessionContract, TheServerSeesPathAndQueryAsTheyAreInTheAddress) {
    const auto task = socketTo("/ws?roomCode=A%20B&role=guest&displayName=");
    task->resume();
    ASSERT_TRUE(until([this] { return !server.socketTargets().empty(); }));
    EXPECT_THAT(server.socketTargets(), ElementsAre("/ws?roomCode=A%20B&role=guest&displayName="));
}

TEST_F(UrlSessionContract, TextAndBytesArriveAsSuchAndInOrder) {
    const auto task = connected();
    server.sends({text, "eins \xc3\xa4"});
    server.sends({binary, "\x01\x02"});
    for (int i = 0; i < 2; ++i) receive(*task);
    ASSERT_TRUE(untilCame(2));
    EXPECT_THAT(came->all(), ElementsAre("text eins \xc3\xa4", "binary \x01\x02"));
}

TEST_F(UrlSessionContract, MessagesWaitUntilSomebodyAsks) {
    const auto task = connected();
    for (const char* word : {"one", "two", "three"}) server.sends({text, word});
    for (std::size_t i = 1; i <= 3; ++i) {
        receive(*task);
        ASSERT_TRUE(untilCame(i));
    }
    EXPECT_THAT(came->all(), ElementsAre("text one", "text two", "text three"));
}

TEST_F(UrlSessionContract, AReceiveMayBeAskedForFromTheCompletionOfTheLast) {
    const auto task = connected();
    // Weak: a completion that held its task would hold itself.
    task->receive([this, weak = std::weak_ptr(task)](const ReceiveResult& first) {
        came->add(line(first));
        if (const auto strong = weak.lock()) receive(*strong);
    });
    server.sends({text, "one"});
    server.sends({text, "two"});
    ASSERT_TRUE(untilCame(2));
    EXPECT_THAT(came->all(), ElementsAre("text one", "text two"));
}

TEST_F(UrlSessionContract, APingIsAnsweredThoughNobodyReceives) {
    const auto task = connected();
    ping(*task);
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("pong"));
    EXPECT_EQ(server.pings(), 1);
}

TEST_F(UrlSessionContract, EveryPingHearsOfItsPongOnce) {
    const auto task = connected();
    for (int i = 0; i < 3; ++i) ping(*task);
    ASSERT_TRUE(untilCame(3));
    // A fourth answer to three pings would come before this one.
    server.sends({text, "after"});
    receive(*task);
    ASSERT_TRUE(untilCame(4));
    EXPECT_THAT(came->all(), ElementsAre("pong", "pong", "pong", "text after"));
}

TEST_F(UrlSessionContract, APingWithoutPongFailsWithTheConnection) {
    server.ignoresPings();
    const auto task = connected();
    ping(*task);
    ASSERT_TRUE(until([this] { return server.pings() == 1; }));
    EXPECT_THAT(came->all(), IsEmpty());
    server.breaks();
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("error"));
}

TEST_F(UrlSessionContract, ARefusedConnectionFailsTheReceive) {
    const auto task = session.makeWebSocketTask("ws://" + harness->refusingAuthority() + "/ws");
    task->resume();
    receive(*task);
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("error"));
}

TEST_F(UrlSessionContract, AnAddressThatIsNoSocketsFailsTheReceive) {
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

TEST_F(UrlSessionContract, TheSchemeMayBeInCapitals) {
    const auto task = session.makeWebSocketTask("WS://" + server.authority() + "/ws");
    task->resume();
    ASSERT_TRUE(until([this] { return server.socketTargets().size() == 1; }));
}

TEST_F(UrlSessionContract, AConnectionThatTheServerClosesFailsTheReceive) {
    const auto task = connected();
    receive(*task);
    server.closes(1001);
    ASSERT_TRUE(untilCame(1));
    EXPECT_THAT(came->all(), ElementsAre("error"));
}

TEST_F(UrlSessionContract, AConnectionThatBreaksFailsWhateverIsPendingAndWhateverComesLater) {
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

TEST_F(UrlSessionContract, WhatCameBeforeTheEndCanStillBeFetched) {
    const auto task = connected();
    server.sends({text, "last words"});
    server.closes(1000);
    receive(*task);
    receive(*task);
    ASSERT_TRUE(untilCame(2));
    EXPECT_THAT(came->all(), ElementsAre("text last words", "error"));
}

TEST_F(UrlSessionContract, CancellingTellsTheServerTheCodeAndFailsWhatIsPending) {
    const auto task = greeted();
    receive(*task);
    task->cancel(1001);
    ASSERT_TRUE(untilCame(2));
    EXPECT_THAT(came->all(), ElementsAre("text hello", "error"));
    ASSERT_TRUE(until([this] { return server.closeCode().has_value(); }));
    EXPECT_EQ(server.closeCode(), 1001);
}

TEST_F(UrlSessionContract, ACancelledTaskStaysCancelled) {
    const auto cancelled = socketTo("/cancelled");
    cancelled->cancel(1000);
    cancelled->resume();
    receive(*cancelled);
    ASSERT_TRUE(untilCame(1));
    const auto task = connected();
    EXPECT_THAT(came->all(), ElementsAre("error"));
    EXPECT_THAT(server.socketTargets(), ElementsAre("/ws"));
}

TEST_F(UrlSessionContract, DroppingATaskClosesItsConnectionAndFailsWhatIsPending) {
    auto task = greeted();
    receive(*task);
    task.reset();
    ASSERT_TRUE(untilCame(2));
    EXPECT_THAT(came->all(), ElementsAre("text hello", "error"));
    EXPECT_TRUE(until([this] { return server.closeCode().has_value(); }));
}

}  // namespace
}  // namespace stagehopper
