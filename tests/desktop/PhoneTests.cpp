// The whole road: from a touch on a phone's screen to the slide on the wall, and to the pointer
// above it.

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>

#include "tests/desktop/KeptDebugLog.h"
#include "tests/drivers/desktop/Processes.h"
#include "tests/drivers/phone/HeadlessPhone.h"
#include "tests/drivers/presentations/Deck.h"
#include "tests/drivers/presentations/Impress.h"
#include "tests/drivers/program/DrivenProgram.h"
#include "tests/drivers/program/JoinLink.h"

namespace stagehopper::desktop {
namespace {

constexpr std::chrono::seconds limit{15};

class PhoneRemote : public testing::Test {
protected:
    PhoneRemote() {
        link_ = joinLink();
        phone_.open(link_);
        expectState("Connected");
        // The program itself also joins the room when it has found it.
        if (!driven_.logs("native_ws_ready", 0, limit)) {
            throw std::runtime_error("the room was not joined:\n" + driven_.output());
        }
    }
    void expectState(const std::string& words) {
        phone_.waitFor("document.body.innerText.includes('" + words + "')", limit);
    }
    /// On the phone's pad, as shares of its width and height.
    ScreenPoint onPad(double across, double down) {
        const auto pad = phone_.evaluate(
            "(() => { const r = document.querySelector('#pad').getBoundingClientRect();"
            " return [r.left, r.top, r.width, r.height]; })()");
        return {pad.at(0).get<double>() + pad.at(2).get<double>() * across,
                pad.at(1).get<double>() + pad.at(3).get<double>() * down};
    }
    void holdFingerAt(double across, double down) {
        const auto place = onPad(across, down);
        phone_.touchStart(place.x, place.y);
    }
    Color pointerColor() {
        const auto parts = phone_.evaluate(
            "getComputedStyle(document.querySelector('#dot')).backgroundColor.match(/\\d+/"
            "g).map(Number)");
        return {parts.at(0).get<std::uint8_t>(), parts.at(1).get<std::uint8_t>(),
                parts.at(2).get<std::uint8_t>()};
    }
    bool isAt(int x, int y, Color color) {
        const auto now = Picture::of(desktop_.display(), desktop_.display().root());
        return now && now->at(x, y) == color;
    }
    /// The process of the page that was made last.
    pid_t newestPage() {
        pid_t newest = 0;
        for (const auto process : processesWithEnvironment(desktop_.folder().native())) {
            if (programName(process).starts_with("WebKitWebProc")) {
                newest = std::max(newest, process);
            }
        }
        return newest;
    }
    std::size_t stepsReceived() { return driven_.program().output().count("native_ws_received"); }

    KeptDebugLog keptLog_;
    VirtualDesktop desktop_;
    DrivenProgram driven_{desktop_};
    std::string link_;
    HeadlessPhone phone_{desktop_};
};

TEST_F(PhoneRemote, TurnsTheSlidesOfAShowBehindThePanel) {
    Impress impress(desktop_);
    impress.startShow();
    const auto focused = desktop_.windows().focused();
    phone_.tap("Next");
    EXPECT_TRUE(impress.waitForSlide(2)) << driven_.output();
    phone_.tap("Next");
    EXPECT_TRUE(impress.waitForSlide(3)) << driven_.output();
    phone_.tap("Previous");
    EXPECT_TRUE(impress.waitForSlide(2)) << driven_.output();
    phone_.swipe({300, 250}, {80, 250});
    EXPECT_TRUE(impress.waitForSlide(3)) << driven_.output();
    EXPECT_EQ(desktop_.windows().focused(), focused);
    EXPECT_TRUE(phone_.consoleMessages().empty()) << phone_.consoleMessages().front();
}

TEST_F(PhoneRemote, AThumbThatBouncesTurnsOneSlide) {
    const auto mark = driven_.mark();
    (void)phone_.evaluate(
        "(() => { const next = document.querySelector('#next'); next.click(); next.click(); })()");
    ASSERT_TRUE(driven_.logs("native_ws_received direction=next", mark));
    phone_.tap("Previous");
    ASSERT_TRUE(driven_.logs("native_ws_received direction=prev", mark));
    EXPECT_EQ(driven_.program().output().count("native_ws_received direction=next", mark), 1U);
}

TEST_F(PhoneRemote, PointsOnTheOverlay) {
    driven_.click("Overlay", ATSPI_ROLE_TOGGLE_BUTTON);
    // A tenth from the left and from the top: beside the panel, on the bare desktop.
    const auto color = pointerColor();
    holdFingerAt(0.1, 0.1);
    EXPECT_TRUE(waitFor([&] { return isAt(128, 72, color); }, limit))
        << "the pointer is not to be seen";
    // Moved on, it leaves nothing behind.
    const auto lower = onPad(0.1, 0.8);
    phone_.touchMove(lower.x, lower.y);
    EXPECT_TRUE(waitFor([&] { return isAt(128, 576, color) && !isAt(128, 72, color); }, limit))
        << "the pointer did not move, or left a trail";
    phone_.touchEnd();
    EXPECT_TRUE(waitFor([&] { return !isAt(128, 576, color); }, limit)) << "the pointer stayed";
}

TEST_F(PhoneRemote, PointsAgainOnAnOverlayWhosePageHasEnded) {
    driven_.click("Overlay", ATSPI_ROLE_TOGGLE_BUTTON);
    const auto color = pointerColor();
    holdFingerAt(0.1, 0.1);
    ASSERT_TRUE(waitFor([&] { return isAt(128, 72, color); }, limit));
    const auto mark = driven_.mark();
    kill(newestPage(), SIGKILL);
    ASSERT_TRUE(driven_.logs("the page overlay.html ended and is loaded again", mark, limit));
    EXPECT_TRUE(waitFor([&] { return !isAt(128, 72, color); }, limit));
    EXPECT_TRUE(waitFor([&] { return isAt(128, 72, color); }, 2 * limit))
        << "the overlay has not found its room again";
}

TEST_F(PhoneRemote, ThePanelShowsTheLinkAndWhoHasFollowedIt) {
    if (link_.find("127.0.0.1") != std::string::npos) GTEST_SKIP() << "this machine has no network";
    const auto& tree = desktop_.accessible();
    const auto entry = tree.waitFor(driven_.program().pid(), ATSPI_ROLE_ENTRY, "Link", limit);
    EXPECT_TRUE(waitFor([&] { return tree.text(entry) == link_; }, limit)) << tree.text(entry);
    const auto root = tree.program(driven_.program().pid());
    ASSERT_TRUE(root);
    EXPECT_TRUE(waitFor(
        [&] { return tree.outline(*root).find("list item 'Phone'") != std::string::npos; }, limit))
        << tree.outline(*root);
}

TEST_F(PhoneRemote, ComesBackByItselfWhenTheBackendWasKilled) {
    for (const auto process : processesWithEnvironment(desktop_.folder().native())) {
        if (programName(process).starts_with("StagehopperBack")) kill(process, SIGKILL);
    }
    ASSERT_TRUE(driven_.logs("bundled backend exited (status 9), will retry (1/3)", 0, limit));
    expectState("Connection lost");
    // The new backend knows nothing of the old meeting: the panel begins another one.
    ASSERT_TRUE(driven_.logs("(attempt 2/3)", 0, limit));
    expectState("This meeting is over");
    phone_.open(joinLink());
    expectState("Connected");
    const auto mark = driven_.mark();
    ASSERT_TRUE(driven_.logs("native_ws_ready", mark, limit)) << driven_.output();
    phone_.tap("Next");
    EXPECT_TRUE(driven_.logs("native_ws_received direction=next", mark)) << driven_.output();
}

TEST_F(PhoneRemote, AWrongLinkShowsAReasonAndTurnsNoSlide) {
    auto wrong = link_;
    wrong.back() = wrong.back() == 'A' ? 'B' : 'A';
    HeadlessPhone other(desktop_);
    other.open(wrong);
    other.waitFor("document.body.textContent.includes('does not fit the meeting')", limit);
    EXPECT_EQ(stepsReceived(), 0U);
}

TEST_F(PhoneRemote, AfterTheMeetingTheProgramIsQuietAndFindsTheNext) {
    driven_.click("End meeting");
    expectState("The meeting has ended");
    const auto mark = driven_.mark();
    // Two rounds of discovery.
    EXPECT_FALSE(driven_.logs("native_ws_", mark, std::chrono::seconds(8))) << driven_.output();
    driven_.click("New meeting");
    EXPECT_TRUE(driven_.logs("native_ws_ready", mark, limit)) << driven_.output();
}

}  // namespace
}  // namespace stagehopper::desktop
