#pragma once

#include <gtest/gtest.h>

#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/runtime/Recording.h"
#include "tests/macos/recording/system/World.h"

namespace stagehopper::recording {

/// A test with its own world. At its end there must be no problem, and the program must have
/// released every object, block, queue and semaphore.
class RecordedTest : public testing::Test {
public:
    RecordedTest() = default;
    ~RecordedTest() override;
    RecordedTest(const RecordedTest&) = delete;
    RecordedTest& operator=(const RecordedTest&) = delete;

protected:
    void TearDown() final;

    /// Destroys the parts of the program that the test created, and members that would be destroyed
    /// too late.
    virtual void dropProgram() {}

    World world;
};

}  // namespace stagehopper::recording
