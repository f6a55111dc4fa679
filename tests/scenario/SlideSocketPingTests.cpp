// The pings of the slide socket, and the end of a connection after a failed ping.

#include <gmock/gmock.h>

#include "tests/scenario/SlideSocketFixture.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

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

TEST_F(SlideSocketPing, StartsAgainWithEachConnection) {
    stage.desktop.advance(10s);
    connect(base, "CD34");
    stage.desktop.advance(14s);
    EXPECT_EQ(socket().pings, 0);
    stage.desktop.advance(1s);
    EXPECT_EQ(socket().pings, 1);
}

TEST_F(SlideSocketPing, StopsWithTheConnection) {
    const auto withPings = stage.desktop.dispatch.armed();
    stage.app->cancelNativeSlideSocket("test");
    EXPECT_EQ(stage.desktop.dispatch.armed(), withPings - 1);
    stage.desktop.advance(60s);
    EXPECT_EQ(socket().pings, 0);
}

TEST_F(SlideSocketPing, CancelingWithoutASocketAlsoStopsItsTimer) {
    stage.app->cancelNativeSlideSocket("test");
    const auto withoutPings = stage.desktop.dispatch.armed();
    stage.app->startNativeSlidePingLoop("AB12");
    EXPECT_EQ(stage.desktop.dispatch.armed(), withoutPings + 1);
    stage.app->cancelNativeSlideSocket("test");
    EXPECT_EQ(stage.desktop.dispatch.armed(), withoutPings);
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

TEST_F(SlideSocketPing, AFailedPingOfAnOldRoomDropsTheCurrentRoom) {
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

TEST_F(SlideSocketPing, AFailedPingWithoutAConnectionOnlyLogsItsRoom) {
    stage.desktop.network.serve(3000).answersPings = false;
    stage.desktop.advance(15s);
    auto handlers = std::exchange(socket().pongHandlers, {});
    stage.app->cancelNativeSlideSocket("test");
    stage.forget();
    handlers.front()(platform::UrlError{"timed out"});
    stage.desktop.advance(10s);
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_ping_failed room=AB12 error=timed out"));
}

}  // namespace
}  // namespace stagehopper
