// One socket to one room: joined, kept, pinged, dropped, joined again.

#include <gmock/gmock.h>

#include "tests/scenario/Programs.h"
#include "tests/scenario/Stage.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::SizeIs;
using testing::StartsWith;

constexpr auto* base = "http://127.0.0.1:3000";
constexpr auto* lost = "The network connection was lost.";

/// Connected by hand, without a backend that lists meetings: nothing reconnects behind the test's
/// back.
class SlideSocket : public testing::Test {
protected:
    SlideSocket() {
        stage.desktop.network.serve(3000);
        stage.desktop.network.serve(3001);
        stage.launch();
    }
    void connect(const std::string& url = base, const std::string& room = "AB12") {
        stage.app->connectNativeSlideSocket(url, room, "test");
        stage.desktop.runReady();
    }
    auto& socket() { return stage.desktop.network.lastConnection(3000); }
    auto& connections() { return stage.desktop.network.serve(3000).connections; }
    void breakSocket() {
        stage.desktop.network.breaks(socket(), lost);
        stage.desktop.runReady();
    }

    Stage stage;
};

TEST_F(SlideSocket, JoinsTheRoomAsAGuestOfItsOwnName) {
    connect();
    EXPECT_THAT(socket().url, MatchesRegex("ws://127.0.0.1:3000/ws\\?roomCode=AB12&"
                                           "userId=overlay-native-[0-9A-F]{8}&role=guest&"
                                           "displayName=overlay-native&cursorColor=%23000000"));
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_connecting room=AB12 reason=test"));
}

TEST_F(SlideSocket, TheNameIsTheSameForEveryRoom) {
    connect(base, "ONE");
    const auto nameIn = [](const std::string& url) {
        const auto start = url.find("userId=");
        return url.substr(start, url.find('&', start) - start);
    };
    const auto first = nameIn(socket().url);
    connect(base, "TWO");
    EXPECT_EQ(nameIn(socket().url), first);
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
    // The end of the old one is taken for the new one's: one more second.
    stage.desktop.advance(1s);
    EXPECT_TRUE(stage.desktop.network.lastConnection(3001).open);
}

TEST_F(SlideSocket, ServersAreComparedLetterByLetter) {
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

TEST_F(SlideSocket, AUrlThatIsNoneDropsTheOldConnectionAndWaitsForNothing) {
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

TEST_F(SlideSocket, BytesThatAreATextCountAsOne) {
    connect();
    stage.desktop.network.sendsBytes(socket(), R"({"type":"welcome"})");
    stage.desktop.runReady();
    EXPECT_THAT(stage.lines(), Contains("native_ws_ready room=AB12"));
}

TEST_F(SlideSocket, BytesThatAreNoTextAreDroppedAndTheNextMessageArrives) {
    connect();
    stage.forget();
    stage.desktop.network.sendsBytes(socket(), "\xFF\xFE{}");
    stage.desktop.network.sends(socket(), R"({"type":"welcome"})");
    stage.desktop.runReady();
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_ready room=AB12"));
}

TEST_F(SlideSocket, ABrokenConnectionIsJoinedAgainASecondLater) {
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

TEST_F(SlideSocket, TheEndOfADroppedConnectionIsNoFailure) {
    connect();
    stage.app->cancelNativeSlideSocket("test");
    stage.desktop.advance(10s);
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_connecting room=AB12 reason=test",
                                           "native_ws_disconnected room=AB12 reason=test"));
    EXPECT_EQ(socket().closeCode, 1001);
}

TEST_F(SlideSocket, TheEndOfAReplacedConnectionIsNoFailureOfTheNewRoom) {
    connect(base, "ONE");
    connect(base, "TWO");
    stage.desktop.advance(10s);
    EXPECT_THAT(stage.lines("native_ws_receive_failed"), IsEmpty());
    EXPECT_TRUE(socket().open);
}

TEST_F(SlideSocket, TheEndOfAnOldConnectionIsTakenForTheNewOnesWhenTheRoomIsTheSame) {
    connect();
    stage.app->cancelNativeSlideSocket("test");
    stage.app->connectNativeSlideSocket(base, "AB12", "test");
    stage.desktop.runReady();
    EXPECT_THAT(stage.lines("native_ws_receive_failed"),
                ElementsAre("native_ws_receive_failed room=AB12 error=cancelled"));
    stage.desktop.advance(1s);
    EXPECT_TRUE(socket().open);
}

TEST_F(SlideSocket, CancellingWithoutASocketIsSilent) {
    stage.app->cancelNativeSlideSocket("test");
    EXPECT_THAT(stage.lines(), IsEmpty());
}

TEST_F(SlideSocket, ConnectingDropsAReconnectThatWaits) {
    connect();
    breakSocket();
    connect(base, "CD34");
    stage.desktop.advance(10s);
    EXPECT_THAT(stage.lines("native_ws_connecting"),
                ElementsAre("native_ws_connecting room=AB12 reason=test",
                            "native_ws_connecting room=CD34 reason=test"));
}

TEST_F(SlideSocket, ConnectingToWhatIsJoinedAlreadyDropsAReconnectThatWaits) {
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

class SlideSocketPing : public SlideSocket {
protected:
    SlideSocketPing() {
        connect();
        stage.forget();
    }
};

TEST_F(SlideSocketPing, IsSentEveryFifteenSecondsTheFirstAfterFifteen) {
    stage.desktop.advance(14999ms);
    EXPECT_EQ(socket().pings, 0);
    stage.desktop.advance(1ms);
    EXPECT_EQ(socket().pings, 1);
    stage.desktop.advance(30s);
    EXPECT_EQ(socket().pings, 3);
    EXPECT_THAT(stage.lines(), IsEmpty());
}

TEST_F(SlideSocketPing, StartsAnewWithEachConnection) {
    stage.desktop.advance(10s);
    connect(base, "CD34");
    stage.desktop.advance(14s);
    EXPECT_EQ(socket().pings, 0);
    stage.desktop.advance(1s);
    EXPECT_EQ(socket().pings, 1);
}

TEST_F(SlideSocketPing, StopsWithTheConnection) {
    stage.app->cancelNativeSlideSocket("test");
    stage.desktop.advance(60s);
    EXPECT_EQ(socket().pings, 0);
}

TEST_F(SlideSocketPing, CancellingWithoutASocketStopsItsTimerToo) {
    stage.app->cancelNativeSlideSocket("test");
    stage.app->startNativeSlidePingLoop("AB12");
    stage.app->cancelNativeSlideSocket("test");
    const auto mark = stage.desktop.journal.mark();
    stage.desktop.advance(60s);
    EXPECT_THAT(stage.desktop.journal.effectsSince(mark), IsEmpty());
}

TEST_F(SlideSocketPing, AMissingPongAloneChangesNothing) {
    stage.desktop.network.serve(3000).answersPings = false;
    stage.desktop.advance(60s);
    EXPECT_TRUE(socket().open);
    EXPECT_THAT(stage.lines(), IsEmpty());
}

TEST_F(SlideSocketPing, AFailedPingDropsTheConnectionAndJoinsAgain) {
    stage.desktop.network.serve(3000).answersPings = false;
    stage.desktop.advance(15s);
    auto handlers = std::exchange(socket().pongHandlers, {});
    ASSERT_THAT(handlers, SizeIs(1));
    handlers.front()(platform::UrlError{"timed out"});
    stage.desktop.runReady();
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_ping_failed room=AB12 error=timed out",
                                           "native_ws_disconnected room=AB12 reason=ping_failed"));
    EXPECT_EQ(socket().closeCode, 1001);
    stage.desktop.advance(1s);
    EXPECT_EQ(stage.lines().back(), "native_ws_connecting room=AB12 reason=ping_failed_reconnect");
    EXPECT_TRUE(socket().open);
}

TEST_F(SlideSocketPing, AFailedPingOfAnOldRoomDropsTheRoomThatIsJoinedNow) {
    stage.desktop.network.serve(3000).answersPings = false;
    stage.desktop.advance(15s);
    auto handlers = std::exchange(socket().pongHandlers, {});
    connect(base, "CD34");
    stage.forget();
    handlers.front()(platform::UrlError{"timed out"});
    stage.desktop.advance(1s);
    EXPECT_THAT(stage.lines(),
                ElementsAre("native_ws_ping_failed room=CD34 error=timed out",
                            "native_ws_disconnected room=CD34 reason=ping_failed",
                            "native_ws_connecting room=CD34 reason=ping_failed_reconnect"));
}

TEST_F(SlideSocketPing, AFailedPingWithoutAConnectionOnlyWritesItsRoom) {
    stage.desktop.network.serve(3000).answersPings = false;
    stage.desktop.advance(15s);
    auto handlers = std::exchange(socket().pongHandlers, {});
    stage.app->cancelNativeSlideSocket("test");
    stage.forget();
    handlers.front()(platform::UrlError{"timed out"});
    stage.desktop.advance(10s);
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_ping_failed room=AB12 error=timed out"));
}

class SlideSocketAtQuit : public SlideSocket {
protected:
    void quit() { stage.desktop.userPressesMenuItem("退出 Stagehopper"); }
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

TEST_F(SlideSocketAtQuit, AReconnectThatWaitsIsDropped) {
    connect();
    breakSocket();
    quit();
    stage.desktop.advance(60s);
    EXPECT_THAT(connections(), SizeIs(1));
}

TEST_F(SlideSocketAtQuit, WithoutAConnectionNothingIsWritten) {
    quit();
    EXPECT_THAT(stage.lines(), IsEmpty());
}

class SlideMessages : public SlideSocket {
protected:
    SlideMessages() {
        stage.desktop.addProgram(keynote(40).window("deck.key"));
        connect(base, "AB12CD");
        stage.forget();
    }
    void receive(const std::string& text) {
        stage.desktop.network.sends(socket(), text);
        stage.desktop.runReady();
    }
};

TEST_F(SlideMessages, AWelcomeSaysThatTheRoomIsReady) {
    receive(R"({"type":"welcome","participants":[]})");
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_ready room=AB12CD"));
}

TEST_F(SlideMessages, AWelcomeWithoutARoomWritesADash) {
    stage.app->cancelNativeSlideSocket("test");
    stage.forget();
    stage.app->handleNativeSlideSocketText(R"({"type":"welcome"})");
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_ready room=-"));
}

TEST_F(SlideMessages, AStepTurnsTheSlide) {
    receive("{\"type\":\"slide_nav\",\"direction\":\" Next\\n\",\"seq\":17}");
    const auto lines = stage.lines();
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines[0], "native_ws_received direction=next seq=17");
    EXPECT_EQ(lines[1], "native_bridge_received direction=next seq=17 source=native_ws");
    EXPECT_THAT(stage.desktop.program(40).keysDown(), ElementsAre(124));
}

TEST_F(SlideMessages, AStepWithoutATagGoesOnWithoutOne) {
    receive(R"({"type":"slide_nav","direction":"PREV"})");
    EXPECT_EQ(stage.lines()[0], "native_ws_received direction=prev seq=-");
    EXPECT_EQ(stage.lines()[1], "native_bridge_received direction=prev seq=- source=native_ws");
    EXPECT_THAT(stage.desktop.program(40).keysDown(), ElementsAre(123));
}

TEST_F(SlideMessages, AStepWithoutADirectionIsPassedOnAndRefused) {
    receive(R"({"type":"slide_nav","seq":"a1"})");
    EXPECT_THAT(stage.lines(),
                ElementsAre("native_ws_received direction= seq=a1",
                            "native_bridge_received direction= seq=a1 source=native_ws",
                            "blocked_invalid_direction raw="));
}

TEST_F(SlideMessages, ADirectionThatIsANumberIsNone) {
    receive(R"({"type":"slide_nav","direction":5,"seq":5})");
    EXPECT_EQ(stage.lines()[0], "native_ws_received direction= seq=5");
}

TEST_F(SlideMessages, AStepThatAlsoCameThroughThePanelTurnsOneSlide) {
    receive(R"({"type":"slide_nav","direction":"next","seq":17})");
    stage.pagePosts("PPT:next|17|panel");
    EXPECT_THAT(stage.desktop.program(40).keysDown(), SizeIs(1));
    EXPECT_THAT(stage.lines(), Contains("duplicate_dropped direction=next seq=17 source=panel"));
}

TEST_F(SlideMessages, AStepSentTwiceTurnsOneSlide) {
    receive(R"({"type":"slide_nav","direction":"next","seq":17})");
    receive(R"({"type":"slide_nav","direction":"next","seq":17})");
    EXPECT_THAT(stage.desktop.program(40).keysDown(), SizeIs(1));
}

TEST_F(SlideMessages, WhatIsNotUnderstoodIsIgnoredSilently) {
    for (const auto& text :
         {""s, "hello"s, "{"s, "[]"s, R"([{"type":"welcome"}])"s, "5"s, "null"s, R"("welcome")"s,
          "{}"s, R"({"type":5})"s, R"({"type":"WELCOME"})"s, R"({"type":"welcome "})"s,
          R"({"type":"pointer","x":1})"s, R"({"type":"slide_nav","direction":"next")"s,
          "{\"type\":\"welcome\0\"}"s}) {
        receive(text);
    }
    EXPECT_THAT(stage.lines(), IsEmpty());
    receive(R"({"type":"welcome"})");
    EXPECT_THAT(stage.lines(), SizeIs(1));
}

TEST_F(SlideMessages, AMessageOfTheOldRoomThatComesLateIsStillActedOn) {
    stage.desktop.network.sends(socket(), R"({"type":"slide_nav","direction":"next","seq":1})");
    stage.app->connectNativeSlideSocket(base, "OTHER", "test");
    stage.desktop.runReady();
    EXPECT_THAT(stage.lines(), Contains("native_ws_received direction=next seq=1"));
}

TEST_F(SlideMessages, AnEndlessNestingIsIgnored) {
    receive(std::string(1'000'000, '['));
    receive(R"({"type":"welcome"})");
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_ready room=AB12CD"));
}

}  // namespace
}  // namespace stagehopper
