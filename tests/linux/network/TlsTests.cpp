// Encrypted connections: to whom one is made, and that all rules of the plain ones hold.

#include <gmock/gmock.h>
#include <unistd.h>

#include "ports/linux/network/BeastUrlSession.h"
#include "tests/drivers/servers/LoopbackServer.h"
#include "tests/linux/Variable.h"
#include "tests/linux/network/Outcomes.h"
#include "tests/linux/network/QuietServers.h"
#include "tests/linux/network/TestCertificates.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using linux_port::BeastUrlSession;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr auto fine = "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nfine";

/// With an authority of its own, which SSL_CERT_FILE names.
class Tls : public testing::Test {
protected:
    Tls() { writeCertificate(authority_, path_); }
    void TearDown() override { ::unlink(path_.c_str()); }

    std::shared_ptr<SSL_CTX> contextFor(const CertificateText& text) {
        return makeServerContext(makeCertificate(text, &authority_));
    }
    /// What comes of a GET from a server that has this certificate.
    std::string answerFrom(const std::shared_ptr<SSL_CTX>& context, bool byName = false) {
        const LoopbackServer server([&](Peer& peer) {
            if (!peer.encrypt(*context)) return;
            serverName_ = peer.serverName();
            if (!peer.readRequest()) return;
            peer.send(fine);
            peer.readUntilGone();
        });
        BeastUrlSession session;
        Outcomes outcomes;
        const std::string host = byName ? "localhost" : "127.0.0.1";
        session.startDataTask("https://" + host + ":" + std::to_string(server.port()) + "/",
                              outcomes.data());
        const auto lines = outcomes.first(1);
        return lines.empty() ? "nothing" : lines.front();
    }

    const std::string path_ =
        testing::TempDir() + "authority-" + std::to_string(::getpid()) + ".pem";
    const Certificate authority_ = makeCertificate({}, nullptr);
    const linux_port::Variable trusted_{"SSL_CERT_FILE", path_.c_str()};
    std::shared_ptr<SSL_CTX> context_ = contextFor({"IP:127.0.0.1"});
    std::string serverName_ = "not asked";
};

TEST_F(Tls, ATrustedServerIsAskedUnderItsAddress) {
    EXPECT_EQ(answerFrom(context_), "200 fine");
    EXPECT_EQ(serverName_, "");
}

TEST_F(Tls, ATrustedServerIsAskedUnderItsNameAndReceivesIt) {
    EXPECT_EQ(answerFrom(contextFor({"DNS:localhost"}), true), "200 fine");
    EXPECT_EQ(serverName_, "localhost");
}

TEST_F(Tls, ACertificateMustBeSignedValidNowAndForTheAddress) {
    const std::pair<std::shared_ptr<SSL_CTX>, const char*> cases[] = {
        {makeServerContext(makeCertificate({"IP:127.0.0.1"}, nullptr)), "self-signed certificate"},
        {contextFor({"IP:127.0.0.1", -7200, -3600}), "certificate has expired"},
        {contextFor({"IP:127.0.0.1", 3600, 7200}), "certificate is not yet valid"},
        // A name does not vouch for the address it leads to, either.
        {contextFor({"IP:127.0.0.2,DNS:localhost,DNS:127.0.0.1"}), "IP address mismatch"},
    };
    for (const auto& [context, fault] : cases) {
        EXPECT_EQ(answerFrom(context),
                  std::string("error: The server's certificate was not accepted: ") + fault);
    }
}

TEST_F(Tls, AnUnlistedAuthorityIsNotTrusted) {
    const linux_port::Variable other{"SSL_CERT_FILE", "/nonexistent"};
    EXPECT_THAT(answerFrom(context_),
                StartsWith("error: The server's certificate was not accepted: unable to get"));
}

TEST_F(Tls, ACertificateOfAnotherNameIsNotAccepted) {
    for (const char* names : {"DNS:example.org", "IP:127.0.0.1", "DNS:l*t"}) {
        EXPECT_EQ(answerFrom(contextFor({names}), true),
                  "error: The server's certificate was not accepted: hostname mismatch")
            << names;
    }
}

TEST_F(Tls, AServerWithAnOldTlsVersionIsRefused) {
    SSL_CTX_set_security_level(context_.get(), 0);
    SSL_CTX_set_min_proto_version(context_.get(), TLS1_VERSION);
    SSL_CTX_set_max_proto_version(context_.get(), TLS1_1_VERSION);
    EXPECT_THAT(answerFrom(context_), StartsWith("error: The encrypted connection failed: "));
}

TEST_F(Tls, AServerThatSpeaksPlainlyIsAnError) {
    const LoopbackServer server([](Peer& peer) { peer.send(fine), peer.readUntilGone(); });
    EXPECT_THAT(outcomeOfGet("https://" + server.authority() + "/"),
                StartsWith("error: The encrypted connection failed: "));
}

TEST_F(Tls, AServerThatNeverShakesHandsMeetsTheTimeLimit) {
    const LoopbackServer server([](Peer& peer) { peer.readUntilGone(); });
    BeastUrlSession session({.request = 50ms, .handshake = 50ms});
    Outcomes outcomes;
    session.startDataTask("https://" + server.authority() + "/", outcomes.data());
    EXPECT_THAT(outcomes.first(1), ElementsAre("error: The request timed out"));
    const auto task = session.makeWebSocketTask("wss://" + server.authority() + "/");
    task->resume();
    task->receive(outcomes.message());
    ASSERT_TRUE(outcomes.lines().await(2));
    EXPECT_EQ(outcomes.lines().all().back(), "error: The connection timed out");
}

TEST_F(Tls, CancelingDuringTheHandshakeLeavesTheServer) {
    Collected<int> left;
    Collected<int> came;
    const LoopbackServer server([&](Peer& peer) {
        came.add(1);
        peer.readUntilGone();
        left.add(1);
    });
    SocketClient client("wss://" + server.authority() + "/");
    ASSERT_TRUE(came.await(1));
    client.task->cancel(1001);
    EXPECT_THAT(client.outcomes.first(1), ElementsAre("error: The connection was cancelled"));
    EXPECT_TRUE(left.await(1));
}

TEST_F(Tls, ABodyUpToTheEndOfTheStreamNeedsTheServersTlsShutdown) {
    for (const bool saysGoodbye : {true, false}) {
        const LoopbackServer server([&](Peer& peer) {
            if (!peer.encrypt(*context_) || !peer.readRequest()) return;
            peer.send("HTTP/1.0 200 OK\r\n\r\nall of it");
            if (saysGoodbye) peer.sayGoodbye();
            peer.finish();
            peer.readUntilGone();
        });
        BeastUrlSession session;
        Outcomes outcomes;
        session.startDataTask("https://" + server.authority() + "/", outcomes.data());
        EXPECT_THAT(outcomes.first(1),
                    ElementsAre(StartsWith(saysGoodbye ? "200 all of it" : "200 , error: ")));
    }
}

TEST_F(Tls, ASocketCarriesTextsPingsOfBothSidesAndTheClosing) {
    Collected<std::string> heard;
    const std::string large(900'000, 'x');
    const LoopbackServer server([&](Peer& peer) {
        if (!peer.encrypt(*context_)) return;
        const auto request = peer.readRequest();
        if (!request) return;
        peer.acceptWebSocket(*request);
        peer.send(Frame{Frame::text, "hello"});
        peer.send(Frame{Frame::binary, large});
        while (const auto frame = peer.readFrame()) {
            if (frame->opcode == Frame::ping) peer.send(Frame{Frame::pong, frame->payload});
            if (frame->opcode != Frame::close) continue;
            heard.add("close " + std::to_string(closeCodeIn(frame->payload)));
            peer.send(Frame{Frame::close, frame->payload});
        }
        heard.add(peer.heardGoodbye() ? "goodbye" : "gone");
    });
    BeastUrlSession session;
    Outcomes outcomes;
    const auto task = session.makeWebSocketTask("wss://" + server.authority() + "/ws");
    task->resume();
    for (int i = 0; i < 2; ++i) task->receive(outcomes.message());
    EXPECT_THAT(outcomes.first(2), ElementsAre("text hello", "binary " + large));
    task->sendPing(outcomes.pong());
    ASSERT_TRUE(outcomes.lines().await(3));
    EXPECT_EQ(outcomes.lines().all().back(), "pong");
    task->cancel(1001);
    ASSERT_TRUE(heard.await(2));
    EXPECT_THAT(heard.all(), ElementsAre("close 1001", "goodbye"));
}

TEST_F(Tls, ASocketOfAServerThatIsNotTrustedFailsTheReceive) {
    const auto context = makeServerContext(makeCertificate({"IP:127.0.0.1"}, nullptr));
    const LoopbackServer server([&](Peer& peer) { peer.encrypt(*context); });
    SocketClient client("wss://" + server.authority() + "/ws");
    EXPECT_THAT(client.outcomes.first(1), ElementsAre(HasSubstr("self-signed certificate")));
}

TEST_F(Tls, AServerThatResetsTheConnectionIsAnErrorAndNoSignal) {
    const LoopbackServer server([&](Peer& peer) {
        if (!peer.encrypt(*context_)) return;
        const auto request = peer.readRequest();
        if (!request) return;
        peer.acceptWebSocket(*request);
        peer.send(Frame{Frame::text, "hello"});
        peer.reset();
    });
    BeastUrlSession session;
    Outcomes outcomes;
    const auto task = session.makeWebSocketTask("wss://" + server.authority() + "/ws");
    task->resume();
    for (int i = 0; i < 2; ++i) task->receive(outcomes.message());
    task->sendPing(outcomes.pong());
    ASSERT_TRUE(outcomes.lines().await(3));
    task->sendPing(outcomes.pong());
    task->cancel(1001);
    EXPECT_TRUE(outcomes.lines().await(4));
}

}  // namespace
}  // namespace stagehopper
