#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/Accessibility.h"
#include "ports/macos/cocoa/graphics/AXUIElement.h"
#include "tests/macos/recording/foundation/Bridged.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/system/World.h"

// The accessibility interface. Reads do not appear in the journal, there are too many of them.

namespace stagehopper::recording {

namespace {

using Error = platform::AccessibilityError;

cocoa::AXError code(Error error) {
    return static_cast<cocoa::AXError>(error);
}

/// An element of another program's interface.
struct ElementState {
    platform::Pid process = 0;
    /// Null for the system-wide element.
    platform::UIElementRef element;
    /// The limit for calls through this reference only.
    std::optional<double> timeLimit = std::nullopt;
};

Retained makeElement(ElementState state) {
    auto element = makeObject(elementClass);
    stateOf<ElementState>(element.get()) = std::move(state);
    return element;
}

/// The objects for what an element of the simulated port returns.
struct ToObject {
    platform::Pid process;

    Retained operator()(const std::string& text) const { return makeString(text); }
    Retained operator()(bool truth) const { return makeTruth(truth); }
    Retained operator()(std::int64_t number) const { return makeNumber(number); }
    Retained operator()(const platform::UIElementRef& element) const {
        return makeElement({process, element});
    }
    Retained operator()(const platform::AttributeList& list) const {
        std::vector<Retained> elements;
        for (const auto& each : list) elements.push_back(std::visit(*this, each.value));
        return makeArray(elements);
    }
};

/// The value of an attribute, by the system's name; empty if the element lacks it, or its program
/// does not provide it.
Retained attributeOf(const ElementState& element, const std::string& name) {
    using Attribute = platform::AccessibilityAttribute;
    static const std::map<std::string, Attribute> known{
        {"AXChildren", Attribute::children},
        {"AXEnabled", Attribute::enabled},
        {"AXFocusedWindow", Attribute::focusedWindow},
        {"AXMenu", Attribute::menu},
        {"AXMenuBar", Attribute::menuBar},
        {"AXRole", Attribute::role},
        {"AXTitle", Attribute::title},
        {"AXWindows", Attribute::windows}};
    const auto& instead = World::current().accessibility.instead;
    if (const auto found = instead.find(name); found != instead.end()) return found->second;
    if (!element.element || !known.contains(name)) return {};
    const auto value = element.element->attributeValue(known.at(name));
    return value ? std::visit(ToObject{element.process}, value->value) : Retained();
}

/// Null, and a problem, for what is no element.
ElementState* elementOf(cocoa::AXUIElementRef reference, const char* function) {
    const auto object = objectOf(reference);
    if (isKindOf(object, elementClass)) return &stateOf<ElementState>(object);
    noteProblem(std::string(function) + " got " + describe(object));
    return nullptr;
}

double timeLimitOf(const ElementState& element) {
    return element.timeLimit.value_or(World::current().accessibility.timeLimit);
}

/// What every call comes to before the other program has its say; a program that hangs costs time.
Error reach(const ElementState& element) {
    const auto& world = World::current();
    if (!world.accessibility.trusted) return Error::apiDisabled;
    if (world.accessibility.hanging.contains(element.process)) {
        queues::waitUntil([] { return false; }, timeLimitOf(element));
        return Error::cannotComplete;
    }
    return world.programs.find(element.process) ? Error::success : Error::invalidElement;
}

/// A program that works longer than the limit on what the press asked for is cut off from
/// answering, not from doing it.
Error press(const ElementState& element) {
    if (!element.element) return Error::actionUnsupported;
    const auto title = element.element->attributeValue(platform::AccessibilityAttribute::title);
    const auto result = element.element->press();
    if (result != Error::success || !title) return result;
    const auto& world = World::current();
    const auto slow = world.accessibility.pressTakes.find(std::get<std::string>(title->value));
    if (slow == world.accessibility.pressTakes.end()) return Error::success;
    const auto limit = timeLimitOf(element);
    queues::waitUntil([] { return false; }, std::min(slow->second, limit));
    return slow->second > limit ? Error::cannotComplete : Error::success;
}

}  // namespace

}  // namespace stagehopper::recording

namespace stagehopper::cocoa {

using namespace recording;

extern "C" {
Boolean AXIsProcessTrusted(void) {
    return World::current().accessibility.trusted ? 1 : 0;
}

Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options) {
    recordFunction("AXIsProcessTrustedWithOptions", {describe(objectOf(options))});
    return AXIsProcessTrusted();
}

AXUIElementRef AXUIElementCreateApplication(int process) {
    const auto made = makeElement({process, World::current().elements.applicationElement(process)});
    return static_cast<AXUIElementRef>(giveToPort(made));
}

AXUIElementRef AXUIElementCreateSystemWide(void) {
    return static_cast<AXUIElementRef>(giveToPort(makeElement({})));
}

AXError AXUIElementCopyAttributeValue(AXUIElementRef element, CFStringRef attribute,
                                      CFTypeRef* value) {
    const auto* asked = elementOf(element, "AXUIElementCopyAttributeValue");
    if (asked == nullptr) return code(Error::illegalArgument);
    if (const auto error = reach(*asked); error != Error::success) return code(error);
    const auto found = attributeOf(*asked, textOf(objectOf(attribute)));
    if (!found) return code(Error::noValue);
    *value = giveToPort(found);
    return kAXErrorSuccess;
}

AXError AXUIElementPerformAction(AXUIElementRef element, CFStringRef action) {
    const auto* pressed = elementOf(element, "AXUIElementPerformAction");
    if (pressed == nullptr) return code(Error::illegalArgument);
    recordFunction("AXUIElementPerformAction",
                   {std::to_string(pressed->process), textOf(objectOf(action))});
    if (const auto error = reach(*pressed); error != Error::success) return code(error);
    return code(textOf(objectOf(action)) == "AXPress" ? press(*pressed) : Error::actionUnsupported);
}

AXError AXUIElementSetMessagingTimeout(AXUIElementRef element, float seconds) {
    auto* limited = elementOf(element, "AXUIElementSetMessagingTimeout");
    if (limited == nullptr) return code(Error::illegalArgument);
    recordFunction("AXUIElementSetMessagingTimeout", {std::to_string(seconds)});
    const auto limit = static_cast<double>(seconds);
    if (!limited->element) {
        World::current().accessibility.timeLimit =
            limit > 0 ? limit : Accessibility::systemsTimeLimit;
    } else {
        limited->timeLimit = limit > 0 ? std::optional(limit) : std::nullopt;
    }
    return kAXErrorSuccess;
}
}

}  // namespace stagehopper::cocoa
