#include "ports/macos/cocoa/darwin/GrandCentralDispatch.h"
#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/runtime/RuntimeTest.h"

namespace stagehopper::recording {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Ownership : public RuntimeTest {};

TEST_F(Ownership, AMessageToAFreedObjectIsAProblemAndReturnsZero) {
    auto owned = Thing::make();
    const auto stale = owned.get();
    owned = {};
    EXPECT_FALSE(stale.retain());
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("-[<NSObject 1>, which was freed retain]")));
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

TEST_F(Ownership, AnObjectCannotBeUsedBeforeItsInitializer) {
    const auto raw = Thing::raw();
    EXPECT_EQ(raw.copy(), raw);
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("before it was initialized")));
    raw.release();
    raw.release();
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

TEST_F(Ownership, WorkOfAGlobalQueueHasNoPoolOfItsOwn) {
    const auto autorelease = [] { static_cast<void>(Thing::make().detach().autorelease()); };
    queues::async("session", autorelease);
    queues::runUntilIdle();
    EXPECT_THAT(problems(), testing::IsEmpty());
    queues::async("global default", autorelease);
    queues::runUntilIdle();
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("on queue \"global default\" without")));
}

TEST_F(Ownership, ASemaphoreThatIsNotReleasedIsALeak) {
    const auto semaphore = cocoa::dispatch_semaphore_create(0);
    EXPECT_THAT(leaked(), ElementsAre("a semaphore"));
    EXPECT_EQ(cocoa::dispatch_semaphore_wait(semaphore, cocoa::DISPATCH_TIME_FOREVER), 1);
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("can never come")));
    cocoa::dispatch_release(reinterpret_cast<cocoa::dispatch_object_t>(semaphore));
}

}  // namespace
}  // namespace stagehopper::recording
