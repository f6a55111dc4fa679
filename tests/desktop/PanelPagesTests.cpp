// The pages as they are shipped, in the real program and in an engine that lacks something.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "tests/desktop/FaultyBackend.h"
#include "tests/desktop/KeptDebugLog.h"
#include "tests/desktop/RemotePanel.h"
#include "tests/drivers/phone/HeadlessPhone.h"
#include "tests/drivers/program/JoinLink.h"

namespace stagehopper::desktop {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

constexpr std::chrono::seconds limit{20};

/// A real backend on port 3000, and another program on a port where one might be.
class BackendBesideAnother : public testing::Test {
protected:
    KeptDebugLog keptLog_;
    VirtualDesktop desktop_;
    FaultyBackend other_{3041};
    std::unique_ptr<ChildProgram> backend_ =
        desktop_.start({(programFolder() / "Resources/StagehopperBackend-arm64").native(),
                        "--ppid=" + std::to_string(getpid())});
};

TEST_F(BackendBesideAnother, IsTheOnlyOneThatThePanelShowsInAFrame) {
    const DrivenProgram driven(desktop_);
    EXPECT_THAT(joinLink(), HasSubstr(":3000/"));
    EXPECT_THAT(other_.requests(), Contains("GET /health"));
    EXPECT_THAT(other_.requests(), Not(Contains("GET /link")));
}

TEST_F(BackendBesideAnother, IsTheOnlyOneThatItsLinkPageAsks) {
    RemotePanel panel(desktop_);
    panel.run(R"js(
        const frame = document.createElement("iframe");
        const paths = ["/\\127.0.0.1:3041/x", "/\t/127.0.0.1:3041/x", "//127.0.0.1:3041/x",
                       "http://127.0.0.1:3041/x", "/health"];
        const ask = (path) => frame.contentWindow.postMessage(
            { kind: "request", id: 1, method: "GET", path }, "*");
        addEventListener("message", ({ data }) => {
            if (data.kind === "response") electronAPI.sendDebugLog(`response ${data.status}`);
            if (paths.length > 0) ask(paths.shift());
        });
        frame.src = "http://127.0.0.1:3000/link";
        document.body.append(frame);
    )js");
    ASSERT_TRUE(panel->logs("response 200", 0, limit)) << panel->output();
    EXPECT_EQ(panel->program().output().count("response 0", 0), 4U);
    EXPECT_THAT(other_.requests(), Not(Contains("GET /x")));
}

TEST(PanelInAnOldEngine, ShowsTheLargeQrCodeWithoutDialogs) {
    VirtualDesktop desktop;
    HeadlessPhone browser(desktop);
    browser.open("file://" + (programFolder() / "Resources/panel.html").native());
    const auto isShown = [&browser] {
        return browser.evaluate("byId('large-qr').getBoundingClientRect().width > 100");
    };
    EXPECT_EQ(browser.evaluate("delete HTMLDialogElement.prototype.showModal;"
                               "new PanelMeetingView(panelTexts.en);"
                               "byId('controls').disabled = false; byId('qr').click();"
                               "typeof byId('large-qr').showModal"),
              "undefined");
    EXPECT_EQ(isShown(), true);
    EXPECT_EQ(browser.evaluate("byId('large-qr').click(); byId('large-qr').open"), false);
    EXPECT_EQ(isShown(), false);
}

}  // namespace
}  // namespace stagehopper::desktop
