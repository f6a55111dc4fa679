// One socket to one room: joining, keeping, dropping and joining again.

#include <gmock/gmock.h>

#include "tests/scenario/SlideSocketFixture.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::SizeIs;
using testing::StartsWith;

TEST_F(SlideSocket, JoinsTheRoomAsAGuestOfItsOwnName) {
    connect();
    EXPECT_THAT(socket().url, MatchesRegex("ws://127.0.0.1:3000/ws\\?roomCode=AB12&"
                                           "userId=overlay-native-[0-9A-F]{8}&role=guest&"
                                           "displayName=overlay-native&cursorColor=%23000000"));
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_connecting room=AB12 reason=test"));
}

/// The name under which a socket joins, from its URL.
std::string nameIn(const std::string& url) {
    const auto start = url.find("userId=") + std::string_view("userId=").size();
    return url.substr(start, url.find('&', start) - start);
}

TEST_F(SlideSocket, TwoRunsJoinUnderTwoNamesAndEachUnderTheSameInEveryRoom) {
    const auto anotherRun = AppController::create(stage.desktop.platform());
    connect();
    const auto first = nameIn(socket().url);
    connect(base, "TWO");
    EXPECT_EQ(nameIn(socket().url), first);
    anotherRun->connectNativeSlideSocket(base, "AB12", "test");
    const auto second = nameIn(socket().url);
    EXPECT_NE(first, second);
    EXPECT_THAT(first, MatchesRegex("overlay-native-[0-9A-F]{8}"));
    EXPECT_THAT(second, MatchesRegex("overlay-native-[0-9A-F]{8}"));
}

TEST_F(SlideSocket, TheSameRoomOnTheSameServerIsJoinedOnce) {
    connect();
    connect();
    EXPECT_THAT(connections(), SizeIs(1));
    EXPECT_THAT(stage.lines(), SizeIs(1));
}

TEST_F(SlideSocket, AnotherServerForTheSameRoomReplacesTheConnection) {
    connect();
    stage.forget();
    stage.app->connectNativeSlideSocket("http://127.0.0.1:3001", "AB12", "test");
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_disconnected room=AB12 reason=reconnect",
                                           "native_ws_connecting room=AB12 reason=test"));
    EXPECT_EQ(socket().closeCode, 1001);
    // The end of the old connection counts for the new one: one more second.
    stage.desktop.advance(1s);
    EXPECT_TRUE(stage.desktop.network.lastConnection(3001).open);
}

TEST_F(SlideSocket, ServersAreComparedExactly) {
    connect();
    connect("http://127.0.0.1:3000/");
    EXPECT_THAT(connections(), SizeIs(2));
    EXPECT_THAT(socket().url, StartsWith("ws://127.0.0.1:3000//ws?"));
}

TEST_F(SlideSocket, TheRoomIsEncodedInTheUrlAndPlainInTheLog) {
    connect(base, "A B&C");
    EXPECT_THAT(socket().url, testing::HasSubstr("roomCode=A%20B%26C&"));
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_connecting room=A B&C reason=test"));
}

TEST_F(SlideSocket, AnInvalidUrlDropsTheOldConnectionAndSchedulesNothing) {
    connect();
    stage.forget();
    connect("http://not a url", "CD34");
    EXPECT_THAT(stage.lines(),
                ElementsAre("native_ws_disconnected room=AB12 reason=reconnect",
                            "native_ws_connect_failed room=CD34 reason=invalid_url"));
    stage.desktop.advance(60s);
    EXPECT_THAT(stage.lines(), SizeIs(2));
}

TEST_F(SlideSocket, ThePanelsRequestConnects) {
    stage.pagePosts("WSCONN:ws://127.0.0.1:3000|AB|C");
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_connecting room=AB|C reason=panel_wsconn"));
    EXPECT_THAT(socket().url, StartsWith("ws://127.0.0.1:3000/ws?roomCode=AB%7CC&"));
}

TEST_F(SlideSocket, MessagesArriveInTheirOrder) {
    connect();
    stage.forget();
    for (int i = 0; i < 100; ++i) {
        stage.desktop.network.sends(
            socket(), R"({"type":"slide_nav","direction":"x","seq":)" + std::to_string(i) + "}");
    }
    stage.desktop.runReady();
    const auto received = stage.lines("native_ws_received");
    ASSERT_THAT(received, SizeIs(100));
    EXPECT_EQ(received.front(), "native_ws_received direction=x seq=0");
    EXPECT_EQ(received.back(), "native_ws_received direction=x seq=99");
}

TEST_F(SlideSocket, BytesWithValidUtf8CountAsText) {
    connect();
    stage.desktop.network.sendsBytes(socket(), R"({"type":"welcome"})");
    stage.desktop.runReady();
    EXPECT_THAT(stage.lines(), Contains("native_ws_ready room=AB12"));
}

TEST_F(SlideSocket, BytesThatAreNotUtf8AreDroppedAndTheNextMessageArrives) {
    connect();
    stage.forget();
    stage.desktop.network.sendsBytes(socket(), "\xFF\xFE{}");
    stage.desktop.network.sends(socket(), R"({"type":"welcome"})");
    stage.desktop.runReady();
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_ready room=AB12"));
}

TEST_F(SlideSocket, AfterABrokenConnectionTheRoomIsJoinedAgainASecondLater) {
    connect();
    stage.forget();
    breakSocket();
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_receive_failed room=AB12 error="s + lost,
                                           "native_ws_disconnected room=AB12 "
                                           "reason=receive_failed"));
    stage.desktop.advance(999ms);
    EXPECT_THAT(connections(), SizeIs(1));
    stage.desktop.advance(1ms);
    EXPECT_THAT(connections(), SizeIs(2));
    EXPECT_THAT(stage.lines(),
                Contains("native_ws_connecting room=AB12 reason=receive_failed_reconnect"));
    stage.desktop.network.sends(socket(), R"({"type":"welcome"})");
    stage.desktop.runReady();
    EXPECT_EQ(stage.lines().back(), "native_ws_ready room=AB12");
}

TEST_F(SlideSocket, ARefusedConnectionIsTriedEverySecond) {
    stage.desktop.network.serve(3000).takesSockets = false;
    connect();
    stage.desktop.advance(5500ms);
    EXPECT_THAT(stage.lines("native_ws_receive_failed"), SizeIs(6));
    EXPECT_THAT(stage.lines("native_ws_disconnected"), SizeIs(6));
    EXPECT_THAT(stage.lines("native_ws_connecting"), SizeIs(6));
}

TEST_F(SlideSocket, TheEndOfADroppedConnectionIsNotAFailure) {
    connect();
    stage.app->cancelNativeSlideSocket("test");
    stage.desktop.advance(10s);
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_connecting room=AB12 reason=test",
                                           "native_ws_disconnected room=AB12 reason=test"));
    EXPECT_EQ(socket().closeCode, 1001);
}

TEST_F(SlideSocket, TheEndOfAnOldConnectionCountsForTheNewOneInTheSameRoom) {
    connect();
    stage.app->cancelNativeSlideSocket("test");
    stage.app->connectNativeSlideSocket(base, "AB12", "test");
    stage.desktop.runReady();
    EXPECT_THAT(stage.lines("native_ws_receive_failed"),
                ElementsAre("native_ws_receive_failed room=AB12 error=cancelled"));
    stage.desktop.advance(1s);
    EXPECT_TRUE(socket().open);
}

TEST_F(SlideSocket, CancelingWithoutASocketLogsNothing) {
    stage.app->cancelNativeSlideSocket("test");
    EXPECT_THAT(stage.lines(), IsEmpty());
}

TEST_F(SlideSocket, ConnectingDropsAPendingReconnect) {
    connect();
    breakSocket();
    connect(base, "CD34");
    stage.desktop.advance(10s);
    EXPECT_THAT(stage.lines("native_ws_connecting"),
                ElementsAre("native_ws_connecting room=AB12 reason=test",
                            "native_ws_connecting room=CD34 reason=test"));
}

TEST_F(SlideSocket, ConnectingToTheJoinedRoomDropsAPendingReconnect) {
    connect();
    stage.app->scheduleNativeSlideSocketReconnect(base, "CD34", "receive_failed_reconnect");
    connect();
    stage.desktop.advance(10s);
    EXPECT_THAT(stage.lines("native_ws_connecting"), SizeIs(1));
}

TEST_F(SlideSocket, OnlyTheLastReconnectIsCarriedOut) {
    stage.app->scheduleNativeSlideSocketReconnect(base, "ONE", "receive_failed_reconnect");
    stage.desktop.advance(500ms);
    stage.app->scheduleNativeSlideSocketReconnect(base, "TWO", "receive_failed_reconnect");
    stage.desktop.advance(10s);
    EXPECT_THAT(stage.lines("native_ws_connecting"),
                ElementsAre("native_ws_connecting room=TWO reason=receive_failed_reconnect"));
}

TEST_F(SlideSocket, DiscoveryJoinsAtOnceAndDropsTheReconnect) {
    connect();
    breakSocket();
    stage.app->connectNativeSlideSocket(base, "AB12", "active_discovery");
    stage.desktop.advance(3s);
    EXPECT_THAT(stage.lines("native_ws_connecting"),
                ElementsAre("native_ws_connecting room=AB12 reason=test",
                            "native_ws_connecting room=AB12 reason=active_discovery"));
}

TEST_F(SlideSocket, AMessageOfAnOldRoomStartsNoReceiveOnTheNewConnection) {
    connect(base, "ONE");
    stage.desktop.network.sends(socket(), "hello");
    stage.app->connectNativeSlideSocket(base, "TWO", "test");
    stage.desktop.runReady();
    EXPECT_THAT(socket().receivers, SizeIs(1));
}

class SlideSocketAtQuit : public SlideSocket {
protected:
    /// The main loop runs for a minute after the shut-down: work that was not canceled runs.
    void quit() {
        stage.desktop.application.turnsAtTheEndFor = 60s;
        stage.desktop.userPressesMenuItem("退出 Stagehopper");
    }
};

TEST_F(SlideSocketAtQuit, IsClosedAsGoingAway) {
    connect();
    quit();
    EXPECT_EQ(socket().closeCode, 1001);
    EXPECT_EQ(stage.lines().back(), "native_ws_disconnected room=AB12 reason=app_terminating");
}

TEST_F(SlideSocketAtQuit, ClosedBeforeTheBackendIsEnded) {
    stage.desktop.network.stopServing(3000);
    stage.desktop.network.stopServing(3001);
    stage.installServingBackend(3000);
    stage.pagePosts("CMD:startBundledBackend");
    connect();
    const auto mark = stage.desktop.journal.mark();
    quit();
    const auto effects = stage.desktop.journal.effectsSince(mark);
    const auto closed = std::ranges::find(effects, "socket closed with 1001");
    const auto ended = std::ranges::find(effects, "process asked to end: StagehopperBackend-arm64");
    const auto ping = std::ranges::find(effects, "process asked to end: ping");
    ASSERT_NE(ended, effects.end());
    EXPECT_LT(closed, ended);
    EXPECT_LT(ended, ping);
}

TEST_F(SlideSocketAtQuit, APendingReconnectIsDropped) {
    connect();
    breakSocket();
    quit();
    EXPECT_THAT(connections(), SizeIs(1));
    EXPECT_THAT(stage.lines("native_ws_connecting"), SizeIs(1));
}

TEST_F(SlideSocketAtQuit, APendingReconnectIsNoLongerScheduled) {
    connect();
    breakSocket();
    stage.app->applicationWillTerminate();
    EXPECT_EQ(stage.desktop.dispatch.armed(), 0U);
}

TEST_F(SlideSocketAtQuit, AReconnectThatIsScheduledLaterDoesNotConnect) {
    stage.app->applicationWillTerminate();
    stage.app->scheduleNativeSlideSocketReconnect(base, "AB12", "receive_failed_reconnect");
    stage.desktop.advance(60s);
    EXPECT_THAT(stage.lines(), IsEmpty());
}

TEST_F(SlideSocketAtQuit, NoTimerContinues) {
    connect();
    quit();
    EXPECT_EQ(stage.desktop.dispatch.armed(), 0U);
}

TEST_F(SlideSocketAtQuit, WithoutAConnectionNothingIsWritten) {
    quit();
    EXPECT_THAT(stage.lines(), IsEmpty());
}

}  // namespace
}  // namespace stagehopper
