#include "ports/macos/MacUIElement.h"

#include <utility>

#include "ports/macos/AttributeConversion.h"
#include "ports/macos/cocoa/NSString.h"

namespace stagehopper::macos_port {

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
    return platform::AccessibilityError(cocoa::AXUIElementPerformAction(element_.get(), action));
}

}  // namespace stagehopper::macos_port
