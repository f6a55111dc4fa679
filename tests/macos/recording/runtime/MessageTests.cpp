#include <gtest/gtest-spi.h>

#include <stdexcept>

#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/runtime/RuntimeTest.h"

namespace stagehopper::recording {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// A few messages of a window, as the port declares them.
class Window : public cocoa::Handle<Window, cocoa::NSObject> {
public:
    static constexpr cocoa::FixedString className{"NSWindow"};
    using Handle::Handle;

    void setLevel(cocoa::NSInteger level) const {
        send<"setLevel:", void(cocoa::NSInteger)>(level);
    }
    void setFrame(cocoa::CGRect frame, bool display) const {
        send<"setFrame:display:", void(cocoa::CGRect, cocoa::BOOL)>(frame, display);
    }
    void setDelegate(cocoa::Object delegate) const {
        send<"setDelegate:", void(cocoa::Object)>(delegate);
    }
    [[nodiscard]] cocoa::Object delegate() const { return send<"delegate", cocoa::Object()>(); }
    void setContentView(cocoa::Object view) const {
        send<"setContentView:", void(cocoa::Object)>(view);
    }
    [[nodiscard]] cocoa::Object contentView() const {
        return send<"contentView", cocoa::Object()>();
    }
    [[nodiscard]] cocoa::CGRect frame() const { return send<"frame", cocoa::CGRect()>(); }
    [[nodiscard]] cocoa::Object screen() const { return send<"screen", cocoa::Object()>(); }
};

class Messages : public RuntimeTest {
protected:
    Retained window_ = makeObject("NSPanel");
    Window handle_{window_.get()};
};

TEST_F(Messages, TheJournalReadsLikeTheMessages) {
    handle_.setLevel(25);
    handle_.setFrame({{0, 0}, {520, 680.5}}, true);
    handle_.setDelegate(nullptr);
    EXPECT_THAT(journal().lines(), ElementsAre("[<NSPanel 1> setLevel:25]",
                                               "[<NSPanel 1> setFrame:{0,0,520,680.5} display:YES]",
                                               "[<NSPanel 1> setDelegate:nil]"));
    expectInOrder({"setLevel:25]", "setDelegate:nil]"});
}

TEST_F(Messages, AMessageThatTheObjectsClassDoesNotHaveIsAProblem) {
    const auto array = makeObject("NSArray");
    Window(array.get()).setLevel(3);
    EXPECT_THAT(takeProblems(),
                ElementsAre("-[<NSArray 1> setLevel:]: its class has no such message"));
}

TEST_F(Messages, AFreedArgumentIsAProblem) {
    auto view = makeObject("NSView");
    const cocoa::Object stale(view.get());
    view = {};
    handle_.setContentView(stale);
    EXPECT_THAT(takeProblems(), ElementsAre("-[<NSPanel 1> setContentView:] got <NSView 1>, which "
                                            "was freed"));
}

TEST_F(Messages, AMissingResultObjectIsAProblem) {
    EXPECT_FALSE(handle_.screen());
    EXPECT_THAT(takeProblems(), ElementsAre("no behavior for -[<NSPanel 1> screen]"));
}

TEST_F(Messages, AMainThreadClassOnAnotherQueueIsAProblem) {
    queues::async("global default", [this] { handle_.setLevel(3); });
    queues::runUntilIdle();
    EXPECT_THAT(takeProblems(), ElementsAre("-[<NSPanel 1> setLevel:] on queue \"global default\": "
                                            "its class is for the main thread"));
}

TEST_F(Messages, AStrongPropertyKeepsAndAWeakOneDoesNot) {
    const cocoa::AutoreleasePool pool;
    auto view = makeObject("NSView");
    auto delegate = makeObject("NSObject");
    {
        const cocoa::AutoreleasePool inner;
        handle_.setContentView(cocoa::Object(view.get()));
        handle_.setDelegate(cocoa::Object(delegate.get()));
        EXPECT_EQ(handle_.delegate().pointer(), delegate.get());
    }
    view = {};
    delegate = {};
    EXPECT_EQ(classNameOf(property(window_.get(), "contentView").object()), "NSView");
    EXPECT_EQ(property(window_.get(), "delegate").object(), nullptr);
}

TEST_F(Messages, ExpectInOrderReportsTheMissingLine) {
    handle_.setLevel(1);
    EXPECT_NONFATAL_FAILURE(expectInOrder({"setLevel:2]"}), "is missing: setLevel:2]");
    handle_.setLevel(2);
    EXPECT_NONFATAL_FAILURE(expectInOrder({"setLevel:2]", "setLevel:1]"}),
                            "came too early: setLevel:1]");
}

}  // namespace
}  // namespace stagehopper::recording
