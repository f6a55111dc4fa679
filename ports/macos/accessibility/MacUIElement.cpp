#include "ports/macos/accessibility/MacUIElement.h"

#include <string>
#include <string_view>
#include <utility>

#include "ports/macos/cocoa/foundation/NSProcessInfo.h"
#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::macos_port {

namespace {

/// Seconds that a press may take: the system's own limit for a call. A program answers only after
/// the whole step, and a slide with a heavy build takes long.
constexpr float pressTimeout = 6.0F;

using platform::AttributeValue;

std::string textOf(cocoa::CFTypeRef string) {
    return cocoa::text(cocoa::NSString(cocoa::foundationObject(string)));
}

std::optional<AttributeValue> numberOf(cocoa::CFTypeRef value) {
    std::int64_t number = 0;
    const auto isWhole = cocoa::CFNumberGetValue(static_cast<cocoa::CFNumberRef>(value),
                                                 cocoa::kCFNumberSInt64Type, &number);
    if (isWhole == 0) return std::nullopt;
    return AttributeValue{number};
}

platform::UIElementRef elementOf(cocoa::CFTypeRef value) {
    return std::make_shared<MacUIElement>(
        cocoa::CFOwned<cocoa::AXUIElementRef>::share(static_cast<cocoa::AXUIElementRef>(value)));
}

/// The value that another program sent, by its actual type; absent when the type is unknown, or the
/// number is not whole. A list leaves such elements out. Keeps the elements in it; `value` itself
/// stays the caller's.
std::optional<AttributeValue> attributeValueOf(cocoa::CFTypeRef value);

platform::AttributeList listOf(cocoa::CFArrayRef array) {
    platform::AttributeList list;
    const auto count = cocoa::CFArrayGetCount(array);
    for (cocoa::CFIndex index = 0; index < count; ++index) {
        auto element = attributeValueOf(cocoa::CFArrayGetValueAtIndex(array, index));
        if (element) list.push_back(std::move(*element));
    }
    return list;
}

std::optional<AttributeValue> attributeValueOf(cocoa::CFTypeRef value) {
    if (value == nullptr) return std::nullopt;
    const auto type = cocoa::CFGetTypeID(value);
    if (type == cocoa::CFStringGetTypeID()) return AttributeValue{textOf(value)};
    if (type == cocoa::CFBooleanGetTypeID()) {
        return AttributeValue{cocoa::CFBooleanGetValue(static_cast<cocoa::CFBooleanRef>(value)) !=
                              0};
    }
    if (type == cocoa::CFNumberGetTypeID()) return numberOf(value);
    if (type == cocoa::AXUIElementGetTypeID()) return AttributeValue{elementOf(value)};
    if (type == cocoa::CFArrayGetTypeID()) {
        return AttributeValue{listOf(static_cast<cocoa::CFArrayRef>(value))};
    }
    return std::nullopt;
}

/// The system's name of an attribute: "AXChildren".
std::string_view nameOf(platform::AccessibilityAttribute attribute) {
    using enum platform::AccessibilityAttribute;
    switch (attribute) {
        case children:
            return "AXChildren";
        case enabled:
            return "AXEnabled";
        case focusedWindow:
            return "AXFocusedWindow";
        case menu:
            return "AXMenu";
        case menuBar:
            return "AXMenuBar";
        case role:
            return "AXRole";
        case title:
            return "AXTitle";
        case windows:
            return "AXWindows";
    }
    return {};
}

}  // namespace

MacUIElement::MacUIElement(cocoa::CFOwned<cocoa::AXUIElementRef> element)
    : element_(std::move(element)) {}

std::optional<platform::AttributeValue> MacUIElement::attributeValue(
    platform::AccessibilityAttribute attribute) const {
    if (!element_) return std::nullopt;
    const auto name = cocoa::bridged<cocoa::CFStringRef>(cocoa::string(nameOf(attribute)));
    cocoa::CFTypeRef copied = nullptr;
    const auto error = cocoa::AXUIElementCopyAttributeValue(element_.get(), name, &copied);
    const auto value = cocoa::CFOwned<cocoa::CFTypeRef>::adopt(copied);
    if (error != cocoa::kAXErrorSuccess) return std::nullopt;
    return attributeValueOf(value.get());
}

platform::AccessibilityError MacUIElement::press() const {
    if (!element_) return platform::AccessibilityError::invalidElement;
    const auto action = cocoa::bridged<cocoa::CFStringRef>(cocoa::string("AXPress"));
    const auto system = cocoa::NSProcessInfo::processInfo();
    cocoa::AXUIElementSetMessagingTimeout(element_.get(), pressTimeout);
    const double began = system.systemUptime();
    const auto error = cocoa::AXUIElementPerformAction(element_.get(), action);
    const double seconds = system.systemUptime() - began;
    cocoa::AXUIElementSetMessagingTimeout(element_.get(), 0);
    // The same error comes at once if the press cannot be delivered. After the full timeout the
    // press was delivered and only its answer is missing: a key in addition would be a second step.
    constexpr double tolerance = 0.5;
    if (error == cocoa::kAXErrorCannotComplete && seconds > pressTimeout - tolerance) {
        return platform::AccessibilityError::success;
    }
    return platform::AccessibilityError(error);
}

}  // namespace stagehopper::macos_port
