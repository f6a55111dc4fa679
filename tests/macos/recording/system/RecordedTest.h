#pragma once

#include <gtest/gtest.h>

#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/runtime/Recording.h"
#include "tests/macos/recording/system/World.h"

namespace stagehopper::recording {

/// A test in a world of its own. When it has gone with all that it held, nothing may have been
/// noted as a problem, and the program may hold no object, block, queue or semaphore any more.
class RecordedTest : public testing::Test {
public:
    RecordedTest() = default;
    ~RecordedTest() override;
    RecordedTest(const RecordedTest&) = delete;
    RecordedTest& operator=(const RecordedTest&) = delete;

protected:
    void TearDown() final;

    /// Drops what the test made of the program and what its own members would drop too late.
    virtual void dropProgram() {}

    World world;
};

}  // namespace stagehopper::recording
