// The simulation itself: time, the journal, programs that start and quit.

#include <gmock/gmock.h>

#include "ports/simulated/Desktop.h"

namespace stagehopper::simulated {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

TEST(SimulatedDesktop, TimePassesOnlyOnRequest) {
    Desktop desktop;
    const auto start = desktop.clock.now();
    desktop.runReady();
    EXPECT_EQ(desktop.clock.now(), start);
    desktop.advance(1500ms);
    EXPECT_EQ(desktop.clock.now() - start, 1500ms);
}

TEST(SimulatedDesktop, AfterSleepingATimerRunsOnceAndKeepsItsBeat) {
    Desktop desktop;
    const auto start = desktop.clock.elapsed();
    std::vector<std::chrono::nanoseconds> rounds;
    const auto timer =
        desktop.dispatch.repeatMain(4s, [&] { rounds.push_back(desktop.clock.elapsed() - start); });
    desktop.sleepFor(8h + 1s);
    desktop.advance(3s);
    EXPECT_THAT(rounds, ElementsAre(8h + 1s, 8h + 4s));
}

TEST(SimulatedDesktop, ABlockedMainThreadMakesLaterWorkLate) {
    Desktop desktop;
    const auto start = desktop.clock.elapsed();
    std::chrono::nanoseconds ran{};
    desktop.dispatch.asyncMain([&] { desktop.clock.sleep(2s); });
    const auto item =
        desktop.dispatch.afterMain(1s, [&] { ran = desktop.clock.elapsed() - start; });
    desktop.advance(1s);
    EXPECT_EQ(ran, 2s);
}

TEST(SimulatedDesktop, TheUserMaySetTheWallClockWithoutMovingTimers) {
    Desktop desktop;
    const auto start = desktop.clock.now();
    int runs = 0;
    const auto item = desktop.dispatch.afterMain(1s, [&] { ++runs; });
    desktop.clock.userSetsClock(-1h);
    EXPECT_EQ(desktop.clock.now(), start - 1h);
    desktop.advance(1s);
    EXPECT_EQ(runs, 1);
}

TEST(SimulatedDesktop, TimeCannotBeMovedFromInsideATask) {
    Desktop desktop;
    desktop.dispatch.asyncMain([&] { desktop.advance(1s); });
    EXPECT_THROW(desktop.runReady(), std::logic_error);
}

TEST(SimulatedDesktop, AnApplicationThatNothingCanQuitIsReported) {
    Desktop desktop;
    EXPECT_THROW(desktop.application.run(), std::logic_error);
}

TEST(SimulatedDesktop, TheJournalKnowsWhenThingsHappened) {
    Desktop desktop;
    desktop.advance(250ms);
    desktop.workspace.open("https://example.org");
    const auto entries = desktop.journal.entries();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].at, 250ms);
    EXPECT_EQ(entries[0].effect, "url opened: https://example.org");
}

TEST(SimulatedDesktop, ElementsOfAProgramThatHasQuitAnswerNothing) {
    Desktop desktop;
    desktop.addProgram(program("org.example.Slides").pid(7).window("deck"));
    const auto element = desktop.accessibility.applicationElement(7);
    ASSERT_TRUE(element->attributeValue(platform::AccessibilityAttribute::windows));
    desktop.quitProgram(7);
    EXPECT_FALSE(element->attributeValue(platform::AccessibilityAttribute::windows));
    EXPECT_EQ(element->press(), platform::AccessibilityError::invalidElement);
}

TEST(SimulatedDesktop, KeysToTheFocusGoToTheProgramInFront) {
    Desktop desktop;
    desktop.addProgram(program("org.example.Slides").pid(7).window("deck"));
    const auto key = desktop.keyboard.makeKeyboardEvent(124, true);
    EXPECT_FALSE(desktop.keyboard.postToFocus(*key)) << "nothing is in front";
    desktop.bringToFront(7);
    EXPECT_TRUE(desktop.keyboard.postToFocus(*key));
    EXPECT_THAT(desktop.program(7).keysDown(), ElementsAre(124));
}

}  // namespace
}  // namespace stagehopper::simulated
