// The socket to a room: what the session is asked, on which queue its answers come.

#include <gmock/gmock.h>

#include "tests/macos/MacStage.h"

namespace stagehopper {

namespace {

using recording::expectInOrder;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr auto* lost = "The network connection was lost.";

class MacSocket : public MacStage {
protected:
    MacSocket() {
        world.servers.serve(3000);
        launch();
    }
    void connect() { pagePosts("WSCONN:http://127.0.0.1:3000|AB12"); }
    auto& socket() { return world.servers.lastConnection(3000); }
};

TEST_F(MacSocket, IsCreatedResumedAndReceiving) {
    forget();
    connect();
    expectInOrder({
        "NSLog(\"[slide_nav] native_ws_connecting room=AB12 reason=panel_wsconn\")",
        "[<NSURLSessionWebSocketTask 1> resume]",
        "[NSTimer timerWithTimeInterval:15 repeats:YES block:^block]",
        "[<NSURLSessionWebSocketTask 1> receiveMessageWithCompletionHandler:^block]",
    });
    ASSERT_THAT(lines("webSocketTaskWithURL:"), SizeIs(1));
    EXPECT_THAT(
        lines("webSocketTaskWithURL:")[0],
        testing::MatchesRegex("\\[<NSURLSession 1> webSocketTaskWithURL:<ws://127.0.0.1:3000/ws\\?"
                              "roomCode=AB12&userId=overlay-native-[0-9A-F]{8}&role=guest&"
                              "displayName=overlay-native&cursorColor=%23000000>\\]"));
    EXPECT_TRUE(socket().open);
}

TEST_F(MacSocket, ATextArrivesOnTheSessionsQueueAndIsActedOnTheMainOne) {
    connect();
    forget();
    world.servers.sends(socket(), R"({"type":"welcome"})");
    runUntilIdle();
    expectInOrder({"type]", "string]", "dispatch_async_f(main)",
                   "receiveMessageWithCompletionHandler:^block]",
                   "NSLog(\"[slide_nav] native_ws_ready room=AB12\")"});
    EXPECT_EQ(queueOf("string]"), "session");
    EXPECT_EQ(queueOf("receiveMessage"), "session");
    EXPECT_EQ(queueOf("NSLog(\"[slide_nav] native_ws_ready"), "main");
    EXPECT_FALSE(socket().receivers.empty());
}

TEST_F(MacSocket, ABrokenConnectionIsReopenedASecondLater) {
    connect();
    forget();
    world.servers.breaks(socket(), lost);
    runUntilIdle();
    expectInOrder({std::string("NSLog(\"[slide_nav] native_ws_receive_failed room=AB12 error=") +
                       lost + "\")",
                   "[<NSTimer 2> invalidate]",
                   "[<NSURLSessionWebSocketTask 1> cancelWithCloseCode:1001 reason:nil]",
                   "dispatch_after_f(1 s, main)"});
    const auto before = recording::queues::now();
    advance(1);
    expectInOrder({"[<NSURLSessionWebSocketTask 2> resume]"});
    EXPECT_THAT(timeOf("[<NSURLSessionWebSocketTask 2> resume]") - before, DoubleNear(1, 1e-6));
    EXPECT_TRUE(socket().open);
}

TEST_F(MacSocket, ASecondCallOfAPongHandlerDoesNothing) {
    world.network.pongCalls = 2;
    connect();
    forget();
    advance(31);
    EXPECT_THAT(lines("sendPing"), SizeIs(2));
    EXPECT_EQ(queueOf("sendPing"), "main");
    EXPECT_TRUE(socket().open);
}

TEST_F(MacSocket, AFailedPingReportedTwiceCountsOnce) {
    world.servers.serve(3000).answersPings = false;
    world.network.pongCalls = 2;
    connect();
    advance(15);
    ASSERT_EQ(socket().pings, 1);
    forget();
    world.servers.breaks(socket(), lost);
    runUntilIdle();
    EXPECT_THAT(diagnostics("native_ws_ping_failed"), SizeIs(1));
}

TEST_F(MacSocket, IsCanceledOnceAtQuit) {
    connect();
    forget();
    userQuits();
    EXPECT_THAT(lines("cancelWithCloseCode:"),
                ElementsAre("[<NSURLSessionWebSocketTask 1> cancelWithCloseCode:1001 reason:nil]"));
    EXPECT_EQ(socket().closeCode, 1001);
    drop();
    EXPECT_THAT(lines("cancelWithCloseCode:"), SizeIs(1));
}

TEST_F(MacSocket, IsCanceledWhenItsLastOwnerIsGone) {
    connect();
    forget();
    dropController();
    EXPECT_THAT(lines("cancelWithCloseCode:1001 reason:nil]"), SizeIs(1));
}

TEST_F(MacSocket, MessagesAfterTheControllersEndDoNothing) {
    connect();
    auto& connection = socket();
    world.servers.sends(connection, R"({"type":"welcome"})");
    dropController();
    forget();
    advance(20);
    EXPECT_THAT(diagnostics(), IsEmpty());
    EXPECT_THAT(lines("receiveMessage"), IsEmpty());
    EXPECT_THAT(lines("dispatch_async_f"), IsEmpty());
}

}  // namespace

}  // namespace stagehopper
