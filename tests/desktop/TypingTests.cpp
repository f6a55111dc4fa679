// The user goes on working in another window while steps go to the program in the background.

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>

#include "tests/desktop/RemotePanel.h"
#include "tests/drivers/presentations/Deck.h"
#include "tests/drivers/presentations/Impress.h"

namespace stagehopper::desktop {
namespace {

/// Watches, on a connection and a thread of its own, that one window stays in front and keeps the
/// keyboard.
class FocusWatch {
public:
    FocusWatch(const VirtualDesktop& desktop, Window window)
        : display_(DisplayString(desktop.display().get())), thread_([this, window] {
              const Windows windows(display_);
              while (!stop_) {
                  ++looks_;
                  if (windows.active() != window || windows.focused() != window) ++losses_;
              }
          }) {}
    ~FocusWatch() { end(); }
    FocusWatch(const FocusWatch&) = delete;
    FocusWatch& operator=(const FocusWatch&) = delete;

    void end() {
        stop_ = true;
        if (thread_.joinable()) thread_.join();
    }
    [[nodiscard]] int looks() const { return looks_; }
    [[nodiscard]] int losses() const { return losses_; }

private:
    XDisplay display_;
    std::atomic<bool> stop_ = false;
    std::atomic<int> looks_ = 0;
    std::atomic<int> losses_ = 0;
    std::thread thread_;
};

/// What was typed with Shift held is in the window, letter for letter, and no key of a step.
void expectAllOfTheUsersKeysAndNoneOfOurs(const ChildProgram& typing, const std::string& typed) {
    std::string expected;
    for (const char character : typed) {
        expected += static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
    }
    EXPECT_TRUE(
        typing.output().waitForLine("text " + expected, std::chrono::seconds(10)).has_value())
        << typing.output().linesFrom(0).back().text;
    for (const char* key : {"key Page_", "key Next", "key Prior", "key Right", "key Left"}) {
        EXPECT_EQ(typing.output().count(key), 0U) << key;
    }
}

/// Forty steps, there and back, while the user types with Shift held. `reaches` waits for a slide.
void expectThatTypingAndSteppingDoNotMeet(const VirtualDesktop& desktop,
                                          const std::function<bool(int slide)>& reaches,
                                          bool focusNeverMoves = true) {
    RemotePanel panel(desktop);
    const auto typing = desktop.start({programFolder() / "stagehopper_typing_window"});
    const auto window = desktop.windows().waitForTitle("Typing window", std::chrono::seconds(10));
    desktop.windows().activate(window);
    FocusWatch watch(desktop, window);
    const std::string word = "hop ";
    std::string typed;
    const auto mark = panel->mark();
    desktop.user().press(XK_Shift_L);
    for (int step = 1; step <= 40; ++step) {
        const bool forward = (step - 1) / (slideCount - 1) % 2 == 0;
        const int position = (step - 1) % (slideCount - 1) + 1;
        forward ? panel.next() : panel.previous();
        desktop.user().type(word);
        typed += word;
        ASSERT_TRUE(reaches(forward ? position + 1 : slideCount - position))
            << "at step " << step << "\n"
            << panel->output();
    }
    desktop.user().release(XK_Shift_L);
    watch.end();
    EXPECT_GT(watch.looks(), 100);
    if (focusNeverMoves) {
        EXPECT_EQ(watch.losses(), 0);
    }
    EXPECT_EQ(desktop.windows().active(), window);
    EXPECT_EQ(desktop.windows().focused(), window);
    expectAllOfTheUsersKeysAndNoneOfOurs(*typing, typed);
    EXPECT_EQ(panel->program().output().count("key_sent ", mark), 40U);
    EXPECT_EQ(panel->program().output().count("key_undelivered", mark), 0U);
}

TEST(Typing, WithShiftHeldIsNotDisturbedByFortyStepsToAShowOfImpress) {
    const VirtualDesktop desktop;
    Impress impress(desktop);
    impress.startShow();
    expectThatTypingAndSteppingDoNotMeet(desktop,
                                         [&](int slide) { return impress.waitForSlide(slide); });
}

TEST(Typing, WithShiftHeldIsNotDisturbedByFortyStepsToEvince) {
    const VirtualDesktop desktop;
    const auto evince = openInEvince(desktop);
    expectThatTypingAndSteppingDoNotMeet(desktop,
                                         [&](int slide) { return evince->waitForSlide(slide); });
}

// Openbox, like others, takes our keyboard's focus for the user's and must be corrected after each
// key. It does not composite, so the slide is read from the page's title.
TEST(Typing, UnderOpenboxWithShiftHeldIsNotDisturbedByFortyStepsToFirefox) {
    DesktopOptions options;
    options.windowManager = {"openbox", "--sm-disable"};
    const VirtualDesktop desktop(options);
    const auto firefox = openInFirefox(desktop);
    const auto reaches = [&](int slide) {
        const auto title = "Slide " + std::to_string(slide) + " of 5";
        return waitFor([&] { return firefox->title().starts_with(title); },
                       std::chrono::seconds(5));
    };
    expectThatTypingAndSteppingDoNotMeet(desktop, reaches, false);
}

}  // namespace
}  // namespace stagehopper::desktop
