#include <gmock/gmock.h>

#include "ports/macos/cocoa/foundation/NSURLResponse.h"
#include "ports/macos/cocoa/foundation/NSURLSession.h"
#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "tests/macos/recording/system/RecordedTest.h"

namespace stagehopper::recording {

namespace {

using testing::ElementsAre;

std::string describeEnd(cocoa::NSData body, cocoa::NSURLResponse response, cocoa::NSError error) {
    if (error) return cocoa::text(error.localizedDescription());
    const auto http = response.as<cocoa::NSHTTPURLResponse>();
    if (!http) return "no HTTP";
    return std::to_string(http.statusCode()) + " " + cocoa::bytes(body);
}

class StandInOfTheSession : public RecordedTest {
protected:
    void get(const char* address) {
        const auto url = cocoa::NSURL::URLWithString(cocoa::string(address));
        session()
            .dataTaskWithURL(url, cocoa::NSURLSession::DataReceiver(
                                      [this](auto body, auto response, auto error) {
                                          heard(describeEnd(body, response, error));
                                      }))
            .resume();
    }
    void heard(const std::string& what) { heard_.push_back(queues::current() + ": " + what); }
    static cocoa::NSURLSession session() { return cocoa::NSURLSession::sharedSession(); }

    cocoa::AutoreleasePool pool_;
    std::vector<std::string> heard_;
};

TEST_F(StandInOfTheSession, RepliesOnItsOwnQueueAfterTheServersDelay) {
    world.servers.serve(3000).answersAfter = 0.2;
    get("http://127.0.0.1:3000/health?x=1");
    queues::advance(0.1);
    EXPECT_TRUE(heard_.empty());
    queues::advance(0.1);
    EXPECT_THAT(heard_, ElementsAre("session: 200 ok"));
    EXPECT_THAT(world.servers.requests, ElementsAre("http://127.0.0.1:3000/health?x=1"));
}

TEST_F(StandInOfTheSession, RepliesWith404ForAnUnknownPathAndWithAnErrorForAClosedPort) {
    world.servers.serve(3000);
    get("http://127.0.0.1:3000/other");
    get("http://127.0.0.1:3001/health");
    queues::runUntilIdle();
    EXPECT_THAT(heard_, ElementsAre("session: 404 ", "session: Could not connect to the server."));
}

TEST_F(StandInOfTheSession, GivesUpAfterAMinuteWhenTheServerNeverAnswers) {
    world.servers.serve(3000).answersAfter.reset();
    get("http://127.0.0.1:3000/health");
    queues::advance(59);
    EXPECT_TRUE(heard_.empty());
    queues::advance(2);
    EXPECT_THAT(heard_, ElementsAre("session: The request timed out."));
}

TEST_F(StandInOfTheSession, MayReplyWithoutHttp) {
    world.servers.serve(3000).answers["/odd"] = {.http = false};
    get("http://127.0.0.1:3000/odd");
    queues::runUntilIdle();
    EXPECT_THAT(heard_, ElementsAre("session: no HTTP"));
}

class StandInOfAWebSocket : public StandInOfTheSession {
protected:
    StandInOfAWebSocket() {
        const auto url = cocoa::NSURL::URLWithString(cocoa::string("ws://127.0.0.1:3000/ws"));
        socket_ = cocoa::Owned<cocoa::NSURLSessionWebSocketTask>::share(
            session().webSocketTaskWithURL(url));
    }
    void connect(int pongs = 1) {
        world.servers.serve(3000).pongs = pongs;
        socket_->resume();
        queues::runUntilIdle();
    }
    void receive() {
        socket_->receiveMessageWithCompletionHandler(
            cocoa::NSURLSessionWebSocketTask::Receiver([this](auto message, auto error) {
                if (error) return heard(cocoa::text(error.localizedDescription()));
                heard(message.type() == cocoa::NSURLSessionWebSocketMessageTypeString
                          ? "text " + cocoa::text(message.string())
                          : "data " + cocoa::bytes(message.data()));
            }));
    }
    void ping() {
        socket_->sendPingWithPongReceiveHandler(cocoa::NSURLSessionWebSocketTask::PongReceiver(
            [this](auto error) { heard(error ? "no pong" : "pong"); }));
    }
    SocketConnection& server() { return world.servers.lastConnection(3000); }

    cocoa::Owned<cocoa::NSURLSessionWebSocketTask> socket_;
};

TEST_F(StandInOfAWebSocket, KeepsMessagesUntilTheNextReceive) {
    connect();
    server().sends("one");
    server().sendsBytes("two");
    queues::runUntilIdle();
    EXPECT_TRUE(heard_.empty());
    receive();
    receive();
    EXPECT_TRUE(heard_.empty()) << "never from inside the call";
    queues::runUntilIdle();
    EXPECT_THAT(heard_, ElementsAre("session: text one", "session: data two"));
}

TEST_F(StandInOfAWebSocket, FailsPendingAndLaterReceivesAfterABreak) {
    connect();
    receive();
    ping();
    queues::runUntilIdle();
    server().breaks("Socket is not connected");
    queues::runUntilIdle();
    receive();
    ping();
    queues::runUntilIdle();
    EXPECT_THAT(heard_, ElementsAre("session: pong", "session: Socket is not connected",
                                    "session: Socket is not connected", "session: no pong"));
}

TEST_F(StandInOfAWebSocket, MayAnswerAPingTwice) {
    connect(2);
    ping();
    queues::runUntilIdle();
    EXPECT_THAT(heard_, ElementsAre("session: pong", "session: pong"));
    EXPECT_EQ(server().pings(), 1);
}

TEST_F(StandInOfAWebSocket, MayNeverAnswerAPing) {
    connect(0);
    ping();
    queues::advance(600);
    EXPECT_TRUE(heard_.empty());
    server().breaks("gone");
    queues::runUntilIdle();
    EXPECT_THAT(heard_, ElementsAre("session: no pong"));
}

TEST_F(StandInOfAWebSocket, ShowsTheCodeItWasClosedWith) {
    connect();
    EXPECT_EQ(world.servers.openSockets(), 1U);
    socket_->cancelWithCloseCode(1001, cocoa::NSData());
    EXPECT_EQ(server().closeCode(), 1001);
    EXPECT_EQ(world.servers.openSockets(), 0U);
}

TEST_F(StandInOfAWebSocket, FailsWithoutAServer) {
    socket_->resume();
    receive();
    queues::runUntilIdle();
    EXPECT_THAT(heard_, ElementsAre("session: Could not connect to the server."));
}

}  // namespace

}  // namespace stagehopper::recording
