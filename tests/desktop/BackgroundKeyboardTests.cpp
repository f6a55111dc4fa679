// The owner of the background keyboard, and the reasons given without one.

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>

#include "tests/desktop/KeyboardProcess.h"
#include "tests/desktop/MasterDevicePairs.h"
#include "tests/drivers/program/DrivenProgram.h"

namespace stagehopper::desktop {
namespace {

constexpr std::chrono::seconds limit{20};
constexpr const char* sent = "sent";

DesktopOptions withOpenbox() {
    DesktopOptions options;
    options.windowManager = {"openbox", "--sm-disable"};
    return options;
}

class BackgroundKeyboard : public testing::Test {
protected:
    BackgroundKeyboard()
        : typing_(desktop_.start({programFolder() / "stagehopper_typing_window"})) {
        window_ = desktop_.windows().waitForTitle("Typing window", limit);
        desktop_.windows().activate(window_);
    }

    [[nodiscard]] std::vector<int> pointers() const { return morePointers(desktop_.display()); }

    VirtualDesktop desktop_{withOpenbox()};
    std::unique_ptr<ChildProgram> typing_;
    Window window_ = None;
};

TEST_F(BackgroundKeyboard, IsGoneAfterANormalEnd) {
    KeyboardProcess process(desktop_);
    EXPECT_EQ(pointers().size(), 1U);
    EXPECT_EQ(process.quit(), 0);
    EXPECT_TRUE(pointers().empty());
}

// GTK asks for the pointer that belongs to the keyboard of a key, and ends its program with an X
// error when it is gone by then.
TEST_F(BackgroundKeyboard, StaysWhileAProgramMayStillHaveAKeyToHandle) {
    for (std::size_t life = 1; life <= 10; ++life) {
        KeyboardProcess process(desktop_);
        typing_->signal(SIGSTOP);
        EXPECT_EQ(process.sendKey(typing_->pid()), sent);
        EXPECT_EQ(process.quit(), 0);
        typing_->signal(SIGCONT);
        ASSERT_TRUE(waitFor(
            [&] { return typing_->output().count("key Right") == life || !typing_->isRunning(); },
            limit));
        ASSERT_TRUE(typing_->isRunning()) << typing_->output().text();
    }
    EXPECT_EQ(pointers().size(), 1U);
}

TEST_F(BackgroundKeyboard, OfAKilledProgramIsTakenOverAndKept) {
    KeyboardProcess killed(desktop_);
    const auto leftOver = pointers();
    ASSERT_EQ(leftOver.size(), 1U);
    EXPECT_EQ(killed.signal(SIGKILL), 128 + SIGKILL);
    EXPECT_EQ(pointers(), leftOver);
    for (int life = 0; life < 2; ++life) {
        KeyboardProcess next(desktop_);
        EXPECT_EQ(pointers(), leftOver);
        EXPECT_EQ(next.sendKey(typing_->pid()), sent);
        EXPECT_EQ(next.quit(), 0);
        EXPECT_EQ(pointers(), leftOver);
    }
}

TEST_F(BackgroundKeyboard, OfALivingProgramIsNotShared) {
    KeyboardProcess first(desktop_);
    const auto its = pointers();
    KeyboardProcess second(desktop_);
    EXPECT_EQ(pointers(), its);
    EXPECT_EQ(second.sendKey(typing_->pid()), "refused another program has the second keyboard");
    EXPECT_EQ(first.sendKey(typing_->pid()), sent);

    // The keyboard is free: the second process takes it with its next key.
    EXPECT_EQ(first.quit(), 0);
    EXPECT_EQ(second.sendKey(typing_->pid()), sent);
    EXPECT_EQ(pointers().size(), 1U);
}

TEST_F(BackgroundKeyboard, StaysWithItsOwnerWhenARefusedProgramQuits) {
    KeyboardProcess first(desktop_);
    KeyboardProcess second(desktop_);
    EXPECT_EQ(second.quit(), 0);
    EXPECT_EQ(pointers().size(), 1U);
    EXPECT_EQ(first.sendKey(typing_->pid()), sent);
}

TEST_F(BackgroundKeyboard, ThatTheServerCannotMakeIsRefusedWithAReasonUntilItCan) {
    ASSERT_GT(exhaustMasterDevices(desktop_.display()), 0);
    KeyboardProcess process(desktop_);
    const auto answer = process.sendKey(typing_->pid());
    EXPECT_TRUE(answer.starts_with("refused the X server makes no second keyboard: Bad")) << answer;
    EXPECT_EQ(typing_->output().count("key "), 0U);

    removePointer(desktop_.display(), pointers().back());
    EXPECT_EQ(process.sendKey(typing_->pid()), sent);
    EXPECT_TRUE(typing_->output().waitForLine("key Right", limit));
}

TEST_F(BackgroundKeyboard, ThatWasRemovedByHandIsMadeAgainForTheNextKey) {
    KeyboardProcess process(desktop_);
    ASSERT_EQ(pointers().size(), 1U);
    removePointer(desktop_.display(), pointers().front());
    EXPECT_EQ(process.sendKey(typing_->pid()), sent);
    EXPECT_TRUE(typing_->output().waitForLine("key Right", limit));
}

// The server takes the focus from a minimized window, so that a key would go nowhere.
TEST_F(BackgroundKeyboard, RefusesAKeyToAMinimizedWindowWithAReason) {
    KeyboardProcess process(desktop_);
    auto* display = desktop_.display().get();
    XIconifyWindow(display, window_, DefaultScreen(display));
    ASSERT_TRUE(waitFor(
        [&] {
            XWindowAttributes attributes{};
            XGetWindowAttributes(display, window_, &attributes);
            return attributes.map_state != IsViewable;
        },
        limit));
    const auto answer = process.sendKey(typing_->pid());
    EXPECT_TRUE(answer.starts_with("refused the window does not take the key: Bad")) << answer;
    EXPECT_EQ(typing_->output().count("key "), 0U);
}

}  // namespace
}  // namespace stagehopper::desktop
