// What may happen to a page of the program: another is put in its place or into a frame, or its
// process ends.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <nlohmann/json.hpp>

#include "tests/desktop/FaultyBackend.h"
#include "tests/desktop/HostileFrame.h"
#include "tests/desktop/KeptDebugLog.h"
#include "tests/desktop/RemotePanel.h"
#include "tests/drivers/desktop/FileWriting.h"
#include "tests/drivers/desktop/Processes.h"

namespace stagehopper::desktop {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

constexpr std::chrono::seconds limit{20};

constexpr const char* otherPage =
    "<!doctype html><script>webkit.messageHandlers.bridge.postMessage('DBG:PWNED')</script>";

class PanelPage : public testing::Test {
protected:
    PanelPage() {
        server_.setPage("/other", otherPage);
        other_ = desktop_.folder() / "other.html";
        writeFile(other_, otherPage);
    }
    void expectStillThere() {
        EXPECT_EQ(panel_.value("document.title"), "Remote panel");
        EXPECT_THAT(panel_->diagnosticsSince(0), Not(Contains(HasSubstr("PWNED"))));
    }
    /// Drops that on the middle of the panel, and waits until it has been taken or refused.
    void drop(const std::string& address) {
        const auto source =
            desktop_.start({(programFolder() / "stagehopper_drag_source").native(), address});
        ASSERT_TRUE(source->output().waitForLine("shown", limit)) << source->output().text();
        const auto area = desktop_.windows().areaOf(panel_->panel());
        ASSERT_TRUE(area);
        panel_.run("addEventListener('dragover', () => electronAPI.sendDebugLog('dragged over'))");
        const auto& user = desktop_.user();
        user.pressMouse(20, 20);
        user.moveMouse(40, 40);
        user.moveMouse(60, 60);
        ASSERT_TRUE(source->output().waitForLine("dragging", limit)) << source->output().text();
        const int x = area->x + area->width / 2;
        const int y = area->y + area->height / 2;
        // The two programs get to know each other while the mouse moves.
        int moves = 0;
        const auto isOverThePage = [&] {
            user.moveMouse(x, y + ++moves % 2);
            return panel_->program().output().count("dragged over", 0) > 0;
        };
        ASSERT_TRUE(waitFor(isOverThePage, limit)) << panel_->output();
        ASSERT_TRUE(source->output().waitForLine("accepted", limit)) << source->output().text();
        user.releaseMouse();
        ASSERT_TRUE(source->output().waitForLine("dragged", limit)) << source->output().text();
    }
    [[nodiscard]] std::string otherFile() const { return "file://" + other_.native(); }
    void killPage() {
        for (const auto process : processesWithEnvironment(desktop_.folder().native())) {
            if (programName(process).starts_with("WebKitWebProc")) kill(process, SIGKILL);
        }
    }

    KeptDebugLog keptLog_;
    VirtualDesktop desktop_;
    FaultyBackend server_{3041};
    std::filesystem::path other_;
    RemotePanel panel_{desktop_};
};

TEST_F(PanelPage, IsNotReplacedByAFileThatIsDroppedOnIt) {
    drop(otherFile());
    expectStillThere();
}

TEST_F(PanelPage, IsNotReplacedByALinkThatIsDroppedOnIt) {
    drop("http://127.0.0.1:3041/other");
    // The request is sent: WebKitGTK learns only from the response which frame it is for.
    EXPECT_TRUE(waitFor(
        [this] {
            const auto all = server_.requests();
            return std::ranges::find(all, "GET /other") != all.end();
        },
        limit));
    expectStillThere();
}

TEST_F(PanelPage, IsNotReplacedByItsOwnScript) {
    for (const std::string& address :
         {otherFile(), std::string("http://127.0.0.1:3041/other"), std::string("about:blank"),
          std::string("data:text/html,") + otherPage}) {
        panel_.run("location.href = " + nlohmann::json(address).dump());
        expectStillThere();
    }
}

TEST_F(PanelPage, ShowsNoFileInAFrame) {
    panel_.run("addEventListener('message', e => electronAPI.sendDebugLog(e.data));");
    writeFile(other_, "<script>parent.postMessage('PWNED by a file', '*')</script>");
    EXPECT_EQ(panel_.value("(() => { const f = document.createElement('iframe'); f.src = '" +
                           otherFile() + "'; document.body.append(f); return 'framed'; })()"),
              "framed");
    expectStillThere();
}

TEST_F(PanelPage, FindsNoDataThatAServerStoredInItsLastRun) {
    // FaultyBackend allows its pages to be kept.
    server_.setPage("/kept", "<script>parent.postMessage('before', '*')</script>");
    const std::string look =
        "addEventListener('message', e => electronAPI.sendDebugLog('it is as ' + e.data));"
        " const f = document.createElement('iframe');"
        " f.src = 'http://127.0.0.1:3041/kept'; document.body.append(f)";
    panel_.run(look);
    ASSERT_TRUE(panel_->logs("it is as before", 0, limit)) << panel_->output();
    desktop_.windows().requestClose(panel_->panel());
    ASSERT_TRUE(panel_->program().waitForExit(limit));
    server_.setPage("/kept", "<script>parent.postMessage('now', '*')</script>");
    RemotePanel again(desktop_);
    again.run(look);
    ASSERT_TRUE(again->logs("it is as ", 0, limit)) << again->output();
    EXPECT_THAT(again->diagnosticsSince(0), Contains("panel_debug it is as now"));
}

TEST_F(PanelPage, IsLoadedAgainWhenItsProcessEnds) {
    const auto mark = panel_->mark();
    killPage();
    EXPECT_TRUE(panel_->logs("Stagehopper: the page panel.html ended and is loaded again", mark));
    EXPECT_TRUE(panel_->logs("the page listens", mark, limit)) << panel_->output();
}

TEST_F(PanelPage, StaysEmptyWhenItsProcessEndsTooOften) {
    for (int end = 1; end <= 3; ++end) {
        const auto mark = panel_->mark();
        killPage();
        ASSERT_TRUE(panel_->logs("the page listens", mark, limit)) << panel_->output();
    }
    killPage();
    EXPECT_TRUE(panel_->logs("Stagehopper: the page panel.html ended too often and stays empty", 0))
        << panel_->output();
    EXPECT_EQ(panel_->program().output().count("is loaded again", 0), 3U);
}

/// What pages from elsewhere can do inside the view: show themselves in a frame, no more.
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
        ASSERT_TRUE(panel_->logs("the attacks are over", mark, std::chrono::seconds(30)))
            << panel_->output();
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
