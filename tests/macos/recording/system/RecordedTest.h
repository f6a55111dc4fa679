#pragma once

#include <gtest/gtest.h>

#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/runtime/Recording.h"
#include "tests/macos/recording/system/World.h"

namespace stagehopper::recording {

/// The world of one test. Ends after the program: then there must be no problem, and the program
/// must have released every object, block, queue and semaphore.
class CheckedWorld final : public World {
public:
    CheckedWorld() = default;
    /// Also ends the processes that still run.
    ~CheckedWorld();
    CheckedWorld(const CheckedWorld&) = delete;
    CheckedWorld& operator=(const CheckedWorld&) = delete;
};

/// A test with its own world.
class RecordedTest : public testing::Test {
protected:
    void TearDown() final;

    /// Destroys the parts of the program that the test created, and members that would be destroyed
    /// too late.
    virtual void dropProgram() {}

    CheckedWorld world;
};

}  // namespace stagehopper::recording
