// The real program on a slide socket whose server breaks every rule: the lines it writes, and that
// it is back on the next good connection.

#include <gtest/gtest.h>

#include "tests/desktop/FaultyBackend.h"
#include "tests/desktop/KeptDebugLog.h"
#include "tests/desktop/RemotePanel.h"

namespace stagehopper::desktop {
namespace {

class SlideSocketFaults : public testing::Test {
protected:
    /// The program is on the room's socket, and a good one: a step arrives.
    void expectGoodConnection(std::size_t count) {
        ASSERT_TRUE(backend_.waitForSocket(count)) << panel_->output();
        const auto mark = panel_->mark();
        backend_.sendWelcome();
        backend_.sendStep("next", static_cast<int>(1000 + count));
        EXPECT_TRUE(panel_->logs("native_ws_ready room=AB12CD", mark)) << panel_->output();
        EXPECT_TRUE(panel_->logs(
            "native_ws_received direction=next seq=" + std::to_string(1000 + count), mark));
    }
    /// Something breaks the connection: it is reported, dropped, and joined again.
    void expectFailureAndReturn(std::size_t mark) {
        EXPECT_TRUE(panel_->logs("native_ws_receive_failed room=AB12CD error=", mark))
            << panel_->output();
        EXPECT_TRUE(panel_->logs("native_ws_disconnected room=AB12CD reason=receive_failed", mark));
        EXPECT_TRUE(panel_->logs("native_ws_connecting room=AB12CD reason=", mark));
    }

    KeptDebugLog keptLog_;
    FaultyBackend backend_{3040};
    VirtualDesktop desktop_;
    RemotePanel panel_{desktop_};
};

TEST_F(SlideSocketFaults, TheRoomIsJoinedAsTheMeetingSays) {
    expectGoodConnection(1);
    const auto target = backend_.targets().front();
    EXPECT_TRUE(target.starts_with("/ws?roomCode=AB12CD&userId=overlay-native-")) << target;
    EXPECT_TRUE(target.ends_with("&role=guest&displayName=overlay-native&cursorColor=%23000000"))
        << target;
}

TEST_F(SlideSocketFaults, AConnectionThatEndsIsJoinedAgain) {
    expectGoodConnection(1);
    const auto mark = panel_->mark();
    backend_.closeConnection();
    expectFailureAndReturn(mark);
    expectGoodConnection(2);
}

TEST_F(SlideSocketFaults, ARefusedHandshakeIsTriedAgainUntilItIsAccepted) {
    expectGoodConnection(1);
    const auto mark = panel_->mark();
    backend_.setHandshake(FaultyBackend::Handshake::refused);
    backend_.closeConnection();
    ASSERT_TRUE(panel_->logs("error=The server refused the connection (403)", mark));
    backend_.setHandshake(FaultyBackend::Handshake::accepted);
    expectGoodConnection(3);
}

TEST_F(SlideSocketFaults, AHandshakeWithoutAnAnswerBlocksNothing) {
    expectGoodConnection(1);
    backend_.setHandshake(FaultyBackend::Handshake::neverAnswered);
    backend_.closeConnection();
    ASSERT_TRUE(backend_.waitForSocket(2));
    // Steps through the panel still work, and quitting does not wait.
    const auto mark = panel_->mark();
    panel_.next();
    EXPECT_TRUE(panel_->logs("native_bridge_received direction=next", mark));
    desktop_.windows().requestClose(panel_->panel());
    EXPECT_EQ(panel_->program().waitForExit(std::chrono::seconds(5)), 0) << panel_->output();
}

TEST_F(SlideSocketFaults, QuittingClosesTheSocketAsGoingAway) {
    expectGoodConnection(1);
    desktop_.windows().requestClose(panel_->panel());
    EXPECT_EQ(panel_->program().waitForExit(std::chrono::seconds(5)), 0);
    EXPECT_EQ(panel_->program().output().count(
                  "native_ws_disconnected room=AB12CD reason=app_terminating"),
              1U);
    EXPECT_TRUE(waitFor([this] { return backend_.closeCode() == 1001; }, std::chrono::seconds(5)));
}

TEST_F(SlideSocketFaults, QuittingWhileAReconnectWaitsIsClean) {
    expectGoodConnection(1);
    backend_.setHandshake(FaultyBackend::Handshake::refused);
    const auto mark = panel_->mark();
    backend_.closeConnection();
    ASSERT_TRUE(panel_->logs("native_ws_disconnected", mark));
    desktop_.windows().requestClose(panel_->panel());
    EXPECT_EQ(panel_->program().waitForExit(std::chrono::seconds(5)), 0) << panel_->output();
}

// Half a minute, for the ping itself: nothing in the program makes it come sooner.
TEST_F(SlideSocketFaults, APingThatIsNeverAnsweredIsNoFailureUntilTheConnectionIs) {
    expectGoodConnection(1);
    backend_.setAnswersPings(false);
    const auto mark = panel_->mark();
    ASSERT_TRUE(waitFor([this] { return backend_.pings() > 0; }, std::chrono::seconds(25)));
    backend_.sendStep("next", 18);
    EXPECT_TRUE(panel_->logs("seq=18", mark));
    EXPECT_EQ(panel_->program().output().count("failed", mark), 0U);
    backend_.setAnswersPings(true);
    backend_.closeConnection();
    // Either the receive or the ping is reported first; the other finds the connection replaced.
    EXPECT_TRUE(panel_->logs("_failed room=AB12CD error=", mark));
    expectGoodConnection(2);
}

}  // namespace
}  // namespace stagehopper::desktop
