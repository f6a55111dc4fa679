// A program that is busy when a step comes: each tap is one step, no more and no less, and the
// main thread goes on.

#include <gtest/gtest.h>

#include <csignal>

#include "tests/desktop/RemotePanel.h"

namespace stagehopper::desktop {
namespace {

using namespace std::chrono_literals;

class BusyProgram : public testing::Test {
protected:
    /// A program in front that is busy for that long when the first press arrives.
    void start(Limit duration) {
        program_ = desktop_.start(
            {programFolder() / "stagehopper_busy_slides", std::to_string(duration.count())});
        desktop_.windows().activate(desktop_.windows().waitForTitle("Busy slides", 10s));
        timeout_ = duration + 10s;
    }
    /// One tap; returns when the program has done its part.
    void tap() {
        const auto mark = panel_->mark();
        panel_.next();
        EXPECT_TRUE(panel_->logs("completed ", mark)) << panel_->output();
    }
    void waitUntilBusy() {
        EXPECT_TRUE(program_->output().waitForLine("busy", timeout_)) << panel_->output();
    }
    /// Everything that reached the program is done when a later step, back, is.
    [[nodiscard]] std::size_t stepsInAll() {
        EXPECT_TRUE(program_->output().waitForLine("awake", timeout_)) << panel_->output();
        return stepsUntilOneBack();
    }
    [[nodiscard]] std::size_t stepsUntilOneBack() {
        const auto mark = panel_->mark();
        panel_.previous();
        EXPECT_TRUE(panel_->logs("completed ", mark)) << panel_->output();
        EXPECT_TRUE(program_->output().waitForLine("step previous", timeout_)) << panel_->output();
        return program_->output().count("step next");
    }
    [[nodiscard]] ChildProgram& program() { return *program_; }
    [[nodiscard]] RemotePanel& panel() { return panel_; }

private:
    VirtualDesktop desktop_;
    RemotePanel panel_{desktop_};
    std::unique_ptr<ChildProgram> program_;
    Limit timeout_{};
};

class BusyFor : public BusyProgram, public testing::WithParamInterface<int> {};

TEST_P(BusyFor, WhenThePressArrivesTakesOneStepForOneTap) {
    start(Limit(GetParam()));
    tap();
    waitUntilBusy();
    EXPECT_EQ(stepsInAll(), 1U) << panel()->output();
}

INSTANTIATE_TEST_SUITE_P(Milliseconds, BusyFor, testing::Values(300, 700, 3000, 10'000));

TEST_F(BusyProgram, TakesTwoStepsForASecondTapWhileItIsBusy) {
    start(3s);
    tap();
    waitUntilBusy();
    tap();
    EXPECT_EQ(stepsInAll(), 2U) << panel()->output();
}

TEST_F(BusyProgram, ThatIsStoppedFromTheStartGetsOneKeyForEachTap) {
    start(0s);
    tap();
    ASSERT_TRUE(program().output().waitForLine("step next", 10s)) << panel()->output();
    program().signal(SIGSTOP);
    tap();
    tap();
    EXPECT_EQ(program().output().count("step next"), 1U);
    program().signal(SIGCONT);
    EXPECT_EQ(stepsUntilOneBack(), 3U) << panel()->output();
}

}  // namespace
}  // namespace stagehopper::desktop
