// Requests to servers that do odd things.

#include <gmock/gmock.h>

#include <utility>

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

/// What comes of a request when the server sends these bytes and ends its half.
std::string answerTo(const std::string& bytes) {
    const LoopbackServer server([&bytes](Peer& peer) {
        if (!peer.readRequest()) return;
        peer.send(bytes);
        peer.finish();
        peer.readUntilGone();
    });
    return outcomeOfGet("http://" + server.authority() + "/");
}

TEST(DataTask, SendsAPlainGetAndClosesTheConnection) {
    Collected<std::string> requests;
    const LoopbackServer server([&requests](Peer& peer) {
        requests.add(peer.readRequest().value_or("none"));
        peer.send("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
        peer.readUntilGone();
        requests.add("gone");
    });
    BeastUrlSession session;
    Outcomes outcomes;
    session.startDataTask("http://" + server.authority() + "/v1/a?b=%20", outcomes.data());
    ASSERT_TRUE(requests.await(2));
    EXPECT_EQ(requests.all().front(), "GET /v1/a?b=%20 HTTP/1.1\r\nHost: " + server.authority() +
                                          "\r\nUser-Agent: Stagehopper\r\nAccept: */*\r\n"
                                          "Connection: close\r\n\r\n");
}

TEST(DataTask, FindsAHostByItsName) {
    const LoopbackServer server(
        [](Peer& peer) { peer.readRequest(), peer.send("HTTP/1.1 204 No Content\r\n\r\n"); });
    EXPECT_EQ(outcomeOfGet("http://localhost:" + std::to_string(server.port())), "204 ");
}

TEST(DataTask, ReadsAnAnswerInEveryForm) {
    const std::pair<std::string, const char*> cases[] = {
        {"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\none\r\n4\r\n two\r\n0\r\n\r\n",
         "200 one two"},
        {"HTTP/1.0 200 OK\r\n\r\nall up to the end", "200 all up to the end"},
        {"HTTP/1.1 204 No Content\r\n\r\n", "204 "},
        {"HTTP/1.1 200 OK\r\nA: " + std::string(40'000, 'a') + "\r\nContent-Length: 2\r\n\r\nok",
         "200 ok"},
    };
    for (const auto& [bytes, expected] : cases) EXPECT_EQ(answerTo(bytes), expected);
}

TEST(DataTask, AFaultyAnswerIsAnError) {
    const std::pair<std::string, testing::Matcher<std::string>> cases[] = {
        // Cut short in the body, which leaves the status, in the head, and at the beginning.
        {"HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nfive!", StartsWith("200 , error: ")},
        {"HTTP/1.1 200 OK\r\nContent-Le", StartsWith("error: ")},
        {"", StartsWith("error: ")},
        // Beyond the limits, before it arrives.
        {"HTTP/1.1 200 OK\r\nContent-Length: 99999999999\r\n\r\n", HasSubstr("body limit")},
        {"HTTP/1.1 200 OK\r\nA: " + std::string(100'000, 'a') + "\r\n\r\n",
         HasSubstr("header limit")},
        {"220 mail.example ESMTP\r\n\r\n", StartsWith("error: ")},
    };
    for (const auto& [bytes, expected] : cases) {
        EXPECT_THAT(answerTo(bytes), expected) << bytes.substr(0, 80);
    }
}

TEST(DataTask, AServerThatResetsTheConnectionIsAnError) {
    const LoopbackServer server([](Peer& peer) {
        peer.readRequest();
        peer.reset();
    });
    EXPECT_EQ(outcomeOfGet("http://" + server.authority() + "/"),
              "error: Connection reset by peer");
}

TEST(DataTask, ARefusedConnectionSaysSo) {
    const UnusedPort nobody;
    EXPECT_EQ(outcomeOfGet("http://" + nobody.authority() + "/"), "error: Connection refused");
}

TEST(DataTask, AHostThatIsNotFoundIsNamed) {
    // A name that is reserved: there never is such a host.
    EXPECT_THAT(outcomeOfGet("http://nobody.invalid/"), HasSubstr("nobody.invalid was not found"));
}

TEST(DataTask, AnAddressOfAWebSocketIsNotSupported) {
    EXPECT_EQ(outcomeOfGet("ws://127.0.0.1/"), "error: Connections by ws are not supported");
}

TEST(DataTask, AServerThatStopsInTheMiddleMeetsTheTimeLimit) {
    const LoopbackServer server([](Peer& peer) {
        peer.readRequest();
        peer.send("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nfive!");
        peer.readUntilGone();
    });
    EXPECT_EQ(outcomeOfGet("http://" + server.authority() + "/", {.request = 50ms}),
              "200 , error: The request timed out");
}

TEST(DataTask, FiftyAtOnceGetTheirOwnAnswers) {
    const LoopbackServer server([](Peer& peer) {
        const auto target = targetOf(peer.readRequest().value_or("GET none "));
        peer.send("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(target.size()) +
                  "\r\n\r\n" + target);
    });
    BeastUrlSession session;
    Outcomes outcomes;
    std::vector<std::string> expected;
    for (int i = 0; i < 50; ++i) {
        const std::string target = "/" + std::to_string(i);
        expected.push_back("200 " + target);
        session.startDataTask("http://" + server.authority() + target, outcomes.data());
    }
    EXPECT_THAT(outcomes.first(50), testing::UnorderedElementsAreArray(expected));
}

}  // namespace
}  // namespace stagehopper
