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

CheckedWorld::~CheckedWorld() {
    network.resumedSockets.clear();
    for (const auto& task : tasks.launched()) tasks.exits(*task, 0);
    queues::advance(everythingHasEnded);
    EXPECT_EQ(runningTimers, 0) << "timers that were not invalidated";
    end();
    EXPECT_THAT(problems(), testing::IsEmpty());
    EXPECT_THAT(leaked(), testing::IsEmpty());
}

}  // namespace stagehopper::recording
