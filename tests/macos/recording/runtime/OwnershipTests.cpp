#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/RuntimeTest.h"

namespace stagehopper::recording {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Ownership : public RuntimeTest {};

TEST_F(Ownership, AnObjectLivesUntilItsLastReferenceIsReleased) {
    auto first = Thing::make();
    const Weak weak(first.get().pointer());
    auto second = first;
    first = {};
    EXPECT_NE(weak.get(), nullptr);
    second = {};
    EXPECT_EQ(weak.get(), nullptr);
}

TEST_F(Ownership, AMessageToAFreedObjectIsAProblemAndReturnsZero) {
    auto owned = Thing::make();
    const auto stale = owned.get();
    owned = {};
    EXPECT_FALSE(stale.retain());
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("-[<NSObject 1>, which was freed retain]")));
}

TEST_F(Ownership, AnAddressWithoutAnObjectIsAProblem) {
    int something = 0;
    const Thing fake(reinterpret_cast<cocoa::id>(&something));
    fake.release();
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("something that is no object")));
}

TEST_F(Ownership, AnExcessReleaseIsAProblemEvenWhileTheSystemHoldsTheObject) {
    const auto systems = makeObject("NSObject");
    Thing(systems.get()).release();
    EXPECT_THAT(takeProblems(), ElementsAre("<NSObject 1> was released by the port, which holds no "
                                            "reference"));
    EXPECT_EQ(classNameOf(systems.get()), "NSObject");
}

TEST_F(Ownership, AnUnreleasedObjectIsALeakEvenWhileTheSystemHoldsIt) {
    const auto systems = makeObject("NSObject");
    const auto forgotten = Thing(systems.get()).retain();
    EXPECT_THAT(leaked(), ElementsAre(HasSubstr("<NSObject 1>")));
    forgotten.release();
    EXPECT_THAT(leaked(), testing::IsEmpty());
}

TEST_F(Ownership, ACopyIsOwned) {
    const auto original = Thing::make();
    const auto copied = cocoa::Owned<Thing>::adopt(original->copy());
    EXPECT_TRUE(copied);
}

TEST_F(Ownership, AnObjectCannotBeUsedBeforeItsInitializer) {
    const auto raw = Thing::raw();
    EXPECT_EQ(raw.copy(), raw);
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("before it was initialized")));
    raw.release();
    raw.release();
}

TEST_F(Ownership, AnInitializerTakesOverTheReferenceOfAlloc) {
    const auto raw = Thing::raw();
    const auto ready = raw.init();
    EXPECT_EQ(raw, ready);
    ready.release();
}

TEST_F(Ownership, InitializingTwiceIsAProblem) {
    const auto owned = Thing::make();
    EXPECT_EQ(owned->init(), owned.get());
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("a second time")));
}

TEST_F(Ownership, AnAutoreleasedObjectLivesAsLongAsTheInnermostPool) {
    Weak weak;
    {
        const cocoa::AutoreleasePool outer;
        {
            const cocoa::AutoreleasePool inner;
            weak = Weak(Thing::make().detach().autorelease().pointer());
            EXPECT_NE(weak.get(), nullptr);
        }
        EXPECT_EQ(weak.get(), nullptr);
    }
}

TEST_F(Ownership, AutoreleasingWithoutAPoolIsAProblem) {
    static_cast<void>(Thing::make().detach().autorelease());
    EXPECT_THAT(takeProblems(),
                ElementsAre("<NSObject 1> was autoreleased on queue \"main\" without a pool"));
}

TEST_F(Ownership, PoolsEndInReverseOrder) {
    void* outer = cocoa::objc_autoreleasePoolPush();
    void* inner = cocoa::objc_autoreleasePoolPush();
    cocoa::objc_autoreleasePoolPop(outer);
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("not the innermost")));
    cocoa::objc_autoreleasePoolPop(inner);
    cocoa::objc_autoreleasePoolPop(outer);
}

TEST_F(Ownership, AResetFreesTheRemainingObjects) {
    const Weak weak(Thing::make().detach().pointer());
    reset();
    EXPECT_EQ(weak.get(), nullptr);
}

}  // namespace
}  // namespace stagehopper::recording
