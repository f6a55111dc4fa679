// What pages from elsewhere can do inside the panel's view: show themselves in a frame, no more.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/desktop/FaultyBackend.h"
#include "tests/desktop/HostileFrame.h"
#include "tests/desktop/KeptDebugLog.h"
#include "tests/desktop/RemotePanel.h"

namespace stagehopper::desktop {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr std::chrono::seconds limit{30};

class FrameInPanel : public testing::Test {
protected:
    FrameInPanel() {
        server_.setPage("/hostile", std::string(hostileFrame));
        server_.setPage("/taken",
                        "<script>webkit.messageHandlers.bridge.postMessage("
                        "'DBG:PWNED as the main frame')</script>");
    }
    /// Puts that page into a frame and waits for its last word.
    void show(const std::string& path) {
        const auto mark = panel_->mark();
        panel_.run(
            "addEventListener('message', e => electronAPI.sendDebugLog(e.data));"
            " const frame = document.createElement('iframe');"
            " frame.src = 'http://127.0.0.1:3041" +
            path + "'; document.body.append(frame)");
        ASSERT_TRUE(panel_->logs("the attacks are over", mark, limit)) << panel_->output();
    }

    KeptDebugLog keptLog_;
    VirtualDesktop desktop_;
    FaultyBackend server_{3041};
    RemotePanel panel_{desktop_};
};

TEST_F(FrameInPanel, HasNoWayToTheBridge) {
    show("/hostile");
    panel_.run("electronAPI.sendDebugLog('the panel is still here')");
    ASSERT_TRUE(panel_->logs("the panel is still here", 0)) << panel_->output();
    EXPECT_THAT(panel_->diagnosticsSince(0), Not(Contains(HasSubstr("PWNED"))));
}

TEST_F(FrameInPanel, CannotOpenTheBridgeByCollectingGarbage) {
    // What the panel's page has changed in its own objects must not be lost with them.
    panel_.run("for (let i = 0; i < 200; ++i) new Array(1_000_000).fill(i);");
    panel_.run("post('DBG:after the collection')");
    EXPECT_TRUE(panel_->logs("after the collection", 0)) << panel_->output();
}

}  // namespace
}  // namespace stagehopper::desktop
