#include <csignal>

#include "ports/macos/cocoa/foundation/NSNotification.h"
#include "ports/macos/cocoa/objc/RuntimeClass.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/runtime/RuntimeTest.h"

namespace stagehopper::recording {
namespace {

using cocoa::RuntimeClass;
using testing::ElementsAre;
using testing::HasSubstr;

class RegisteredClass : public RuntimeTest {};

struct Target {
    cocoa::BOOL answersYes(cocoa::NSObject /*sender*/) { return cocoa::toBOOL(true); }
    void takes(cocoa::NSNotification /*notification*/) {}
    void takesNumber(long /*number*/) {}
};

const RuntimeClass<Target>& listener() {
    static const auto registered = RuntimeClass<Target>("Listener")
                                       .conformsTo("NSWindowDelegate")
                                       .method<"windowShouldClose:", &Target::answersYes>()
                                       .method<"windowWillClose:", &Target::takes>()
                                       .registerClass();
    return registered;
}

TEST_F(RegisteredClass, DestroyingAnObjectFreesItsWeakReference) {
    const auto target = std::make_shared<Target>();
    auto object = listener().makeInstance(target);
    const Weak weak(object.get().pointer());
    object = {};
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_EQ(target.use_count(), 1);
}

TEST_F(RegisteredClass, AnAbsentOptionalMethodIsSkipped) {
    const auto object = listener().makeInstance(std::make_shared<Target>());
    EXPECT_FALSE(responds(object.get().pointer(), "windowDidResize:"));
    sendToPort(object.get().pointer(), "windowDidResize:", cocoa::id());
}

TEST_F(RegisteredClass, CallingAFreedObjectIsAProblem) {
    auto object = listener().makeInstance(std::make_shared<Target>());
    auto* stale = object.get().pointer();
    object = {};
    sendToPort(stale, "windowWillClose:", cocoa::id());
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("which was freed")));
}

TEST_F(RegisteredClass, AMethodWithOtherTypesThanItsProtocolIsAProblem) {
    RuntimeClass<Target>("WrongTypes")
        .conformsTo("NSWindowDelegate")
        .method<"windowWillClose:", &Target::takesNumber>()
        .registerClass();
    EXPECT_THAT(takeProblems(), ElementsAre("WrongTypes answers windowWillClose: as v@:q, the "
                                            "system asks v@:@"));
}

TEST_F(RegisteredClass, AMethodOfAProtocolThatItDoesNotConformToIsAProblem) {
    RuntimeClass<Target>("NotConforming")
        .method<"windowWillClose:", &Target::takes>()
        .registerClass();
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("without conforming to NSWindowDelegate")));
}

TEST_F(RegisteredClass, ARequiredMethodThatIsMissingIsAProblem) {
    RuntimeClass<Target>("Lacking").conformsTo("WKScriptMessageHandler").registerClass();
    EXPECT_THAT(takeProblems(), ElementsAre("Lacking lacks "
                                            "userContentController:didReceiveScriptMessage: of "
                                            "WKScriptMessageHandler"));
}

TEST_F(RegisteredClass, ANameInUseEndsTheProgramWithThatName) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            // The end is expected: a sanitizer need not report it.
            std::signal(SIGABRT, SIG_DFL);
            RuntimeClass<Target>("NSWindow");
        },
        "a class NSWindow is there already");
}

TEST_F(RegisteredClass, AddingAMethodAfterTheRegistrationIsAProblem) {
    RuntimeClass<Target> late("Late");
    late.conformsTo("NSWindowDelegate").registerClass();
    late.method<"windowWillClose:", &Target::takes>();
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("came after the registration")));
}

TEST_F(RegisteredClass, AProtocolOrClassThatDoesNotExistIsAProblem) {
    EXPECT_EQ(cocoa::objc_getProtocol("NSWindowDelegat"), nullptr);
    EXPECT_EQ(cocoa::objc_getClass("NSWindo"), nullptr);
    EXPECT_THAT(takeProblems(), ElementsAre("no protocol NSWindowDelegat", "no class NSWindo"));
}

}  // namespace
}  // namespace stagehopper::recording
