// The overlay on a real desktop: above a full-screen show, transparent, and never in the way.

#include <gtest/gtest.h>

#include <csignal>
#include <iostream>

#include "tests/desktop/KeptDebugLog.h"
#include "tests/desktop/RemotePanel.h"
#include "tests/drivers/desktop/DesktopError.h"
#include "tests/drivers/desktop/FileWriting.h"
#include "tests/drivers/desktop/Processes.h"
#include "tests/drivers/presentations/Deck.h"
#include "tests/drivers/presentations/Impress.h"

namespace stagehopper::desktop {
namespace {

constexpr std::chrono::seconds limit{10};

constexpr Color magenta{255, 0, 255};
constexpr Color green{0, 255, 0};
// Inside the square that the page draws, and well outside it.
constexpr int insideX = 640;
constexpr int insideY = 320;
constexpr int outsideX = 20;
constexpr int outsideY = 20;

/// A square in the middle, green in every page but the first that was loaded after a clean start:
/// that page changes its color at a script call of the host.
constexpr const char* page = R"(<!doctype html>
<meta charset="utf-8">
<style>
    html, body { margin: 0; background: transparent; }
    div { position: fixed; left: 600px; top: 280px; width: 80px; height: 80px; background: #f0f; }
    p { position: fixed; right: 0; bottom: 0; width: 10px; height: 10px; margin: 0; background: #f0f; }
</style>
<div></div><p></p>
<script>
    window._connectOverlay = () => document.querySelector("div").style.background = "#0f0";
</script>
)";

class OverlayOnDesktop : public testing::Test {
protected:
    OverlayOnDesktop() : OverlayOnDesktop(DesktopOptions{}) {}
    explicit OverlayOnDesktop(const DesktopOptions& options, const char* overlayPage = page)
        : desktop_(options) {
        const auto pages = writeRemotePage(desktop_);
        writeFile(pages / "overlay.html", overlayPage);
        panel_ = std::make_unique<RemotePanel>(desktop_, pages);
    }

    /// Shows whether the overlay has not painted or the compositor does not show it.
    void TearDown() override {
        if (!HasFailure()) return;
        std::cout << "the screen, " << inWords(pixel(insideX, insideY)) << ":\n"
                  << desktop_.windows().outline();
        for (const auto overlay : desktop_.windows().unmanagedOf((*panel_)->program().pid())) {
            const auto picture = Picture::of(desktop_.display(), overlay);
            std::cout << overlay << " itself, "
                      << inWords(picture ? std::optional(picture->at(insideX, insideY))
                                         : std::nullopt)
                      << '\n';
        }
        std::cout << "the program wrote:\n" << (*panel_)->output();
    }

    static std::string inWords(const std::optional<Color>& color) {
        if (!color) return "not to be seen";
        return "red " + std::to_string(color->red) + " green " + std::to_string(color->green) +
               " blue " + std::to_string(color->blue);
    }

    std::optional<Color> pixel(int x, int y) {
        const auto screen = Picture::of(desktop_.display(), desktop_.display().root());
        if (!screen || x >= screen->width() || y >= screen->height()) return std::nullopt;
        return screen->at(x, y);
    }
    bool becomes(int x, int y, Color color) {
        return waitFor([&] { return pixel(x, y) == color; }, limit);
    }
    void show() { panel_->run("electronAPI.showOverlay()"); }

    KeptDebugLog keptLog_;
    VirtualDesktop desktop_;
    std::unique_ptr<RemotePanel> panel_;
};

TEST_F(OverlayOnDesktop, IsAboveAFullScreenShowAndLetsItsClicksThrough) {
    Impress impress(desktop_);
    impress.startShow();
    const auto active = desktop_.windows().active();
    const auto focused = desktop_.windows().focused();
    show();
    ASSERT_TRUE(becomes(insideX, insideY, magenta)) << "the overlay is not to be seen";
    EXPECT_TRUE(becomes(outsideX, outsideY, slideColors.front())) << "it is not transparent";
    EXPECT_EQ(desktop_.windows().active(), active);
    EXPECT_EQ(desktop_.windows().focused(), focused);

    desktop_.user().click(insideX, insideY);
    EXPECT_TRUE(impress.waitForSlide(2)) << "the click did not reach the show";
    EXPECT_TRUE(becomes(insideX, insideY, magenta)) << "it went below the show";
    EXPECT_EQ(desktop_.windows().active(), active);
    EXPECT_EQ(desktop_.windows().focused(), focused);

    desktop_.user().strike({XK_Page_Down});
    EXPECT_TRUE(impress.waitForSlide(3)) << "the show lost the keyboard";
}

TEST_F(OverlayOnDesktop, StaysAboveAShowThatIsStartedLater) {
    show();
    ASSERT_TRUE(becomes(insideX, insideY, magenta));
    Impress impress(desktop_);
    impress.startShow();
    EXPECT_TRUE(becomes(outsideX, outsideY, slideColors.front()));
    EXPECT_TRUE(becomes(insideX, insideY, magenta));
}

TEST_F(OverlayOnDesktop, IsNotTheTargetOfAStep) {
    Impress impress(desktop_);
    impress.startShow();
    show();
    ASSERT_TRUE(becomes(insideX, insideY, magenta));
    panel_->next();
    EXPECT_TRUE(impress.waitForSlide(2));
}

/// The process of the desktop's window manager, which composes the screen, held still.
class HeldCompositor {
public:
    explicit HeldCompositor(const VirtualDesktop& desktop) {
        for (const auto process : processesWithEnvironment(desktop.folder().native())) {
            if (programName(process) == "mutter") process_ = process;
        }
        if (process_ == 0) throw DesktopError("no compositor was found");
        kill(process_, SIGSTOP);
    }
    ~HeldCompositor() { kill(process_, SIGCONT); }
    HeldCompositor(const HeldCompositor&) = delete;
    HeldCompositor& operator=(const HeldCompositor&) = delete;

private:
    pid_t process_ = 0;
};

TEST_F(OverlayOnDesktop, IsPaintedWhenTheCompositorLearnsOfItLate) {
    {
        const HeldCompositor held(desktop_);
        show();
        const auto overlayHasItsPage = [this] {
            const auto overlays = desktop_.windows().unmanagedOf((*panel_)->program().pid());
            if (overlays.empty()) return false;
            const auto picture = Picture::of(desktop_.display(), overlays.front());
            return picture && picture->at(insideX, insideY) == magenta;
        };
        EXPECT_TRUE(waitFor(overlayHasItsPage, limit)) << "the overlay waits for the compositor";
    }
    EXPECT_TRUE(becomes(insideX, insideY, magenta));
}

TEST_F(OverlayOnDesktop, HiddenAndShownAgainIsTheSamePage) {
    show();
    ASSERT_TRUE(becomes(insideX, insideY, magenta));
    panel_->run("electronAPI.connectOverlayWs('ws://127.0.0.1:1', 'AB12')");
    ASSERT_TRUE(becomes(insideX, insideY, green)) << "the page was not told";
    panel_->run("electronAPI.hideOverlay()");
    ASSERT_TRUE(waitFor([&] { return pixel(insideX, insideY) != green; }, limit));
    show();
    EXPECT_TRUE(becomes(insideX, insideY, green));
    panel_->run("electronAPI.destroyOverlay()");
    ASSERT_TRUE(waitFor([&] { return pixel(insideX, insideY) != green; }, limit));
    show();
    EXPECT_TRUE(becomes(insideX, insideY, magenta)) << "the page was not loaded afresh";
}

TEST_F(OverlayOnDesktop, GoesWithTheProgram) {
    show();
    ASSERT_TRUE(becomes(insideX, insideY, magenta));
    desktop_.windows().requestClose((*panel_)->panel());
    EXPECT_EQ((*panel_)->program().waitForExit(limit), 0) << (*panel_)->output();
    EXPECT_TRUE(waitFor([&] { return pixel(insideX, insideY) != magenta; }, limit));
}

TEST_F(OverlayOnDesktop, FollowsTheScreenToANewSize) {
    show();
    // The lower right corner of the page: of the screen, when it is covered exactly.
    ASSERT_TRUE(becomes(1279, 719, magenta));
    const auto resized =
        desktop_.start({"sh", "-c",
                        "xrandr --newmode small 25 1000 1010 1020 1030 600 610 620 630 && "
                        "xrandr --addmode screen small && xrandr --output screen --mode small"});
    ASSERT_EQ(resized->waitForExit(limit), 0) << resized->output().text();
    EXPECT_TRUE(becomes(999, 599, magenta));
    EXPECT_FALSE(pixel(1000, 600).has_value()) << "the screen did not change";
    const auto back = desktop_.start({"xrandr", "--output", "screen", "--mode", "1280x720"});
    ASSERT_EQ(back->waitForExit(limit), 0);
    EXPECT_TRUE(becomes(1279, 719, magenta));
}

TEST_F(OverlayOnDesktop, CoversOneScreenOnlyWhenAnotherIsConnectedAndAllWhenThatIsGone) {
    const auto xrandr = [this](const std::string& commands) {
        const auto child = desktop_.start({"sh", "-c", commands});
        ASSERT_EQ(child->waitForExit(limit), 0) << child->output().text();
    };
    show();
    ASSERT_TRUE(becomes(insideX, insideY, magenta));
    // GTK knows screens by their outputs, and the X server has one, here that of the right screen.
    // It is notified when the first output changes.
    xrandr(
        "xrandr --setmonitor left 400/100x720/190+0+0 none && "
        "xrandr --setmonitor right 880/200x720/190+400+0 screen && "
        "xrandr --output screen --noprimary");
    EXPECT_TRUE(becomes(insideX + 400, insideY, magenta));
    EXPECT_TRUE(becomes(1279, 719, magenta));
    EXPECT_NE(pixel(insideX, insideY), magenta) << "it covers the other screen, too";
    xrandr(
        "xrandr --delmonitor right && xrandr --delmonitor left && "
        "xrandr --output screen --primary");
    EXPECT_TRUE(becomes(insideX, insideY, magenta));
    EXPECT_TRUE(becomes(1279, 719, magenta));
}

/// A square that jumps from place to place, ten times a second.
constexpr const char* movingPage = R"(<!doctype html>
<meta charset="utf-8">
<style>
    html, body { margin: 0; background: transparent; }
    div { position: fixed; left: 0; top: 20px; width: 20px; height: 20px; background: #f0f; }
</style>
<div></div>
<script>
    let place = 0;
    setInterval(() => {
        place = (place + 1) % 8;
        document.querySelector("div").style.transform = `translateX(${place * 40}px)`;
    }, 100);
</script>
)";

class MovingOverlay : public OverlayOnDesktop {
protected:
    MovingOverlay() : OverlayOnDesktop(DesktopOptions{}, movingPage) {}

    /// The positions of the visible square.
    std::vector<int> placesLit() {
        std::vector<int> lit;
        const auto screen = Picture::of(desktop_.display(), desktop_.display().root());
        for (int place = 0; screen && place < 8; ++place) {
            if (screen->at(place * 40 + 10, 30) == magenta) lit.push_back(place);
        }
        return lit;
    }
};

TEST_F(MovingOverlay, GoesOnDrawingAndLeavesNoTrail) {
    show();
    ASSERT_TRUE(waitFor([this] { return !placesLit().empty(); }, limit));
    int jumps = 0;
    std::vector<int> last = placesLit();
    const auto hasMoved = [&] {
        const auto now = placesLit();
        const bool moved = now.size() == 1 && now != last;
        if (moved) last = now;
        return moved;
    };
    while (jumps < 150 && waitFor(hasMoved, std::chrono::seconds(5))) ++jumps;
    EXPECT_EQ(jumps, 150) << "it stands still, or is in " << placesLit().size() << " places";
}

/// A window manager that does not composite.
class OverlayWithoutCompositor : public OverlayOnDesktop {
protected:
    OverlayWithoutCompositor() : OverlayOnDesktop({.windowManager = {"openbox", "--sm-disable"}}) {}
};

TEST_F(OverlayWithoutCompositor, HidesAndLogsThatOnce) {
    const auto before = Picture::of(desktop_.display(), desktop_.display().root());
    const auto mark = (*panel_)->mark();
    show();
    ASSERT_TRUE((*panel_)->logs("Stagehopper: the overlay is hidden: no compositor runs", mark))
        << (*panel_)->output();
    panel_->run("electronAPI.hideOverlay()");
    show();
    panel_->run("electronAPI.sendDebugLog('shown twice')");
    ASSERT_TRUE((*panel_)->logs("shown twice", mark));
    EXPECT_EQ((*panel_)->program().output().count("the overlay is hidden", mark), 1U);
    // A covered screen would be one color from corner to corner.
    EXPECT_NE(pixel(insideX, insideY), magenta);
    ASSERT_TRUE(before);
    EXPECT_EQ(pixel(outsideX, outsideY), before->at(outsideX, outsideY));
}

}  // namespace
}  // namespace stagehopper::desktop
