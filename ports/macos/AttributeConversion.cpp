#include "ports/macos/AttributeConversion.h"

#include <string>
#include <utility>

#include "ports/macos/MacUIElement.h"
#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::macos_port {

namespace {

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

platform::AttributeList listOf(cocoa::CFArrayRef array) {
    platform::AttributeList list;
    const auto count = cocoa::CFArrayGetCount(array);
    for (cocoa::CFIndex index = 0; index < count; ++index) {
        auto element = attributeValueOf(cocoa::CFArrayGetValueAtIndex(array, index));
        if (element) list.push_back(std::move(*element));
    }
    return list;
}

}  // namespace

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

}  // namespace stagehopper::macos_port
