#include <gmock/gmock.h>

#include "platform/Accessibility.h"
#include "ports/macos/cocoa/foundation/NSString.h"
#include "ports/macos/cocoa/graphics/AXUIElement.h"
#include "ports/macos/cocoa/graphics/CGEvent.h"
#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "tests/macos/recording/foundation/Bridged.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/system/AccessibilityElements.h"
#include "tests/macos/recording/system/RecordedTest.h"

namespace stagehopper::recording {

namespace {

using simulated::item;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using Element = cocoa::CFOwned<cocoa::AXUIElementRef>;

class StandInOfAnotherProgram : public RecordedTest {
protected:
    simulated::RunningProgram& start() {
        return world.programs.start(simulated::program("com.example.Slides")
                                        .pid(42)
                                        .window("deck")
                                        .menu("Show", {item("Next").disabled()}));
    }
    static Element application(int process) {
        return Element::adopt(cocoa::AXUIElementCreateApplication(process));
    }
    /// What the attribute holds, in words, or the error's number.
    static std::string read(const Element& element, std::string_view attribute) {
        cocoa::CFTypeRef value = nullptr;
        const auto error = cocoa::AXUIElementCopyAttributeValue(
            element.get(), cocoa::bridged<cocoa::CFStringRef>(cocoa::string(attribute)), &value);
        const auto owned = cocoa::CFOwned<cocoa::CFTypeRef>::adopt(value);
        return owned ? describe(objectOf(owned.get())) : std::to_string(error);
    }
    static std::string code(platform::AccessibilityError error) {
        return std::to_string(static_cast<int>(error));
    }
    static void press(int process, bool viaFocus) {
        const auto key = cocoa::CFOwned<cocoa::CGEventRef>::adopt(
            cocoa::CGEventCreateKeyboardEvent(nullptr, 121, true));
        if (viaFocus) return cocoa::CGEventPost(cocoa::kCGHIDEventTap, key.get());
        cocoa::CGEventPostToPid(process, key.get());
    }

    cocoa::AutoreleasePool pool_;
};

TEST_F(StandInOfAnotherProgram, ShowsItsWindowsAndItsMenus) {
    start();
    const auto element = application(42);
    EXPECT_EQ(read(element, "AXRole"), R"("AXApplication")");
    EXPECT_THAT(read(element, "AXWindows"), StartsWith("(<AXUIElement "));
    EXPECT_THAT(read(element, "AXMenuBar"), StartsWith("<AXUIElement "));
    EXPECT_EQ(read(element, "AXTitle"), code(platform::AccessibilityError::noValue));
}

TEST_F(StandInOfAnotherProgram, IsInaccessibleWithoutPermissionOrAfterItsEnd) {
    start();
    const auto element = application(42);
    world.accessibility.trusted = false;
    EXPECT_EQ(read(element, "AXRole"), code(platform::AccessibilityError::apiDisabled));
    world.accessibility.trusted = true;
    world.programs.quit(42);
    EXPECT_EQ(read(element, "AXRole"), code(platform::AccessibilityError::invalidElement));
}

TEST_F(StandInOfAnotherProgram, CostsTheFullTimeoutIfItHangs) {
    start();
    world.accessibility.hanging.insert(42);
    EXPECT_EQ(read(application(42), "AXRole"), code(platform::AccessibilityError::cannotComplete));
    EXPECT_DOUBLE_EQ(queues::now(), 6);
    const auto systemWide = Element::adopt(cocoa::AXUIElementCreateSystemWide());
    cocoa::AXUIElementSetMessagingTimeout(systemWide.get(), 1);
    static_cast<void>(read(application(42), "AXRole"));
    EXPECT_DOUBLE_EQ(queues::now(), 7);
}

TEST_F(StandInOfAnotherProgram, MayHaveATimeoutForOneReference) {
    start();
    world.accessibility.hanging.insert(42);
    const auto patient = application(42);
    cocoa::AXUIElementSetMessagingTimeout(patient.get(), 2);
    static_cast<void>(read(patient, "AXRole"));
    EXPECT_DOUBLE_EQ(queues::now(), 2);
    static_cast<void>(read(application(42), "AXRole"));
    EXPECT_DOUBLE_EQ(queues::now(), 8);
}

TEST_F(StandInOfAnotherProgram, PerformsAPressThatOutlastsItsCallersWait) {
    auto& program = start();
    world.accessibility.pressTakes["Next"] = 9;
    const auto press = Element::adopt(
        static_cast<cocoa::AXUIElementRef>(giveToPort(makeElement({42, item("Next")}))));
    const auto error = cocoa::AXUIElementPerformAction(
        press.get(), cocoa::bridged<cocoa::CFStringRef>(cocoa::string("AXPress")));
    EXPECT_EQ(std::to_string(error), code(platform::AccessibilityError::cannotComplete));
    EXPECT_DOUBLE_EQ(queues::now(), 6);
    EXPECT_THAT(program.pressed(), ElementsAre("Next"));
}

TEST_F(StandInOfAnotherProgram, GivesAKeyTheHeldModifiers) {
    start();
    constexpr auto shift = cocoa::kCGEventFlagMaskShift;
    world.keyboard.held = shift;
    const auto key = cocoa::CFOwned<cocoa::CGEventRef>::adopt(
        cocoa::CGEventCreateKeyboardEvent(nullptr, 124, true));
    EXPECT_NE(cocoa::CGEventGetFlags(key.get()) & shift, 0U);
    EXPECT_NE(cocoa::CGEventGetFlags(key.get()), shift) << "an arrow has flags of its own";
    cocoa::CGEventSetFlags(key.get(), {});
    cocoa::CGEventPostToPid(42, key.get());
    EXPECT_THAT(world.keyboard.postedFlags, ElementsAre(0U));
}

TEST_F(StandInOfAnotherProgram, GetsKeysByProcessOrByFocus) {
    auto& program = start();
    press(42, false);
    press(0, true);
    EXPECT_THAT(program.keysDown(), ElementsAre(121));
    world.programs.front = 42;
    press(0, true);
    EXPECT_THAT(program.keysDown(), ElementsAre(121, 121));
    world.accessibility.trusted = false;
    press(42, false);
    EXPECT_THAT(program.keysDown(), ElementsAre(121, 121)) << "dropped without a word";
}

TEST_F(StandInOfAnotherProgram, GetsNoKeysIfEventsCannotBeCreated) {
    world.keyboard.works = false;
    EXPECT_EQ(cocoa::CGEventCreateKeyboardEvent(nullptr, 121, true), nullptr);
}

TEST_F(StandInOfAnotherProgram, AnUnreleasedElementIsALeak) {
    const auto* element = cocoa::AXUIElementCreateApplication(1);
    EXPECT_THAT(leaked(), ElementsAre(HasSubstr("<AXUIElement 1>")));
    cocoa::CFRelease(element);
    EXPECT_THAT(leaked(), IsEmpty());
    cocoa::CFRelease(element);
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("CFRelease got <AXUIElement 1>, which was")));
}

}  // namespace

}  // namespace stagehopper::recording
