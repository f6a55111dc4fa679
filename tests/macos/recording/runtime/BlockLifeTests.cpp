#include "ports/macos/cocoa/objc/Block.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/runtime/RuntimeTest.h"

namespace stagehopper::recording {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class BlockLife : public RuntimeTest {};

TEST_F(BlockLife, ABlockKeepsItsCapturesUntilItsLastReferenceIsReleased) {
    auto held = std::make_shared<int>(7);
    const std::weak_ptr<int> watched = held;
    Retained system;
    {
        const cocoa::Block<void()> block([held = std::move(held)] {});
        system = Retained(block.get());
    }
    EXPECT_FALSE(watched.expired());
    system = {};
    EXPECT_TRUE(watched.expired());
}

TEST_F(BlockLife, CallingABlockWithOtherTypesIsAProblem) {
    const cocoa::Block<void(long)> block([](long) {});
    callBlock(Retained(block.get()), 1.5);
    EXPECT_THAT(takeProblems(), ElementsAre("a block v@?q was to be called as v@?d"));
}

TEST_F(BlockLife, CopyingAFreedBlockIsAProblem) {
    cocoa::BlockPointer stale;
    {
        const cocoa::Block<void()> block([] {});
        stale = block.get();
    }
    EXPECT_EQ(_Block_copy(stale.pointer), nullptr);
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("copied after it was freed")));
}

TEST_F(BlockLife, ReleasingABlockThatOnlyTheSystemHoldsIsAProblem) {
    Retained system;
    {
        const cocoa::Block<void()> block([] {});
        system = Retained(block.get());
    }
    _Block_release(system.get());
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("which holds no reference")));
}

TEST_F(BlockLife, ABlockThatThePortNeverReleasesIsALeak) {
    const cocoa::Block<void()> block([] {});
    EXPECT_THAT(leaked(), ElementsAre(HasSubstr("^block v@?")));
}

}  // namespace
}  // namespace stagehopper::recording
