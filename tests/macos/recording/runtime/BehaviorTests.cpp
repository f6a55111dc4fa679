#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/runtime/RuntimeTest.h"

namespace stagehopper::recording {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Thread : public cocoa::Handle<Thread, cocoa::NSObject> {
public:
    static constexpr cocoa::FixedString className{"NSThread"};
    using Handle::Handle;
    static Thread currentThread() { return sendToClass<"currentThread", Thread()>(); }
    static Thread makeNew() { return sendToClass<"new", Thread()>(); }
    static Thread raw() { return allocate(); }
    [[nodiscard]] Thread init() const { return send<"init", Thread()>(); }
};

class Window : public cocoa::Handle<Window, cocoa::NSObject> {
public:
    static constexpr cocoa::FixedString className{"NSWindow"};
    using Handle::Handle;
    [[nodiscard]] cocoa::Object contentView() const { return send<"contentView", Object()>(); }
};

class Exception : public cocoa::Handle<Exception, cocoa::NSObject> {
public:
    static constexpr cocoa::FixedString className{"NSException"};
    using Handle::Handle;
    [[nodiscard]] Object name() const { return send<"name", Object()>(); }
};

/// What the class under test answers to `init`; the behaviors stay for the whole program.
Value (*initializer)(Call&) = nullptr;

struct Rounds {
    int count = 0;
};

class Behaviors : public RuntimeTest {
protected:
    Behaviors() {
        static const bool defined = [] {
            define("NSThread", MessageKind::classLevel, "currentThread",
                   [](Call& call) -> Value { return call.make("NSThread"); });
            define("NSThread", MessageKind::instance, "init",
                   [](Call& call) { return initializer(call); });
            define("NSException", MessageKind::instance, "name",
                   [](Call&) -> Value { return 1.5; });
            return true;
        }();
        static_cast<void>(defined);
        initializer = [](Call& call) -> Value {
            ++call.state<Rounds>().count;
            return call.receiver();
        };
    }
};

TEST_F(Behaviors, NewObjectsLiveAsLongAsThePool) {
    Weak weak;
    {
        const cocoa::AutoreleasePool pool;
        weak = Weak(Thread::currentThread().pointer());
        EXPECT_NE(weak.get(), nullptr);
    }
    EXPECT_EQ(weak.get(), nullptr);
}

TEST_F(Behaviors, NewObjectsNeedAPool) {
    EXPECT_TRUE(Thread::currentThread());
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("<NSThread 1> was autoreleased")));
}

TEST_F(Behaviors, ExistingObjectsNeedNoPool) {
    const auto systems = makeObject("NSWindow");
    const auto view = makeObject("NSView");
    setProperty(systems.get(), "contentView", view.get());
    EXPECT_EQ(Window(systems.get()).contentView().pointer(), view.get());
}

TEST_F(Behaviors, NewReturnsAnOwnedInitializedObject) {
    const auto made = cocoa::Owned<Thread>::adopt(Thread::makeNew());
    EXPECT_EQ(stateOf<Rounds>(made.get().pointer()).count, 1);
}

TEST_F(Behaviors, AnInitializerThatReturnsNilFreesItsReceiver) {
    initializer = [](Call&) -> Value { return cocoa::id(); };
    const auto raw = Thread::raw();
    const Weak weak(raw.pointer());
    EXPECT_FALSE(raw.init());
    EXPECT_EQ(weak.get(), nullptr);
}

TEST_F(Behaviors, AnInitializerMayReturnAnotherOwnedObject) {
    initializer = [](Call& call) -> Value { return call.make("NSThread"); };
    const auto raw = Thread::raw();
    const Weak weak(raw.pointer());
    const auto other = cocoa::Owned<Thread>::adopt(raw.init());
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_TRUE(other);
}

TEST_F(Behaviors, AResultOfAnotherTypeIsAProblem) {
    const auto exception = makeObject("NSException");
    EXPECT_FALSE(Exception(exception.get()).name());
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("was answered with d instead of @")));
}

TEST_F(Behaviors, TheStateOfAnObjectIsDestroyedWithIt) {
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = held;
    auto object = makeObject("NSObject");
    stateOf<std::shared_ptr<int>>(object.get()) = std::move(held);
    object = {};
    EXPECT_TRUE(watched.expired());
}

TEST_F(Behaviors, ADescriptionReplacesTheObjectInTheJournal) {
    describeAs("NSValue", [](cocoa::id) { return std::string("five"); });
    const auto number = makeObject("NSNumber");
    EXPECT_EQ(describe(number.get()), "five");
    EXPECT_EQ(Value(number.get()).describe(), "five");
}

TEST_F(Behaviors, MessagesOfAQuietClassAreNotInTheJournal) {
    const cocoa::AutoreleasePool pool;
    static_cast<void>(Thread::currentThread());
    const auto before = journal().mark();
    keepOutOfJournal("NSThread");
    static_cast<void>(Thread::currentThread());
    EXPECT_EQ(before, 1U);
    EXPECT_EQ(journal().mark(), before);
}

TEST(Values, ReadLikeObjectiveC) {
    EXPECT_EQ(Value(true).describe(), "YES");
    EXPECT_EQ(Value(false).describe(), "NO");
    EXPECT_EQ(Value(-3L).describe(), "-3");
    EXPECT_EQ(Value(2'147'483'628UL).describe(), "2147483628");
    EXPECT_EQ(Value(0.35).describe(), "0.35");
    EXPECT_EQ(Value("text").describe(), "\"text\"");
    EXPECT_EQ(Value(cocoa::id()).describe(), "nil");
    EXPECT_EQ(Value(cocoa::sel_registerName("close")).describe(), "@selector(close)");
    EXPECT_EQ(Value(cocoa::CGSize{3, 4}).describe(), "{3,4}");
    EXPECT_EQ(Value(reinterpret_cast<cocoa::id>(cocoa::objc_getClass("NSView"))).describe(),
              "NSView");
}

TEST(Values, AgreeWithTheirOwnTypeOnly) {
    EXPECT_TRUE(Value(1L).agreesWith("q"));
    EXPECT_FALSE(Value(1L).agreesWith("d"));
    EXPECT_TRUE(Value().agreesWith("d"));
    EXPECT_TRUE(Value("text").agreesWith("*"));
}

}  // namespace
}  // namespace stagehopper::recording
