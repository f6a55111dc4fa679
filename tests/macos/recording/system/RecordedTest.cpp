#include "tests/macos/recording/system/RecordedTest.h"

#include <gmock/gmock.h>

namespace stagehopper::recording {

namespace {

/// Longer than anything that the program leaves behind: requests without an answer, work for later.
constexpr double everythingHasEnded = 120;

}  // namespace

void RecordedTest::TearDown() {
    dropProgram();
}

RecordedTest::~RecordedTest() {
    queues::advance(everythingHasEnded);
    EXPECT_EQ(world.runningTimers, 0) << "timers that were not invalidated";
    world.end();
    EXPECT_THAT(problems(), testing::IsEmpty());
    EXPECT_THAT(leaked(), testing::IsEmpty());
}

}  // namespace stagehopper::recording
